// A gesture on the picture: what is dragged, what it would change, and what is shown meanwhile. At most one try is on its
// way to the program; the newest one that waits replaces older ones.
import { signal } from '@preact/signals';

import { attempt, boxEdits, edit, frameOf, labelOf, moveEdits, placedOf, type Placed } from '../actions';
import type { Box, Control, Edit } from '../protocol';
import { request } from '../socket';
import { controls, kept } from '../state';
import { GRID, none, REACH_PX } from './snap';
import { resize, snapGrid, snapMove, snapResize, union, type Handle, type Point, type Snapped } from './geometry';

export const DEAD_PX = 3;

export interface Drag {
    list: Control[];
    placed: Placed[];
    box: Box; // around the list, before
    handle: Handle | null; // null moves
    now: Box;
    snapped: Snapped;
    edits: Edit[];
    copy: boolean;
}

export const drag = signal<Drag | null>(null);

let waiting: (() => Promise<unknown>) | null = null;
let sending = false;

async function trySend(): Promise<void> {
    if (sending) return;
    while (waiting) {
        const next = waiting;
        waiting = null;
        sending = true;
        await next();
        sending = false;
    }
}

/** Asks the program to show something that is not written; the request ends when it is seen. */
export function tryRun(send: () => Promise<unknown>): void {
    waiting = send;
    void trySend();
}

export const tryEdits = (edits: Edit[]): void => tryRun(() => attempt(request('try', { edits })));

/** Forgets a try that waits to be sent: what it shows is written now. */
export function tryStop(): void {
    waiting = null;
}

// The last movement, which is repeated when the places have been read, and what the arrow keys add to it.
let last: { by: Point; keys: Keys; zoom: number } | null = null;
let correction: Point = { x: 0, y: 0 };
let ready: Promise<void> = Promise.resolve();

async function placesRead(list: Control[]): Promise<void> {
    const placed = await placedOf(list);
    if (drag.value?.list !== list) return;
    drag.value = { ...drag.value, placed };
    if (last) dragMove(last.by, last.keys, last.zoom);
}

export function dragBegin(list: Control[], handle: Handle | null): void {
    const box = union(list.map((control) => control.box));
    drag.value = { list, placed: [], box, handle, now: box, snapped: none, edits: [], copy: false };
    last = null;
    correction = { x: 0, y: 0 };
    ready = placesRead(list);
}

/** Moves what is dragged by pixels, by the arrow keys; it does not snap from then on. */
export function dragCorrect(x: number, y: number): void {
    correction = { x: correction.x + x, y: correction.y + y };
    if (last) dragMove(last.by, last.keys, last.zoom);
}

/** Boxes that guides look at: the siblings of what is dragged. */
function others(list: Control[]): Box[] {
    const paths = new Set(list.map((control) => control.path));
    const parent = list[0]?.parent;
    return controls.value
        .filter((control) => control.visible && control.parent === parent && !paths.has(control.path))
        .map((control) => control.box)
        .slice(-200);
}

function moveOf(state: Drag, by: Point, free: boolean, zoom: number): { now: Box; snapped: Snapped } {
    const box: Box = [state.box[0] + by.x, state.box[1] + by.y, state.box[2], state.box[3]];
    const first = state.list[0];
    const snapped = free
        ? none
        : kept.value.grid
          ? snapGrid(box, GRID)
          : kept.value.snap && first
            ? snapMove(box, others(state.list), frameOf(first), REACH_PX / zoom)
            : none;
    return { now: [box[0] + snapped.dx, box[1] + snapped.dy, box[2], box[3]], snapped };
}

function sizeOf(state: Drag, handle: Handle, by: Point, keys: Keys, zoom: number): { now: Box; snapped: Snapped } {
    const box = resize(state.box, handle, by, keys.shift, keys.alt);
    const first = state.list[0];
    if (keys.ctrl || keys.shift || !kept.value.snap || !first) return { now: box, snapped: none };
    const snapped = snapResize(box, handle, others(state.list), frameOf(first), REACH_PX / zoom);
    return { now: resize(box, handle, { x: snapped.dx, y: snapped.dy }, false, false), snapped };
}

export interface Keys {
    shift: boolean;
    ctrl: boolean;
    alt: boolean;
}

/** Follows the pointer, which has moved by so many pixels of the panel. */
export function dragMove(by: Point, keys: Keys, zoom: number): void {
    const state = drag.value;
    last = { by, keys, zoom };
    if (!state?.placed.length) return;
    const whole = { x: Math.round(by.x) + correction.x, y: Math.round(by.y) + correction.y };
    const free = keys.ctrl || correction.x !== 0 || correction.y !== 0;
    if (state.handle) {
        const { now, snapped } = sizeOf(state, state.handle, whole, { ...keys, ctrl: free }, zoom);
        const first = state.placed[0];
        const edits = first ? boxEdits(first, now) : [];
        drag.value = { ...state, now, snapped, edits };
    } else {
        if (keys.shift) whole[Math.abs(whole.x) > Math.abs(whole.y) ? 'y' : 'x'] = 0;
        const { now, snapped } = moveOf(state, whole, free, zoom);
        const step = { x: now[0] - state.box[0], y: now[1] - state.box[1] };
        drag.value = {
            ...state,
            now,
            snapped,
            edits: state.placed.flatMap((one) => moveEdits(one, step)),
            copy: keys.alt,
        };
    }
    tryEdits(drag.value.copy ? [] : drag.value.edits);
}

/** Writes what was dragged, or nothing. Returns the step of a copy, which the caller makes. */
export async function dragEnd(write: boolean): Promise<Point | null> {
    if (write) await ready;
    const state = drag.value;
    drag.value = null;
    waiting = null;
    if (!state) return null;
    const step = { x: state.now[0] - state.box[0], y: state.now[1] - state.box[1] };
    if (write && state.copy) return step;
    if (write && state.edits.length) await edit(labelOf(state.handle ? 'Resize' : 'Move', state.list), state.edits);
    else tryEdits([]);
    return null;
}
