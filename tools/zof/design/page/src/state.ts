// What the page knows: what the program says, and its own small state, which is kept per folder on this machine.
import { computed, effect, signal, type Signal } from '@preact/signals';

import type { KindName } from './kinds';
import type { Control, Empty, Gesture, Problem, Project, Shown, UndoState } from './protocol';
import { on, onOpen, request } from './socket';

export const project = signal<Project | null>(null);
export const empty = signal<Empty | null>(null); // the folder has no project
export const shown = signal<Shown>({ view: '', language: '', theme: '', mode: 'design' });
export const controls = signal<Control[]>([]); // front-most last
export const problems = signal<Problem[]>([]);
export const problemsDrawn = signal(false);
export const checkMs = signal(0);
export const undoState = signal<UndoState>({ undo: '', redo: '', saved: true, error: '' });
export const lastGesture = signal<Gesture | null>(null);
export const runtime = signal<{ state: 'runs' | 'starts' | 'stopped'; note: string }>({ state: 'starts', note: '' });
export const pageNumber = signal(0);

/** Paths of the selected controls; the last one is the key of alignments. */
export const selection = signal<string[]>([]);
export const hovered = signal('');
export const fault = signal(''); // the last refusal, shown in the last line until the next gesture
export const chosenProblem = signal(0);
export const goTo = signal<{ file: string; line: number; column: number; serial: number } | null>(null);
/** Takes the controls at the next click on the picture, front-most first, in place of selecting one. */
export const picking = signal<((under: Control[]) => void) | null>(null);
/** The control that the picture shows in a state that was chosen for looking. */
export const posed = signal<{ path: string; state: string } | null>(null);
export const sheet = signal(false); // all views at once, in place of the picture
export interface Menu {
    x: number;
    y: number;
    under: Control[]; // front-most first
}
export const menu = signal<Menu | null>(null);
export const dialog = signal<'' | 'find' | 'keys' | 'ask'>('');
/** What the dialog `ask` asks for. */
export interface Question {
    name: string;
    button: string;
    start: string;
    onDone: (text: string) => Promise<unknown>; // rejected with the reason if the text cannot be taken
}
export const question = signal<Question | null>(null);
/** What the inspector shows while nothing is selected. */
export const about = signal<'view' | 'project'>('view');

/** The first control of each path; in a file with faults several may have the same. */
export const byPath = computed(
    () => new Map([...controls.value].reverse().map((control): [string, Control] => [control.path, control])),
);
export const selected = computed(() =>
    selection.value.map((path) => byPath.value.get(path)).filter((control) => control !== undefined),
);
export const chosen = computed(() => selected.value[selected.value.length - 1]);

// ---- kept on this machine

export type LeftPanel = 'views' | 'add' | 'colours' | 'fonts' | 'pictures' | 'texts' | 'host' | 'changes';
export type DockTab = 'source' | 'problems' | 'events' | 'changes';

interface Kept {
    left: LeftPanel;
    dock: DockTab;
    dockOpen: boolean;
    panels: boolean;
    leftWidth: number;
    inspectorWidth: number;
    dockHeight: number;
    zoom: number; // 0: fit
    snap: boolean;
    grid: boolean;
    look: '' | 'light' | 'dark';
    language: '' | 'en' | 'de';
    locked: string[];
    scenario: string; // what Run plays
    folded: string[]; // paths of controls whose children the outline hides
}

const otherwise: Kept = {
    left: 'views',
    dock: 'source',
    dockOpen: innerHeight > 800,
    panels: true,
    leftWidth: 0,
    inspectorWidth: 0,
    dockHeight: 0,
    zoom: 0,
    snap: true,
    grid: false,
    look: '',
    language: '',
    locked: [],
    scenario: '',
    folded: [],
};

export const kept: Signal<Kept> = signal(otherwise);

export function keep(change: Partial<Kept>): void {
    kept.value = { ...kept.value, ...change };
}

const storeName = (): string => 'zof design ' + (project.value?.dir ?? '');

function keptLoad(): void {
    try {
        const text = localStorage.getItem(storeName());
        if (text) keep(JSON.parse(text) as Partial<Kept>);
    } catch {
        // A store that is forbidden or damaged counts as empty.
    }
    effect(() => localStorage.setItem(storeName(), JSON.stringify(kept.value)));
}

// ---- from the program

on('tree', (event) => {
    // A parent stands before its children. One that does not, as in a file whose ids are not unique, is no parent for the
    // page, which follows parents to the top.
    const before = new Set<string>();
    for (const control of event.controls) {
        if (control.parent && !before.has(control.parent)) delete control.parent;
        before.add(control.path);
    }
    controls.value = event.controls;
});
on('shown', (event) => {
    if (event.shown.view !== shown.value.view) selection.value = [];
    if (event.shown.view !== shown.value.view || event.shown.mode !== 'design') posed.value = null;
    shown.value = event.shown;
});
const projectSet = (next: Project): void => {
    const first = !project.value;
    project.value = next;
    empty.value = null;
    if (first) keptLoad();
};
on('project', (event) => projectSet(event.project));
on('problems', (event) => {
    problems.value = [...event.problems].sort(
        (a, b) =>
            Number(b.error) - Number(a.error) || a.file.localeCompare(b.file) || a.line - b.line || a.column - b.column,
    );
    problemsDrawn.value = event.drawn;
    checkMs.value = event.ms;
});
on('file', (event) => {
    undoState.value = event.undo;
    if (event.gesture) lastGesture.value = event.gesture;
    fault.value = '';
});
on('saved', (event) => {
    undoState.value = event.undo;
});
on('runtime', (event) => {
    runtime.value = event;
});

onOpen(() => {
    void request('hello', {}).then((hello) => {
        pageNumber.value = hello.page;
        empty.value = hello.empty ?? null;
        if (hello.shown) shown.value = hello.shown;
        if (hello.undo) undoState.value = hello.undo;
        if (hello.project) projectSet(hello.project);
    });
});

/** The names of the project that a value of a kind may be. */
export function namesOf(kind: KindName): string[] {
    const now = project.value;
    const all: Partial<Record<KindName, string[] | undefined>> = {
        colour: now?.colours.map(({ name }) => '$' + name),
        picture: now?.pictures,
        font: now?.fonts,
        sound: now?.sounds,
        clip: now?.clips,
        theme: now?.themes,
        language: now?.languages,
        look: [...new Set(now?.looks.map(({ name }) => name))],
    };
    return all[kind] ?? [];
}

// Whatever is chosen or shown next is what the inspector is about.
const shownView = computed(() => shown.value.view);
effect(() => {
    void shownView.value;
    about.value = 'view';
});
effect(() => {
    if (selection.value.length) about.value = 'view';
});
