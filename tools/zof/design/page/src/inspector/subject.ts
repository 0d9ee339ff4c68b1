// What a form is about: one object in a file, or the same object of several controls; reading and writing its values.
import { edit } from '../actions';
import { tryEdits, tryStop } from '../canvas/drag';
import type { Key, Row } from '../catalogue';
import type { Edit, Json, Value } from '../protocol';
import { said, words } from '../words';
import { jsonOf } from './value';

/** One object in a file. */
export interface Place {
    file: string;
    path: string; // of the object
    values: Value[];
}

/** Where values come from that a file leaves out. */
export interface Origin {
    label: string;
    file: string;
    path?: string; // of the object that has the values
    values: Value[];
}

export interface Subject {
    name: string; // for the label of an edit
    places: Place[]; // at least one; several selected controls have one each
    origins?: Origin[]; // the strongest first
    make?: (path: string, value: Json) => Edit[]; // makes an object that is not in the file yet, with its first value
}

export const title = (text: string): string => {
    const plain = said(text);
    return plain.charAt(0).toUpperCase() + plain.slice(1);
};

/** The name of a key for people. */
export const labelOf = (key: Key): string => title(key.label ?? key.key);

export const below = (values: Value[], prefix: string): Value[] =>
    values
        .filter((value) => value.path.startsWith(prefix))
        .map((value) => ({ ...value, path: value.path.slice(prefix.length) }));

export const whole = (place: Place, path: string): string => (place.path ? `${place.path}.${path}` : path);
export const find = (values: Value[], path: string): Value | undefined => values.find((value) => value.path === path);

/** The value of another key of the same object, from the first file that has it. */
export function beside(subject: Subject, path: string, key: string): Json | undefined {
    const other = path.slice(0, path.lastIndexOf('.') + 1) + key;
    const all = [...subject.places, ...(subject.origins ?? [])];
    return jsonOf(all.map((one) => find(one.values, other)).find((value) => value !== undefined)?.raw);
}

/** What a field shows: the values of all places, and where a missing one comes from. */
export interface Held {
    written: Value | undefined; // of the first place that has one
    value: Json | undefined; // of the file; undefined if it is left out, or if they differ
    inherited: Json | undefined;
    origin: Origin | undefined; // of the inherited value
    different: number; // how many different values several places have; 1 if they are equal
}

export function held(subject: Subject, { key, path }: Row): Held {
    const all = subject.places.map((place) => find(place.values, path));
    const raws = new Set(all.map((value) => value?.raw));
    const origin = subject.origins?.find((one) => find(one.values, path));
    const written = all.find((value) => value !== undefined);
    return {
        written,
        value: raws.size === 1 ? jsonOf(written?.raw) : undefined,
        inherited: origin ? jsonOf(find(origin.values, path)?.raw) : (key.absent as Json | undefined),
        origin,
        different: raws.size,
    };
}

/** Makes one edit for each place from its value before. Undefined leaves a place as it is. */
function editsOf(subject: Subject, path: string, next: (before: Json | undefined) => Json | undefined): Edit[] {
    return subject.places.flatMap((place): Edit[] => {
        const before = jsonOf(find(place.values, path)?.raw);
        const value = next(before);
        if (subject.make && value !== undefined) return subject.make(path, value);
        return value === undefined || value === before ? [] : [{ file: place.file, path: whole(place, path), value }];
    });
}

export type Next = (before: Json | undefined) => Json | undefined;

export function write(subject: Subject, row: Row, next: Next): void {
    tryStop();
    const edits = editsOf(subject, row.path, next);
    if (edits.length) void edit(words.labelOf(labelOf(row.key), subject.name), edits);
    else tryEdits([]);
}

/** Shows values in the picture without writing them. */
export const tryValue = (subject: Subject, row: Row, next: Next): void => tryEdits(editsOf(subject, row.path, next));

export const tryEnd = (): void => tryEdits([]);

/** Takes a key out of the files. */
export function takeOut(subject: Subject, row: Row): void {
    const edits = subject.places.flatMap((place): Edit[] =>
        find(place.values, row.path) ? [{ file: place.file, path: whole(place, row.path), remove: true }] : [],
    );
    void edit(words.takeOutOf(labelOf(row.key), subject.name), edits);
}
