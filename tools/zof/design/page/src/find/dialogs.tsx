// What opens over the page: Find, the keys, rename, the address of a running program.
import type { ComponentChildren } from 'preact';
import { useLayoutEffect, useRef, useState } from 'preact/hooks';

import { nameOf, refusal, show } from '../actions';
import { iconOf } from '../catalogue';
import { actions } from '../keys';
import { Icon } from '../shell/icon';
import { controls, dialog, project, question, selection, shown, type Question } from '../state';
import { said, words } from '../words';

function Dialog({ name, children }: { name: string; children: ComponentChildren }) {
    const element = useRef<HTMLDialogElement>(null);
    // Before the next key arrives, which belongs to the dialog.
    useLayoutEffect(() => {
        const before = document.activeElement as HTMLElement | null;
        element.current?.showModal();
        element.current?.querySelector('input')?.select();
        return () => before?.focus();
    }, []);
    return (
        <dialog
            ref={element}
            aria-label={name}
            onCancel={() => (dialog.value = '')}
            onClose={() => (dialog.value = '')}
            onClick={(event) => event.target === element.current && element.current?.close()}
        >
            {children}
        </dialog>
    );
}

const close = (): void => document.querySelector('dialog')?.close();

interface Found {
    icon: string;
    text: string;
    more: string;
    run: () => void;
}

function foundOf(text: string): Found[] {
    const all: Found[] = [
        ...controls.value.map((control) => ({
            icon: iconOf(control.type),
            text: nameOf(control.path),
            more: said(control.type),
            run: () => (selection.value = [control.path]),
        })),
        ...(project.value?.views ?? []).map((view) => ({
            icon: 'views',
            text: view.name,
            more: words.views,
            run: () => show({ view: view.name }),
        })),
        ...actions
            .filter((action) => action.name() && (action.anywhere || shown.value.mode === 'design'))
            .map((action) => ({ icon: 'play', text: action.name(), more: action.keys[0] ?? '', run: action.run })),
    ];
    const wanted = text.toLowerCase();
    return all.filter((one) => one.text.toLowerCase().includes(wanted)).slice(0, 12);
}

function Find() {
    const [text, setText] = useState('');
    const [at, setAt] = useState(0);
    const found = foundOf(text);
    const run = (one: Found | undefined): void => {
        close();
        one?.run();
    };
    return (
        <Dialog name={words.find}>
            <label class="find large">
                <Icon name="search" />
                <input
                    role="combobox"
                    aria-label={words.findHint}
                    aria-expanded="true"
                    aria-controls="found"
                    aria-activedescendant={`found-${at}`}
                    placeholder={words.findHint}
                    value={text}
                    onInput={(event) => {
                        setText(event.currentTarget.value);
                        setAt(0);
                    }}
                    onKeyDown={(event) => {
                        if (event.key === 'ArrowDown') setAt(Math.min(found.length - 1, at + 1));
                        else if (event.key === 'ArrowUp') setAt(Math.max(0, at - 1));
                        else if (event.key === 'Enter') run(found[at]);
                        else return;
                        event.preventDefault();
                    }}
                />
            </label>
            <div role="listbox" id="found" aria-label={words.find}>
                {found.map((one, index) => (
                    <div
                        id={`found-${index}`}
                        role="option"
                        aria-selected={index === at}
                        class={index === at ? 'mi on' : 'mi'}
                        onClick={() => run(one)}
                    >
                        <Icon name={one.icon} />
                        <span class="grow clip">{one.text}</span>
                        <span class="t3">{one.more}</span>
                    </div>
                ))}
            </div>
            {!found.length && <p class="empty">{words.findNone(text)}</p>}
        </Dialog>
    );
}

function Keys() {
    return (
        <Dialog name={words.keysTitle}>
            <h2>{words.keysTitle}</h2>
            <div class="keys">
                {actions
                    .filter((action) => action.name() && action.keys.length)
                    .map((action) => (
                        <p>
                            <span class="kbd">{action.keys[0]}</span> {action.name()}
                        </p>
                    ))}
            </div>
            <button class="btn edge" onClick={close}>
                {words.close}
            </button>
        </Dialog>
    );
}

/** A dialog with one text. */
function Ask({ name, start, button, onDone }: Question) {
    const [text, setText] = useState(start);
    const [fault, setFault] = useState('');
    const done = async (): Promise<void> => {
        const why = await refusal(onDone(text));
        setFault(why);
        if (!why) dialog.value = '';
    };
    return (
        <Dialog name={name}>
            <form
                class="ask"
                onSubmit={(event) => {
                    event.preventDefault();
                    void done();
                }}
            >
                <label>
                    {name}
                    <span class={fault ? 'in wrong' : 'in'}>
                        <input
                            value={text}
                            spellcheck={false}
                            required
                            aria-invalid={fault !== ''}
                            aria-describedby="refusal"
                            onInput={(event) => setText(event.currentTarget.value)}
                        />
                    </span>
                </label>
                <span class="err" id="refusal" role="alert">
                    {fault}
                </span>
                <button class="btn primary" disabled={!text}>
                    {button}
                </button>
            </form>
        </Dialog>
    );
}

export function Dialogs() {
    switch (dialog.value) {
        case 'find':
            return <Find />;
        case 'keys':
            return <Keys />;
        case 'ask':
            return question.value && <Ask {...question.value} />;
        default:
            return null;
    }
}
