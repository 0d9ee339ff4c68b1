// A field with a list of what it offers to take in place of what is typed.
import type { ComponentChildren } from 'preact';
import { useEffect, useLayoutEffect, useRef, useState } from 'preact/hooks';

import { Icon } from '../shell/icon';

export interface Offer {
    value: string;
    detail?: string;
    run?: () => void; // instead of taking the value
    more?: boolean; // the value is put into the field, and offers what may follow
}

/** Offers those of some names that contain what is typed. */
export const among =
    (names: string[]) =>
    (typed: string): Offer[] =>
        names.filter((name) => name.toLowerCase().includes(typed.toLowerCase())).map((value) => ({ value }));

const OFFERS = 100; // that are shown at once

interface ListProps {
    id: string;
    offers: Offer[];
    at: number;
    onTake: (offer: Offer) => void;
}

function List({ id, offers, at, onTake }: ListProps) {
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

interface Props {
    id: string;
    name?: string; // for screen readers; without it a label names the field
    text: string;
    look?: string; // its classes
    placeholder?: string;
    wrong?: string; // id of the text that says what is wrong
    number?: boolean;
    begin?: boolean; // gets the focus, with its list open
    offers?: (typed: string) => Offer[]; // for an empty text all
    onText: (text: string) => void;
    onTake: (text: string) => void; // an offer was taken
    onEnter: () => void;
    onEscape: () => void;
    onLeave: () => void;
    onFocus?: () => void;
    onKey?: (event: KeyboardEvent) => boolean; // returns true if it has used the key
    onWheel?: (event: WheelEvent) => void;
    before?: ComponentChildren;
    children?: ComponentChildren; // after the text
}

export function Combo(props: Props) {
    const { id, text } = props;
    // What was typed since the list was opened; null while it is closed.
    const [typed, setTyped] = useState<string | null>(null);
    const [at, setAt] = useState(-1);
    const field = useRef<HTMLInputElement>(null);
    const offers = typed === null ? [] : (props.offers?.(typed) ?? []).slice(0, OFFERS);
    const list = (now: string | null): void => {
        setTyped(now);
        setAt(-1);
    };
    // Before the next key is taken, which is meant for it.
    useLayoutEffect(() => {
        if (!props.begin) return;
        field.current?.focus();
        list('');
    }, [props.begin]);
    const take = (offer: Offer): void => {
        list(offer.more ? offer.value : null);
        if (offer.run) offer.run();
        else if (offer.more) props.onText(offer.value);
        else props.onTake(offer.value);
    };
    const keys = (event: KeyboardEvent): void => {
        const offer = offers[at];
        if (event.key === 'Enter' && offer) take(offer);
        else if (event.key === 'Enter') {
            list(null);
            props.onEnter();
        } else if (event.key === 'Escape' && offers.length) list(null);
        else if (event.key === 'Escape') props.onEscape();
        else if (props.onKey?.(event)) list(null);
        else if (props.offers && event.key === 'ArrowDown' && typed === null) list('');
        else if (offers.length && event.key === 'ArrowDown') setAt(Math.min(offers.length - 1, at + 1));
        else if (offers.length && event.key === 'ArrowUp') setAt(Math.max(-1, at - 1));
        else return;
        event.preventDefault();
        event.stopPropagation();
    };
    return (
        <>
            <span class={`in ${props.look ?? ''}`}>
                {props.before}
                <input
                    id={id}
                    ref={field}
                    aria-label={props.name}
                    value={text}
                    placeholder={props.placeholder}
                    role={props.offers ? 'combobox' : undefined}
                    aria-expanded={props.offers ? offers.length > 0 : undefined}
                    aria-controls={offers.length ? id + '-list' : undefined}
                    aria-activedescendant={at >= 0 ? `${id}-offer-${at}` : undefined}
                    inputMode={props.number ? 'text' : undefined}
                    aria-invalid={props.wrong !== undefined}
                    aria-describedby={props.wrong}
                    spellcheck={false}
                    autocomplete="off"
                    onFocus={props.onFocus}
                    onClick={() => props.offers && typed === null && list('')}
                    onInput={(event) => {
                        props.onText(event.currentTarget.value);
                        if (props.offers) list(event.currentTarget.value);
                    }}
                    onBlur={() => {
                        list(null);
                        props.onLeave();
                    }}
                    onKeyDown={keys}
                    onWheel={props.onWheel}
                />
                {props.children}
            </span>
            {offers.length > 0 && <List id={id} offers={offers} at={at} onTake={take} />}
        </>
    );
}
