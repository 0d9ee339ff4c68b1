// The looks of a control that stand in its view's file: one entry for each part and state.
import { useState } from 'preact/hooks';

import { Tile } from '../canvas/tile';
import { recordOf, type Type } from '../catalogue';
import type { Control, Edit, Json, Value } from '../protocol';
import { edit, pose } from '../actions';
import { Icon } from '../shell/icon';
import { shown } from '../state';
import { words } from '../words';
import { Form } from './form';
import { useOrigins } from './origins';
import { below, type Subject } from './subject';
import { jsonOf, numberOf } from './value';

export interface Entry {
    index: number;
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
        return { index, part: number('style_part'), state: number('style_state'), values };
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

export function Styles({ control, subject, type }: { control: Control; subject: Subject; type: Type }) {
    const style = recordOf('style');
    const [part, setPart] = useState(0);
    const [state, setState] = useState(0);
    const place = subject.places[0];
    const entries = entriesOf(place?.values ?? []);
    const origins = useOrigins(control, part, state);
    const names = (key: string) => style?.keys.find((one) => one.key === key)?.names ?? [];
    const parts = names('style_part').filter((name) => type.parts.includes(name.name));
    const states = names('style_state').filter((name) => type.states.includes(name.name));
    const chosen = entries.find((entry) => entry.part === part && entry.state === state);
    const stateName = states.find((one) => one.value === state)?.name ?? 'always';

    const choose = (value: number, name: string): void => {
        setState(value);
        pose(control.path, asDrawn(name));
    };
    const always = entries.find((entry) => entry.part === part && entry.state === 0);
    const insert = (tree: { [key: string]: Json }): Edit[] => {
        if (!place) return [];
        const which = { style_part: part, style_state: state };
        const value = { ...which, ...tree, ...which };
        const path = `${place.path}.styles`;
        return place.values.some((one) => one.path === 'styles')
            ? [{ file: place.file, path: `${path}[${entries.length}]`, insert: value }]
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
    const used = states.filter(
        (one) =>
            one.value === 0 ||
            dressed(one.value) ||
            entries.some((entry) => entry.part === part && entry.state === one.value),
    );
    const others = states.filter((one) => !used.includes(one));

    return (
        <>
            <section class="sect">
                <div class="f">
                    <label for="style-part">{words.part}</label>
                    <span class="in">
                        <select
                            id="style-part"
                            value={String(part)}
                            onChange={(event) => setPart(Number(event.currentTarget.value))}
                        >
                            {parts.map((one) => (
                                <option value={String(one.value)}>
                                    {one.name}
                                    {entries.some((entry) => entry.part === one.value) ? ' •' : ''}
                                </option>
                            ))}
                        </select>
                    </span>
                </div>
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
                                {one.name}
                                {entries.some((entry) => entry.part === part && entry.state === one.value) && <b />}
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
                                    <option value={String(one.value)}>{one.name}</option>
                                ))}
                            </select>
                        </label>
                    )}
                </div>
            </section>
            {chosen ? (
                <Form
                    key={`${part} ${state}`}
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
                    <p class="t2">{words.noStyle(stateName)}</p>
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
            {!chosen && origins.length > 0 && place && (
                <Form
                    key={`${part} ${state} from elsewhere`}
                    subject={{ name: subject.name, places: [{ ...place, path: 'style', values: [] }], origins, make }}
                    record="style"
                    without={['style_part', 'style_state', 'style_sect']}
                    byObject
                />
            )}
        </>
    );
}
