// The picture with everything over it, and what the pointer does there.
import { signal } from '@preact/signals';
import { useEffect, useRef } from 'preact/hooks';

import { duplicate, frameOf, menuOpen, message, movable, roots, selectionBox } from '../actions';
import type { Box, Control } from '../protocol';
import { RunOver } from '../run/over';
import { record } from '../run/scenario';
import { request } from '../socket';
import {
    byPath,
    chosen,
    chosenProblem,
    controls,
    fault,
    hovered,
    kept,
    picking,
    problems,
    runtime,
    selected,
    selection,
    shown,
} from '../state';
import { words } from '../words';
import { DEAD_PX, drag, dragBegin, dragEnd, dragMove, type Keys } from './drag';
import { boxOf, contains, HANDLES, touches, within, type Handle, type Point } from './geometry';
import { Distances, Guides, Ov, ProblemMarks, Rulers, Selected } from './overlay';
import { Picture, pictureSize } from './picture';
import { panBegin, panBegins, panMove, panning, spaceHeld, tool, wheel } from './pan';
import { carried, placeDraw, placeEnd, placeHide, placeMove, placing } from './placing';
import { pan, room, zoom } from './zoom';

export const altHeld = signal(false);
export const pointerAt = signal<Point | null>(null);
const marquee = signal<Box | null>(null);

interface Press {
    at: Point; // in pixels of the page
    start: Point; // in pixels of the panel
    handle: Handle | null;
    moved: boolean;
    under: Control | null;
    before: string[];
}

const keysOf = (event: PointerEvent): Keys => ({
    shift: event.shiftKey,
    ctrl: event.ctrlKey || event.metaKey,
    alt: event.altKey,
});

/** A control that fills the screen is ground: it is selected in the outline, and a drag on it selects what it holds. */
function isGround(control: Control): boolean {
    const { width, height } = pictureSize.value;
    return within([0, 0, width, height], control.box);
}

/** The front-most visible control at a place. A child of a control that is not selected counts as that control. */
function controlAt(point: Point, through: boolean): Control | null {
    const here = controls.value.filter(
        (control) => control.visible && contains(control.box, point) && !isGround(control),
    );
    const top = here[here.length - 1];
    if (!top || through) return top ?? null;
    const now = chosen.value;
    const chain: Control[] = [];
    for (
        let at: Control | undefined = top;
        at && !isGround(at);
        at = at.parent ? byPath.value.get(at.parent) : undefined
    ) {
        chain.unshift(at);
    }
    const below = now ? chain.findIndex((control) => control.parent === now.path) : -1;
    const beside = now ? chain.findIndex((control) => control.parent === now.parent) : -1;
    return chain[below >= 0 ? below : Math.max(0, beside)] ?? top;
}

export function Stage() {
    const stage = useRef<HTMLDivElement>(null);
    const screen = useRef<HTMLDivElement>(null);
    const press = useRef<Press | null>(null);
    const { width, height } = pictureSize.value;
    const scale = zoom.value;
    const running = shown.value.mode === 'run';
    const live = shown.value.mode === 'live'; // looks and never touches: a real output may be at the other end

    useEffect(() => {
        const watch = new ResizeObserver(([entry]) => {
            if (entry) room.value = { width: entry.contentRect.width, height: entry.contentRect.height };
        });
        if (stage.current) watch.observe(stage.current);
        return () => watch.disconnect();
    }, []);

    const pointOf = (event: { clientX: number; clientY: number }): Point => {
        const box = screen.current?.getBoundingClientRect();
        return { x: (event.clientX - (box?.left ?? 0)) / scale, y: (event.clientY - (box?.top ?? 0)) / scale };
    };

    const finger = (event: PointerEvent, down: boolean, what: 'press' | 'move' | 'release'): void => {
        const { x, y } = pointOf(event);
        record(`${what} ${Math.round(x)} ${Math.round(y)}`);
        void request('pointer', { x: Math.round(x), y: Math.round(y), down }).catch(
            (reason: unknown) => (fault.value = message(reason)),
        );
    };

    const down = (event: PointerEvent): void => {
        if (panBegins(event)) {
            stage.current?.setPointerCapture(event.pointerId);
            panBegin(event);
            return;
        }
        if (event.button !== 0) return;
        stage.current?.setPointerCapture(event.pointerId);
        if (running) {
            finger(event, true, 'press');
            return;
        }
        const start = pointOf(event);
        const name = (event.target as HTMLElement).dataset.handle;
        const handle = HANDLES.find((one) => one === name) ?? null;
        const under = handle ? null : controlAt(start, event.ctrlKey || event.metaKey);
        if (picking.value) {
            const pick = picking.value;
            picking.value = null;
            pick(controls.value.filter((one) => one.visible && contains(one.box, start)).reverse());
            return;
        }
        if (live) {
            selection.value = under ? [under.path] : [];
            return;
        }
        press.current = {
            at: { x: event.clientX, y: event.clientY },
            start,
            handle,
            moved: false,
            under,
            before: selection.value,
        };
        if (carried.value?.drawn) return;
        const inSelection = under && selection.value.includes(under.path);
        if (under && event.shiftKey) {
            selection.value = inSelection
                ? selection.value.filter((path) => path !== under.path)
                : [...selection.value, under.path];
        } else if (under && !inSelection) {
            selection.value = [under.path];
        } else if (!under && !handle && !event.shiftKey) {
            selection.value = [];
        }
    };

    const begin = (state: Press): void => {
        state.moved = true;
        const list = movable();
        if (state.handle && chosen.value) dragBegin([chosen.value], state.handle);
        else if (state.under && list.length) dragBegin(list, null);
    };

    const move = (event: PointerEvent): void => {
        if (panning.value) {
            panMove(event);
            return;
        }
        const at = pointOf(event);
        pointerAt.value = { x: Math.floor(at.x), y: Math.floor(at.y) };
        const state = press.current;
        if (running) {
            if (event.buttons) finger(event, true, 'move');
            return;
        }
        if (carried.value?.drawn) {
            if (state) {
                state.moved ||= Math.hypot(event.clientX - state.at.x, event.clientY - state.at.y) >= DEAD_PX;
                if (state.moved) placeDraw(state.start, at, event.ctrlKey, scale);
            } else placeMove(at, event.ctrlKey, scale);
            return;
        }
        if (!state) {
            hovered.value = controlAt(at, event.ctrlKey)?.path ?? '';
            return;
        }
        const far = Math.hypot(event.clientX - state.at.x, event.clientY - state.at.y) >= DEAD_PX;
        if (!state.moved && far) begin(state);
        if (!state.moved) return;
        if (drag.value) {
            dragMove({ x: at.x - state.start.x, y: at.y - state.start.y }, keysOf(event), scale);
        } else if (!state.under && !state.handle) {
            const box = boxOf(state.start, at);
            marquee.value = box;
            const hit = controls.value.filter(
                (one) => one.visible && (event.altKey ? within(one.box, box) : touches(one.box, box)),
            );
            const paths = roots(hit.filter((one) => !within(box, one.box))).map((one) => one.path);
            selection.value = event.shiftKey ? [...new Set([...state.before, ...paths])] : paths;
        }
    };

    const up = (event: PointerEvent): void => {
        if (panning.value) {
            panning.value = false;
            return;
        }
        if (running) {
            finger(event, false, 'release');
            return;
        }
        const state = press.current;
        press.current = null;
        marquee.value = null;
        if (!state) return;
        const placed = carried.value;
        if (placed?.drawn) {
            if (!state.moved) {
                placeMove(state.start, event.ctrlKey, scale);
                carried.value = { ...placed, drawn: false }; // a click gives it the size of its type
            }
            void placeEnd(true);
            return;
        }
        if (!state.moved && state.under && !event.shiftKey) selection.value = [state.under.path];
        void dragEnd(true).then((step) => step && duplicate(step));
    };

    const cancel = (): void => {
        panning.value = false;
        press.current = null;
        marquee.value = null;
        void dragEnd(false);
    };

    const keyDown = (event: KeyboardEvent): void => {
        if (event.key !== 'Escape') return;
        if (!drag.value && !marquee.value && !picking.value && !carried.value) return;
        picking.value = null;
        void placeEnd(false);
        cancel();
        event.stopPropagation();
    };

    // The menu key has no place: what is selected is meant.
    const context = (event: MouseEvent): void => {
        event.preventDefault();
        if (shown.value.mode !== 'design') return;
        const at = pointOf(event);
        const here = controls.value.filter((one) => one.visible && contains(one.box, at) && !isGround(one)).reverse();
        const top = here[0];
        if (top && !here.some((one) => selection.value.includes(one.path))) selection.value = [top.path];
        menuOpen(event, here);
    };

    const dragOver = (event: DragEvent): void => {
        if (!carried.value) return;
        event.preventDefault();
        placeMove(pointOf(event), event.ctrlKey, scale);
    };
    const drop = (event: DragEvent): void => {
        if (!carried.value) return;
        event.preventDefault();
        placeMove(pointOf(event), event.ctrlKey, scale);
        void placeEnd(true);
    };

    const state = drag.value;
    const single = selected.value.length === 1;
    const around = selectionBox();
    const over = byPath.value.get(hovered.value);
    const marks = problems.value
        .map((problem, number) => ({ problem, number, box: byPath.value.get(problem.control ?? '')?.box }))
        .filter((mark): mark is typeof mark & { box: Box } => mark.box !== undefined);

    return (
        <div
            ref={stage}
            class={`stage ${running ? 'running' : live ? 'live' : ''} ${picking.value || carried.value?.drawn ? 'picks' : panning.value ? 'pans' : tool.value === 'pan' || spaceHeld.value ? 'pan' : ''}`}
            role="application"
            tabIndex={0}
            aria-label={words.picture}
            aria-description={words.pictureHint}
            data-region="picture"
            onPointerDown={down}
            onPointerMove={move}
            onPointerUp={up}
            onPointerCancel={cancel}
            onPointerLeave={() => {
                hovered.value = '';
                pointerAt.value = null;
                placeHide();
            }}
            onKeyDownCapture={keyDown}
            onContextMenu={context}
            onDragOver={dragOver}
            onDragLeave={placeHide}
            onDrop={drop}
            onWheel={(event) => wheel(event, event.currentTarget)}
        >
            <div
                class="screen"
                ref={screen}
                style={{
                    '--w': width,
                    '--h': height,
                    '--z': scale,
                    translate: `${Math.round(pan.value.x)}px ${Math.round(pan.value.y)}px`,
                }}
            >
                <Picture sharp={Number.isInteger(scale)} />
                {shown.value.mode !== 'design' && <RunOver />}
                {shown.value.mode === 'design' && width > 0 && (
                    <>
                        <Rulers width={width} height={height} zoom={scale} box={state?.now ?? around} />
                        {over && !state && !selection.value.includes(over.path) && <Ov box={over.box} class="hover" />}
                        {!state &&
                            selected.value.map((control) => (
                                <Selected
                                    box={control.box}
                                    handles={single && !kept.value.locked.includes(control.path)}
                                    key_={!single && control === chosen.value}
                                    size={single}
                                />
                            ))}
                        {state && <Selected box={state.now} handles={false} key_={false} size />}
                        {placing.value && (
                            <>
                                {placing.value.parent && <Ov box={placing.value.parent.box} class="hover" />}
                                <Selected box={placing.value.box} handles={false} key_={false} size />
                                <Guides guides={placing.value.snapped.guides} gaps={placing.value.snapped.gaps} />
                            </>
                        )}
                        {state && <Guides guides={state.snapped.guides} gaps={state.snapped.gaps} />}
                        {altHeld.value && !state && around && chosen.value && (
                            <Distances
                                box={around}
                                to={over && over !== chosen.value ? over.box : frameOf(chosen.value)}
                            />
                        )}
                        {marquee.value && <Ov box={marquee.value} class="marquee" />}
                        {kept.value.dock === 'problems' && kept.value.dockOpen && (
                            <ProblemMarks marks={marks} chosen={chosenProblem.value} />
                        )}
                        {controls.value.length === 0 && runtime.value.state === 'runs' && (
                            <p class="empty-view">{words.emptyView}</p>
                        )}
                    </>
                )}
            </div>
        </div>
    );
}
