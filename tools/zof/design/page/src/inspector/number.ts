// Numbers as people type them: arithmetic, and entries relative to the number that stands there. Pure functions.

/** Computes numbers with + - * / and parentheses. Returns NaN for anything else. */
export function compute(text: string): number {
    let at = 0;
    const skip = (): void => {
        while (text[at] === ' ') at++;
    };
    const factor = (): number => {
        skip();
        if (text[at] === '-') {
            at++;
            return -factor();
        }
        if (text[at] === '(') {
            at++;
            const inner = sum();
            skip();
            return text[at++] === ')' ? inner : NaN;
        }
        const match = /^(0x[0-9a-f]+|\d+(\.\d+)?)/i.exec(text.slice(at));
        at += match?.[0].length ?? 0;
        return match ? Number(match[0]) : NaN;
    };
    const product = (): number => {
        let value = factor();
        for (skip(); text[at] === '*' || text[at] === '/'; skip()) {
            value = text[at++] === '*' ? value * factor() : value / factor();
        }
        return value;
    };
    const sum = (): number => {
        let value = product();
        for (skip(); text[at] === '+' || text[at] === '-'; skip()) {
            value = text[at++] === '+' ? value + product() : value - product();
        }
        return value;
    };
    const value = sum();
    skip();
    return at === text.length ? value : NaN;
}

/** Whether an entry changes the number that stands there: "+8", "*2", "/2", "-=8". A "-8" is a negative number. */
export const isRelative = (text: string): boolean => /^\s*([+*/]|-=)/.test(text);

/** The number that an entry stands for. `before` is that of the field, which relative entries change. */
export function entered(text: string, before: number): number {
    const match = /^\s*(\+=?|\*=?|\/=?|-=)(.*)$/.exec(text);
    if (!match) return compute(text);
    const by = compute(match[2] ?? '');
    switch ((match[1] ?? '').charAt(0)) {
        case '+':
            return before + by;
        case '-':
            return before - by;
        case '*':
            return before * by;
        default:
            return before / by;
    }
}
