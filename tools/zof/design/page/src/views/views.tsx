// The views with real pictures, and the outline of the one that is shown.
import { useState } from 'preact/hooks';

import { addView, attempt, menuOpen, nameOf, openSource, show } from '../actions';
import { Tile } from '../canvas/tile';
import { iconOf } from '../catalogue';
import type { Control } from '../protocol';
import { request } from '../socket';
import { Button } from '../shell/button';
import { Filter } from '../shell/filter';
import { Icon } from '../shell/icon';
import { byPath, controls, hovered, keep, kept, problems, project, selection, shown } from '../state';
import { words } from '../words';

function ViewRow({ name }: { name: string }) {
    const on = shown.value.view === name;
    const found = problems.value.filter((problem) => problem.view === name);
    const errors = found.some((problem) => problem.error);
    return (
        <button class={on ? 'view on' : 'view'} aria-pressed={on} onClick={() => show({ view: name })}>
            <Tile
                view={name}
                language={shown.value.language}
                theme={shown.value.theme}
                width={74}
                height={42}
                class="thumb"
            />
            <span class="grow clip">
                <span class={on ? 'b' : ''}>{name}</span>
                {on && <small>{words.controlsCount(controls.value.length)}</small>}
            </span>
            {found.length > 0 && <span class={errors ? 'pill e small' : 'pill w small'}>{found.length}</span>}
        </button>
    );
}

/** Without letters of private use: symbols that only the panel's fonts have. */
const plain = (text: string): string => text.replace(/[\uE000-\uF8FF]/g, '').trim();

interface TreeRow {
    control: Control;
    level: number;
    parent: boolean; // it has children
}

/** Front-most first, children under their parent. A filter finds what is folded, too. */
function rowsOf(all: Control[], filter: string): TreeRow[] {
    const children = new Map<string, Control[]>();
    const paths = new Set(all.map((control) => control.path));
    for (const control of all) {
        const parent = control.parent && paths.has(control.parent) ? control.parent : '';
        children.set(parent, [control, ...(children.get(parent) ?? [])]);
    }
    const rows: TreeRow[] = [];
    const add = (parent: string, level: number): void => {
        for (const control of children.get(parent) ?? []) {
            const parent = children.has(control.path);
            rows.push({ control, level, parent });
            if (parent && (filter || !kept.value.folded.includes(control.path))) add(control.path, level + 1);
        }
    };
    add('', 0);
    const wanted = filter.toLowerCase();
    return rows.filter(({ control }) =>
        `${control.path} ${control.type} ${control.text ?? ''}`.toLowerCase().includes(wanted),
    );
}

const ROW_PX = 26;
const MARGIN_ROWS = 20;

export function Outline() {
    const [filter, setFilter] = useState('');
    const [scroll, setScroll] = useState({ top: 0, height: 800 });
    const [carried, setCarried] = useState('');
    const rows = rowsOf(controls.value, filter);
    const first = Math.max(0, Math.floor(scroll.top / ROW_PX) - MARGIN_ROWS);
    const last = Math.min(rows.length, Math.ceil((scroll.top + scroll.height) / ROW_PX) + MARGIN_ROWS);
    const at = rows.findIndex(({ control }) => control.path === selection.value[selection.value.length - 1]);

    const choose = (index: number, add: boolean): void => {
        const path = rows[Math.max(0, Math.min(rows.length - 1, index))]?.control.path;
        if (!path) return;
        const known = selection.value.includes(path);
        selection.value = add
            ? known
                ? selection.value.filter((one) => one !== path)
                : [...selection.value, path]
            : [path];
        document.getElementById('row-' + path)?.scrollIntoView({ block: 'nearest' });
    };
    const keyDown = (event: KeyboardEvent): void => {
        const control = rows[at]?.control;
        if (event.ctrlKey || event.metaKey || event.altKey) return;
        if (event.key === 'ArrowDown') choose(at + 1, event.shiftKey);
        else if (event.key === 'ArrowUp') choose(at - 1, event.shiftKey);
        else if (event.key === 'Home') choose(0, false);
        else if (event.key === 'End') choose(rows.length - 1, false);
        else if (event.key === 'ArrowLeft' && control && rows[at]?.parent && !isFolded(control)) fold(control);
        else if (event.key === 'ArrowLeft' && control?.parent) selection.value = [control.parent];
        else if (event.key === 'ArrowRight' && control && isFolded(control)) fold(control);
        else if (event.key === 'ArrowRight' && rows[at]?.parent) choose(at + 1, false);
        else if (event.key === 'Enter' && control?.place)
            openSource(control.place.file, control.place.line, control.place.column);
        else return;
        event.preventDefault();
        event.stopPropagation();
    };
    const drop = (target: Control, zone: Zone): void => {
        if (!carried || isWithin(target, carried)) return;
        const siblings = controls.value.filter((one) => one.parent === target.parent);
        const after = siblings[siblings.findIndex((one) => one.path === target.path) + 1];
        const into = zone === 'into';
        const parent = into ? target.path : (target.parent ?? '');
        const before = into ? '' : zone === 'behind' ? target.path : (after?.path ?? '');
        selection.value = [carried];
        void attempt(request('reorder', { control: carried, parent, before }));
    };

    return (
        <>
            <div class="head">
                <h2>{words.outline}</h2> <span class="t3 normal">{words.frontFirst}</span>
            </div>
            <Filter name={words.filter} hint={words.filterHint} value={filter} onText={setFilter} />
            <div
                class="tree"
                role="tree"
                aria-label={words.outline}
                aria-multiselectable="true"
                tabIndex={0}
                aria-activedescendant={at >= 0 ? 'row-' + (rows[at]?.control.path ?? '') : undefined}
                onKeyDown={keyDown}
                onScroll={(event) =>
                    setScroll({ top: event.currentTarget.scrollTop, height: event.currentTarget.clientHeight })
                }
            >
                <div role="none" style={{ height: first * ROW_PX }} />
                {rows.slice(first, last).map(({ control, level, parent }, index) => (
                    <Row
                        key={control.path}
                        control={control}
                        level={level}
                        parent={parent}
                        onChoose={(add) => choose(first + index, add)}
                        onCarry={setCarried}
                        onDrop={drop}
                    />
                ))}
                <div role="none" style={{ height: (rows.length - last) * ROW_PX }} />
            </div>
        </>
    );
}

/** Where something is dropped on a row: in front of its control, behind it, or into it if it is a container. */
type Zone = 'front' | 'behind' | 'into';

function zoneOf(event: DragEvent, control: Control): Zone {
    const box = (event.currentTarget as HTMLElement).getBoundingClientRect();
    const at = (event.clientY - box.top) / box.height;
    if (control.type === 'container' && at > 0.25 && at < 0.75) return 'into';
    return at < 0.5 ? 'front' : 'behind';
}

const isFolded = (control: Control): boolean => kept.value.folded.includes(control.path);

const fold = (control: Control): void =>
    keep({
        folded: isFolded(control)
            ? kept.value.folded.filter((path) => path !== control.path)
            : [...kept.value.folded, control.path],
    });

/** Whether a control is the one with this path, or in it. */
function isWithin(control: Control | undefined, path: string): boolean {
    return !!control && (control.path === path || isWithin(byPath.value.get(control.parent ?? ''), path));
}

interface RowProps {
    control: Control;
    level: number;
    parent: boolean;
    onChoose: (add: boolean) => void;
    onCarry: (path: string) => void;
    onDrop: (target: Control, zone: Zone) => void;
}

function Row({ control, level, parent, onChoose, onCarry, onDrop }: RowProps) {
    const [zone, setZone] = useState<Zone | ''>('');
    const on = selection.value.includes(control.path);
    const found = problems.value.find((problem) => problem.control === control.path);
    return (
        <div
            id={'row-' + control.path}
            role="treeitem"
            aria-level={level + 1}
            aria-selected={on}
            aria-expanded={parent ? !isFolded(control) : undefined}
            class={`row ${on ? 'on' : ''} ${control.visible ? '' : 'dim'} ${zone && 'drop-' + zone}`}
            style={{ paddingLeft: 8 + 16 * level }}
            draggable={shown.value.mode === 'design'}
            onClick={(event) => onChoose(event.shiftKey || event.ctrlKey)}
            onDblClick={() => control.place && openSource(control.place.file, control.place.line, control.place.column)}
            onPointerEnter={() => (hovered.value = control.path)}
            onPointerLeave={() => (hovered.value = '')}
            onDragStart={() => onCarry(control.path)}
            onDragOver={(event) => {
                event.preventDefault();
                setZone(zoneOf(event, control));
            }}
            onDragLeave={() => setZone('')}
            onDrop={(event) => {
                setZone('');
                onDrop(control, zoneOf(event, control));
            }}
            onContextMenu={(event) => {
                event.preventDefault();
                if (shown.value.mode !== 'design') return;
                if (!on) selection.value = [control.path];
                menuOpen(event, []);
            }}
        >
            <button
                class={parent ? 'twisty' : 'twisty none'}
                aria-hidden="true"
                tabIndex={-1}
                title={words.unfold}
                onClick={(event) => {
                    event.stopPropagation();
                    fold(control);
                }}
            >
                {parent && <Icon name={isFolded(control) ? 'right' : 'down'} />}
            </button>
            <Icon name={iconOf(control.type)} />
            <span>{nameOf(control.path)}</span>
            <span class="t3 grow clip">{plain(control.text ?? '')}</span>
            {!control.visible && <Icon name="eyeoff" />}
            {found && <Icon name={found.error ? 'error' : 'warning'} class={found.error ? 'err' : 'warn'} />}
        </div>
    );
}

export function Views() {
    return (
        <>
            {shown.value.mode !== 'live' && (
                <>
                    <div class="head">
                        <h2 class="grow">{words.views}</h2>
                        {shown.value.mode === 'design' && (
                            <Button icon="add" name={words.newView} onClick={() => addView(false)} />
                        )}
                    </div>
                    <div class="view-list">
                        {project.value?.views.map((view) => (
                            <ViewRow key={view.name} name={view.name} />
                        ))}
                    </div>
                    <div class="hr" />
                </>
            )}
            <Outline />
        </>
    );
}
