// The texts of all languages by key, as their files have them, for fields that show a text by its key.
import { effect, signal } from '@preact/signals';

import { attempt } from '../actions';
import type { Edit } from '../protocol';
import { on, request } from '../socket';
import { project, shown } from '../state';
import { jsonOf } from '../inspector/value';

type Texts = ReadonlyMap<string, string>;

export const languages = signal<ReadonlyMap<string, Texts>>(new Map()); // by the code of the language

export const languageFile = (language: string): string => `config/languages/${language}.g`;

async function read(language: string): Promise<void> {
    const reply = await attempt(request('read', { file: languageFile(language), path: '' }));
    const texts = new Map<string, string>();
    for (const value of reply?.values ?? []) {
        const text = jsonOf(value.raw);
        if (typeof text === 'string') texts.set(value.path, text);
    }
    languages.value = new Map([...languages.value, [language, texts]]);
}

const codes = (): string => project.value?.languages.join() ?? '';
let known = '';
effect(() => {
    if (codes() === known) return;
    known = codes();
    languages.value = new Map();
    for (const language of project.value?.languages ?? []) void read(language);
});
on('file', (event) => {
    const language = project.value?.languages.find((one) => languageFile(one) === event.file);
    if (language) void read(language);
});

/** The text that a panel shows for "#key" in the language of the picture, or in the first that has it. */
export function textOf(key: string): string | undefined {
    const all = [shown.value.language, ...languages.value.keys()];
    return all.map((language) => languages.value.get(language)?.get(key)).find((text) => text !== undefined);
}

/** All keys, in the order of the files. */
export const keysOf = (): string[] => [...new Set([...languages.value.values()].flatMap((texts) => [...texts.keys()]))];

/** The edits that give a key a text in each language that lacks it. */
export const newKey = (key: string, text: string): Edit[] =>
    [...languages.value]
        .filter(([, texts]) => !texts.has(key))
        .map(([language]) => ({ file: languageFile(language), path: key, value: text }));

/** A key that no language has, made of a name: "brew", "brew_2". */
export function freeKey(name: string): string {
    const taken = new Set(keysOf());
    const plain = name.replaceAll(/\W+/g, '_').replace(/^_+|_+$/g, '') || 'text';
    for (let number = 1; ; number++) {
        const key = number === 1 ? plain : `${plain}_${number}`;
        if (!taken.has(key)) return key;
    }
}
