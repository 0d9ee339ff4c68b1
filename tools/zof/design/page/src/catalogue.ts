// The catalogue of control types and keys, as `zof catalogue --json` prints it. The page has no list of types or keys of its own.
import { signal } from '@preact/signals';

import type { ArgumentName, GroupName, JsonName, KindName } from './kinds';

export interface Name {
    name: string;
    value: number;
}

export interface Key {
    key: string;
    label?: string; // for people
    kind: KindName;
    group: GroupName;
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
    sections: number; // objects that can be styled: 2 with an open list, or buttons
    states: string[];
    fields: string[]; // what the action `set` can change: txt, value
    width?: number;
    height?: number;
}

/** A word of actions. */
export interface Action {
    word: string;
    form: string; // its arguments, for people
    help: string;
    least: number; // arguments that must be there
    args: ArgumentName[];
}

export interface Catalogue {
    kinds: { name: KindName; json: JsonName; unit: string; help: string }[];
    groups: GroupName[];
    files: { path: string; record?: string }[]; // "config/view/*"
    types: Type[];
    actions: Action[];
    slides: string[]; // how a view may appear
    records: RecordRow[];
}

export const catalogue = signal<Catalogue>({
    kinds: [],
    groups: [],
    files: [],
    types: [],
    actions: [],
    slides: [],
    records: [],
});

export async function catalogueLoad(): Promise<void> {
    const reply = await fetch('catalogue.json');
    catalogue.value = (await reply.json()) as Catalogue;
}

export const typeOf = (name: string): Type | undefined => catalogue.value.types.find((type) => type.name === name);
export const recordOf = (name: string): RecordRow | undefined =>
    catalogue.value.records.find((row) => row.name === name);
export const iconOf = (type: string): string => typeOf(type)?.theme_file ?? 'container';

/** The type of a key's value in a file. */
export const jsonTypeOf = (key: Key): JsonName =>
    catalogue.value.kinds.find((kind) => kind.name === key.kind)?.json ?? 'text';

/** A key of a record, or of an object in it. */
export interface Row {
    key: Key;
    path: string; // "pub_t.pt.x"
    object?: string; // label of the object that it is in, if that has one
    beside: Key[]; // the keys of the same object
}

const DEPTH = 6; // of objects in objects; a record cannot contain itself that way

/** The keys of a record and of the objects in it. `without` names keys that have a place of their own. */
export function rowsOf(record: string, without: string[], prefix = '', depth = 0, object?: string): Row[] {
    const keys = recordOf(record)?.keys ?? [];
    return keys.flatMap((key): Row[] => {
        const path = prefix + key.key;
        if (without.includes(path)) return [];
        if (key.kind === 'object' && key.record && depth < DEPTH)
            return rowsOf(key.record, without, path + '.', depth + 1, key.label ?? object);
        return [{ key, path, beside: keys, object }];
    });
}
