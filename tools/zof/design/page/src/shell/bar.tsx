// The bar: project, undo, problems; the mode; language and theme of the picture, find, light or dark.
import { askLive, redo, setMode, show, undo } from '../actions';
import { chooseProblem } from '../keys';
import { about, chosenProblem, dialog, keep, kept, problems, project, selection, shown, undoState } from '../state';
import { words } from '../words';
import { Button } from './button';
import { Icon } from './icon';

export const darkNow = (): boolean =>
    kept.value.look ? kept.value.look === 'dark' : matchMedia('(prefers-color-scheme: dark)').matches;

function Pill({ error, count }: { error: boolean; count: number }) {
    if (!count) return null;
    return (
        <button
            class={error ? 'pill e' : 'pill w'}
            title={error ? words.errors : words.warnings}
            onClick={() => chooseProblem(chosenProblem.value)}
        >
            <Icon name={error ? 'error' : 'warning'} />
            {count}
        </button>
    );
}

function Choice({
    icon,
    name,
    value,
    all,
    empty,
    onChange,
}: {
    icon: string;
    name: string;
    value: string;
    all: string[];
    empty?: string;
    onChange: (value: string) => void;
}) {
    if (!all.length) return null;
    return (
        <label class="choice">
            <Icon name={icon} />
            <select
                aria-label={name}
                title={name}
                value={value}
                onChange={(event) => onChange(event.currentTarget.value)}
            >
                {empty !== undefined && !all.includes(value) && <option value="">{empty}</option>}
                {all.map((one) => (
                    <option value={one}>{one}</option>
                ))}
            </select>
            <Icon name="down" />
        </label>
    );
}

export const Logo = () => (
    <svg width="18" height="18" viewBox="0 0 18 18" aria-hidden="true">
        <rect x="1" y="3" width="16" height="12" rx="3" fill="var(--accent)" />
        <rect x="4" y="6" width="6" height="6" rx="1.5" fill="var(--chrome)" />
    </svg>
);

/** Light or dark. */
export function Look() {
    const dark = darkNow();
    return (
        <Button
            icon={dark ? 'sun' : 'moon'}
            name={dark ? words.light : words.dark}
            onClick={() => keep({ look: dark ? 'light' : 'dark' })}
        />
    );
}

export function Bar() {
    const { mode, language, theme } = shown.value;
    const errors = problems.value.filter((problem) => problem.error).length;
    const tab = (name: typeof mode, icon: string, text: string) => (
        <button
            role="tab"
            class={mode === name ? (name === 'run' ? 'on run' : 'on') : ''}
            aria-selected={mode === name}
            onClick={() => (name === 'live' ? askLive() : setMode(name))}
        >
            <Icon name={icon} />
            {text}
        </button>
    );
    return (
        <header class="bar">
            <div class="side">
                <Logo />
                <h1 class="name" title={project.value?.dir}>
                    <button
                        class="btn"
                        title={words.projectForm}
                        onClick={() => {
                            selection.value = [];
                            about.value = 'project';
                        }}
                    >
                        {project.value?.name}
                    </button>
                </h1>
                <span class="sep" />
                <Button
                    icon="undo"
                    name={words.undoOf(undoState.value.undo)}
                    action="undo"
                    disabled={!undoState.value.undo}
                    onClick={undo}
                />
                <Button
                    icon="redo"
                    name={words.redoOf(undoState.value.redo)}
                    action="redo"
                    disabled={!undoState.value.redo}
                    onClick={redo}
                />
                <Pill error count={errors} />
                <Pill error={false} count={problems.value.length - errors} />
            </div>
            <div class="seg" role="tablist" aria-label={words.mode}>
                {tab('design', 'pointer', words.design)}
                {tab('run', 'play', words.run)}
                {tab('live', 'device', words.live)}
            </div>
            <div class="side r">
                <Choice
                    icon="texts"
                    name={words.language}
                    value={language}
                    all={project.value?.languages ?? []}
                    onChange={(value) => show({ language: value })}
                />
                <Choice
                    icon="colour"
                    name={words.theme}
                    value={theme}
                    all={project.value?.themes ?? []}
                    empty={words.noTheme}
                    onChange={(value) => value && show({ theme: value })}
                />
                <span class="sep wide" />
                <button class="btn edge wide t2" onClick={() => (dialog.value = 'find')}>
                    <Icon name="search" />
                    {words.find}
                    <span class="kbd">Ctrl K</span>
                </button>
                <Button
                    icon="search"
                    name={words.find}
                    action="find"
                    class="slim"
                    onClick={() => (dialog.value = 'find')}
                />
                <Look />
            </div>
        </header>
    );
}
