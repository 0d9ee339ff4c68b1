// Boxes, snapping and alignment. Pure functions, in whole pixels of the panel.
import type { Box } from '../protocol';

export interface Point {
    x: number;
    y: number;
}

/** A line that shows what was hit: across at y, or down at x, from one end to the other. */
export interface Guide {
    vertical: boolean;
    at: number;
    from: number;
    to: number;
}

/** A gap that equals another one. */
export interface Gap {
    vertical: boolean;
    at: number; // middle, in the other direction
    from: number;
    to: number;
}

export interface Snapped {
    dx: number;
    dy: number;
    guides: Guide[];
    gaps: Gap[];
}

export type Handle = 'n' | 'ne' | 'e' | 'se' | 's' | 'sw' | 'w' | 'nw';
export const HANDLES: Handle[] = ['nw', 'n', 'ne', 'e', 'se', 's', 'sw', 'w'];

export const right = ([x, , width]: Box): number => x + width;
export const bottom = ([, y, , height]: Box): number => y + height;
export const contains = (box: Box, { x, y }: Point): boolean =>
    x >= box[0] && y >= box[1] && x < right(box) && y < bottom(box);
export const touches = (a: Box, b: Box): boolean =>
    a[0] < right(b) && b[0] < right(a) && a[1] < bottom(b) && b[1] < bottom(a);
export const within = (inner: Box, outer: Box): boolean =>
    inner[0] >= outer[0] && inner[1] >= outer[1] && right(inner) <= right(outer) && bottom(inner) <= bottom(outer);

export function boxOf(a: Point, b: Point): Box {
    return [Math.min(a.x, b.x), Math.min(a.y, b.y), Math.abs(a.x - b.x), Math.abs(a.y - b.y)];
}

export function union(boxes: Box[]): Box {
    const x = Math.min(...boxes.map((box) => box[0]));
    const y = Math.min(...boxes.map((box) => box[1]));
    return [x, y, Math.max(...boxes.map(right)) - x, Math.max(...boxes.map(bottom)) - y];
}

/** The three places of a box in one direction: its edges and its middle. */
function lines(box: Box, vertical: boolean): number[] {
    const at = vertical ? box[0] : box[1];
    const size = vertical ? box[2] : box[3];
    return [at, at + size / 2, at + size];
}

/** The smallest step that brings one of the places onto one of the targets; null if none is near enough. */
function nearest(places: number[], targets: number[], reach: number): number | null {
    let best: number | null = null;
    for (const place of places) {
        for (const target of targets) {
            const step = target - place;
            const whole = Number.isInteger(step); // middles may lie between two pixels
            if (whole && Math.abs(step) <= reach && (best === null || Math.abs(step) < Math.abs(best))) best = step;
        }
    }
    return best;
}

/** The step that makes the gap to a neighbour equal to one between two others. */
function gapStep(box: Box, others: Box[], vertical: boolean, reach: number): { step: number; gap: number } | null {
    const start = (b: Box): number => (vertical ? b[1] : b[0]);
    const end = (b: Box): number => (vertical ? bottom(b) : right(b));
    const beside = others.filter((other) =>
        vertical ? other[0] < right(box) && right(other) > box[0] : other[1] < bottom(box) && bottom(other) > box[1],
    );
    const sorted = [...beside].sort((a, b) => start(a) - start(b));
    const gaps: number[] = [];
    for (let i = 1; i < sorted.length; i++) {
        const before = sorted[i - 1];
        const after = sorted[i];
        if (before && after && start(after) - end(before) > 0) gaps.push(start(after) - end(before));
    }
    const places = beside.flatMap((other) =>
        gaps.flatMap((gap) => [end(other) + gap, start(other) - gap - (end(box) - start(box))]),
    );
    const step = nearest([start(box)], places, reach);
    const gap = gaps.find((one) =>
        beside.some(
            (other) =>
                step !== null && (end(other) + one === start(box) + step || start(other) - one === end(box) + step),
        ),
    );
    return step === null || gap === undefined ? null : { step, gap };
}

function guidesOf(box: Box, others: Box[], vertical: boolean): Guide[] {
    const own = lines(box, vertical);
    const guides = new Map<number, Guide>();
    for (const other of others) {
        for (const at of lines(other, vertical).filter((line) => own.includes(line))) {
            const from = vertical ? Math.min(box[1], other[1]) : Math.min(box[0], other[0]);
            const to = vertical ? Math.max(bottom(box), bottom(other)) : Math.max(right(box), right(other));
            const known = guides.get(at);
            guides.set(at, {
                vertical,
                at,
                from: known ? Math.min(known.from, from) : from,
                to: known ? Math.max(known.to, to) : to,
            });
        }
    }
    return [...guides.values()];
}

function gapsOf(box: Box, others: Box[], gap: number, vertical: boolean): Gap[] {
    const found: Gap[] = [];
    for (const other of others) {
        const after = vertical ? other[1] - bottom(box) : other[0] - right(box);
        const before = vertical ? box[1] - bottom(other) : box[0] - right(other);
        const at = vertical ? box[0] + box[2] / 2 : box[1] + box[3] / 2;
        if (after === gap)
            found.push({ vertical, at, from: vertical ? bottom(box) : right(box), to: vertical ? other[1] : other[0] });
        if (before === gap)
            found.push({ vertical, at, from: vertical ? bottom(other) : right(other), to: vertical ? box[1] : box[0] });
    }
    return found;
}

/** Moves a box onto edges, middles and equal gaps within reach. `frame` is the parent or the screen. */
export function snapMove(box: Box, others: Box[], frame: Box, reach: number): Snapped {
    const targets = [...others, frame];
    const stepX = nearest(
        lines(box, true),
        targets.flatMap((other) => lines(other, true)),
        reach,
    );
    const stepY = nearest(
        lines(box, false),
        targets.flatMap((other) => lines(other, false)),
        reach,
    );
    const gapX = stepX === null ? gapStep(box, others, false, reach) : null;
    const gapY = stepY === null ? gapStep(box, others, true, reach) : null;
    const dx = stepX ?? gapX?.step ?? 0;
    const dy = stepY ?? gapY?.step ?? 0;
    const moved: Box = [box[0] + dx, box[1] + dy, box[2], box[3]];
    return {
        dx,
        dy,
        guides: [
            ...(stepX === null ? [] : guidesOf(moved, targets, true)),
            ...(stepY === null ? [] : guidesOf(moved, targets, false)),
        ],
        gaps: [
            ...(gapX ? gapsOf(moved, others, gapX.gap, false) : []),
            ...(gapY ? gapsOf(moved, others, gapY.gap, true) : []),
        ],
    };
}

export function snapGrid(box: Box, step: number): Snapped {
    const toGrid = (value: number): number => Math.round(value / step) * step - value;
    return { dx: toGrid(box[0]), dy: toGrid(box[1]), guides: [], gaps: [] };
}

/** Resizes a box by its handle. `keep` keeps the proportion, `middle` the middle. No side gets below one pixel. */
export function resize(box: Box, handle: Handle, by: Point, keep: boolean, middle: boolean): Box {
    const both = middle ? 2 : 1;
    let width = box[2] + both * (handle.includes('e') ? by.x : handle.includes('w') ? -by.x : 0);
    let height = box[3] + both * (handle.includes('s') ? by.y : handle.includes('n') ? -by.y : 0);
    if (keep && box[2] > 0 && box[3] > 0) {
        const scale =
            handle.length === 2
                ? Math.max(width / box[2], height / box[3])
                : handle === 'n' || handle === 's'
                  ? height / box[3]
                  : width / box[2];
        width = box[2] * scale;
        height = box[3] * scale;
    }
    width = Math.max(1, Math.round(width));
    height = Math.max(1, Math.round(height));
    const x = middle ? box[0] + Math.round((box[2] - width) / 2) : handle.includes('w') ? right(box) - width : box[0];
    const y = middle
        ? box[1] + Math.round((box[3] - height) / 2)
        : handle.includes('n')
          ? bottom(box) - height
          : box[1];
    return [x, y, width, height];
}

/** The step by which a moved edge of a box that is resized snaps; guides as in snapMove. */
export function snapResize(box: Box, handle: Handle, others: Box[], frame: Box, reach: number): Snapped {
    const targets = [...others, frame];
    const edgeX = handle.includes('e') ? right(box) : handle.includes('w') ? box[0] : null;
    const edgeY = handle.includes('s') ? bottom(box) : handle.includes('n') ? box[1] : null;
    const dx =
        edgeX === null
            ? null
            : nearest(
                  [edgeX],
                  targets.flatMap((other) => lines(other, true)),
                  reach,
              );
    const dy =
        edgeY === null
            ? null
            : nearest(
                  [edgeY],
                  targets.flatMap((other) => lines(other, false)),
                  reach,
              );
    const after = resize(box, handle, { x: dx ?? 0, y: dy ?? 0 }, false, false);
    return {
        dx: dx ?? 0,
        dy: dy ?? 0,
        guides: [
            ...(dx === null ? [] : guidesOf(after, targets, true)),
            ...(dy === null ? [] : guidesOf(after, targets, false)),
        ],
        gaps: [],
    };
}

export type Align = 'left' | 'centre' | 'right' | 'top' | 'middle' | 'bottom';

/** The steps that align boxes: to `key`, which itself stays if it is among them. */
export function alignSteps(boxes: Box[], key: Box, how: Align): Point[] {
    return boxes.map((box) => {
        switch (how) {
            case 'left':
                return { x: key[0] - box[0], y: 0 };
            case 'centre':
                return { x: Math.round(key[0] + key[2] / 2 - box[0] - box[2] / 2), y: 0 };
            case 'right':
                return { x: right(key) - right(box), y: 0 };
            case 'top':
                return { x: 0, y: key[1] - box[1] };
            case 'middle':
                return { x: 0, y: Math.round(key[1] + key[3] / 2 - box[1] - box[3] / 2) };
            case 'bottom':
                return { x: 0, y: bottom(key) - bottom(box) };
        }
    });
}

/** The steps that make the gaps between boxes equal; the first and the last one stay. */
export function gapSteps(boxes: Box[], vertical: boolean): Point[] {
    const index = vertical ? 1 : 0;
    const size = vertical ? 3 : 2;
    const order = boxes.map((_, i) => i).sort((a, b) => (boxes[a]?.[index] ?? 0) - (boxes[b]?.[index] ?? 0));
    const steps: Point[] = boxes.map(() => ({ x: 0, y: 0 }));
    const first = boxes[order[0] ?? 0];
    const last = boxes[order[order.length - 1] ?? 0];
    if (boxes.length < 3 || !first || !last) return steps;
    const taken = order.reduce((sum, i) => sum + (boxes[i]?.[size] ?? 0), 0);
    const gap = (last[index] + last[size] - first[index] - taken) / (boxes.length - 1);
    let at: number = first[index];
    for (const i of order) {
        const box = boxes[i];
        if (!box) continue;
        const by = Math.round(at) - box[index];
        steps[i] = vertical ? { x: 0, y: by } : { x: by, y: 0 };
        at += box[size] + gap;
    }
    return steps;
}
