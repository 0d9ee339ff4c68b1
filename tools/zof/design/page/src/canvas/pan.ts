// Moving the picture below the pointer: by the wheel, the middle button, or with the space bar held.
import { signal } from '@preact/signals';

import { pan, zoomStep } from './zoom';

export const tool = signal<'select' | 'pan'>('select');
export const spaceHeld = signal(false);
export const panning = signal(false);

let start = { x: 0, y: 0 };

/** Whether a press moves the picture instead of what lies on it. */
export const panBegins = (event: PointerEvent): boolean =>
    event.button === 1 || (event.button === 0 && (tool.value === 'pan' || spaceHeld.value));

export function panBegin(event: PointerEvent): void {
    event.preventDefault();
    panning.value = true;
    start = { x: event.clientX - pan.value.x, y: event.clientY - pan.value.y };
}

export function panMove(event: PointerEvent): void {
    pan.value = { x: event.clientX - start.x, y: event.clientY - start.y };
}

/** Zooms at the pointer with Ctrl; otherwise pans, sideways with Shift. */
export function wheel(event: WheelEvent, stage: HTMLElement): void {
    event.preventDefault();
    if (event.ctrlKey || event.metaKey) {
        const box = stage.getBoundingClientRect();
        const x = event.clientX - box.left - box.width / 2;
        zoomStep(event.deltaY < 0 ? 1 : -1, { x, y: event.clientY - box.top - box.height / 2 });
        return;
    }
    const sideways = event.shiftKey && event.deltaX === 0;
    pan.value = {
        x: pan.value.x - (sideways ? event.deltaY : event.deltaX),
        y: pan.value.y - (sideways ? 0 : event.deltaY),
    };
}
