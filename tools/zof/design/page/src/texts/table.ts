// Texts as a table for other programs: comma-separated values, and cells that are pasted from a spreadsheet.
import type { Edit, TextRow } from '../protocol';
import { languageFile } from './languages';

const quoted = (text: string): string => (/[",;\t\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text);

/** A line for each key, and a column for each language. */
export function tableText(rows: TextRow[], languages: string[]): string {
    const lines = [
        ['key', ...languages],
        ...rows.map((row) => [row.key, ...languages.map((code) => row.cells[code]?.text ?? '')]),
    ];
    return lines.map((line) => line.map(quoted).join(',') + '\r\n').join('');
}

/** Lines of cells; the separator is a tab, a semicolon or a comma, whichever stands first outside of quotes. */
export function tableCells(text: string): string[][] {
    const plain = text.replace(/^\uFEFF/, '').replaceAll('\r\n', '\n');
    const separator = /[\t;,]/.exec(plain.replaceAll(/"[^"]*"/g, '').split('\n')[0] ?? '')?.[0] ?? ',';
    const lines: string[][] = [[]];
    let cell = '';
    let inside = false;
    for (let at = 0; at < plain.length; at++) {
        const letter = plain[at] ?? '';
        const line = lines[lines.length - 1] ?? [];
        if (inside && letter === '"' && plain[at + 1] === '"') {
            cell += '"';
            at++;
        } else if (letter === '"' && (inside || cell === '')) inside = !inside;
        else if (!inside && letter === separator) {
            line.push(cell);
            cell = '';
        } else if (!inside && letter === '\n') {
            line.push(cell);
            cell = '';
            lines.push([]);
        } else cell += letter;
    }
    if (cell) lines[lines.length - 1]?.push(cell);
    return lines.filter((line) => line.some((one) => one !== ''));
}

const change = (row: TextRow | undefined, key: string, language: string, text: string): Edit[] =>
    text === '' || (row?.cells[language]?.text ?? null) === text
        ? []
        : [{ file: languageFile(language), path: key, value: text }];

/**
 * The edits of a table whose first line names its columns: "key", and codes of languages; others are left alone. Empty
 * cells change nothing. Null if there is no column of keys, or none of a language.
 */
export function tableEdits(cells: string[][], rows: TextRow[], languages: string[]): Edit[] | null {
    const [head = [], ...lines] = cells;
    const names = head.map((name) => name.trim().toLowerCase());
    const keyAt = names.indexOf('key');
    const columns = languages.filter((code) => names.includes(code));
    if (keyAt < 0 || !columns.length) return null;
    return lines.flatMap((line) => {
        const key = line[keyAt] ?? '';
        const row = rows.find((one) => one.key === key);
        return key ? columns.flatMap((code) => change(row, key, code, line[names.indexOf(code)] ?? '')) : [];
    });
}

/** The edits of cells that are pasted at a text: down over the keys that are shown, to the right over the languages. */
export function pasteEdits(text: string, rows: TextRow[], languages: string[], key: string, language: string): Edit[] {
    const top = rows.findIndex((row) => row.key === key);
    const left = languages.indexOf(language);
    const lines = text.replaceAll('\r\n', '\n').replace(/\n$/, '').split('\n');
    return lines.flatMap((line, down) =>
        line.split('\t').flatMap((cell, across) => {
            const row = rows[top + down];
            const code = languages[left + across];
            return row && code ? change(row, row.key, code, cell) : [];
        }),
    );
}
