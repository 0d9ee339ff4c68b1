// A scenario: what a host writes and what a finger does, at their times. It is a text of lines such as
//   0.5  set home/temp 93.5
//   1    ramp home/temp 93.5 20 4     from one number to another in so many seconds
//   2.1  press 120 40                 likewise move, release
//   3    view recipe
// Lines that begin with # are for people.
import { signal } from '@preact/signals';

import { message } from '../actions';
import { request } from '../socket';
import { fault, project } from '../state';
import { words } from '../words';
import { written } from './written';

export interface Step {
    at: number; // seconds
    line: number;
    word: Word;
    args: string[];
}

const WORDS = { set: 2, ramp: 4, press: 2, move: 2, release: 2, view: 1 } as const; // and how many arguments they have
type Word = keyof typeof WORDS;
const RAMP_S = 0.1; // between two numbers of a ramp
const LONGEST_S = 86400;

/** Why a line cannot work; `text` is the word at fault, or the line. */
export interface LineFault {
    line: number;
    why: 'form' | 'view' | 'place' | 'number';
    text: string;
}

export interface Parsed {
    steps: Step[];
    fault: LineFault | null;
}

const isNumber = (text: string): boolean => text !== '' && Number.isFinite(Number(text));
const isWord = (word: string | undefined): word is Word => word !== undefined && word in WORDS;

/** A ramp as the numbers that it writes. */
function ramp(step: Step): Step[] {
    const [control = '', from, to, seconds] = step.args;
    const [begin, end, length] = [Number(from), Number(to), Number(seconds)];
    const count = Math.min(1000, Math.max(1, Math.round(length / RAMP_S)));
    return Array.from({ length: count + 1 }, (_, at) => ({
        ...step,
        at: step.at + (length * at) / count,
        word: 'set' as const,
        args: [control, String(Math.round(begin + ((end - begin) * at) / count))],
    }));
}

/** Returns why a line that has the right form cannot work in this project. */
function missing({ word, args, line }: Step): LineFault | null {
    const { views, width, height } = project.value ?? { views: [], width: 0, height: 0 };
    const [first = '', second = ''] = args;
    const view = word === 'set' || word === 'ramp' || word === 'view' ? first.replace(/\/.*/, '') : '';
    if (view && !views.some((one) => one.name === view)) return { line, why: 'view', text: view };
    if (word === 'set' && written.value.get(first)?.takes === 'number' && !isNumber(second))
        return { line, why: 'number', text: second };
    // A finger that was put down on the panel may leave it.
    const [x, y] = [Number(first), Number(second)];
    const off = word === 'press' && !(x >= 0 && y >= 0 && x < width && y < height);
    return off ? { line, why: 'place', text: `${first}, ${second}` } : null;
}

export function scenarioParse(text: string): Parsed {
    const steps: Step[] = [];
    for (const [index, whole] of text.split('\n').entries()) {
        const line = whole.trim();
        if (!line || line.startsWith('#')) continue;
        const [time, word, ...rest] = line.split(/\s+/);
        const at = Number(time);
        const count = isWord(word) ? WORDS[word] : 0;
        // A text that is set may have blanks in it.
        const args = word === 'set' ? [rest[0] ?? '', rest.slice(1).join(' ')] : rest;
        const numbers = word === 'ramp' ? args.slice(1) : word === 'set' || word === 'view' ? [] : args;
        const form = at >= 0 && at <= LONGEST_S && isWord(word) && args.length === count && numbers.every(isNumber);
        const length = word === 'ramp' ? Number(args[3]) : 0;
        if (!form || length < 0 || length > LONGEST_S)
            return { steps: [], fault: { line: index + 1, why: 'form', text: line } };
        const step: Step = { at, line: index + 1, word, args };
        const fault = missing(step);
        if (fault) return { steps: [], fault };
        steps.push(...(word === 'ramp' ? ramp(step) : [step]));
    }
    return { steps: steps.sort((a, b) => a.at - b.at), fault: null };
}

function send({ word, args }: Step): Promise<unknown> {
    const [first = '', second = ''] = args;
    if (word === 'set') {
        const value = written.value.get(first);
        if (!value) return Promise.reject(new Error(words.scenarioUnknown(first)));
        return request('set', {
            control: first,
            row: value.row,
            value: value.takes === 'number' ? Number(second) : second,
        });
    }
    if (word === 'view') return request('show', { view: first });
    return request('pointer', { x: Number(first), y: Number(second), down: word !== 'release' });
}

function perform(step: Step): void {
    send(step).catch((reason: unknown) => (fault.value = words.scenarioLine(step.line, message(reason))));
}

// ---- playing

/** Where a scenario that plays is, in seconds; null while none does. */
export const playing = signal<number | null>(null);
let timer: ReturnType<typeof setInterval> | undefined;
const TICK_MS = 20;

export function scenarioStop(): void {
    clearInterval(timer);
    timer = undefined;
    playing.value = null;
}

export const scenarioLength = (steps: Step[]): number => steps[steps.length - 1]?.at ?? 0;

/** Plays from a time on; what is written before it is set at once, so that the panel stands as it would then. */
export function scenarioPlay(steps: Step[], from = 0): void {
    scenarioStop();
    fault.value = '';
    const last = new Map(
        steps.filter((step) => step.at < from && step.word === 'set').map((step) => [step.args[0], step]),
    );
    last.forEach(perform);
    const start = performance.now() - from * 1000;
    let next = steps.findIndex((step) => step.at >= from);
    if (next < 0) return;
    const tick = (): void => {
        const now = (performance.now() - start) / 1000;
        playing.value = now;
        for (let step = steps[next]; step && step.at <= now; step = steps[++next]) perform(step);
        if (next >= steps.length) scenarioStop();
    };
    timer = setInterval(tick, TICK_MS);
    tick();
}

// ---- recording

export const recording = signal<{ start: number; lines: string[] } | null>(null);

export const recordBegin = (): void => void (recording.value = { start: performance.now(), lines: [] });

/** Notes what was done, if a recording is under way. */
export function record(what: string): void {
    const now = recording.value;
    if (!now) return;
    const at = ((performance.now() - now.start) / 1000).toFixed(2);
    recording.value = { ...now, lines: [...now.lines, `${at}  ${what}`] };
}

/** Ends the recording and returns it as a scenario. */
export function recordEnd(): string {
    const lines = recording.value?.lines ?? [];
    recording.value = null;
    return lines.map((line) => line + '\n').join('');
}
