// The file as it is, beside the picture: what is typed is written after a pause, and what changes elsewhere follows.
import { history, historyKeymap, defaultKeymap, indentWithTab } from '@codemirror/commands';
import { json } from '@codemirror/lang-json';
import { bracketMatching, codeFolding, foldGutter, foldKeymap, indentUnit } from '@codemirror/language';
import { lintGutter, setDiagnostics, type Diagnostic } from '@codemirror/lint';
import { highlightSelectionMatches, search, searchKeymap } from '@codemirror/search';
import { Annotation, Compartment, EditorState } from '@codemirror/state';
import { words } from '../words';
import { autocompletion, completionKeymap } from '@codemirror/autocomplete';
import { drawSelection, EditorView, highlightActiveLine, keymap, lineNumbers } from '@codemirror/view';
import { useEffect, useRef } from 'preact/hooks';

import type { Change, FileEvent, Problem } from '../protocol';
import { linked, on, request } from '../socket';
import { completionOf } from './completion';
import { replacement, replacementBytes, unitOfByte } from './bytes';
import { setMarks, sourceMarks } from './source_marks';
import { sourceTheme } from './source_theme';

const QUIET_MS = 150;
const remote = Annotation.define<boolean>();

interface Props {
    file: string;
    label: string; // for a screen reader
    chosen: { line: number; column: number }[]; // where the selected controls begin
    goTo: { line: number; column: number; serial: number } | null;
    problems: Problem[];
    readOnly: boolean;
    onCursor: (line: number) => void;
    onFault: (text: string) => void;
}

/** What is known of the file that the editor shows. */
interface Known {
    text: string; // as the program has it
    hash: string;
    timer: number;
    sending: boolean;
}

function placeOf(state: EditorState, line: number, column: number): number {
    const at = state.doc.line(Math.max(1, Math.min(line, state.doc.lines)));
    return at.from + unitOfByte(at.text, column - 1);
}

/** The end of the value that begins at a place, by its brackets. */
function valueEnd(state: EditorState, from: number): number {
    const text = state.doc.sliceString(from);
    let depth = 0;
    let quoted = false;
    for (let i = 0; i < text.length; i++) {
        const letter = text[i];
        if (quoted) {
            if (letter === '\\') i++;
            else if (letter === '"') quoted = false;
        } else if (letter === '"') quoted = true;
        else if (letter === '{' || letter === '[') depth++;
        else if (letter === '}' || letter === ']') {
            depth--;
            if (depth <= 0) return from + i + 1;
        }
    }
    return state.doc.length;
}

function changedOf(state: EditorState, change: Change | undefined): { from: number; to: number; was: string } | null {
    if (!change) return null;
    const from = placeOf(state, change.line, change.column);
    const there = state.doc.sliceString(from, from + change.after.length) === change.after;
    return there ? { from, to: from + change.after.length, was: change.before } : null;
}

function diagnosticsOf(state: EditorState, problems: Problem[]): Diagnostic[] {
    return problems.map((problem) => {
        const from = placeOf(state, problem.line, problem.column);
        const word = /^("[^"\n]*"|[\w.-]+|.)/.exec(state.doc.sliceString(from, from + 200));
        return {
            from,
            to: Math.min(state.doc.length, from + (word?.[0].length ?? 1)),
            severity: problem.error ? 'error' : 'warning',
            message: problem.text,
            source: problem.rule,
        };
    });
}

export function Source(props: Props) {
    const holder = useRef<HTMLDivElement>(null);
    const editor = useRef<EditorView | null>(null);
    const known = useRef<Known>({ text: '', hash: '', timer: 0, sending: false });
    const now = useRef(props);
    const editable = useRef(new Compartment());
    const change = useRef<Change | undefined>(undefined);
    now.current = props;

    /** Takes the program's text over, around what has been typed since. */
    const take = (text: string, hash: string): void => {
        const view = editor.current;
        if (!view) return;
        const mine = view.state.doc.toString();
        const theirs = replacement(known.current.text, text);
        const ours = replacement(known.current.text, mine);
        known.current.text = text;
        known.current.hash = hash;
        const before = theirs && (!ours || theirs.end <= ours.at);
        const after = theirs && ours && theirs.at >= ours.end;
        if (theirs && (before || after)) {
            const by = after ? ours.text.length - (ours.end - ours.at) : 0;
            view.dispatch({
                changes: { from: theirs.at + by, to: theirs.end + by, insert: theirs.text },
                annotations: remote.of(true),
            });
        } else if (theirs && mine !== text) {
            now.current.onFault(words.typedOver);
        }
        mark();
    };

    const load = async (): Promise<void> => {
        const file = now.current.file;
        if (!file || linked.peek() !== 'open') return; // loaded again when the program answers
        try {
            const { text, hash } = await request('source', { file });
            if (file === now.current.file) take(text, hash);
        } catch (fault) {
            now.current.onFault(String(fault));
        }
    };

    const mark = (): void => {
        const view = editor.current;
        if (!view) return;
        const chosen = now.current.chosen.map(({ line, column }) => {
            const from = placeOf(view.state, line, column);
            return { from, to: valueEnd(view.state, from) };
        });
        view.dispatch({ effects: setMarks.of({ chosen, changed: changedOf(view.state, change.current) }) });
    };

    /** Sends what has been typed since the last time. */
    const send = async (): Promise<void> => {
        const view = editor.current;
        const state = known.current;
        if (!view || state.sending) return;
        const text = view.state.doc.toString();
        const difference = replacement(state.text, text);
        if (!difference) return;
        const file = now.current.file;
        const edit = { file, hash: state.hash, ...replacementBytes(state.text, difference) };
        state.sending = true;
        try {
            await request('edit', {
                label: 'Type in ' + (file.split('/').pop() ?? ''),
                merge: 'type ' + file,
                edits: [edit],
            });
            state.text = text;
        } catch (fault) {
            now.current.onFault(String(fault));
        }
        state.sending = false;
        void load(); // for the new hash, and for what was refused
    };

    useEffect(() => {
        const state = EditorState.create({
            extensions: [
                lineNumbers(),
                foldGutter(),
                codeFolding(),
                lintGutter(),
                history(),
                drawSelection(),
                EditorState.allowMultipleSelections.of(true),
                bracketMatching(),
                highlightActiveLine(),
                highlightSelectionMatches(),
                search({ top: true }),
                autocompletion({ override: [(context) => completionOf(now.current.file, context)], icons: false }),
                indentUnit.of('    '),
                EditorView.lineWrapping,
                json(),
                sourceTheme,
                sourceMarks,
                editable.current.of(EditorState.readOnly.of(props.readOnly)),
                EditorView.contentAttributes.of({ 'aria-label': props.label, tabindex: '0' }),
                // Tab moves on to the next part of the page; Ctrl Tab belongs to the browser; Ctrl Enter starts Run.
                keymap.of([
                    ...defaultKeymap.filter((one) => one.key !== 'Mod-Enter'),
                    ...historyKeymap,
                    ...searchKeymap,
                    ...completionKeymap,
                    ...foldKeymap,
                    { ...indentWithTab, key: 'Alt-Tab' },
                ]),
                EditorView.updateListener.of((update) => {
                    const byHand = update.docChanged && !update.transactions.some((one) => one.annotation(remote));
                    if (byHand) {
                        change.current = undefined;
                        clearTimeout(known.current.timer);
                        known.current.timer = window.setTimeout(() => void send(), QUIET_MS);
                    } else if (update.transactions.some((one) => one.isUserEvent('select'))) {
                        // Not when the page has moved the cursor to what is selected: the two would chase each other.
                        now.current.onCursor(update.state.doc.lineAt(update.state.selection.main.head).number);
                    }
                }),
            ],
        });
        const view = new EditorView({ state, parent: holder.current ?? undefined });
        editor.current = view;
        return () => {
            clearTimeout(known.current.timer);
            void send();
            view.destroy();
            editor.current = null;
        };
    }, []);

    useEffect(() => {
        const view = editor.current;
        if (!view) return;
        known.current = { text: '', hash: '', timer: 0, sending: false };
        change.current = undefined;
        view.dispatch({ changes: { from: 0, to: view.state.doc.length }, annotations: remote.of(true) });
        void load();
        return on('file', (event: FileEvent) => {
            if (event.file !== now.current.file || event.hash === known.current.hash) return;
            if (!known.current.sending) {
                change.current = event.gesture?.changes.find((one) => one.file === event.file);
                void load();
            }
        });
    }, [props.file, linked.value]);

    useEffect(mark, [props.chosen]);

    useEffect(() => {
        const view = editor.current;
        if (view) view.dispatch(setDiagnostics(view.state, diagnosticsOf(view.state, props.problems)));
    }, [props.problems, props.file]);

    useEffect(() => {
        editor.current?.dispatch({ effects: editable.current.reconfigure(EditorState.readOnly.of(props.readOnly)) });
    }, [props.readOnly]);

    useEffect(() => {
        const view = editor.current;
        if (!view || !props.goTo) return;
        const at = placeOf(view.state, props.goTo.line, props.goTo.column);
        view.dispatch({ selection: { anchor: at }, effects: EditorView.scrollIntoView(at, { y: 'center' }) });
    }, [props.goTo?.serial]);

    return <div class="source" ref={holder} />;
}
