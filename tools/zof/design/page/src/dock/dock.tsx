// The dock: source, problems, what has happened, changes.
import { useRef } from 'preact/hooks';

import { edit, message, openSource } from '../actions';
import { chooseProblem } from '../keys';
import type { Fix, Problem } from '../protocol';
import {
    controls,
    fault,
    goTo,
    keep,
    kept,
    lastGesture,
    problems,
    problemsDrawn,
    chosenProblem,
    project,
    selected,
    selection,
    shown,
    type DockTab,
} from '../state';
import { Events } from '../run/events';
import { Button } from '../shell/button';
import { words } from '../words';
import { Changes } from './changes';
import { Problems } from './problems';
import { Source } from './source';

/** The file that the source shows: where it was sent, else that of the view. */
function fileShown(): string {
    const view = project.value?.views.find((one) => one.name === shown.value.view);
    const sent = goTo.value?.file;
    // A program that is looked at may have other files.
    const places = shown.value.mode === 'live' ? [] : selected.value.map((control) => control.place?.file);
    return sent && !places.some((file) => file && file !== sent) ? sent : (places[0] ?? view?.file ?? '');
}

function SourceTab() {
    const file = fileShown();
    const chosen = selected.value.flatMap((control) => (control.place?.file === file ? [control.place] : []));
    const followed = useRef(''); // the control that the cursor has selected; the cursor stays where it is
    const follow = (line: number): void => {
        const before = controls.value.filter((control) => control.place?.file === file && control.place.line <= line);
        const control = before.sort((a, b) => (a.place?.line ?? 0) - (b.place?.line ?? 0)).pop();
        if (!control || selection.value[0] === control.path) return;
        followed.current = control.path;
        selection.value = [control.path];
    };
    const first = selection.value[0] === followed.current ? undefined : chosen[0];
    const sent = goTo.value;
    const to = sent?.file === file ? sent : first ? { ...first, serial: -1 - first.line } : null;
    return (
        <Source
            file={file}
            label={`${words.source} ${file}`}
            chosen={chosen}
            goTo={to}
            problems={problems.value.filter((problem) => problem.file === file)}
            readOnly={shown.value.mode !== 'design'}
            onCursor={follow}
            onFault={(text) => (fault.value = text)}
        />
    );
}

export function Dock() {
    const tab = (name: DockTab, text: string, count: number) => (
        <button
            role="tab"
            class={kept.value.dock === name ? 'tab on' : 'tab'}
            aria-selected={kept.value.dock === name}
            onClick={() => keep({ dock: name, dockOpen: true })}
        >
            {text}
            {count > 0 && <span class="pill small">{count}</span>}
        </button>
    );
    const open = kept.value.dockOpen;
    const fix = (_: Problem, one: Fix): void => void edit(one.label, one.edits);
    const place = lastGesture.value?.changes[0];
    return (
        <section class={open ? 'dock' : 'dock closed'} aria-label={words.source} data-region="dock">
            <div class="tabs">
                <div class="tablist" role="tablist" aria-label={words.openDock}>
                    {tab('source', words.source, 0)}
                    {tab('problems', words.problems, problems.value.length)}
                    {tab('events', words.events, 0)}
                    {tab('changes', words.changes, 0)}
                </div>
                <span class="grow" />
                {kept.value.dock === 'source' && <span class="mono t2 clip">{fileShown()}</span>}
                {place && kept.value.dock === 'source' && (
                    <button class="link mono" onClick={() => openSource(place.file, place.line, place.column)}>
                        {place.line}:{place.column}
                    </button>
                )}
                <Button
                    icon="down"
                    name={words.openDock}
                    action="dock"
                    on={open}
                    onClick={() => keep({ dockOpen: !open })}
                />
            </div>
            {open && (
                <div class="dock-body" role="tabpanel">
                    {kept.value.dock === 'source' && <SourceTab />}
                    {kept.value.dock === 'problems' && (
                        <Problems
                            problems={problems.value}
                            drawn={problemsDrawn.value}
                            chosen={chosenProblem.value}
                            onChoose={(index) => {
                                chooseProblem(index);
                                const problem = problems.value[index];
                                if (problem?.view && problem.view !== shown.value.view)
                                    void import('../actions').then(({ show }) => show({ view: problem.view }));
                            }}
                            onFix={fix}
                            onFixAll={(fixes) =>
                                void edit(
                                    words.fixAll(fixes.length),
                                    fixes.flatMap((one) => one.edits),
                                ).catch((reason: unknown) => (fault.value = message(reason)))
                            }
                        />
                    )}
                    {kept.value.dock === 'events' && <Events />}
                    {kept.value.dock === 'changes' && <Changes />}
                </div>
            )}
        </section>
    );
}
