// What a host program writes to do or await the same, in Python.
import { byPath } from '../state';
import { written, type Happened } from './written';

/** "view="home", control="brew"", or the number of a control without a name. */
export function target(path: string): string {
    const [view, name = ''] = path.split('/');
    return `view="${view}", control=${name.startsWith('#') ? name.slice(1) : `"${name}"`}`;
}

export const rowConstant = (row: string): string => 'rows.' + row.toUpperCase().replaceAll(/\W/g, '_');

export const handler = (path: string): string =>
    `@panel.on("${path}")\ndef ${(path.split('/')[1] ?? '').replaceAll(/\W/g, '_')}(event): ...`;

/** The lines that do a write, or await what a user does. */
export function codeOf(one: Happened): string {
    const row = written.value.get(one.control)?.row ?? byPath.value.get(one.control)?.row;
    if (one.what || !row) return handler(one.control);
    const takes = written.value.get(one.control)?.takes;
    const value = takes === 'number' ? one.value : JSON.stringify(one.value);
    return `panel.write(${rowConstant(row)}, ${value},\n    ${target(one.control)})`;
}
