// What stands in the source beside its text: the lines of the selection, the last change with its old value, and swatches of
// colours. None of it is text.
import { StateEffect, StateField, type Extension, type Range } from '@codemirror/state';
import { Decoration, EditorView, ViewPlugin, WidgetType, type DecorationSet, type ViewUpdate } from '@codemirror/view';

export interface Marks {
    chosen: { from: number; to: number }[]; // of the selection
    changed: { from: number; to: number; was: string } | null;
}

export const setMarks = StateEffect.define<Marks>();

class Was extends WidgetType {
    constructor(readonly text: string) {
        super();
    }
    override eq(other: Was): boolean {
        return other.text === this.text;
    }
    toDOM(): HTMLElement {
        const was = document.createElement('del');
        was.className = 'cm-was';
        was.textContent = this.text;
        return was;
    }
}

class Swatch extends WidgetType {
    constructor(readonly colour: string) {
        super();
    }
    override eq(other: Swatch): boolean {
        return other.colour === this.colour;
    }
    toDOM(): HTMLElement {
        const swatch = document.createElement('span');
        swatch.className = 'cm-swatch';
        swatch.style.backgroundColor = this.colour;
        swatch.setAttribute('aria-hidden', 'true');
        return swatch;
    }
}

function marksOf(view: { doc: EditorView['state']['doc'] }, marks: Marks): DecorationSet {
    const ranges: Range<Decoration>[] = [];
    for (const { from, to } of marks.chosen) {
        for (let at = from; at <= Math.min(to, view.doc.length);) {
            const line = view.doc.lineAt(at);
            ranges.push(Decoration.line({ class: 'cm-chosen' }).range(line.from));
            at = line.to + 1;
        }
    }
    const changed = marks.changed;
    if (changed && changed.to <= view.doc.length) {
        if (changed.was) ranges.push(Decoration.widget({ widget: new Was(changed.was), side: -1 }).range(changed.from));
        if (changed.to > changed.from) {
            ranges.push(Decoration.mark({ class: 'cm-changed' }).range(changed.from, changed.to));
        }
    }
    return Decoration.set(ranges, true);
}

const marksField = StateField.define<DecorationSet>({
    create: () => Decoration.none,
    update(now, change) {
        let next = now.map(change.changes);
        for (const effect of change.effects) {
            if (effect.is(setMarks)) next = marksOf(change.state, effect.value);
        }
        return next;
    },
    provide: (field) => EditorView.decorations.from(field),
});

const COLOUR = /("[a-z_]*col(?:o|ou)r"\s*:\s*)(?:(\d{1,8})\b|"(#[0-9a-fA-F]{6}|#[0-9a-fA-F]{3})")/g;

function swatchesOf(view: EditorView): DecorationSet {
    const ranges: Range<Decoration>[] = [];
    for (const { from, to } of view.visibleRanges) {
        const text = view.state.doc.sliceString(from, to);
        for (const match of text.matchAll(COLOUR)) {
            const number = match[2] === undefined ? NaN : Number(match[2]);
            const colour = match[3] ?? (number <= 0xffffff ? '#' + number.toString(16).padStart(6, '0') : '');
            if (colour) {
                const at = from + match.index + (match[1]?.length ?? 0);
                ranges.push(Decoration.widget({ widget: new Swatch(colour), side: -1 }).range(at));
            }
        }
    }
    return Decoration.set(ranges, true);
}

const swatches = ViewPlugin.fromClass(
    class {
        decorations: DecorationSet;
        constructor(view: EditorView) {
            this.decorations = swatchesOf(view);
        }
        update(update: ViewUpdate): void {
            if (update.docChanged || update.viewportChanged) this.decorations = swatchesOf(update.view);
        }
    },
    { decorations: (plugin) => plugin.decorations },
);

export const sourceMarks: Extension = [marksField, swatches];
