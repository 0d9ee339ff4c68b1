// The fields of a form, one component for each way to show a value. The catalogue says which one a row has.
import type { ComponentType } from 'preact';

import { openSource } from '../actions';
import { Asked } from '../canvas/tile';
import { jsonTypeOf, type Key, type Name } from '../catalogue';
import type { Json } from '../protocol';
import { namesOf } from '../state';
import { said, words } from '../words';
import { ColourField } from './colour';
import { among } from './combo';
import { Input, type FieldProps } from './input';
import { List, Options } from './lists';
import { Reference } from './reference';
import { held, title, write } from './subject';
import { WordsField } from './words_field';
import { bitsOf, fieldOf, numberOf, scaleOf, unitOf, unknownBits, type FieldName } from './value';

const BUTTONS = 4; // names at most, and
const LETTERS = 18; // letters at most, for buttons in a row

function NumberField(props: FieldProps) {
    const { key } = props.row;
    const unit = unitOf(key);
    return (
        <Input
            {...props}
            number
            after={(text) => (
                <span class="u">
                    {key.kind === 'opacity' ? `${Math.round((Number(text) / 255) * 100) || 0} %` : unit}
                    {scaleOf(key) !== 1 && ` · ${words.inFile(String(Math.round(Number(text) * scaleOf(key)) || 0))}`}
                </span>
            )}
        />
    );
}

function Percentage(props: FieldProps) {
    const { subject, row, id } = props;
    const now = held(subject, row);
    const value = numberOf(row.key, now.value ?? now.inherited) ?? 0;
    return (
        <div class="pair">
            <input
                type="range"
                class="slide"
                aria-labelledby={id + '-label'}
                min={row.key.low ?? 0}
                max={row.key.high ?? 100}
                value={value}
                onChange={(event) => {
                    const next = Number(event.currentTarget.value);
                    write(subject, row, () => next);
                }}
            />
            <NumberField {...props} />
        </div>
    );
}

function TextField(props: FieldProps) {
    const { subject, row } = props;
    const offers = namesOf(row.key.kind);
    const { value } = held(subject, row);
    const missing =
        ['font', 'picture', 'sound', 'clip'].includes(row.key.kind) &&
        typeof value === 'string' &&
        value !== '' &&
        !value.startsWith('#') &&
        !/[:/\\]/.test(value) &&
        !offers.includes(value);
    const near = missing ? offers.find((one) => one.toLowerCase() === String(value).toLowerCase()) : undefined;
    return (
        <div class="field">
            <Input {...props} offers={offers.length ? among(offers) : undefined} />
            {missing && (
                <span class="err">
                    {near ? words.otherCase(near) : words.noSuchFile(String(value))}{' '}
                    {near && (
                        <button class="link" onClick={() => write(subject, row, () => near)}>
                            {words.writeIt}
                        </button>
                    )}
                </span>
            )}
            {row.key.kind === 'picture' && typeof value === 'string' && offers.includes(value) && (
                <Asked what="asset" args={{ name: value }} width={120} height={64} class="thumb-field" />
            )}
            {row.key.kind === 'text' && <span class="t3 small">{words.notTranslated}</span>}
        </div>
    );
}

function Toggle({ subject, row, id }: FieldProps) {
    const now = held(subject, row);
    const value = numberOf(row.key, now.value ?? now.inherited) ?? 0;
    const next: Json = jsonTypeOf(row.key) === 'bool' ? !value : value ? 0 : 1;
    return (
        <span class="pair">
            <button
                id={id}
                role="switch"
                class={`toggle ${value ? 'on' : ''} ${now.written ? '' : 'inh'}`}
                aria-labelledby={id + '-label'}
                aria-checked={value !== 0}
                onClick={() => write(subject, row, () => next)}
            />
            {now.different > 1 && <span class="t3">{words.valuesCount(now.different)}</span>}
        </span>
    );
}

function Choice(props: FieldProps) {
    const names = props.row.key.names ?? [];
    const letters = names.reduce((sum, name) => sum + said(name.name).length, 0);
    if (cellsOf(props.row.key).length === 9) return <Nine {...props} />;
    return names.length <= BUTTONS && letters <= LETTERS ? <Segments {...props} /> : <Select {...props} />;
}

/** The value of a choice, or of what it leaves out. */
const chosenOf = ({ subject, row }: FieldProps): number | undefined => {
    const now = held(subject, row);
    if (now.different > 1) return undefined;
    return numberOf(row.key, now.value ?? now.inherited ?? 0);
};

function Segments(props: FieldProps) {
    const { subject, row, id } = props;
    const value = chosenOf(props);
    const { written } = held(subject, row);
    return (
        <span class={`seg small ${written ? '' : 'inh'}`} role="radiogroup" aria-labelledby={id + '-label'}>
            {row.key.names?.map((name) => (
                <button
                    role="radio"
                    class={name.value === value ? 'on' : ''}
                    aria-checked={name.value === value}
                    title={String(name.value)}
                    onClick={() => write(subject, row, () => name.value)}
                >
                    {title(name.name)}
                </button>
            ))}
        </span>
    );
}

function Select(props: FieldProps) {
    const { subject, row, id } = props;
    const value = chosenOf(props);
    const { written, different } = held(subject, row);
    const names = row.key.names ?? [];
    const known = names.some((name) => name.value === value);
    return (
        <span class={written ? 'in' : 'in inh'}>
            <select
                id={id}
                value={value === undefined ? '' : String(value)}
                onChange={(event) => {
                    const next = Number(event.currentTarget.value);
                    write(subject, row, () => next);
                }}
            >
                {!known && (
                    <option value={value === undefined ? '' : String(value)}>
                        {different > 1 ? words.valuesCount(different) : String(value ?? '–')}
                    </option>
                )}
                {names.map((name) => (
                    <option value={String(name.value)}>{`${said(name.name)} · ${name.value}`}</option>
                ))}
            </select>
        </span>
    );
}

/** Names that are places, "left top" to "right bottom", row by row. */
const cellsOf = (key: Key): Name[] =>
    (key.names ?? []).filter((one) => /^(left|center|right) (top|middle|bottom)$/.test(one.name));

/** Nine places as nine cells; the list below has the other names, too. */
function Nine(props: FieldProps) {
    const { subject, row, id } = props;
    const value = chosenOf(props);
    return (
        <span class="field">
            <span class="nine" role="radiogroup" aria-labelledby={id + '-label'}>
                {cellsOf(row.key).map((one) => (
                    <button
                        role="radio"
                        class={one.value === value ? 'on' : ''}
                        aria-checked={one.value === value}
                        aria-label={one.name}
                        title={`${one.name} · ${one.value}`}
                        onClick={() => write(subject, row, () => one.value)}
                    />
                ))}
            </span>
            <Select {...props} />
        </span>
    );
}

function Sum({ subject, row, id }: FieldProps) {
    const now = held(subject, row);
    const value = numberOf(row.key, now.value ?? now.inherited) ?? 0;
    const rest = unknownBits(row.key, value);
    return (
        <div class="checks" role="group" aria-labelledby={id + '-label'}>
            {bitsOf(row.key).map((name) => (
                <label>
                    <input
                        type="checkbox"
                        checked={(value & name.value) !== 0}
                        onChange={() =>
                            write(subject, row, (before) => (numberOf(row.key, before) ?? value) ^ name.value)
                        }
                    />
                    {title(name.name)}
                    <span class="u t3">{name.value}</span>
                </label>
            ))}
            {rest !== 0 && (
                <label class="t3">
                    <input type="checkbox" checked disabled />
                    {words.unknownKept}
                    <span class="u">{rest}</span>
                </label>
            )}
            {now.different > 1 && <span class="t3">{words.valuesCount(now.different)}</span>}
        </div>
    );
}

/** An object without keys of its own in the catalogue is edited in the source. */
function InSource({ subject, row, id }: FieldProps) {
    const { written } = held(subject, row);
    const file = subject.places[0]?.file ?? '';
    if (!written) return <span class="t3">–</span>;
    return (
        <button id={id} class="link" onClick={() => openSource(file, written.line, written.column)}>
            {file.split('/').pop()}:{written.line}
        </button>
    );
}

const COMPONENTS: Record<FieldName, ComponentType<FieldProps>> = {
    number: NumberField,
    percentage: Percentage,
    colour: ColourField,
    switch: Toggle,
    choice: Choice,
    sum: Sum,
    text: TextField,
    options: Options,
    list: List,
    object: InSource,
    words: WordsField,
    reference: Reference,
};

export function FieldOf(props: FieldProps) {
    const Field = COMPONENTS[fieldOf(props.row.key, jsonTypeOf(props.row.key))];
    return <Field {...props} />;
}
