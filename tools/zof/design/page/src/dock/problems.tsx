// All findings at once, errors first, each with what can be done about it.
import { useEffect, useRef, useState } from 'preact/hooks';

import { Icon } from '../shell/icon';
import type { Change, Fix, Problem } from '../protocol';
import { words } from '../words';

interface Props {
    problems: Problem[];
    drawn: boolean; // the findings of drawing are among them
    chosen: number;
    onChoose: (index: number) => void;
    onFix: (problem: Problem, fix: Fix) => void;
    onFixAll: (fixes: Fix[]) => void;
}

export const problemOrder = (a: Problem, b: Problem): number =>
    Number(b.error) - Number(a.error) || a.file.localeCompare(b.file) || a.line - b.line || a.column - b.column;

export const sureFixes = (problems: Problem[]): Fix[] =>
    problems.map((problem) => problem.fixes.find((fix) => fix.sure)).filter((fix) => fix !== undefined);

const place = (problem: Problem): string => `${problem.file.split('/').pop() ?? ''}:${problem.line}:${problem.column}`;

function Diff({ changes }: { changes: Change[] }) {
    return (
        <div class="df">
            {changes.map((change) => (
                <>
                    {change.before && <p class="d">- {change.before}</p>}
                    {change.after && <p class="a">+ {change.after}</p>}
                </>
            ))}
        </div>
    );
}

function Fixes({
    problem,
    all,
    onFix,
    onFixAll,
}: { problem: Problem; all: Fix[] } & Pick<Props, 'onFix' | 'onFixAll'>) {
    return (
        <div class="fixes">
            <p class="m">{problem.text}</p>
            {problem.fixes.map((fix) => (
                <div class="fix">
                    <button class="btn edge" onClick={() => onFix(problem, fix)}>
                        <Icon name={fix.label.startsWith('Do not') ? 'eyeoff' : 'fix'} />
                        {fix.label}
                    </button>
                    {fix.sure && <Diff changes={fix.changes} />}
                </div>
            ))}
            {all.length > 1 && (
                <button class="btn" onClick={() => onFixAll(all)}>
                    <Icon name="check" />
                    {words.fixAll(all.length)}
                    <span class="kbd">Ctrl Shift .</span>
                </button>
            )}
        </div>
    );
}

export function Problems(props: Props) {
    const list = useRef<HTMLDivElement>(null);
    const [kind, setKind] = useState<'all' | 'errors' | 'warnings'>('all');
    const shown = props.problems
        .map((problem, index) => ({ problem, index }))
        .filter(({ problem }) => kind === 'all' || problem.error === (kind === 'errors'));
    const errors = props.problems.filter((problem) => problem.error).length;
    const chosen = props.problems[props.chosen];

    useEffect(() => {
        list.current?.querySelector('[aria-selected="true"]')?.scrollIntoView({ block: 'nearest' });
    }, [props.chosen]);

    const step = (by: number): void => {
        const at = shown.findIndex(({ index }) => index === props.chosen);
        const next = shown[Math.max(0, Math.min(shown.length - 1, at + by))];
        if (next) props.onChoose(next.index);
    };

    if (props.problems.length === 0) return <p class="empty">{words.noProblems}</p>;
    const filter = (name: typeof kind, count: number, text: string) => (
        <button class={kind === name ? 'chip on' : 'chip'} aria-pressed={kind === name} onClick={() => setKind(name)}>
            {text} {count}
        </button>
    );
    return (
        <div class="problems">
            <div class="problem-list">
                <div class="chips">
                    {filter('all', props.problems.length, words.all)}
                    {filter('errors', errors, words.errors)}
                    {filter('warnings', props.problems.length - errors, words.warnings)}
                    {!props.drawn && <span class="t3">{words.drawing}</span>}
                </div>
                <div
                    ref={list}
                    role="listbox"
                    tabIndex={0}
                    aria-label={words.problems}
                    aria-activedescendant={chosen ? `problem-${props.chosen}` : undefined}
                    onKeyDown={(event) => {
                        if (event.key === 'ArrowDown') step(1);
                        else if (event.key === 'ArrowUp') step(-1);
                        else if (event.key === 'Enter' && chosen?.fixes[0]) props.onFix(chosen, chosen.fixes[0]);
                        else return;
                        event.preventDefault();
                    }}
                >
                    {shown.map(({ problem, index }) => (
                        <div
                            id={`problem-${index}`}
                            role="option"
                            aria-selected={index === props.chosen}
                            class={index === props.chosen ? 'pr on' : 'pr'}
                            onClick={() => props.onChoose(index)}
                        >
                            <Icon name={problem.error ? 'error' : 'warning'} class={problem.error ? 'err' : 'warn'} />
                            <span class="grow clip">{problem.text}</span>
                            <span class="t3 clip ct">{problem.control ?? ''}</span>
                            <span class="mono acc">{place(problem)}</span>
                            {problem.fixes.some((fix) => fix.sure) && <Icon name="fix" class="acc" />}
                        </div>
                    ))}
                </div>
            </div>
            {chosen && (
                <Fixes problem={chosen} all={sureFixes(props.problems)} onFix={props.onFix} onFixAll={props.onFixAll} />
            )}
        </div>
    );
}
