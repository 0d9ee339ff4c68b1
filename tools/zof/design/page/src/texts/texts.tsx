// All texts in all languages, each as it is drawn where it is used.
import { signal } from '@preact/signals';
import { useEffect, useState } from 'preact/hooks';

import { ask, attempt, edit } from '../actions';
import { Tile } from '../canvas/tile';
import type { TextCell, TextRow } from '../protocol';
import { request } from '../socket';
import { Chooser } from '../shell/chooser';
import { Icon } from '../shell/icon';
import { save } from '../shell/save';
import { fault, lastGesture, project, shown } from '../state';
import { words } from '../words';
import { languageFile } from './languages';
import { pasteEdits, tableCells, tableEdits, tableText } from './table';

type Filter = 'all' | 'fit' | 'letters' | 'missing' | 'unused';
const filter = signal<Filter>('all');
const rows = signal<TextRow[]>([]);

const cells = (row: TextRow): TextCell[] => Object.values(row.cells);

/** How many pixels are missing, in width and height. */
function over(cell: TextCell): [number, number] {
    const [needsW, needsH] = cell.needs ?? [0, 0];
    const [hasW, hasH] = cell.has ?? [0, 0];
    return [needsW - hasW, needsH - hasH];
}

const fits = (cell: TextCell): boolean => over(cell).every((pixels) => pixels <= 0);

const tests: Record<Filter, (row: TextRow) => boolean> = {
    all: () => true,
    fit: (row) => cells(row).some((cell) => !fits(cell)),
    letters: (row) => cells(row).some((cell) => cell.missing),
    missing: (row) => cells(row).some((cell) => cell.text === null),
    unused: (row) => row.uses.length === 0,
};

export function TextsSide() {
    const names: [Filter, string][] = [
        ['all', words.allTexts],
        ['fit', words.doesNotFit],
        ['letters', words.lettersMissing],
        ['missing', words.missingIn],
        ['unused', words.inNoView],
    ];
    return (
        <>
            <div class="head">
                <h2>{words.show}</h2>
            </div>
            <div class="filters">
                {names.map(([name, text]) => {
                    const count = rows.value.filter(tests[name]).length;
                    const bad = count > 0 && (name === 'fit' || name === 'missing');
                    return (
                        <button
                            class={filter.value === name ? 'row on' : 'row'}
                            aria-pressed={filter.value === name}
                            onClick={() => (filter.value = name)}
                        >
                            <span class="grow">{text}</span>
                            <span class={bad ? 'pill e small' : count && name === 'letters' ? 'pill w small' : 't2'}>
                                {count}
                            </span>
                        </button>
                    );
                })}
            </div>
        </>
    );
}

function Fault({ cell }: { cell: TextCell }) {
    const [wide, high] = over(cell);
    if (cell.text === null) {
        return (
            <span class="tg err">
                <Icon name="error" />
                {words.missingText}
            </span>
        );
    }
    if (wide > 0 || high > 0) {
        return (
            <span class="tg err">
                <Icon name="error" />
                {wide > 0 ? words.tooWide(wide) : words.tooHigh(high)}
            </span>
        );
    }
    if (cell.missing) {
        return (
            <span class="tg warn">
                <Icon name="warning" />
                {words.missingLetters(cell.missing)}
            </span>
        );
    }
    return null;
}

/** The rows that the filter leaves. */
const listed = (): TextRow[] => rows.value.filter(tests[filter.value]);

/** Makes a language with the texts of the one that is shown, to be translated. */
async function addLanguage(code: string): Promise<void> {
    const from = shown.value.language || (project.value?.languages[0] ?? '');
    const source = from ? await request('source', { file: languageFile(from) }) : { text: '{}\n' };
    await request('edit', { label: words.addOf(code), edits: [{ file: languageFile(code), create: source.text }] });
}

/** Spreadsheets save tables as UTF-8, as UTF-16 with a mark, or in the system's older encoding. */
function decoded(bytes: ArrayBuffer): string {
    const [first = 0, second = 0] = new Uint8Array(bytes);
    if (first === 0xff && second === 0xfe) return new TextDecoder('utf-16le').decode(bytes);
    try {
        return new TextDecoder('utf-8', { fatal: true }).decode(bytes);
    } catch {
        return new TextDecoder('windows-1252').decode(bytes);
    }
}

async function load(file: File | undefined): Promise<void> {
    if (!file) return;
    const edits = tableEdits(tableCells(decoded(await file.arrayBuffer())), rows.value, project.value?.languages ?? []);
    if (edits) await edit(words.importOf(file.name), edits);
    else fault.value = words.noTable(file.name);
}

function Cell({ row, language }: { row: TextRow; language: string }) {
    const cell = row.cells[language] ?? { text: null };
    const [text, setText] = useState(cell.text ?? '');
    useEffect(() => setText(cell.text ?? ''), [cell.text]);
    const write = (): void => {
        if (text === (cell.text ?? '')) return;
        void edit(words.textIn(row.key, language), [{ file: languageFile(language), path: row.key, value: text }]);
    };
    // Enter goes down to the next text of the language.
    const keyDown = (event: KeyboardEvent): void => {
        if (event.key === 'Escape') setText(cell.text ?? '');
        if (event.key !== 'Enter') return;
        write();
        const all = [...document.querySelectorAll<HTMLInputElement>(`[data-language="${language}"]`)];
        all[all.indexOf(event.currentTarget as HTMLInputElement) + (event.shiftKey ? -1 : 1)]?.focus();
    };
    return (
        <td class="tx">
            <input
                aria-label={`${row.key}, ${language}`}
                data-language={language}
                value={text}
                onInput={(event) => setText(event.currentTarget.value)}
                onBlur={write}
                onKeyDown={keyDown}
                onPaste={(event) => {
                    const pasted = event.clipboardData?.getData('text/plain') ?? '';
                    if (!/[\t\n]/.test(pasted.trim())) return; // one cell is typed text
                    event.preventDefault();
                    const edits = pasteEdits(pasted, listed(), project.value?.languages ?? [], row.key, language);
                    void edit(words.pasteTexts, edits);
                }}
            />
            <Fault cell={cell} />
        </td>
    );
}

function Drawn({ row, language }: { row: TextRow; language: string }) {
    const cell = row.cells[language];
    const use = row.uses[0];
    const [hidden, setHidden] = useState(false);
    useEffect(() => setHidden(false), [lastGesture.value]);
    if (!use) return <td class="t3">{words.notDrawn}</td>;
    if (hidden) return <td class="t3">{words.hiddenNow}</td>;
    const look = cell && !fits(cell) ? 'dr over' : cell?.missing ? 'dr miss' : 'dr';
    return (
        <td>
            <Tile
                view={use.split('/')[0] ?? ''}
                control={use}
                language={language}
                theme={shown.value.theme}
                trim
                width={180}
                height={56}
                class={look}
                onFault={() => setHidden(true)}
            />
        </td>
    );
}

export function Texts() {
    const languages = project.value?.languages ?? [];
    const gesture = lastGesture.value;
    useEffect(() => {
        void attempt(request('texts', {})).then((reply) => {
            if (reply) rows.value = reply.rows;
        });
    }, [gesture]);
    const list = listed();
    return (
        <main class="centre texts" data-region="picture">
            <div class="tools">
                <span class="m">{words.textsCount(list.length)}</span>
                <span class="grow" />
                <button class="btn edge" onClick={() => ask(words.newLanguage, words.make, '', addLanguage)}>
                    <Icon name="add" />
                    {words.oneLanguage}
                </button>
                <Chooser
                    name={words.importTable}
                    accept=".csv,.tsv,.txt"
                    onFiles={(files) => void attempt(load(files[0]))}
                >
                    {words.importTable}
                </Chooser>
                <button
                    class="btn edge"
                    onClick={() =>
                        save(
                            `${project.value?.name ?? 'texts'}.csv`,
                            new Blob([tableText(rows.value, project.value?.languages ?? [])], { type: 'text/csv' }),
                        )
                    }
                >
                    {words.exportTable}
                </button>
            </div>
            <div class="grid" tabIndex={0}>
                <table>
                    <thead>
                        <tr>
                            <th>{words.key}</th>
                            {languages.flatMap((language) => [
                                <th key={language}>{language}</th>,
                                <th key={language + ' drawn'}>{words.asDrawn}</th>,
                            ])}
                        </tr>
                    </thead>
                    <tbody>
                        {list.map((row) => (
                            <tr key={row.key}>
                                <td class="key">
                                    <span class="mono">#{row.key}</span>
                                    <small>{row.uses.join(', ') || words.notDrawn}</small>
                                </td>
                                {languages.flatMap((language) => [
                                    <Cell key={language} row={row} language={language} />,
                                    <Drawn key={language + ' drawn'} row={row} language={language} />,
                                ])}
                            </tr>
                        ))}
                    </tbody>
                </table>
            </div>
        </main>
    );
}
