// How a control looks, part by part and state by state: what its view's file says, one entry for each, or its look.
import { useId, useState } from 'preact/hooks';

import { Tile } from '../canvas/tile';
import { recordOf, type Type } from '../catalogue';
import type { Control, Edit, Json, Value } from '../protocol';
import { edit, pose } from '../actions';
import { Icon } from '../shell/icon';
import { project, shown } from '../state';
import { said, words } from '../words';
import { Form } from './form';
import { useOrigins } from './origins';
import { below, type Origin, type Subject } from './subject';
import { jsonOf, numberOf } from './value';
import { useValues } from './values';

export interface Entry {
    index: number;
    section: number;
    part: number;
    state: number;
    values: Value[];
}

/** The states as the player names them in a request. */
const asDrawn = (state: string): string => (state === 'always' ? 'default' : state);

/** The entries of a list "styles" among values. */
export function entriesOf(all: Value[]): Entry[] {
    const style = recordOf('style');
    const count = Math.max(-1, ...all.map((value) => Number(/^styles\[(\d+)\]/.exec(value.path)?.[1] ?? -1))) + 1;
    return Array.from({ length: count }, (_, index) => {
        const values = below(all, `styles[${index}].`);
        const number = (name: string): number => {
            const key = style?.keys.find((one) => one.key === name);
            return (key && numberOf(key, jsonOf(values.find((value) => value.path === name)?.raw))) ?? 0;
        };
        return {
            index,
            section: number('style_sect'),
            part: number('style_part'),
            state: number('style_state'),
            values,
        };
    });
}

/** The JSON value of an entry, for a copy. */
function treeOf(values: Value[]): { [key: string]: Json } {
    const tree: { [key: string]: Json } = {};
    for (const { path, kind, raw } of values) {
        const steps = path.split('.');
        const last = steps.pop() ?? '';
        const holder = steps.reduce((at, step) => at[step] as { [key: string]: Json }, tree);
        holder[last] = kind === 'object' ? {} : (jsonOf(raw) ?? null);
    }
    return tree;
}

interface ChoiceProps {
    label: string;
    value: string;
    options: [value: string, text: string][];
    onChange: (value: string) => void;
}

function Choice({ label, value, options, onChange }: ChoiceProps) {
    const id = useId();
    return (
        <div class="f">
            <label for={id}>{label}</label>
            <span class="in">
                <select id={id} value={value} onChange={(event) => onChange(event.currentTarget.value)}>
                    {options.map(([one, text]) => (
                        <option value={one}>{text}</option>
                    ))}
                </select>
            </span>
        </div>
    );
}

interface Props {
    control: Control;
    subject: Subject;
    type: Type;
    look: string; // its name; empty if the control has none
}

export function Styles({ control, subject, type, look }: Props) {
    const style = recordOf('style');
    const [section, setSection] = useState(0);
    const [part, setPart] = useState(0);
    const [state, setState] = useState(0);
    const [target, setTarget] = useState(''); // the file whose look is written; empty for the view's
    const files = (project.value?.looks ?? []).filter((one) => one.name === look).map((one) => one.file);
    const file = files.find((one) => one === target);
    const place = subject.places[0];
    const all = entriesOf(place?.values ?? []);
    const entries = all.filter((entry) => entry.section === section);
    const elsewhere = useOrigins(control, section, part, state);
    const lookValues = useValues(file, `looks.${look}`);
    const names = (key: string) => style?.keys.find((one) => one.key === key)?.names ?? [];
    const parts = names('style_part').filter((name) => type.parts.includes(name.name));
    const states = names('style_state').filter((name) => type.states.includes(name.name));
    const chosen = entries.find((entry) => entry.part === part && entry.state === state);
    const stateName = states.find((one) => one.value === state)?.name ?? 'always';
    const sections = names('style_sect').slice(0, type.sections);
    /** The name of a style in a look: "second:items:pressed"; empty for the main part. */
    const lookKey = (ofPart: number, ofState: number): string =>
        [
            section ? sections.find((one) => one.value === section)?.name : '',
            ofPart ? parts.find((one) => one.value === ofPart)?.name : '',
            ofState ? states.find((one) => one.value === ofState)?.name : '',
        ]
            .filter((name) => name)
            .join(':');
    const key = lookKey(part, state);
    const always = entries.find((entry) => entry.part === part && entry.state === 0);
    const above: Origin[] =
        place && always && state !== 0 && !file
            ? [{ label: words.alwaysHere, file: place.file, values: always.values }]
            : [];
    /** Where values come from that the written file leaves out: not from the style that is written itself. */
    const origins = [
        ...above,
        ...elsewhere.filter((one) => !file || one.file !== file || one.path !== `looks.${look}${key && '.' + key}`),
    ];
    /** Whether the file that is written has a style for a part and a state. */
    const has = (ofPart: number, ofState: number): boolean =>
        file
            ? (lookValues ?? []).some((value) => value.path === (lookKey(ofPart, ofState) || 'body_t'))
            : entries.some((entry) => entry.part === ofPart && entry.state === ofState);

    const choose = (value: number, name: string): void => {
        setState(value);
        pose(control.path, asDrawn(name));
    };
    const insert = (tree: { [key: string]: Json }): Edit[] => {
        if (!place) return [];
        const which = { style_part: part, style_state: state, ...(section ? { style_sect: section } : {}) };
        const value = { ...which, ...tree, ...which };
        const path = `${place.path}.styles`;
        return place.values.some((one) => one.path === 'styles')
            ? [{ file: place.file, path: `${path}[${all.length}]`, insert: value }]
            : [{ file: place.file, path, value: [value] }];
    };
    const add = (from?: Entry): void =>
        void edit(words.labelOf(words.style, subject.name), insert(from ? treeOf(from.values) : {}));
    /** The first value of an entry that this file does not have. */
    const make = (path: string, value: Json): Edit[] => {
        const steps = path.split('.').reverse();
        return insert(steps.reduce((inner, step) => ({ [step]: inner }), value) as { [key: string]: Json });
    };
    const dressed = (value: number): boolean =>
        control.styles.some(
            (style) => style.part === part && style.state === value && style.file !== control.place?.file,
        );
    const used = states.filter((one) => one.value === 0 || dressed(one.value) || has(part, one.value));
    const others = states.filter((one) => !used.includes(one));

    return (
        <>
            <section class="sect">
                {files.length > 0 && (
                    <Choice
                        label={words.styleOf}
                        value={file ?? ''}
                        options={[
                            ['', words.thisControl],
                            ...files.map((one): [string, string] => [
                                one,
                                words.lookIn(look, one.split('/').slice(2, -1).join('/')),
                            ]),
                        ]}
                        onChange={setTarget}
                    />
                )}
                {file && <p class="t3">{words.lookHint}</p>}
                {sections.length > 1 && (
                    <Choice
                        label={words.object}
                        value={String(section)}
                        options={sections.map((one) => [String(one.value), said(one.name)])}
                        onChange={(value) => setSection(Number(value))}
                    />
                )}
                <Choice
                    label={words.part}
                    value={String(part)}
                    options={parts.map((one) => [String(one.value), said(one.name) + (has(one.value, 0) ? ' •' : '')])}
                    onChange={(value) => setPart(Number(value))}
                />
                <div class="states" role="radiogroup" aria-label={words.states}>
                    {used.map((one) => (
                        <button
                            class={one.value === state ? 'state on' : 'state'}
                            role="radio"
                            aria-checked={one.value === state}
                            onClick={() => choose(one.value, one.name)}
                        >
                            <Tile
                                view={shown.value.view}
                                language={shown.value.language}
                                theme={shown.value.theme}
                                control={control.path}
                                state={asDrawn(one.name)}
                                width={84}
                                height={30}
                            />
                            <small>
                                {said(one.name)}
                                {has(part, one.value) && <b />}
                            </small>
                        </button>
                    ))}
                    {others.length > 0 && (
                        <label class="state add">
                            <Icon name="add" />
                            <select
                                aria-label={words.otherState}
                                value=""
                                onChange={(event) => {
                                    const one = others.find((name) => String(name.value) === event.currentTarget.value);
                                    if (one) choose(one.value, one.name);
                                }}
                            >
                                <option value="">{words.otherState}</option>
                                {others.map((one) => (
                                    <option value={String(one.value)}>{said(one.name)}</option>
                                ))}
                            </select>
                        </label>
                    )}
                </div>
            </section>
            {file ? (
                lookValues && (
                    <Form
                        key={`${file} ${key}`}
                        subject={{
                            name: words.lookIn(look, ''),
                            places: [
                                {
                                    file,
                                    path: `looks.${look}${key && '.' + key}`,
                                    values: key ? below(lookValues, key + '.') : lookValues,
                                },
                            ],
                            origins,
                        }}
                        record={key ? 'look style' : 'look'}
                        without={['*']}
                        byObject
                    />
                )
            ) : chosen ? (
                <Form
                    key={`${section} ${part} ${state}`}
                    subject={{
                        name: subject.name,
                        places: [
                            {
                                file: place?.file ?? '',
                                path: `${place?.path}.styles[${chosen.index}]`,
                                values: chosen.values,
                            },
                        ],
                        origins,
                    }}
                    record="style"
                    without={['style_part', 'style_state', 'style_sect']}
                    byObject
                />
            ) : (
                <section class="sect">
                    <p class="t2">{words.noStyle(said(stateName))}</p>
                    <div class="chips">
                        {always && state !== 0 && (
                            <button class="btn edge" onClick={() => add(always)}>
                                <Icon name="copy" />
                                {words.beginWithAlways}
                            </button>
                        )}
                        <button class="btn edge" onClick={() => add()}>
                            <Icon name="add" />
                            {words.addStyle}
                        </button>
                    </div>
                </section>
            )}
            {!file && !chosen && origins.length > 0 && place && (
                <Form
                    key={`${section} ${part} ${state} from elsewhere`}
                    subject={{ name: subject.name, places: [{ ...place, path: 'style', values: [] }], origins, make }}
                    record="style"
                    without={['style_part', 'style_state', 'style_sect']}
                    byObject
                />
            )}
        </>
    );
}
