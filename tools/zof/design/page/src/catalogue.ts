// The catalogue of control types and keys, as `zof catalogue --json` prints it. The page has no list of types or keys of its own.
import { signal } from '@preact/signals';

export interface Name {
    name: string;
    value: number;
}

export interface Key {
    key: string;
    kind: string;
    group: string;
    unit?: string;
    low?: number;
    high?: number;
    start?: unknown;
    absent?: unknown;
    names?: Name[];
    help: string;
    when?: string; // the condition under which it has an effect
    record?: string; // of objects, and of lists of objects
    row?: string;
    call?: string;
    needed: boolean;
    ignored: boolean;
}

/** A help text without its marks for code and links. */
export const plainHelp = (text: string): string => text.replaceAll('`', '').replaceAll(/\[([^\]]*)\]\([^)]*\)/g, '$1');

/** What a key means if it is left out, as a text. */
export const absentText = (key: Key, otherwise: string): string =>
    key.absent === undefined ? otherwise : typeof key.absent === 'string' ? key.absent : JSON.stringify(key.absent);

export interface RecordRow {
    name: string;
    keys: Key[];
}

export interface Type {
    type: number;
    name: string;
    theme_file: string;
    help: string;
    record: string;
    parts: string[];
    states: string[];
    width?: number;
    height?: number;
}

export interface Catalogue {
    kinds: { name: string; json: string; unit: string; help: string }[];
    groups: string[];
    files: { path: string; record?: string }[]; // "config/view/*"
    types: Type[];
    records: RecordRow[];
}

export const catalogue = signal<Catalogue>({ kinds: [], groups: [], files: [], types: [], records: [] });

export async function catalogueLoad(): Promise<void> {
    const reply = await fetch('catalogue.json');
    catalogue.value = (await reply.json()) as Catalogue;
}

export const typeOf = (name: string): Type | undefined => catalogue.value.types.find((type) => type.name === name);
export const recordOf = (name: string): RecordRow | undefined =>
    catalogue.value.records.find((row) => row.name === name);
export const iconOf = (type: string): string => typeOf(type)?.theme_file ?? 'container';

/** The JSON type of a kind: number, bool, text, array or object. */
export const jsonTypeOf = (key: Key): string =>
    catalogue.value.kinds.find((kind) => kind.name === key.kind)?.json ?? 'text';

/** A key of a record, or of an object in it. */
export interface Row {
    key: Key;
    path: string; // "pub_t.pt.x"
    beside: Key[]; // the keys of the same object
}

const DEPTH = 6; // of objects in objects; a record cannot contain itself that way

/** The keys of a record and of the objects in it. `without` names keys that have a place of their own. */
export function rowsOf(record: string, without: string[], prefix = '', depth = 0): Row[] {
    const keys = recordOf(record)?.keys ?? [];
    return keys.flatMap((key): Row[] => {
        const path = prefix + key.key;
        if (without.includes(path)) return [];
        if (key.kind === 'object' && key.record && depth < DEPTH)
            return rowsOf(key.record, without, path + '.', depth + 1);
        return [{ key, path, beside: keys }];
    });
}
