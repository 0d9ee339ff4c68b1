// From a row of the catalogue and the bytes in the file to what a field shows, and back. Pure functions.
import type { Key } from '../catalogue';
import type { JsonName, KindName } from '../kinds';
import type { Json } from '../protocol';
import { entered } from './number';

/** Why an entry cannot be written; the page's words say it. `text` is the limit, or what was typed. */
export interface Fault {
    why: 'number' | 'low' | 'high' | 'colour';
    text: string;
}
export type Parsed = { value: Json } | { fault: Fault };

export type FieldName =
    | 'number'
    | 'percentage'
    | 'colour'
    | 'switch'
    | 'choice'
    | 'sum'
    | 'text'
    | 'options'
    | 'list'
    | 'object'
    | 'words'
    | 'reference';

/** Kinds whose field does not follow from the type of their JSON value. */
const FIELDS: Partial<Record<KindName, FieldName>> = {
    percentage: 'percentage',
    colour: 'colour',
    switch: 'switch',
    choice: 'choice',
    sum: 'sum',
    options: 'options',
    words: 'words',
    control: 'reference',
    view: 'reference',
};
const BY_JSON: Record<JsonName, FieldName> = {
    number: 'number',
    bool: 'switch',
    text: 'text',
    array: 'list',
    object: 'object',
};

/** The field of a row. `json` is the JSON type of its kind, by which a new kind has a field, too. */
export function fieldOf(key: Key, json: JsonName): FieldName {
    const field = FIELDS[key.kind] ?? BY_JSON[json];
    return (field === 'choice' || field === 'sum') && !key.names?.length ? 'number' : field;
}

/** How many units of the file one unit of the field has: 10 if the file counts tenths. */
export const scaleOf = (key: Key): number => (key.unit?.startsWith('0.1 ') ? 10 : 1);

export function unitOf(key: Key): string {
    const unit = scaleOf(key) === 10 ? (key.unit ?? '').slice(4) : (key.unit ?? '');
    return unit === 'deg' ? '°' : unit;
}

export function jsonOf(raw: string | undefined): Json | undefined {
    if (raw === undefined || raw === '') return undefined;
    try {
        return JSON.parse(raw) as Json;
    } catch {
        return undefined;
    }
}

/** The number of a value that may be written as a name or a sum of names. */
export function numberOf(key: Key, value: Json | undefined): number | undefined {
    if (typeof value === 'number') return value;
    if (typeof value === 'boolean') return Number(value);
    if (typeof value !== 'string') return undefined;
    let sum = 0;
    for (const part of value.split('+')) {
        const name = key.names?.find((one) => one.name === part.trim());
        if (!name) return undefined;
        sum |= name.value;
    }
    return sum;
}

const hex = (value: number): string => '#' + (value & 0xffffff).toString(16).padStart(6, '0').toUpperCase();

/** "#RRGGBB" of a colour, or the name "$accent" itself; empty if it is neither. */
export function colourOf(value: Json | undefined): string {
    if (typeof value === 'number') return hex(value);
    if (typeof value !== 'string') return '';
    const short = /^#([0-9a-f])([0-9a-f])([0-9a-f])$/i.exec(value);
    return short ? `#${short[1]}${short[1]}${short[2]}${short[2]}${short[3]}${short[3]}`.toUpperCase() : value;
}

/** What a field shows for a value, without its unit. */
export function shownText(key: Key, value: Json | undefined): string {
    if (value === undefined || value === null || typeof value === 'object') return '';
    if (key.kind === 'colour') return colourOf(value);
    if (typeof value === 'number') return String(value / scaleOf(key));
    return String(value);
}

function numberParse(key: Key, text: string, before: number): Parsed {
    const scale = scaleOf(key);
    const percent = key.kind === 'opacity' && text.trim().endsWith('%');
    const bare = percent ? text.trim().slice(0, -1) : text;
    const computed = entered(bare, percent ? (before / 255) * 100 : before / scale);
    const value = Math.round(percent ? (computed * 255) / 100 : computed * scale);
    if (!Number.isFinite(value)) return { fault: { why: 'number', text } };
    if (key.low !== undefined && value < key.low) return { fault: { why: 'low', text: String(key.low / scale) } };
    if (key.high !== undefined && value > key.high) return { fault: { why: 'high', text: String(key.high / scale) } };
    return { value };
}

/** A colour that stands there as a number stays one, unless a name is chosen. */
function colourParse(text: string, before: Json | undefined): Parsed {
    const trimmed = text.trim();
    if (/^\$[\w-]+$/.test(trimmed)) return { value: trimmed };
    const digits =
        /^#?([0-9a-f]{3}|[0-9a-f]{6})$/i.test(trimmed) && (trimmed.startsWith('#') || !/^\d{4,}$/.test(trimmed));
    const number = digits
        ? parseInt(colourOf(trimmed.startsWith('#') ? trimmed : '#' + trimmed).slice(1), 16)
        : /^\d+$/.test(trimmed)
          ? Number(trimmed)
          : NaN;
    if (!(number <= 0xffffff)) return { fault: { why: 'colour', text } };
    return { value: typeof before === 'number' ? number : hex(number) };
}

/** What is typed, as the value for the file. `json` is the JSON type of the kind, `before` the value that stands there. */
export function parse(key: Key, json: string, text: string, before?: Json): Parsed {
    if (key.kind === 'colour') return colourParse(text, before);
    return json === 'number' ? numberParse(key, text, numberOf(key, before) ?? 0) : { value: text };
}

/** The bits of a sum that no name has; they are kept. */
export function unknownBits(key: Key, value: number): number {
    return (key.names ?? []).reduce((rest, name) => rest & ~name.value, value);
}

/** The names of a sum that are one bit each; sums of them, such as "all", are no boxes of their own. */
export const bitsOf = (key: Key): { name: string; value: number }[] =>
    (key.names ?? []).filter(({ value }) => value > 0 && (value & (value - 1)) === 0);

/** Finds a key beside another one, and its value. */
export type Beside = (key: string) => { row?: Key; value?: Json };

/** Whether a row has an effect, by its condition in the catalogue: "`layer` is 1 or 2". Other conditions count as met. */
export function applies(when: string | undefined, beside: Beside): boolean {
    const presence = /^there is a `(\w+)`$/.exec(when ?? '');
    if (presence) return beside(presence[1] ?? '').value !== undefined;
    const match = /^`(\w+)` (is not|is|has) (.+)$/.exec(when ?? '');
    if (!match) return true;
    const { row, value = 0 } = beside(match[1] ?? '');
    const now = (row ? numberOf(row, value) : Number(value)) ?? 0;
    const wanted = (match[3] ?? '').split(' or ').map((one) => {
        const name = one.replaceAll('`', '');
        const named = row?.names?.find((known) => known.name === name)?.value;
        return named ?? (name === 'true' ? 1 : name === 'false' ? 0 : Number(name));
    });
    if (match[2] === 'has') return wanted.some((bit) => (now & bit) !== 0);
    return wanted.includes(now) === (match[2] === 'is');
}
