// The left panel "Host": the values that a host can write, each with its last writer. In Run they can be set.
import { useState } from 'preact/hooks';

import { attempt, nameOf, setMode } from '../actions';
import { iconOf } from '../catalogue';
import { Filter } from '../shell/filter';
import { Icon } from '../shell/icon';
import { request } from '../socket';
import { byPath, hovered, selection, shown } from '../state';
import { words } from '../words';
import { record } from './scenario';
import { Scenario } from './scenario_panel';
import { ageText, useSeconds, WriterMark } from './writer';
import { textOf, written, type Now } from './written';

export function write(value: Now, text: string): void {
    const what = value.takes === 'number' ? Number(text) : text;
    if (value.takes === 'number' && (text.trim() === '' || !Number.isFinite(what))) return;
    record(`set ${value.control} ${text}`);
    void attempt(request('set', { control: value.control, row: value.row, value: what }));
}

/** Shows what stands there until something is typed, which is written with Enter or when the field is left. */
export function ValueField({ value }: { value: Now }) {
    const [typed, setTyped] = useState<string | null>(null);
    const done = (): void => {
        if (typed !== null && typed !== textOf(value)) write(value, typed);
        setTyped(null);
    };
    return (
        <span class={typed === null ? 'in' : 'in changed'}>
            <input
                aria-label={value.control}
                inputMode={value.takes === 'number' ? 'numeric' : 'text'}
                value={typed ?? textOf(value)}
                spellcheck={false}
                onInput={(event) => setTyped(event.currentTarget.value)}
                onBlur={done}
                onKeyDown={(event) => {
                    if (event.key === 'Enter') done();
                    else if (event.key === 'Escape') setTyped(null);
                    else if (value.takes === 'number' && (event.key === 'ArrowUp' || event.key === 'ArrowDown')) {
                        event.preventDefault();
                        setTyped(null);
                        write(
                            value,
                            `${value.number + (event.key === 'ArrowUp' ? 1 : -1) * (event.shiftKey ? 10 : 1)}`,
                        );
                    }
                }}
            />
        </span>
    );
}

function ValueRow({ value, may }: { value: Now; may: boolean }) {
    const control = byPath.value.get(value.control);
    const on = selection.value.includes(value.control);
    return (
        <div
            class={on ? 'value on' : 'value'}
            onPointerEnter={() => (hovered.value = value.control)}
            onPointerLeave={() => (hovered.value = '')}
        >
            <div class="value-head">
                <Icon name={iconOf(control?.type ?? '')} />
                <button
                    class="link plain grow clip"
                    title={value.control}
                    onClick={() => (selection.value = [value.control])}
                >
                    {nameOf(value.control)} <span class="t3">{value.row.split('.')[1]}</span>
                </button>
                {value.by ? <WriterMark by={value.by} /> : <span class="t3">{may ? words.fromFile : ''}</span>}
                {value.at > 0 && <span class="t3 age">{ageText(value.at)}</span>}
            </div>
            {may && value.takes ? (
                <ValueField value={value} />
            ) : (
                <div class="mono clip value-text">{textOf(value)}</div>
            )}
        </div>
    );
}

export function Host() {
    const [filter, setFilter] = useState('');
    useSeconds();
    const mode = shown.value.mode;
    const wanted = filter.toLowerCase();
    const all = [...written.value.values()]
        .filter(
            (value) =>
                byPath.value.has(value.control) && value.row && (value.text || value.by || value.takes !== 'text'),
        )
        .filter((value) => `${value.control} ${value.row} ${value.text}`.toLowerCase().includes(wanted));
    return (
        <>
            <div class="head">
                <h2>{mode === 'live' ? words.values : words.virtualHost}</h2>
            </div>
            {mode === 'design' ? (
                <div class="empty">
                    <p>{words.hostInRun}</p>
                    <button class="btn edge" onClick={() => setMode('run')}>
                        <Icon name="play" />
                        {words.run}
                    </button>
                </div>
            ) : (
                <>
                    <p class="hint t2">{mode === 'live' ? words.valuesHint : words.virtualHostHint}</p>
                    <Filter
                        icon="search"
                        name={words.findValue}
                        hint={words.findValue}
                        value={filter}
                        onText={setFilter}
                    />
                    <div class="value-list">
                        {all.map((value) => (
                            <ValueRow key={value.control} value={value} may={mode === 'run'} />
                        ))}
                        {!all.length && <p class="empty">{filter ? words.noValue(filter) : words.noValues}</p>}
                    </div>
                    {mode === 'run' && <Scenario />}
                </>
            )}
        </>
    );
}
