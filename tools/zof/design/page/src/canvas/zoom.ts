import { computed, signal } from '@preact/signals';

import type { Box } from '../protocol';
import { keep, kept } from '../state';
import type { Point } from './geometry';
import { pictureSize } from './picture';

const STEPS = [0.25, 0.5, 0.75, 1, 1.25, 1.5, 2, 3, 4, 8, 16];
const EDGE_PX = 44; // for the rulers and the shadow

/** The room for the picture, in pixels of the page. */
export const room = signal({ width: 0, height: 0 });

/** How far the picture is from the middle of its room, in pixels of the page. */
export const pan = signal({ x: 0, y: 0 });

function fitting(width: number, height: number): number {
    const most = Math.min((room.value.width - 2 * EDGE_PX) / width, (room.value.height - 2 * EDGE_PX) / height);
    return STEPS.filter((step) => step <= most).pop() ?? STEPS[0] ?? 1;
}

const fit = computed(() => fitting(pictureSize.value.width, pictureSize.value.height));

export const zoom = computed(() => kept.value.zoom || fit.value);

/** Zooms so that a place, counted from the middle of the room, stays. */
export function zoomTo(next: number, at: Point = { x: 0, y: 0 }): void {
    const factor = next / zoom.value;
    pan.value = { x: at.x - (at.x - pan.value.x) * factor, y: at.y - (at.y - pan.value.y) * factor };
    keep({ zoom: next });
}

export function zoomStep(by: 1 | -1, at?: Point): void {
    const now = zoom.value;
    const next = by > 0 ? STEPS.find((step) => step > now) : [...STEPS].reverse().find((step) => step < now);
    if (next) zoomTo(next, at);
}

export function zoomFit(): void {
    pan.value = { x: 0, y: 0 };
    keep({ zoom: 0 });
}

/** Shows a box of the panel as large as it fits. */
export function zoomBox([x, y, width, height]: Box): void {
    const next = fitting(width, height);
    const { width: w, height: h } = pictureSize.value;
    pan.value = { x: (w / 2 - x - width / 2) * next, y: (h / 2 - y - height / 2) * next };
    keep({ zoom: next });
}
