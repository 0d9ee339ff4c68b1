// What attracts controls that are moved, resized or placed.
import type { Snapped } from './geometry';

export const REACH_PX = 6; // of the screen
export const GRID = 4;
export const none: Snapped = { dx: 0, dy: 0, guides: [], gaps: [] };
