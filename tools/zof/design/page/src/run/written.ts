// The values of a panel that runs, who wrote each last, and what was written: by a host, by the program, by this page, or
// by its user.
import { signal } from '@preact/signals';

import type { Written } from '../protocol';
import { shown } from '../state';
import { on } from '../socket';

/** A value with the time of its last write on this machine's clock, in ms since 1970; 0 if it was not written. */
export interface Now extends Written {
    at: number;
}

/** One thing that happened, for the list of events. */
export interface Happened {
    time: number;
    by: Writer;
    control: string;
    what: string; // "clicked"; empty for a write
    value: string;
}
export type Writer = 'host' | 'user' | 'inspector' | 'program';

const KEPT = 500;

export const written = signal<ReadonlyMap<string, Now>>(new Map());
export const happened = signal<readonly Happened[]>([]); // oldest first

export const textOf = (value: { takes: string; number: number; text: string }): string =>
    value.takes === 'number' || (!value.text && value.takes !== 'text') ? `${value.number}` : value.text;

const add = (all: Happened[]): void => {
    happened.value = [...happened.value, ...all].slice(-KEPT);
};

on('values', (event) => {
    const now = Date.now();
    const next = new Map(event.all ? [] : written.value);
    const writes: Happened[] = [];
    for (const value of event.values) {
        const at = value.by ? now - (value.age ?? 0) : 0;
        // What users do comes as an event of its own.
        if (!event.all && value.by && value.by !== 'user')
            writes.push({ time: at, by: value.by, control: value.control, what: '', value: textOf(value) });
        next.set(value.control, { ...value, at });
    }
    written.value = next;
    if (writes.length) add(writes);
});
on('touched', (event) => {
    const value = [event.value, event.text].filter((part) => part !== undefined && part !== '').join(' ');
    add([{ time: event.time, by: 'user', control: event.control, what: event.what, value }]);
});

let mode = shown.value.mode;
on('shown', (event) => {
    if (event.shown.mode !== mode && event.shown.mode !== 'design') happened.value = [];
    mode = event.shown.mode;
});
