// The runtime's picture, as it comes from the program.
import { signal } from '@preact/signals';
import { useEffect, useRef } from 'preact/hooks';

import type { Box, FrameHead } from '../protocol';
import { onFrame } from '../socket';

export const pictureSize = signal({ width: 0, height: 0 });
export const frameAt = signal(0); // when the last picture was shown, in milliseconds of the page

// Kept outside of the component, so that a new canvas shows the last picture at once.
const store = document.createElement('canvas');
const tiles = new Map<number, (head: FrameHead, pixels: Uint8ClampedArray) => void>();

function put(canvas: HTMLCanvasElement, head: FrameHead, pixels: Uint8ClampedArray): void {
    if (canvas.width !== head.fullWidth || canvas.height !== head.fullHeight) {
        canvas.width = head.fullWidth;
        canvas.height = head.fullHeight;
    }
    if (head.width && head.height) {
        const data = new ImageData(new Uint8ClampedArray(pixels), head.width, head.height);
        canvas.getContext('2d')?.putImageData(data, head.x, head.y);
    }
}

onFrame((head, pixels) => {
    if (head.kind === 2) {
        tiles.get(head.number)?.(head, pixels);
        tiles.delete(head.number);
        return;
    }
    put(store, head, pixels);
    frameAt.value = performance.now();
    const { width, height } = pictureSize.value;
    if (width !== head.fullWidth || height !== head.fullHeight) {
        pictureSize.value = { width: head.fullWidth, height: head.fullHeight };
    }
});

/** The pixels of a part of the picture, RGBA; null if none of it is in the picture. */
export function pixelsOf([x, y, width, height]: Box): Uint8ClampedArray | null {
    const left = Math.max(0, x);
    const top = Math.max(0, y);
    const wide = Math.min(store.width, x + width) - left;
    const high = Math.min(store.height, y + height) - top;
    return wide > 0 && high > 0 ? (store.getContext('2d')?.getImageData(left, top, wide, high).data ?? null) : null;
}

/** The picture as a PNG file. */
export const pictureBlob = (): Promise<Blob | null> => new Promise((done) => store.toBlob(done));

let lastTile = 0;

/** Waits for the picture of a tile, which the caller asks for with the number. */
export function tileWait(fn: (canvas: HTMLCanvasElement) => void): number {
    tiles.set(++lastTile, (head, pixels) => {
        const canvas = document.createElement('canvas');
        put(canvas, head, pixels);
        fn(canvas);
    });
    return lastTile;
}

export function Picture({ sharp }: { sharp: boolean }) {
    const holder = useRef<HTMLDivElement>(null);
    useEffect(() => {
        holder.current?.append(store);
    }, []);
    return <div class={sharp ? 'picture sharp' : 'picture'} ref={holder} />;
}
