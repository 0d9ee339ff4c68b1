// A field to type into: what is typed is shown live, written at Enter or when the field is left, given back by Esc.
import type { ComponentChildren } from 'preact';
import { useEffect, useRef, useState } from 'preact/hooks';

import { jsonTypeOf, type Row } from '../catalogue';
import type { Json } from '../protocol';
import { Icon } from '../shell/icon';
import { words } from '../words';
import { isRelative } from './number';
import { held, tryEnd, tryValue, write, type Subject } from './subject';
import { parse, shownText, type Fault } from './value';

export interface FieldProps {
    subject: Subject;
    row: Row;
    id: string;
}

/** What a field offers to take in place of what is typed. */
export interface Offer {
    value: string;
    detail?: string;
    run?: () => void; // instead of writing the value
}

/** Offers those of some names that contain what is typed. */
export const among =
    (names: string[]) =>
    (typed: string): Offer[] =>
        names.filter((name) => name.toLowerCase().includes(typed.toLowerCase())).map((value) => ({ value }));

interface InputProps extends FieldProps {
    number?: boolean; // arrows and the wheel change it
    offers?: (typed: string) => Offer[]; // for an empty text all
    before?: ComponentChildren;
    after?: (text: string) => ComponentChildren;
    onFocus?: () => void;
}

interface Entry {
    text: string;
    fault: Fault | null;
    typed: (text: string) => void;
    leave: () => void;
    take: (text: string) => void; // writes a text at once
    back: () => void;
    step: (by: number) => void;
}

/** What is typed into a field until it is written. */
function useEntry({ subject, row }: FieldProps): Entry {
    const { value, inherited } = held(subject, row);
    const json = jsonTypeOf(row.key);
    const shown = shownText(row.key, value);
    const [text, setText] = useState(shown);
    const [fault, setFault] = useState<Fault | null>(null);
    const tried = useRef(false);
    const where = subject.places[0]?.path;
    useEffect(() => {
        setText(shown);
        setFault(null);
        tried.current = false;
    }, [shown, where]);

    const next = (entry: string) => (before: Json | undefined) => {
        const parsed = parse(row.key, json, entry, before ?? inherited);
        return 'value' in parsed ? parsed.value : undefined;
    };
    const check = (entry: string): Fault | null => {
        const all = subject.places.length > 1 && isRelative(entry) ? undefined : value;
        const parsed = parse(row.key, json, entry, all);
        return 'fault' in parsed ? parsed.fault : null;
    };
    const typed = (entry: string): void => {
        const wrong = entry === '' && json === 'number' ? null : check(entry);
        setText(entry);
        setFault(wrong);
        tried.current = true;
        if (!wrong && entry !== '') tryValue(subject, row, next(entry));
    };
    const back = (): void => {
        setText(shown);
        setFault(null);
        if (tried.current) tryEnd();
        tried.current = false;
    };
    const leave = (): void => {
        if (!tried.current) return;
        if (fault) {
            tryEnd();
            return;
        }
        if (text === shown || (text === '' && json === 'number')) {
            back();
            return;
        }
        tried.current = false;
        write(subject, row, next(text));
        if (isRelative(text)) setText(shown);
    };
    const take = (entry: string): void => {
        tried.current = false;
        setText(entry);
        write(subject, row, next(entry));
    };
    const step = (by: number): void => {
        const number = Number(text || 0);
        if (!Number.isNaN(number)) typed(String(number + by));
    };
    return { text, fault, typed, leave, take, back, step };
}

/** Drags on the label of a number change it by 1, with Shift by 10. */
function useLabelDrag(props: InputProps, entry: Entry): void {
    const now = useRef(entry);
    now.current = entry;
    useEffect(() => {
        const label = props.number ? document.getElementById(props.id + '-label') : null;
        if (!label) return;
        label.onpointerdown = (down) => {
            const start = Number(now.current.text || 0);
            if (Number.isNaN(start)) return;
            label.setPointerCapture(down.pointerId);
            label.onpointermove = (move) => {
                const by = Math.round(move.clientX - down.clientX) * (move.shiftKey ? 10 : 1);
                if (by || Number(now.current.text) !== start) now.current.typed(String(start + by));
            };
            label.onpointerup = () => {
                label.onpointermove = null;
                now.current.leave();
            };
        };
    }, [props.id, props.number]);
}

const OFFERS = 100; // that are shown at once

interface OffersProps {
    id: string;
    offers: Offer[];
    at: number;
    onTake: (offer: Offer) => void;
}

function Offers({ id, offers, at, onTake }: OffersProps) {
    const list = useRef<HTMLDivElement>(null);
    useEffect(() => {
        list.current?.children[at]?.scrollIntoView({ block: 'nearest' });
    }, [at]);
    return (
        <div class="offers" role="listbox" id={id + '-list'} aria-labelledby={id + '-label'} ref={list}>
            {offers.map((offer, index) => (
                <div
                    id={`${id}-offer-${index}`}
                    role="option"
                    aria-selected={index === at}
                    class={index === at ? 'mi on' : 'mi'}
                    onPointerDown={(event) => {
                        event.preventDefault(); // the field keeps the focus
                        onTake(offer);
                    }}
                >
                    {offer.run && <Icon name="add" />}
                    <span class="mono clip">{offer.value}</span>
                    <span class="t2 clip grow">{offer.detail}</span>
                </div>
            ))}
        </div>
    );
}

export function Input(props: InputProps) {
    const { subject, row, id, number } = props;
    const { written, inherited, different, value } = held(subject, row);
    const entry = useEntry(props);
    const { text, fault } = entry;
    useLabelDrag(props, entry);
    // What was typed since the list was opened; null while it is closed.
    const [typed, setTyped] = useState<string | null>(null);
    const [at, setAt] = useState(-1);
    const offers = typed === null ? [] : (props.offers?.(typed) ?? []).slice(0, OFFERS);
    const list = (text: string | null): void => {
        setTyped(text);
        setAt(-1);
    };
    const take = (offer: Offer): void => {
        list(null);
        if (offer.run) offer.run();
        else entry.take(offer.value);
    };
    const absent = shownText(row.key, inherited) || (number ? '0' : '');
    const keys = (event: KeyboardEvent): void => {
        const by = event.shiftKey ? 10 : 1;
        const offer = offers[at];
        if (event.key === 'Enter' && offer) take(offer);
        else if (event.key === 'Enter') entry.leave();
        else if (event.key === 'Escape' && offers.length) list(null);
        else if (event.key === 'Escape') entry.back();
        else if (number && event.key === 'ArrowUp') entry.step(by);
        else if (number && event.key === 'ArrowDown') entry.step(-by);
        else if (props.offers && event.key === 'ArrowDown' && typed === null) list('');
        else if (offers.length && event.key === 'ArrowDown') setAt(Math.min(offers.length - 1, at + 1));
        else if (offers.length && event.key === 'ArrowUp') setAt(Math.max(-1, at - 1));
        else return;
        if (event.key === 'Enter') list(null);
        event.preventDefault();
        event.stopPropagation();
    };
    return (
        <div class="field offering">
            <span class={`in ${number ? 'num' : ''} ${written ? '' : 'inh'} ${fault ? 'wrong' : ''}`}>
                {props.before}
                <input
                    id={id}
                    value={text}
                    placeholder={different > 1 ? words.valuesCount(different) : absent}
                    role={props.offers ? 'combobox' : undefined}
                    aria-expanded={props.offers ? offers.length > 0 : undefined}
                    aria-controls={offers.length ? id + '-list' : undefined}
                    aria-activedescendant={at >= 0 ? `${id}-offer-${at}` : undefined}
                    inputMode={number ? 'text' : undefined}
                    aria-invalid={fault !== null}
                    aria-describedby={fault ? id + '-fault' : undefined}
                    spellcheck={false}
                    autocomplete="off"
                    onFocus={props.onFocus}
                    onClick={() => props.offers && typed === null && list('')}
                    onInput={(event) => {
                        entry.typed(event.currentTarget.value);
                        if (props.offers) list(event.currentTarget.value);
                    }}
                    onBlur={() => {
                        list(null);
                        entry.leave();
                    }}
                    onKeyDown={keys}
                    onWheel={(event) => {
                        if (!number || document.activeElement !== event.currentTarget) return;
                        entry.step(event.deltaY < 0 ? 1 : -1);
                        event.preventDefault();
                    }}
                />
                {props.after?.(text || absent)}
            </span>
            {offers.length > 0 && <Offers id={id} offers={offers} at={at} onTake={take} />}
            {fault && (
                <span class="err" id={id + '-fault'} role="alert">
                    {words.fault(fault)}
                    {value !== undefined && ` ${words.stillInFile(shownText(row.key, value))}`}
                </span>
            )}
        </div>
    );
}
