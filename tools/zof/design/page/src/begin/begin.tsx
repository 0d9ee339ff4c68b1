// A folder without a project: how the panel begins. Nothing is written before the button.
import { useState } from 'preact/hooks';

import { attempt, message } from '../actions';
import { Asked } from '../canvas/tile';
import type { Draft, Empty } from '../protocol';
import { request } from '../socket';
import { Icon } from '../shell/icon';
import { Logo, Look } from '../shell/bar';
import { words, wordsLanguage } from '../words';

const SIZES: [number, number][] = [
    [320, 240],
    [480, 272],
    [480, 320],
    [800, 480],
    [1024, 600],
    [1280, 800],
];
const LANGUAGES = [
    'cs',
    'da',
    'es',
    'fi',
    'fr',
    'hu',
    'it',
    'ja',
    'ko',
    'nl',
    'no',
    'pl',
    'pt',
    'ru',
    'sv',
    'tr',
    'uk',
    'zh',
];
const BAUDS = [0, 9600, 115200];

interface File {
    name: string;
    lines: number;
}

const nameOf = (code: string): string =>
    new Intl.DisplayNames([wordsLanguage.value], { type: 'language' }).of(code) ?? code;

function Size({ draft, onDraft }: { draft: Draft; onDraft: (next: Draft) => void }) {
    const { panelWidth: width, panelHeight: height } = draft;
    const upright = height > width;
    const [other, setOther] = useState(false);
    const set = (w: number, h: number): void => onDraft({ ...draft, panelWidth: w, panelHeight: h });
    const known = SIZES.some(([w, h]) => w === Math.max(width, height) && h === Math.min(width, height));
    return (
        <section>
            <h2>
                {words.size} <span class="t2">{words.sizeHint}</span>
            </h2>
            <div class="sizes" role="radiogroup" aria-label={words.size}>
                {SIZES.map(([w, h]) => {
                    const [wide, high] = upright ? [h, w] : [w, h];
                    const on = !other && wide === width && high === height;
                    return (
                        <button
                            type="button"
                            role="radio"
                            aria-checked={on}
                            class={on ? 'pick on' : 'pick'}
                            onClick={() => {
                                setOther(false);
                                set(wide, high);
                            }}
                        >
                            <span class="shape">
                                <b style={{ width: wide / 17 + 8, height: high / 17 + 8 }} />
                            </span>
                            {`${wide} × ${high}`}
                        </button>
                    );
                })}
                <button
                    type="button"
                    role="radio"
                    aria-checked={other || !known}
                    class={other || !known ? 'pick on' : 'pick'}
                    onClick={() => setOther(true)}
                >
                    <span class="shape">
                        <Icon name="add" />
                    </span>
                    {words.other}
                </button>
                <span class="seg small" role="radiogroup" aria-label={words.direction}>
                    {[false, true].map((one) => (
                        <button
                            type="button"
                            role="radio"
                            class={one === upright ? 'on' : ''}
                            aria-checked={one === upright}
                            onClick={() => one !== upright && set(height, width)}
                        >
                            {one ? words.upright : words.wide}
                        </button>
                    ))}
                </span>
            </div>
            {(other || !known) && (
                <p class="pair">
                    {(['panelWidth', 'panelHeight'] as const).map((side) => (
                        <label class="in num">
                            <input
                                aria-label={side === 'panelWidth' ? words.width : words.height}
                                type="number"
                                min={240}
                                max={4096}
                                value={draft[side]}
                                onChange={(event) => onDraft({ ...draft, [side]: Number(event.currentTarget.value) })}
                            />
                            <span class="u">px</span>
                        </label>
                    ))}
                </p>
            )}
        </section>
    );
}

function Languages({ draft, onDraft }: { draft: Draft; onDraft: (next: Draft) => void }) {
    const all = draft.languages;
    const set = (languages: string[]): void => onDraft({ ...draft, languages });
    return (
        <section>
            <h2>{words.languages}</h2>
            <div class="chips">
                {all.map((code, at) => (
                    <span class="chip on">
                        {nameOf(code)} {at === 0 && <span>{words.atStart}</span>}
                        {all.length > 1 && (
                            <button
                                type="button"
                                class="bare"
                                aria-label={words.takeOutRow(nameOf(code))}
                                onClick={() => set(all.filter((one) => one !== code))}
                            >
                                <Icon name="close" />
                            </button>
                        )}
                    </span>
                ))}
                <label class="chip add">
                    <Icon name="add" />
                    <select
                        aria-label={words.addLanguage}
                        value=""
                        onChange={(event) => set([...all, event.currentTarget.value])}
                    >
                        <option value="">{words.addLanguage}</option>
                        {['en', 'de', ...LANGUAGES]
                            .filter((code) => !all.includes(code))
                            .map((code) => (
                                <option value={code}>{nameOf(code)}</option>
                            ))}
                    </select>
                </label>
            </div>
            {all.some((code) => !['en', 'de'].includes(code)) && <p class="t2">{words.startsEnglish}</p>}
        </section>
    );
}

interface ChoiceProps<T> {
    name: string;
    hint: string;
    value: T;
    choices: [T, string][];
    note: string;
    onChange: (value: T) => void;
}

function Choice<T>({ name, hint, value, choices, note, onChange }: ChoiceProps<T>) {
    return (
        <section>
            <h2>
                {name} <span class="t2">{hint}</span>
            </h2>
            <span class="seg small" role="radiogroup" aria-label={name}>
                {choices.map(([one, text]) => (
                    <button
                        type="button"
                        role="radio"
                        class={one === value ? 'on' : ''}
                        aria-checked={one === value}
                        onClick={() => onChange(one)}
                    >
                        {text}
                    </button>
                ))}
            </span>
            <p class="t2">{note}</p>
        </section>
    );
}

const PREVIEW_PX = 480;

export function Begin({ empty }: { empty: Empty }) {
    const plain = empty.name.replaceAll(/\W+/g, '_').replace(/^[^a-z]+/i, '');
    const [draft, setDraft] = useState<Draft>({
        name: plain || 'panel',
        template: empty.templates[0] ?? '',
        panelWidth: 480,
        panelHeight: 272,
        languages: [wordsLanguage.value, wordsLanguage.value === 'de' ? 'en' : 'de'],
        baud: 0,
        program: false,
    });
    const [files, setFiles] = useState<File[]>([]);
    const [fault, setFault] = useState('');
    const { panelWidth: width, panelHeight: height } = draft;
    const make = (): void => void attempt(request('make', draft).catch((reason: unknown) => setFault(message(reason))));
    const fit = Math.min(1, PREVIEW_PX / width, (PREVIEW_PX * 0.9) / height);
    return (
        <div class="begin">
            <header class="bar">
                <div class="side">
                    <Logo />
                    <b class="name">zof design</b>
                </div>
                <div class="side r">
                    <Look />
                </div>
            </header>
            <form
                class="begin-form"
                onSubmit={(event) => {
                    event.preventDefault();
                    make();
                }}
            >
                <main class="begin-left">
                    <h1>{words.newPanel}</h1>
                    <p class="t2">{words.emptyFolder(empty.dir)}</p>
                    <section>
                        <h2>
                            <label for="begin-name">{words.name}</label>
                        </h2>
                        <span class="in begin-name">
                            <input
                                id="begin-name"
                                value={draft.name}
                                spellcheck={false}
                                onInput={(event) => setDraft({ ...draft, name: event.currentTarget.value })}
                            />
                        </span>
                    </section>
                    <Size draft={draft} onDraft={setDraft} />
                    <section>
                        <h2>
                            {words.beginWith} <span class="t2">{words.drawnAt(`${width} × ${height}`)}</span>
                        </h2>
                        <div class="templates" role="radiogroup" aria-label={words.beginWith}>
                            {empty.templates.map((template) => (
                                <button
                                    type="button"
                                    role="radio"
                                    aria-checked={draft.template === template}
                                    class={draft.template === template ? 'pick on' : 'pick'}
                                    onClick={() => setDraft({ ...draft, template })}
                                >
                                    <Asked
                                        what="draft"
                                        args={{ ...draft, template, name: 'panel' }}
                                        width={180}
                                        height={120}
                                    />
                                    <b>{words.templates[template as keyof typeof words.templates]?.[0] ?? template}</b>
                                    <small>{words.templates[template as keyof typeof words.templates]?.[1]}</small>
                                </button>
                            ))}
                        </div>
                    </section>
                    <div class="begin-pair">
                        <Languages draft={draft} onDraft={setDraft} />
                        <Choice
                            name={words.host}
                            hint={words.onSerial}
                            value={draft.baud}
                            choices={BAUDS.map((baud) => [baud, baud ? `${baud} baud` : words.none])}
                            note={draft.baud ? words.hostNote : words.noHostNote}
                            onChange={(baud) => setDraft({ ...draft, baud })}
                        />
                        <Choice
                            name={words.program}
                            hint=""
                            value={draft.program}
                            choices={[
                                [false, words.filesOnly],
                                [true, 'C'],
                            ]}
                            note={draft.program ? words.programNote : words.noProgramNote}
                            onChange={(program) => setDraft({ ...draft, program })}
                        />
                    </div>
                </main>
                <aside class="begin-right">
                    <Asked
                        what="draft"
                        args={draft}
                        width={Math.floor(width * fit)}
                        height={Math.floor(height * fit)}
                        onReply={(reply) => {
                            setFiles(reply.files);
                            setFault('');
                        }}
                        onFault={(reason) => {
                            setFiles([]);
                            setFault(message(reason));
                        }}
                    />
                    <p class="pair t2">
                        <span class="grow">{`${draft.name}, ${width} × ${height}`}</span>
                        {fit === 1 ? words.actualSize : `${Math.round(fit * 100)} %`}
                    </p>
                    <h2>
                        {words.willWrite} <span class="t2">{words.filesIn(files.length, empty.dir)}</span>
                    </h2>
                    <ul class="begin-files">
                        {files.map((file) => (
                            <li>
                                <Icon name="file" />
                                <span class="mono grow clip">{file.name}</span>
                                <span class="t2">{words.lines(file.lines)}</span>
                            </li>
                        ))}
                    </ul>
                    {fault && (
                        <p class="err" role="alert">
                            {fault}
                        </p>
                    )}
                    <button class="btn primary" disabled={fault !== ''}>
                        {words.makePanel}
                    </button>
                </aside>
            </form>
        </div>
    );
}
