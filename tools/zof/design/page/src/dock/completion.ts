// What can stand at the cursor in a file of the project: keys of the object with their help, and names for their values.
// All of it comes from the catalogue and from the project.
import type { Completion, CompletionContext, CompletionResult } from '@codemirror/autocomplete';
import { syntaxTree } from '@codemirror/language';
import type { EditorState } from '@codemirror/state';
import type { SyntaxNode } from '@lezer/common';

import { attempt } from '../actions';
import { absentText, catalogue, jsonTypeOf, plainHelp, recordOf, type Key, type Type } from '../catalogue';
import { request } from '../socket';
import { byPath, namesOf, project, shown } from '../state';
import { words } from '../words';

const textOf = (state: EditorState, node: SyntaxNode | null): string =>
    node ? state.sliceDoc(node.from, node.to).replace(/^"|"$/g, '') : '';

/** The objects around a place, the file's own first: each with the key that it stands at, "" in an array. */
function around(state: EditorState, node: SyntaxNode | null): { object: SyntaxNode; key: string }[] {
    const out: { object: SyntaxNode; key: string }[] = [];
    for (let at = node; at; at = at.parent) {
        if (at.name !== 'Object') continue;
        let owner = at.parent;
        while (owner?.name === 'Array') owner = owner.parent;
        out.unshift({ object: at, key: owner?.name === 'Property' ? textOf(state, owner.firstChild) : '' });
    }
    return out;
}

/** The key of a record with a name; of one that has names of its own, as the list of colours, its only one. */
function keyOf(record: string, name: string): Key | undefined {
    const keys = recordOf(record)?.keys ?? [];
    return keys.find((key) => key.key.toLowerCase() === name.toLowerCase()) ?? keys.find((key) => key.key === '*');
}

/** The type of a control's entry, which may be written as a name or as a number. */
function typeOfEntry(state: EditorState, entry: SyntaxNode): Type | undefined {
    const property = entry.getChildren('Property').find((one) => textOf(state, one.firstChild) === 'type');
    const value = textOf(state, property?.lastChild ?? null);
    return catalogue.value.types.find((type) => type.name === value || `${type.type}` === value);
}

const fileRecord = (file: string): string =>
    catalogue.value.files.find(({ path }) =>
        new RegExp(`^${path.replaceAll('.', '\\.').replaceAll('*', '[^/]*')}(\\.g)?$`).test(file),
    )?.record ?? '';

/** The record of the innermost object around a place; "" if the catalogue does not know it. */
function recordAt(state: EditorState, file: string, objects: { object: SyntaxNode; key: string }[]): string {
    let record = fileRecord(file);
    let entry: SyntaxNode | null = null;
    for (const { object, key } of objects.slice(1)) {
        const next: string =
            record === 'entry' && key === 'property' && entry
                ? (typeOfEntry(state, entry)?.record ?? '')
                : (keyOf(record, key)?.record ?? '');
        entry = next === 'entry' ? object : entry;
        record = next;
    }
    return record;
}

function keysOf(state: EditorState, record: string, object: SyntaxNode): Completion[] {
    const there = new Set(object.getChildren('Property').map((one) => textOf(state, one.firstChild).toLowerCase()));
    return (recordOf(record)?.keys ?? [])
        .filter((key) => !there.has(key.key.toLowerCase()) && !key.ignored && key.key !== '*')
        .map((key) => ({
            label: `"${key.key}"`,
            apply: `"${key.key}": `,
            detail: key.unit ? `${key.kind}, ${key.unit}` : key.kind,
            info: plainHelp(key.help) + (key.absent === undefined ? '' : `. ${words.whenAbsent(absentText(key, ''))}`),
            type: 'property',
        }));
}

function valuesOf(key: Key): Completion[] {
    const quoted = (name: string, detail: string): Completion => ({ label: `"${name}"`, detail, type: 'text' });
    const names = (key.names ?? []).map(({ name, value }, i) => ({ ...quoted(name, `${value}`), boost: -i })); // in their order
    const named = namesOf(key.kind).map((name) => quoted(name, ''));
    const json = jsonTypeOf(key);
    const plain = json === 'bool' ? ['true', 'false'] : key.kind === 'bool' || key.kind === 'switch' ? ['1', '0'] : [];
    const ids =
        key.kind === 'control'
            ? [...byPath.value.values()].map((one) => ({ label: `${one.id}`, detail: one.path, type: 'constant' }))
            : key.kind === 'view'
              ? (project.value?.views ?? []).map((one) => ({ label: `${one.id}`, detail: one.name, type: 'constant' }))
              : [];
    return [...names, ...named, ...ids, ...plain.map((label) => ({ label, type: 'constant' }))];
}

/** The keys of texts, with the text in the language that is shown. */
async function textsOf(): Promise<Completion[]> {
    const language = shown.value.language || project.value?.languages[0];
    if (!language) return [];
    const reply = await attempt(request('read', { file: `config/languages/${language}.g`, path: '' }));
    return (reply?.values ?? [])
        .filter((value) => value.kind === 'text')
        .map((value) => ({ label: `"#${value.path}"`, detail: value.raw.slice(1, -1), type: 'text' }));
}

/** Completes in a file of the project. */
export async function completionOf(file: string, context: CompletionContext): Promise<CompletionResult | null> {
    const { state, pos } = context;
    const word = context.matchBefore(/"?[\w$#./-]*/);
    const from = word?.from ?? pos;
    if (!context.explicit && word?.text === '') return null;
    const node = syntaxTree(state).resolveInner(from, 1);
    const inside = syntaxTree(state).resolveInner(from, -1);
    const at = node.name === 'Object' || node.name === 'JsonText' ? inside : node;
    const objects = around(state, at);
    const last = objects[objects.length - 1];
    if (!last) return null;
    const record = recordAt(state, file, objects);
    const before = state.sliceDoc(last.object.from, from).trimEnd();
    const end = before[before.length - 1];
    if (end === '{' || end === ',') {
        const inArray = at.name === 'Array' || at.parent?.name === 'Array';
        return inArray ? null : { from, options: keysOf(state, record, last.object), validFor: /^"?\w*$/ };
    }
    const name = /"([^"\n]*)"\s*:$/.exec(before)?.[1];
    const key = name === undefined ? undefined : keyOf(record, name);
    if (!key) return null;
    const options = key.kind === 'words' ? await textsOf() : valuesOf(key);
    return { from, options, validFor: /^"?[\w$#./+ -]*$/ };
}
