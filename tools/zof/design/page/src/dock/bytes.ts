// Places in a text: the program counts bytes of UTF-8 from 0, and in lines and columns from 1; the editor counts units of UTF-16.
const encoder = new TextEncoder();

export const byteLength = (text: string): number => encoder.encode(text).length;

export interface Replacement {
    at: number; // units of UTF-16
    end: number;
    text: string;
}

const isLowSurrogate = (text: string, at: number): boolean => {
    const unit = text.charCodeAt(at);
    return unit >= 0xdc00 && unit <= 0xdfff;
};

/** The smallest replacement that makes one text of another; null for equal texts. No character is cut in two. */
export function replacement(before: string, after: string): Replacement | null {
    if (before === after) return null;
    const most = Math.min(before.length, after.length);
    let head = 0;
    while (head < most && before[head] === after[head]) head++;
    if (head > 0 && (isLowSurrogate(before, head) || isLowSurrogate(after, head))) head--;
    let tail = 0;
    while (tail < most - head && before[before.length - 1 - tail] === after[after.length - 1 - tail]) tail++;
    if (tail > 0 && (isLowSurrogate(before, before.length - tail) || isLowSurrogate(after, after.length - tail)))
        tail--;
    return { at: head, end: before.length - tail, text: after.slice(head, after.length - tail) };
}

/** The same in bytes, as the request `edit` wants it. */
export function replacementBytes(before: string, change: Replacement): { at: number; end: number; text: string } {
    const at = byteLength(before.slice(0, change.at));
    return { at, end: at + byteLength(before.slice(change.at, change.end)), text: change.text };
}

/** The unit of UTF-16 in a line at a column of bytes, both from 0. */
export function unitOfByte(line: string, bytes: number): number {
    let count = 0;
    let unit = 0;
    for (const letter of line) {
        if (count >= bytes) break;
        count += byteLength(letter);
        unit += letter.length;
    }
    return unit;
}
