// Hue, saturation and value of a colour, for its panel. Pure functions.

export interface Hsv {
    h: number; // 0 to 360
    s: number; // 0 to 1
    v: number; // 0 to 1
}

export function hsvOf(colour: string): Hsv {
    const number = parseInt(colour.slice(1), 16);
    const [r, g, b] = [number >> 16, (number >> 8) & 255, number & 255].map((part) => part / 255) as [
        number,
        number,
        number,
    ];
    const v = Math.max(r, g, b);
    const c = v - Math.min(r, g, b);
    const sector = c === 0 ? 0 : v === r ? ((g - b) / c + 6) % 6 : v === g ? (b - r) / c + 2 : (r - g) / c + 4;
    return { h: sector * 60, s: v === 0 ? 0 : c / v, v };
}

/** "#RRGGBB" of a colour. */
export function rgbOf({ h, s, v }: Hsv): string {
    const part = (n: number): string => {
        const k = (n + h / 60) % 6;
        return Math.round((v - v * s * Math.max(0, Math.min(k, 4 - k, 1))) * 255)
            .toString(16)
            .padStart(2, '0');
    };
    return `#${part(5)}${part(3)}${part(1)}`.toUpperCase();
}
