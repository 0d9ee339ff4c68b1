// What the page does with the project: each action is one request, and one step of undo.
import type { Box, Control, Edit, Gesture, Json, Value } from './protocol';
import { alignSteps, contains, gapSteps, union, type Align, type Point } from './canvas/geometry';
import { typeOf } from './catalogue';
import { request } from './socket';
import {
    byPath,
    chosen,
    controls,
    dialog,
    fault,
    keep,
    kept,
    menu,
    posed,
    project,
    question,
    type Question,
    selected,
    selection,
    shown,
    goTo,
} from './state';
import { words } from './words';

export const message = (reason: unknown): string => (reason instanceof Error ? reason.message : String(reason));

/** Shows the reason of a refusal in the last line. */
export async function attempt<T>(work: Promise<T>): Promise<T | undefined> {
    try {
        return await work;
    } catch (reason) {
        fault.value = message(reason);
        return undefined;
    }
}

/** The same for a field or a dialog, which shows the reason itself: returns it, or an empty text. */
export const refusal = (work: Promise<unknown>): Promise<string> => work.then(() => '', message);

/** The same for what is only read to be shown, and may be gone by then. */
export const quiet = <T>(work: Promise<T>): Promise<T | undefined> => work.catch(() => undefined);

export const nameOf = (path: string): string => path.slice(path.indexOf('/') + 1);

export const labelOf = (verb: string, list: Control[]): string =>
    `${verb} ${list.length === 1 && list[0] ? nameOf(list[0].path) : words.controlsCount(list.length)}`;

const attributes = (control: Control): string => `${control.place?.key ?? ''}.property.pub_t`;

/** Sends edits as one step of undo. */
export const edit = (label: string, edits: Edit[], merge?: string): Promise<{ gesture: Gesture } | undefined> =>
    edits.length ? attempt(request('edit', { label, edits, merge })) : Promise.resolve(undefined);

// ---- place and size

export interface Placed {
    control: Control;
    at: Point; // as in the file, relative to the parent
    size: { width: number; height: number };
}

const numberIn = (values: Value[], path: string, otherwise: number): number => {
    const raw = values.find((value) => value.path === path)?.raw;
    return raw !== undefined && raw !== '' && !Number.isNaN(Number(raw)) ? Number(raw) : otherwise;
};

/** Reads place and size of controls from their files; those that a file does not have are left out. */
export async function placedOf(list: Control[]): Promise<Placed[]> {
    const all = await Promise.all(
        list.map(async (control): Promise<Placed[]> => {
            if (!control.place) return [];
            const reply = await attempt(request('read', { file: control.place.file, path: attributes(control) }));
            if (!reply) return [];
            const at = { x: numberIn(reply.values, 'pt.x', 0), y: numberIn(reply.values, 'pt.y', 0) };
            const width = numberIn(reply.values, 'size.width', control.box[2]);
            return [{ control, at, size: { width, height: numberIn(reply.values, 'size.height', control.box[3]) } }];
        }),
    );
    return all.flat();
}

const change = (control: Control, path: string, before: number, after: number): Edit[] =>
    control.place && before !== after
        ? [{ file: control.place.file, path: `${attributes(control)}.${path}`, id: control.id, value: after }]
        : [];

export const moveEdits = ({ control, at }: Placed, by: Point): Edit[] => [
    ...change(control, 'pt.x', at.x, at.x + by.x),
    ...change(control, 'pt.y', at.y, at.y + by.y),
];

/** The edits that give a control another box on the screen. */
export const boxEdits = (placed: Placed, box: Box): Edit[] => [
    ...moveEdits(placed, { x: box[0] - placed.control.box[0], y: box[1] - placed.control.box[1] }),
    ...change(placed.control, 'size.width', placed.size.width, box[2]),
    ...change(placed.control, 'size.height', placed.size.height, box[3]),
];

/** Without controls whose parent is among them, too: they move with it. */
export function roots(list: Control[]): Control[] {
    const paths = new Set(list.map((control) => control.path));
    const inside = (control: Control): boolean => {
        const parent = control.parent ? byPath.value.get(control.parent) : undefined;
        return parent ? paths.has(parent.path) || inside(parent) : false;
    };
    return list.filter((control) => !inside(control));
}

export const movable = (): Control[] =>
    roots(selected.value).filter((control) => !kept.value.locked.includes(control.path));

async function moveBy(verb: string, list: Control[], steps: Point[], merge?: string): Promise<void> {
    const placed = await placedOf(list);
    const edits = placed.flatMap((one) => moveEdits(one, steps[list.indexOf(one.control)] ?? { x: 0, y: 0 }));
    await edit(labelOf(verb, list), edits, merge);
}

interface Step {
    x: number;
    y: number;
    width: number;
    height: number;
}

let stepDue: Step | null = null;
let stepping = false;

async function stepWrite(step: Step): Promise<void> {
    const list = movable();
    const placed = await placedOf(list);
    const sizes = step.width !== 0 || step.height !== 0;
    const edits = placed.flatMap((one) => {
        const [x, y] = one.control.box;
        const width = Math.max(1, one.size.width + step.width);
        const height = Math.max(1, one.size.height + step.height);
        return boxEdits(one, [
            x + step.x,
            y + step.y,
            sizes ? width : one.size.width,
            sizes ? height : one.size.height,
        ]);
    });
    const merge = (sizes ? 'grow ' : 'nudge ') + list.map((control) => control.path).join();
    await edit(labelOf(sizes ? 'Resize' : 'Move', list), edits, merge);
}

/**
 * Moves or resizes the selection by pixels; presses that follow each other are one step of undo. Presses that come while one
 * is being written are added up, because a place is read from the file before it is changed.
 */
async function step(by: Step): Promise<void> {
    const due = stepDue ?? { x: 0, y: 0, width: 0, height: 0 };
    stepDue = { x: due.x + by.x, y: due.y + by.y, width: due.width + by.width, height: due.height + by.height };
    if (stepping) return;
    stepping = true;
    while (stepDue) {
        const now: Step = stepDue;
        stepDue = null;
        await stepWrite(now);
    }
    stepping = false;
}

export const nudge = (x: number, y: number): void => void step({ x, y, width: 0, height: 0 });
export const grow = (width: number, height: number): void => void step({ x: 0, y: 0, width, height });

/** What one control is aligned to: its parent, or the screen. */
export function frameOf(control: Control): Box {
    const parent = control.parent ? byPath.value.get(control.parent) : undefined;
    return parent?.box ?? [0, 0, project.value?.width ?? 0, project.value?.height ?? 0];
}

export function align(how: Align): void {
    const list = movable();
    const last = list[list.length - 1];
    if (!last) return;
    const key = list.length === 1 ? frameOf(last) : last.box;
    void moveBy(
        'Align',
        list,
        alignSteps(
            list.map((control) => control.box),
            key,
            how,
        ),
    );
}

export function sameGaps(vertical: boolean): void {
    const list = movable();
    void moveBy(
        'Space',
        list,
        gapSteps(
            list.map((control) => control.box),
            vertical,
        ),
    );
}

export const selectionBox = (): Box | null =>
    selected.value.length ? union(selected.value.map((control) => control.box)) : null;

// ---- controls

export async function add(
    type: string,
    x: number,
    y: number,
    parent?: string,
    size?: { width: number; height: number },
): Promise<void> {
    const reply = await attempt(request('add', { view: shown.value.view, type, parent, x, y, ...size }));
    if (reply) selection.value = [reply.control];
}

let lastCopy = { x: 8, y: 8 };

export async function duplicate(by: Point = lastCopy): Promise<void> {
    const list = roots(selected.value);
    if (!list.length) return;
    lastCopy = by;
    const reply = await attempt(
        request('duplicate', { controls: list.map((control) => control.path), dx: by.x, dy: by.y }),
    );
    if (reply) selection.value = reply.controls;
}

export async function remove(): Promise<void> {
    const list = roots(selected.value);
    if (!list.length) return;
    const reply = await attempt(request('delete', { controls: list.map((control) => control.path) }));
    if (reply) {
        selection.value = [];
        if (reply.uses.length) fault.value = words.deleted(labelOf('', list).trim(), reply.uses.join(', '));
    }
}

export async function rename(path: string, name: string): Promise<void> {
    const reply = await request('rename', { control: path, name });
    selection.value = [reply.control];
    if (reply.uses.length) fault.value = words.renamed(reply.uses.join(', '));
}

export async function copy(): Promise<void> {
    const list = roots(selected.value);
    const reply = list.length
        ? await attempt(request('copy', { controls: list.map((control) => control.path) }))
        : undefined;
    if (reply) await attempt(navigator.clipboard.writeText(reply.text));
}

export async function paste(text: string): Promise<void> {
    const parent = chosen.value?.type === 'container' ? chosen.value.path : undefined;
    const reply = await attempt(request('paste', { view: shown.value.view, text, parent }));
    if (reply) selection.value = reply.controls;
}

/** Asks for a text, until one is taken. */
export function ask(name: string, button: string, start: string, onDone: Question['onDone']): void {
    question.value = { name, button, start, onDone };
    dialog.value = 'ask';
}

/** Asks for another name of the chosen control. */
export function askName(): void {
    const path = chosen.value?.path;
    if (path) ask(words.rename, words.rename, nameOf(path), (name) => rename(path, name));
}

/** Asks for the port of a running program. */
export const askLive = (): void => ask(words.liveAddress, words.attach, '5040', attach);

// ---- views

/** Makes a view as the one that is shown, with its controls or without. */
export const addView = (copy: boolean): void =>
    ask(copy ? words.duplicateView : words.newView, words.make, '', async (name) => {
        await request('viewAdd', { view: shown.value.view, name, copy });
        show({ view: name });
    });

export async function renameView(name: string): Promise<void> {
    await request('viewRename', { view: shown.value.view, name });
    show({ view: name });
}

export async function removeView(): Promise<void> {
    const { view } = shown.value;
    const other = project.value?.views.find((one) => one.name !== view)?.name;
    const reply = await attempt(request('viewDelete', { view }));
    if (!reply) return;
    if (other) show({ view: other });
    if (reply.uses.length) fault.value = words.deleted(view, reply.uses.join(', '));
}

/** One step to the front or back among siblings; to the end with `end`. */
export async function order(step: 1 | -1, end: boolean): Promise<void> {
    const control = chosen.value;
    if (!control) return;
    const siblings = controls.value.filter((one) => one.parent === control.parent && one.view === control.view);
    const at = siblings.findIndex((one) => one.path === control.path);
    const to = end ? (step > 0 ? siblings.length : 0) : step > 0 ? at + 2 : at - 1;
    if (to < 0 || (step > 0 && at === siblings.length - 1) || (step < 0 && at === 0)) return;
    await attempt(
        request('reorder', { control: control.path, parent: control.parent ?? '', before: siblings[to]?.path ?? '' }),
    );
}

/** Puts the selection into a new container. */
export async function group(): Promise<void> {
    const list = roots(selected.value);
    const first = controls.value.find((control) => list.includes(control)); // in the file's order
    if (!first) return;
    const [x, y, width, height] = union(list.map((control) => control.box));
    const dx = x - first.box[0];
    const dy = y - first.box[1];
    const reply = await attempt(
        request('group', { controls: list.map((control) => control.path), dx, dy, width, height }),
    );
    if (reply) selection.value = [reply.control];
}

/** Shows a control in a state, "pressed+checked"; "default" shows it as it is. No file changes. */
export function pose(path: string, state: string): void {
    posed.value = state === 'default' ? null : { path, state };
    void attempt(request('state', { control: path, state }));
}

/** The next of the states that the type of the chosen control has. */
export function poseNext(): void {
    const control = chosen.value;
    if (!control) return;
    const states = (typeOf(control.type)?.states ?? []).map((name) => (name === 'always' ? 'default' : name));
    const now = posed.value?.path === control.path ? posed.value.state : 'default';
    pose(control.path, states[(states.indexOf(now) + 1) % Math.max(1, states.length)] ?? 'default');
}

/** Chooses what lies under the middle of the chosen control. */
export function stepUnder(): void {
    const box = chosen.value?.box;
    if (!box) return;
    const middle = { x: box[0] + box[2] / 2, y: box[1] + box[3] / 2 };
    const here = controls.value.filter((one) => one.visible && contains(one.box, middle)).reverse();
    const next = here[(here.findIndex((one) => one.path === chosen.value?.path) + 1) % Math.max(1, here.length)];
    if (next) selection.value = [next.path];
}

/** Locked controls are not moved on the page; no file changes. */
export function toggleLock(list: Control[]): void {
    const paths = list.map((control) => control.path);
    const all = paths.every((path) => kept.value.locked.includes(path));
    const others = kept.value.locked.filter((path) => !paths.includes(path));
    keep({ locked: all ? others : [...others, ...paths] });
}

type Copied = { look?: Json; property?: { styles?: Json } };

/** Gives the selection the look and the styles of the first control in the clipboard's text. */
export async function pasteLook(text: string): Promise<void> {
    const parsed = JSON.parse(text) as Copied | Copied[];
    const from = Array.isArray(parsed) ? parsed[0] : parsed;
    const edits = selected.value.flatMap(({ place }): Edit[] => {
        if (!place) return [];
        const { file, key } = place;
        const look: Edit[] = from?.look === undefined ? [] : [{ file, path: `${key}.look`, value: from.look }];
        const styles = from?.property?.styles;
        return styles === undefined ? look : [...look, { file, path: `${key}.property.styles`, value: styles }];
    });
    await edit(labelOf(words.style, selected.value), edits);
}

// ---- everything else

export const undo = (): void => void attempt(request('undo', {}));
export const redo = (): void => void attempt(request('redo', {}));
export const show = (choice: { view?: string; language?: string; theme?: string }): void =>
    void attempt(request('show', choice));

export function setMode(mode: 'design' | 'run'): void {
    selection.value = [];
    fault.value = '';
    void attempt(request('mode', { mode }));
}

/** Shows a running program, whose port it is. */
export async function attach(address: string): Promise<void> {
    selection.value = [];
    await request('mode', { mode: 'live', address });
}

/** Writes again what could not be written. */
export const save = (): void => void attempt(request('save', {}));

/** Starts the project again in Run mode, or starts it. */
export async function runAgain(): Promise<void> {
    if (shown.value.mode !== 'design') await attempt(request('mode', { mode: 'design' }));
    setMode('run');
}

const MOST_UNDER = 8;

/** Opens the menu of the right button. `under`: the controls at its place, front-most first. */
export function menuOpen(event: MouseEvent, under: Control[]): void {
    event.preventDefault();
    menu.value = { x: event.clientX, y: event.clientY, under: under.slice(0, MOST_UNDER) };
}

/** Shows a place in the source, and opens it. */
export function openSource(file: string, line: number, column: number): void {
    keep({ dock: 'source', dockOpen: true });
    goTo.value = { file, line, column, serial: (goTo.value?.serial ?? 0) + 1 };
}

export const setValue = (label: string, file: string, path: string, value: Json, merge?: string): void =>
    void edit(label, [{ file, path, value }], merge);

/** Goes to the view before or after, in the order of the project. */
export function stepView(by: number): void {
    const views = project.value?.views ?? [];
    const at = views.findIndex((view) => view.name === shown.value.view);
    const next = views[(at + by + views.length) % Math.max(1, views.length)];
    if (next) show({ view: next.name });
}

export function stepLanguage(): void {
    const all = project.value?.languages ?? [];
    const next = all[(all.indexOf(shown.value.language) + 1) % Math.max(1, all.length)];
    if (next) show({ language: next });
}

export function stepTheme(): void {
    const all = project.value?.themes ?? [];
    const next = all[(all.indexOf(shown.value.theme) + 1) % Math.max(1, all.length)];
    if (next) show({ theme: next });
}
