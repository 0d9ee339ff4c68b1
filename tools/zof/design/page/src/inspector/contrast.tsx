// How well a text is read on what is really behind it: the pixels of the picture.
import { pixelsOf } from '../canvas/picture';
import type { Json } from '../protocol';
import { chosen } from '../state';
import { Icon } from '../shell/icon';
import { words } from '../words';

const ENOUGH = 4.5;
const ENOUGH_LARGE = 3;
const LARGE_PX = 24;

const channel = (value: number): number =>
    value <= 0.04045 * 255 ? value / 255 / 12.92 : ((value / 255 + 0.055) / 1.055) ** 2.4;

function luminance(colour: string): number {
    const [red = 0, green = 0, blue = 0] = [1, 3, 5].map((at) => channel(parseInt(colour.slice(at, at + 2), 16)));
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}

export function contrast(a: string, b: string): number {
    const [dark = 0, light = 0] = [luminance(a), luminance(b)].sort((x, y) => x - y);
    return (light + 0.05) / (dark + 0.05);
}

/** The most frequent colour of some pixels, RGBA. */
function ground(pixels: Uint8ClampedArray): string {
    const counts = new Map<number, number>();
    let most = 0;
    for (let at = 0; at + 3 < pixels.length; at += 4) {
        const colour = ((pixels[at] ?? 0) << 16) | ((pixels[at + 1] ?? 0) << 8) | (pixels[at + 2] ?? 0);
        const count = (counts.get(colour) ?? 0) + 1;
        counts.set(colour, count);
        if (count > (counts.get(most) ?? 0)) most = colour;
    }
    return '#' + most.toString(16).padStart(6, '0').toUpperCase();
}

export function Contrast({ colour, size }: { colour: string; size: Json | undefined }) {
    const control = chosen.value;
    const pixels = control?.visible ? pixelsOf(control.box) : null;
    if (!pixels) return null;
    const behind = ground(pixels);
    const ratio = contrast(colour, behind);
    const enough = typeof size === 'number' && size >= LARGE_PX ? ENOUGH_LARGE : ENOUGH;
    const low = ratio < enough;
    return (
        <span class={low ? 'warn small' : 't2 small'}>
            <Icon name={low ? 'warning' : 'half'} />
            {words.contrast(ratio.toFixed(1), behind)}
            {low && ` · ${words.contrastLow(String(enough))}`}
        </span>
    );
}
