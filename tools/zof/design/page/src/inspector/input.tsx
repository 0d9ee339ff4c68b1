// A field to type into: what is typed is shown live, written at Enter or when the field is left, given back by Esc.
import type { ComponentChildren } from 'preact';
import { useEffect, useRef, useState } from 'preact/hooks';

import { jsonTypeOf, type Row } from '../catalogue';
import type { Json } from '../protocol';
import { words } from '../words';
import { Combo, type Offer } from './combo';
import { isRelative } from './number';
import { held, tryEnd, tryValue, write, type Subject } from './subject';
import { parse, shownText, type Fault } from './value';

export interface FieldProps {
    subject: Subject;
    row: Row;
    id: string;
}

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

export function Input(props: InputProps) {
    const { subject, row, id, number } = props;
    const { written, inherited, different, value } = held(subject, row);
    const entry = useEntry(props);
    const { text, fault } = entry;
    useLabelDrag(props, entry);
    const absent = shownText(row.key, inherited) || (number ? '0' : '');
    const step = (event: KeyboardEvent): boolean => {
        const up = event.key === 'ArrowUp';
        if (!number || (!up && event.key !== 'ArrowDown')) return false;
        entry.step((up ? 1 : -1) * (event.shiftKey ? 10 : 1));
        return true;
    };
    return (
        <div class="field offering">
            <Combo
                id={id}
                text={text}
                look={`${number ? 'num' : ''} ${written ? '' : 'inh'} ${fault ? 'wrong' : ''}`}
                placeholder={different > 1 ? words.valuesCount(different) : absent}
                wrong={fault ? id + '-fault' : undefined}
                number={number}
                offers={props.offers}
                before={props.before}
                onText={entry.typed}
                onTake={entry.take}
                onEnter={entry.leave}
                onEscape={entry.back}
                onLeave={entry.leave}
                onFocus={props.onFocus}
                onKey={step}
                onWheel={(event) => {
                    if (!number || document.activeElement !== event.currentTarget) return;
                    entry.step(event.deltaY < 0 ? 1 : -1);
                    event.preventDefault();
                }}
            >
                {props.after?.(text || absent)}
            </Combo>
            {fault && (
                <span class="err" id={id + '-fault'} role="alert">
                    {words.fault(fault)}
                    {value !== undefined && ` ${words.stillInFile(shownText(row.key, value))}`}
                </span>
            )}
        </div>
    );
}
