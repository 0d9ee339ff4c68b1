// Lists: the lines of one text, and arrays of texts or of objects. Rows are added, moved and taken out.
import { useEffect, useRef, useState } from 'preact/hooks';

import { edit } from '../actions';
import { recordOf, rowsOf, type Key } from '../catalogue';
import type { Edit, Json } from '../protocol';
import { Button } from '../shell/button';
import { textOf as textOfKey } from '../texts/languages';
import { words } from '../words';
import { actionOffers } from './actions';
import { Combo, type Offer } from './combo';
import { FieldOf } from './fields';
import type { FieldProps } from './input';
import { below, find, held, labelOf, title, whole, write } from './subject';
import { jsonOf } from './value';
import { keyOffers } from './words_field';

interface LineProps {
    text: string;
    id: string;
    name: string;
    first: boolean;
    last: boolean;
    begin?: boolean; // it is new: it gets the focus, and is given up if it stays empty
    offers?: (typed: string) => Offer[];
    onText: (text: string) => void;
    onMove: (by: -1 | 1) => void;
    onRemove: () => void;
}

/** One row of a list of texts; a row break of captions is a line across. */
function Line({ text, id, name, first, last, begin, offers, onText, onMove, onRemove }: LineProps) {
    const [now, setNow] = useState(text);
    const typed = useRef(text); // a field that goes away is left, too, before it is drawn again
    const sent = useRef(text);
    const put = (next: string): void => {
        typed.current = next;
        setNow(next);
    };
    useEffect(() => {
        put(text);
        sent.current = text;
    }, [text]);
    const write = (next: string): void => {
        put(next === '' ? sent.current : next);
        if (next === sent.current || next === '') {
            if (begin && !sent.current) onRemove();
            return;
        }
        sent.current = next;
        onText(next);
    };
    const move = (event: KeyboardEvent): boolean => {
        const by = event.key === 'ArrowUp' && !first ? -1 : event.key === 'ArrowDown' && !last ? 1 : 0;
        if (!event.altKey || !by) return false;
        onMove(by);
        return true;
    };
    return (
        <div class="line offering">
            {text === '\n' ? (
                <hr aria-label={words.rowBreak} />
            ) : (
                <Combo
                    id={id}
                    name={name}
                    text={now}
                    begin={begin}
                    offers={offers}
                    onText={put}
                    onTake={write}
                    onEnter={() => write(typed.current)}
                    onEscape={() => (begin ? onRemove() : put(text))}
                    onLeave={() => write(typed.current)}
                    onKey={move}
                >
                    {now.startsWith('#') && <span class="u clip">{textOfKey(now.slice(1))}</span>}
                </Combo>
            )}
            <Button icon="front" name={words.moveUp} disabled={first} onClick={() => onMove(-1)} />
            <Button icon="close" name={words.takeOutRow(name)} onClick={onRemove} />
        </div>
    );
}

const moved = <T,>(list: T[], at: number, by: -1 | 1): T[] => {
    const next = [...list];
    const [one] = next.splice(at, 1);
    if (one !== undefined) next.splice(at + by, 0, one);
    return next;
};

/** One text whose lines are options. What is pasted with several lines makes several options. */
export function Options({ subject, row, id }: FieldProps) {
    const { value } = held(subject, row);
    const lines = typeof value === 'string' && value ? value.split('\n') : [];
    const set = (next: string[]): void => write(subject, row, () => next.join('\n'));
    return (
        <div class="lines" id={id} role="group" aria-labelledby={id + '-label'}>
            {lines.map((text, at) => (
                <Line
                    key={at}
                    text={text}
                    id={`${id}-${at}`}
                    name={`${labelOf(row.key)} ${at + 1}`}
                    first={at === 0}
                    last={at === lines.length - 1}
                    onText={(now) => set([...lines.slice(0, at), ...now.split('\n'), ...lines.slice(at + 1)])}
                    onMove={(by) => set(moved(lines, at, by))}
                    onRemove={() => set(lines.filter((_, other) => other !== at))}
                />
            ))}
            <Button icon="add" name={words.addRow} onClick={() => set([...lines, words.newOption(lines.length + 1)])}>
                {words.addRow}
            </Button>
        </div>
    );
}

/** The key of elements that are no objects; null for objects. */
const elementOf = (record: string | undefined): Key | null => {
    const keys = recordOf(record ?? '')?.keys ?? [];
    return keys.length === 1 && keys[0]?.key.startsWith('0') ? keys[0] : null;
};

/** The form of a new element, from the beginnings of its keys. */
const fresh = (record: string): Json =>
    Object.fromEntries(
        (recordOf(record)?.keys ?? []).flatMap((key) =>
            key.start !== undefined ? [[key.key, key.start as Json]] : key.needed ? [[key.key, 0]] : [],
        ),
    );

const textOf = (value: Json | undefined): string => (typeof value === 'string' ? value : '');

export function List(props: FieldProps) {
    const { subject, row, id } = props;
    const [begun, setBegun] = useState(false); // a row that is not written yet
    const place = subject.places[0];
    if (!place || subject.places.length > 1) return <span class="t3">{words.oneOnly}</span>;
    const { written } = held(subject, row);
    const pattern = (at: number): string => `${row.path}[${at}]`;
    let count = 0;
    while (find(place.values, pattern(count))) count++;
    const element = elementOf(row.key.record);
    const texts = Array.from({ length: count }, (_, at) => textOf(jsonOf(find(place.values, pattern(at))?.raw)));
    const shown = element && texts[count - 1] === '' ? count - 1 : count; // an ending "" stays out of sight
    const path = (at: number): string => whole(place, pattern(at));
    const send = (one: Edit): void => void edit(words.labelOf(labelOf(row.key), subject.name), [one]);
    const add = (value: Json): void =>
        send(
            written
                ? { file: place.file, path: path(shown), insert: value }
                : { file: place.file, path: whole(place, row.path), value: [value] },
        );
    const move = (at: number, by: -1 | 1): void =>
        send({ file: place.file, path: path(at), move: by < 0 ? at - 1 : at + 2 });
    const offers = element?.kind === 'action' ? actionOffers : element?.kind === 'words' ? keyOffers : undefined;
    const remove = (at: number): void => send({ file: place.file, path: path(at), remove: true });
    return (
        <div class="lines" id={id} role="group" aria-labelledby={id + '-label'}>
            {Array.from({ length: shown }, (_, at) =>
                element ? (
                    <Line
                        key={at}
                        text={texts[at] ?? ''}
                        id={`${id}-${at}`}
                        offers={offers}
                        name={`${labelOf(row.key)} ${at + 1}`}
                        first={at === 0}
                        last={at === shown - 1}
                        onText={(value) => send({ file: place.file, path: path(at), value })}
                        onMove={(by) => move(at, by)}
                        onRemove={() => remove(at)}
                    />
                ) : (
                    <div class="element" key={at}>
                        <div class="line">
                            <span class="grow t2">{`${title(row.key.record ?? '')} ${at + 1}`}</span>
                            <Button icon="front" name={words.moveUp} disabled={at === 0} onClick={() => move(at, -1)} />
                            <Button icon="close" name={words.takeOutRow(String(at + 1))} onClick={() => remove(at)} />
                        </div>
                        {rowsOf(row.key.record ?? '', []).map((inner) => (
                            <label class="f" id={`${id}-${at}-${inner.path}-label`}>
                                <span>{labelOf(inner.key)}</span>
                                <FieldOf
                                    subject={{
                                        name: subject.name,
                                        places: [
                                            {
                                                file: place.file,
                                                path: path(at),
                                                values: below(place.values, pattern(at) + '.'),
                                            },
                                        ],
                                    }}
                                    row={inner}
                                    id={`${id}-${at}-${inner.path}`}
                                />
                            </label>
                        ))}
                    </div>
                ),
            )}
            {begun && (
                <Line
                    text=""
                    id={`${id}-${shown}`}
                    name={`${labelOf(row.key)} ${shown + 1}`}
                    first
                    last
                    begin
                    offers={offers}
                    onText={(value) => {
                        setBegun(false);
                        add(value);
                    }}
                    onMove={() => {}}
                    onRemove={() => setBegun(false)}
                />
            )}
            <span class="chips">
                <Button
                    icon="add"
                    name={words.addRow}
                    onClick={() => (element ? setBegun(true) : add(fresh(row.key.record ?? '')))}
                >
                    {words.addRow}
                </Button>
                {element?.kind === 'words' && shown > 0 && (
                    <Button icon="add" name={words.rowBreak} onClick={() => add('\n')}>
                        {words.rowBreak}
                    </Button>
                )}
            </span>
        </div>
    );
}
