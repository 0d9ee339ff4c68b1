// A form made of the catalogue: one field for each key of a record, in the catalogue's groups.
import { useState } from 'preact/hooks';

import { absentText, catalogue, plainHelp, recordOf, rowsOf, type Row } from '../catalogue';
import { Icon } from '../shell/icon';
import { said, saidWhen, words } from '../words';
import { FieldOf } from './fields';
import { Chain, Mark } from './origin';
import { held, labelOf, title, type Subject } from './subject';
import { applies, scaleOf, unitOf } from './value';

/** The condition under which a key has an effect, with the labels of the keys that it names. */
const condition = ({ key, beside }: Row): string =>
    saidWhen(plainHelp(key.when ?? '')).replaceAll(/\w+/g, (word) => {
        const other = beside.find((one) => one.key === word);
        return said(other?.label ?? word);
    });

/** What the catalogue says about a key: opened by F1 in its field, and by a press of its label's mark. */
function Hint({ row, id }: { row: Row; id: string }) {
    const { key } = row;
    const scale = scaleOf(key);
    const unit = unitOf(key);
    const limit = (value: number | undefined): string =>
        value === undefined ? '…' : `${value / scale} ${unit}`.trim();
    return (
        <div class="note hint" id={id + '-hint'}>
            <div>
                <code>{key.key}</code> {plainHelp(key.help)}
                <p class="t3">
                    {[
                        key.low !== undefined || key.high !== undefined
                            ? words.range(limit(key.low), limit(key.high))
                            : '',
                        key.absent !== undefined ? words.whenAbsent(absentText(key, '')) : '',
                        key.when ? words.onlyIf(condition(row)) : '',
                    ]
                        .filter((text) => text)
                        .join(' · ')}
                </p>
            </div>
        </div>
    );
}

/** One key: its name with its hint, its field, and where its value is from. */
function Field({ subject, row }: { subject: Subject; row: Row }) {
    const [opened, setOpened] = useState<'' | 'hint' | 'chain'>('');
    const { key, path } = row;
    const id = `f-${subject.places[0]?.path ?? ''}.${path}`.replaceAll(/[^\w-]/g, '_');
    const { written } = held(subject, row);
    const prefix = path.slice(0, path.length - key.key.length);
    const active = applies(key.when, (name) => {
        const other = row.beside.find((one) => one.key === name);
        return other ? { row: other, value: held(subject, { ...row, key: other, path: prefix + name }).value } : {};
    });
    const toggle = (what: 'hint' | 'chain'): void => setOpened(opened === what ? '' : what);
    return (
        <div
            class="key"
            onKeyDown={(event) => {
                if (event.key !== 'F1') return;
                toggle('hint');
                event.preventDefault();
            }}
        >
            <div class={`f ${written ? 'own' : ''} ${active && !key.ignored ? '' : 'idle'}`}>
                <label id={id + '-label'} for={id} title={plainHelp(`${key.key}: ${key.help}`)}>
                    {labelOf(key)}
                </label>
                <FieldOf subject={subject} row={row} id={id} />
                <Mark subject={subject} row={row} open={opened === 'chain'} onToggle={() => toggle('chain')} />
            </div>
            {!active && <p class="why t3">{words.onlyIf(condition(row))}</p>}
            {key.ignored && <p class="why t3">{words.ignored}</p>}
            {opened === 'hint' && <Hint row={row} id={id} />}
            {opened === 'chain' && <Chain subject={subject} row={row} />}
        </div>
    );
}

interface FormProps {
    subject: Subject;
    record: string;
    without: string[];
    rows?: Row[]; // only these, instead of all of the record
    byObject?: boolean; // sections by object instead of by group
}

/** Where a group stands: its place first, as the picture is what is looked at; then in the catalogue's order. */
function rankOf(group: string): number {
    const at = catalogue.value.groups.findIndex((name) => name === group);
    return group === 'place' ? -1 : at < 0 ? catalogue.value.groups.length : at;
}

/** The groups that are shown, and those that are closed to a chip: groups without a written key. */
export function Form({ subject, record, without, rows, byObject }: FormProps) {
    const [open, setOpen] = useState<string[]>([]);
    const groups = new Map<string, Row[]>();
    for (const row of rows ?? rowsOf(record, without)) {
        if (row.key.ignored && !held(subject, row).written) continue;
        const inner = byObject ? row.path.split('.').slice(-2, -1)[0] : undefined;
        const name = row.object ?? inner?.replace(/_t$/, '') ?? row.key.group;
        groups.set(name, [...(groups.get(name) ?? []), row]);
    }
    const filled = (list: Row[]): boolean =>
        list.some((row) => held(subject, row).written !== undefined || held(subject, row).origin !== undefined);
    const all = [...groups].sort(([one], [other]) => rankOf(one) - rankOf(other));
    const closed = all.filter(([name, list]) => !filled(list) && !open.includes(name));
    return (
        <>
            {all
                .filter((group) => !closed.includes(group))
                .map(([name, list]) => (
                    <section class="sect" key={name}>
                        <h3>{title(name)}</h3>
                        {list.map((row) => (
                            <Field key={row.path} subject={subject} row={row} />
                        ))}
                    </section>
                ))}
            {closed.length > 0 && (
                <section class="sect">
                    <div class="chips">
                        {closed.map(([name]) => (
                            <button class="chip add" onClick={() => setOpen([...open, name])}>
                                <Icon name="add" />
                                {title(name)}
                            </button>
                        ))}
                    </div>
                </section>
            )}
        </>
    );
}

/** The rows that all of some records have, for several selected controls. */
export function commonRows(records: string[], without: string[]): Row[] {
    const [first = '', ...others] = [...new Set(records)];
    const sets = others.map((record) => new Set(rowsOf(record, without).map((row) => `${row.path} ${row.key.kind}`)));
    return rowsOf(first, without).filter(
        (row) => recordOf(first) && sets.every((set) => set.has(`${row.path} ${row.key.kind}`)),
    );
}
