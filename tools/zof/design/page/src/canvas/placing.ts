// A new control on its way onto the picture: dragged from the palette, or drawn after a click on its type. The runtime
// draws it where it would be.
import { signal } from '@preact/signals';

import { add, attempt } from '../actions';
import type { Box, Control } from '../protocol';
import { request } from '../socket';
import { controls, kept, project, shown } from '../state';
import { tryEdits, tryRun } from './drag';
import { boxOf, contains, snapGrid, snapMove, snapResize, type Point, type Snapped } from './geometry';
import { GRID, none, REACH_PX } from './snap';

/** A type that is to be placed. `drawn`: by a press on the picture, which gives it its size. */
export interface Carried {
    type: string;
    width: number;
    height: number;
    drawn: boolean;
}

export const carried = signal<Carried | null>(null);

/** Where it would be. */
export const placing = signal<{ box: Box; snapped: Snapped; parent: Control | undefined } | null>(null);

// The controls of the files. Those of the picture have the one that is tried among them, which is nobody's parent.
let standing: Control[] | null = null;
const stand = (): Control[] => (standing ??= controls.value);

const frame = (parent: Control | undefined): Box =>
    parent?.box ?? [0, 0, project.value?.width ?? 0, project.value?.height ?? 0];

const parentAt = (point: Point): Control | undefined =>
    [...stand()].reverse().find((one) => one.type === 'container' && one.visible && contains(one.box, point));

const siblings = (parent: Control | undefined): Box[] =>
    stand()
        .filter((one) => one.visible && one.parent === parent?.path)
        .map((one) => one.box)
        .slice(-200);

function show(box: Box, snapped: Snapped, parent: Control | undefined): void {
    const type = carried.value?.type;
    if (!type) return;
    placing.value = { box, snapped, parent };
    const [x = 0, y = 0] = parent?.box ?? [];
    const place = { x: box[0] - x, y: box[1] - y, width: box[2], height: box[3] };
    const view = shown.value.view;
    tryRun(() => attempt(request('add', { view, type, parent: parent?.path, ...place, try: true })));
}

/** The middle of the control follows the pointer. */
export function placeMove(at: Point, free: boolean, zoom: number): void {
    const type = carried.value;
    if (!type) return;
    const parent = parentAt(at);
    const box: Box = [Math.round(at.x - type.width / 2), Math.round(at.y - type.height / 2), type.width, type.height];
    const snapped = free
        ? none
        : kept.value.grid
          ? snapGrid(box, GRID)
          : kept.value.snap
            ? snapMove(box, siblings(parent), frame(parent), REACH_PX / zoom)
            : none;
    show([box[0] + snapped.dx, box[1] + snapped.dy, box[2], box[3]], snapped, parent);
}

/** The control reaches from one corner to the other. */
export function placeDraw(start: Point, at: Point, free: boolean, zoom: number): void {
    const parent = parentAt(start);
    const whole = (point: Point): Point => ({ x: Math.round(point.x), y: Math.round(point.y) });
    const box = boxOf(whole(start), whole(at));
    const handle = at.x >= start.x ? (at.y >= start.y ? 'se' : 'ne') : at.y >= start.y ? 'sw' : 'nw';
    const snapped =
        free || !kept.value.snap ? none : snapResize(box, handle, siblings(parent), frame(parent), REACH_PX / zoom);
    const corner = whole({ x: at.x + snapped.dx, y: at.y + snapped.dy });
    const [x, y, width, height] = boxOf(whole(start), corner);
    show([x, y, Math.max(1, width), Math.max(1, height)], snapped, parent);
}

/** Writes the control where it is shown, or forgets it. */
export async function placeEnd(write: boolean): Promise<void> {
    const type = carried.value;
    const now = placing.value;
    carried.value = null;
    placing.value = null;
    standing = null;
    if (!type || !now || !write) {
        tryEdits([]);
        return;
    }
    const [x = 0, y = 0] = now.parent?.box ?? [];
    const size = type.drawn ? { width: now.box[2], height: now.box[3] } : undefined;
    await add(type.type, now.box[0] - x, now.box[1] - y, now.parent?.path, size);
}

/** Nothing is shown while the pointer is not over the picture. */
export function placeHide(): void {
    if (!placing.value) return;
    placing.value = null;
    tryEdits([]);
}
