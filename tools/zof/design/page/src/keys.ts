// All keys in one table: what runs, what hints show, and what ? lists.
import { signal } from '@preact/signals';

import {
    align,
    askName,
    attempt,
    copy,
    duplicate,
    edit,
    group,
    grow,
    message,
    nudge,
    order,
    paste,
    pasteLook,
    poseNext,
    redo,
    remove,
    runAgain,
    roots,
    selectionBox,
    setMode,
    stepLanguage,
    stepTheme,
    stepUnder,
    stepView,
    toggleLock,
    undo,
} from './actions';
import { drag, dragCorrect } from './canvas/drag';
import { altHeld } from './canvas/stage';
import { panelKey } from './canvas/panel_keys';
import { spaceHeld, tool } from './canvas/pan';
import { zoomBox, zoomFit, zoomStep, zoomTo } from './canvas/zoom';
import { sureFixes } from './dock/problems';
import {
    byPath,
    chosen,
    chosenProblem,
    controls,
    dialog,
    fault,
    keep,
    kept,
    problems,
    selected,
    selection,
    sheet,
    shown,
} from './state';
import { words } from './words';

export interface Action {
    id: string;
    name: () => string;
    keys: string[]; // "Ctrl Shift Z"
    anywhere?: boolean; // also outside of picture and outline
    run: () => void;
}

const regions = ['left', 'picture', 'dock', 'inspector'];
export const lastRegion = signal('picture');

function nextRegion(): void {
    const all = regions.map((name) => document.querySelector<HTMLElement>(`[data-region="${name}"]`));
    const at = all.findIndex((element) => element?.contains(document.activeElement));
    for (let i = 1; i <= all.length; i++) {
        const next = all[(at + i) % all.length];
        const target =
            next?.tabIndex === 0 ? next : next?.querySelector<HTMLElement>('[tabindex="0"], button, input, select');
        if (target) {
            target.focus();
            return;
        }
    }
}

export function chooseProblem(index: number): void {
    const count = problems.value.length;
    if (!count) return;
    chosenProblem.value = (index + count) % count;
    keep({ dock: 'problems', dockOpen: true });
    const problem = problems.value[chosenProblem.value];
    if (problem?.control && byPath.value.has(problem.control)) selection.value = [problem.control];
}

function quickFix(): void {
    const fix = problems.value[chosenProblem.value]?.fixes[0];
    if (fix) void edit(fix.label, fix.edits);
}

function fixAll(): void {
    void edit(
        words.fixAll(sureFixes(problems.value).length),
        sureFixes(problems.value).flatMap((fix) => fix.edits),
    );
}

/** The next control in drawing order, of the same view. */
function stepControl(by: number): void {
    const all = controls.value.filter((control) => control.visible);
    const at = all.findIndex((control) => control.path === chosen.value?.path);
    const next = all[at < 0 ? (by > 0 ? 0 : all.length - 1) : at + by];
    selection.value = next ? [next.path] : [];
}

/** All controls that stand in the view itself, or in a container that is the whole of it. */
function selectAll(): void {
    const only = controls.value.filter((control) => !control.parent);
    const ground = only.length === 1 ? only[0]?.path : undefined;
    const inside = controls.value.filter((control) => control.visible && control.parent === ground);
    selection.value = (inside.length ? inside : roots(only)).map((control) => control.path);
}

function stepParent(): void {
    selection.value = chosen.value?.parent ? [chosen.value.parent] : [];
}

const arrows = (id: string, keys: string, by: number, run: (x: number, y: number) => void): Action[] => {
    const rows: [string, number, number][] = [
        ['ArrowLeft', -by, 0],
        ['ArrowRight', by, 0],
        ['ArrowUp', 0, -by],
        ['ArrowDown', 0, by],
    ];
    return rows.map(([key, x, y]) => ({ id: `${id}${key}`, name: () => '', keys: [keys + key], run: () => run(x, y) }));
};

/** Opens the palette, in which the next letters find a type. */
function openPalette(): void {
    keep({ left: 'add', panels: true });
    requestAnimationFrame(() => document.querySelector<HTMLInputElement>('.left .find input')?.focus());
}

export const actions: Action[] = [
    { id: 'find', name: () => words.find, keys: ['Ctrl K'], anywhere: true, run: () => (dialog.value = 'find') },
    { id: 'undo', name: () => words.undo, keys: ['Ctrl Z'], run: undo },
    { id: 'redo', name: () => words.redo, keys: ['Ctrl Shift Z', 'Ctrl Y'], run: redo },
    {
        id: 'run',
        name: () => (shown.value.mode === 'design' ? words.run : words.design),
        keys: ['Ctrl Enter'],
        anywhere: true,
        run: () => setMode(shown.value.mode === 'design' ? 'run' : 'design'),
    },
    { id: 'again', name: () => words.runAgain, keys: ['Ctrl R'], anywhere: true, run: () => void runAgain() },
    { id: 'fit', name: () => words.fit, keys: ['Shift 1'], run: zoomFit },
    {
        id: 'fitSelection',
        name: () => words.fitSelection,
        keys: ['Shift 2'],
        run: () => {
            const box = selectionBox();
            if (box) zoomBox(box);
        },
    },
    { id: 'sheet', name: () => words.sheet, keys: ['Shift 3'], run: () => (sheet.value = !sheet.value) },
    { id: 'select', name: () => words.select, keys: ['V'], run: () => (tool.value = 'select') },
    { id: 'pan', name: () => words.pan, keys: ['H'], run: () => (tool.value = 'pan') },
    { id: 'all', name: () => words.selectAll, keys: ['Ctrl A'], run: selectAll },
    { id: 'zoom100', name: () => '100 %', keys: ['Ctrl 0'], anywhere: true, run: () => zoomTo(1) },
    { id: 'zoomIn', name: () => words.zoomIn, keys: ['Ctrl +', 'Ctrl ='], anywhere: true, run: () => zoomStep(1) },
    { id: 'zoomOut', name: () => words.zoomOut, keys: ['Ctrl -'], anywhere: true, run: () => zoomStep(-1) },
    { id: 'viewBefore', name: () => `${words.views} ↑`, keys: ['PageUp'], run: () => stepView(-1) },
    { id: 'viewAfter', name: () => `${words.views} ↓`, keys: ['PageDown'], run: () => stepView(1) },
    {
        id: 'panels',
        name: () => words.panels,
        keys: ['Ctrl \\'],
        anywhere: true,
        run: () => keep({ panels: !kept.value.panels }),
    },
    { id: 'region', name: () => `${words.panels} →`, keys: ['F6'], anywhere: true, run: nextRegion },
    {
        id: 'dock',
        name: () => words.openDock,
        keys: ['Ctrl J'],
        anywhere: true,
        run: () => keep({ dockOpen: !kept.value.dockOpen }),
    },
    {
        id: 'source',
        name: () => words.source,
        keys: ['Ctrl E'],
        anywhere: true,
        run: () => keep({ dock: 'source', dockOpen: true }),
    },
    {
        id: 'problem',
        name: () => `${words.problems} →`,
        keys: ['F8'],
        anywhere: true,
        run: () => chooseProblem(chosenProblem.value + 1),
    },
    {
        id: 'problemBefore',
        name: () => `${words.problems} ←`,
        keys: ['Shift F8'],
        anywhere: true,
        run: () => chooseProblem(chosenProblem.value - 1),
    },
    { id: 'fix', name: () => words.problems, keys: ['Ctrl .'], anywhere: true, run: quickFix },
    {
        id: 'fixAll',
        name: () => words.fixAll(sureFixes(problems.value).length),
        keys: ['Ctrl Shift .'],
        anywhere: true,
        run: fixAll,
    },
    { id: 'add', name: () => words.add, keys: ['A'], run: openPalette },
    { id: 'duplicate', name: () => words.duplicate, keys: ['Ctrl D'], run: () => void duplicate() },
    { id: 'delete', name: () => words.remove, keys: ['Delete', 'Backspace'], run: () => void remove() },
    { id: 'rename', name: () => words.rename, keys: ['F2'], run: askName },
    { id: 'copy', name: () => words.copy, keys: ['Ctrl C'], run: () => void copy() },
    { id: 'cut', name: () => words.cut, keys: ['Ctrl X'], run: () => void copy().then(remove) },
    {
        id: 'paste',
        name: () => words.paste,
        keys: ['Ctrl V'],
        run: () =>
            void navigator.clipboard.readText().then(paste, (reason: unknown) => (fault.value = message(reason))),
    },
    {
        id: 'pasteLook',
        name: () => words.pasteLook,
        keys: ['Ctrl Shift V'],
        run: () => void attempt(navigator.clipboard.readText().then(pasteLook)),
    },
    { id: 'front', name: () => words.toFront, keys: ['Ctrl ]'], run: () => void order(1, false) },
    { id: 'back', name: () => words.toBack, keys: ['Ctrl ['], run: () => void order(-1, false) },
    {
        id: 'frontEnd',
        name: () => `${words.toFront} ⤒`,
        keys: ['Ctrl Shift ]', 'Ctrl Shift }'],
        run: () => void order(1, true),
    },
    {
        id: 'backEnd',
        name: () => `${words.toBack} ⤓`,
        keys: ['Ctrl Shift [', 'Ctrl Shift {'],
        run: () => void order(-1, true),
    },
    { id: 'group', name: () => words.group, keys: ['Ctrl G'], run: () => void group() },
    { id: 'alignLeft', name: () => words.alignLeft, keys: [], run: () => align('left') },
    { id: 'alignTop', name: () => words.alignTop, keys: [], run: () => align('top') },
    { id: 'language', name: () => words.language, keys: ['L'], run: stepLanguage },
    { id: 'theme', name: () => words.theme, keys: ['T'], run: stepTheme },
    { id: 'parent', name: () => words.selectParent, keys: ['Alt ArrowUp', 'Escape'], run: stepParent },
    { id: 'under', name: () => words.selectUnder, keys: ['Alt ArrowDown'], run: stepUnder },
    { id: 'state', name: () => words.nextState, keys: ['S'], run: poseNext },
    { id: 'lock', name: () => words.lock, keys: ['Ctrl Shift L'], run: () => toggleLock(selected.value) },
    { id: 'next', name: () => '', keys: ['Tab'], run: () => stepControl(1) },
    { id: 'before', name: () => '', keys: ['Shift Tab'], run: () => stepControl(-1) },
    { id: 'keys', name: () => words.keysTitle, keys: ['?', 'Shift ?'], run: () => (dialog.value = 'keys') },
    ...arrows('move', '', 1, (x, y) => (drag.value ? dragCorrect(x, y) : nudge(x, y))),
    ...arrows('move8', 'Shift ', 8, nudge),
    ...arrows('grow', 'Ctrl ', 1, grow),
    ...arrows('grow8', 'Ctrl Shift ', 8, grow),
];

const mac = navigator.platform.startsWith('Mac');

export function keyText(id: string): string {
    const keys = actions.find((action) => action.id === id)?.keys[0] ?? '';
    return mac ? keys.replace('Ctrl', '⌘').replace('Shift', '⇧') : keys;
}

function nameOfEvent(event: KeyboardEvent): string {
    const parts = [];
    if (event.ctrlKey || event.metaKey) parts.push('Ctrl');
    if (event.altKey) parts.push('Alt');
    if (event.shiftKey) parts.push('Shift');
    // On most keyboards Shift makes another character of a digit.
    const digit = event.shiftKey && event.code.startsWith('Digit') ? event.code.slice(5) : '';
    if (digit) return [...parts, digit].join(' ');
    parts.push(event.key.length === 1 ? event.key.toUpperCase() : event.key);
    return parts.join(' ');
}

const typing = (target: HTMLElement): boolean =>
    target.isContentEditable || ['INPUT', 'SELECT', 'TEXTAREA'].includes(target.tagName);

function keyDown(event: KeyboardEvent): void {
    altHeld.value = event.altKey;
    if (panelKey(event, true)) return;
    const target = event.target as HTMLElement;
    if (event.key === ' ' && target.closest('.stage:not(.running)')) {
        spaceHeld.value = true;
        event.preventDefault();
        return;
    }
    const name = nameOfEvent(event);
    const action = actions.find((one) => one.keys.includes(name));
    if (!action || dialog.value) return;
    const running = shown.value.mode !== 'design';
    const inPicture = target.closest('[data-region="picture"]') !== null;
    const inTree = target.closest('[role="tree"]') !== null;
    const free = target === document.body;
    const moves = name.includes('Arrow') || name.endsWith('Tab') || name === 'Escape';
    if (!action.anywhere) {
        if (typing(target) || running) return;
        if (moves && !inPicture) return;
        if (!inPicture && !inTree && !free && !event.ctrlKey && !event.key.startsWith('F')) return;
        if (action.id === 'next' || action.id === 'before') {
            const all = controls.value;
            const leaving = action.id === 'next' ? all[all.length - 1] : all[0];
            if (!all.length || chosen.value === leaving) return; // on to the next part of the page
        }
    }
    event.preventDefault();
    action.run();
}

export function keysStart(): void {
    addEventListener('keydown', keyDown);
    addEventListener('keyup', (event) => {
        altHeld.value = event.altKey;
        if (event.key === ' ') spaceHeld.value = false;
        panelKey(event, false);
    });
    addEventListener('blur', () => {
        altHeld.value = false;
        spaceHeld.value = false;
    });
    addEventListener('paste', (event) => {
        const target = event.target as HTMLElement;
        if (typing(target) || shown.value.mode !== 'design') return;
        const text = event.clipboardData?.getData('text/plain');
        if (text) void attempt(paste(text));
    });
}
