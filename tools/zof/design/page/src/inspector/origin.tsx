// Where a value comes from: dot, written in this file; ring, from elsewhere; dash, left out. A press shows the chain of places.
import { openSource } from '../actions';
import type { Row } from '../catalogue';
import type { Json, Value } from '../protocol';
import { words } from '../words';
import { find, held, takeOut, type Subject } from './subject';
import { jsonOf, shownText } from './value';

interface Props {
    subject: Subject;
    row: Row;
    open: boolean;
    onToggle: () => void;
}

export function Mark({ subject, row, open, onToggle }: Props) {
    const { written, origin } = held(subject, row);
    const kind = written ? 'own' : origin ? 'theme' : 'none';
    const text = written ? words.ownFile : (origin?.label ?? words.leftOut);
    return (
        <button
            class={`src-dot ${kind}`}
            aria-label={words.originOf(row.key.key, text)}
            aria-expanded={open}
            title={text}
            onKeyDown={(event) => event.key === 'Backspace' && written && takeOut(subject, row)}
            onClick={onToggle}
        />
    );
}

const placeText = (file: string, value: Value): string => `${file.split('/').slice(-2).join('/')}:${value.line}`;

function Line(props: { kind: string; text: string; file?: string; value?: Value; shown: string; lost: boolean }) {
    const { kind, text, file, value, shown, lost } = props;
    return (
        <div class={lost ? 'lose' : ''}>
            <i class={`src-dot ${kind}`} />
            {file && value ? (
                <button class="link" onClick={() => openSource(file, value.line, value.column)}>
                    {text}
                </button>
            ) : (
                <span>{text}</span>
            )}
            <span class="mono clip">{lost ? <s>{shown}</s> : shown}</span>
        </div>
    );
}

/** The places that have a value, the winner first, and the way to take it out of this file. */
export function Chain({ subject, row }: { subject: Subject; row: Row }) {
    const { written } = held(subject, row);
    const text = (value: Json | undefined): string => shownText(row.key, value) || '0';
    const own = subject.places.flatMap((place) => {
        const value = find(place.values, row.path);
        return value ? [{ place, value }] : [];
    });
    const others = (subject.origins ?? []).flatMap((origin) => {
        const value = find(origin.values, row.path);
        return value ? [{ origin, value }] : [];
    });
    return (
        <div class="casc" role="group" aria-label={words.chain}>
            {written && (
                <button class="link out" onClick={() => takeOut(subject, row)}>
                    {words.takeOut}
                </button>
            )}
            {own.map(({ place, value }) => (
                <Line
                    kind="own"
                    text={placeText(place.file, value)}
                    file={place.file}
                    value={value}
                    shown={text(jsonOf(value.raw))}
                    lost={false}
                />
            ))}
            {others.map(({ origin, value }, at) => (
                <Line
                    kind="theme"
                    text={origin.label}
                    file={origin.file}
                    value={value}
                    shown={text(jsonOf(value.raw))}
                    lost={own.length > 0 || at > 0}
                />
            ))}
            <Line
                kind="none"
                text={words.runtimeOwn}
                shown={text(row.key.absent as Json | undefined)}
                lost={own.length + others.length > 0}
            />
        </div>
    );
}
