// A colour: its swatch and its text; below, a panel to choose another one, with the named colours of the project.
import { useState } from 'preact/hooks';

import type { Json } from '../protocol';
import { project } from '../state';
import { words } from '../words';
import { Contrast } from './contrast';
import { hsvOf, rgbOf, type Hsv } from './hsv';
import { among } from './combo';
import { Input, type FieldProps } from './input';
import { beside, held, labelOf, tryEnd, tryValue, write, type Next } from './subject';
import { colourOf } from './value';

/** "#RRGGBB" of a value, also of a name; black for anything else. */
function resolved(value: Json | undefined): string {
    const text = colourOf(value);
    const named = project.value?.colours.find((one) => '$' + one.name === text);
    const colour = colourOf(named?.value ?? text);
    return /^#[0-9a-f]{6}$/i.test(colour) ? colour : '#000000';
}

/** The colour in the form that stands there: a number for a number. */
const inForm =
    (colour: string): Next =>
    (before) =>
        typeof before === 'number' ? parseInt(colour.slice(1), 16) : colour;

export function ColourField(props: FieldProps) {
    const { subject, row, id } = props;
    const [open, setOpen] = useState(false);
    const now = held(subject, row);
    const value = now.value ?? now.inherited;
    const colour = resolved(value);
    const name = project.value?.colours.find((one) => colourOf(one.value) === colour)?.name;
    return (
        <div class="field">
            <Input
                {...props}
                offers={among([...new Set(project.value?.colours.map((one) => '$' + one.name))])}
                before={
                    <button
                        class="sw"
                        style={{ background: colour }}
                        aria-label={words.chooseColour(labelOf(row.key), colour)}
                        aria-expanded={open}
                        aria-controls={id + '-panel'}
                        onClick={() => setOpen(!open)}
                    />
                }
                after={() => (name && typeof now.value !== 'string' ? <span class="u">{name}</span> : null)}
            />
            {row.path.endsWith('txt_t.color') && subject.places.length === 1 && value !== undefined && (
                <Contrast colour={colour} size={beside(subject, row.path, 'font_size')} />
            )}
            {open && <Panel {...props} colour={colour} />}
        </div>
    );
}

const STEP = 0.02;

function Panel({ subject, row, id, colour }: FieldProps & { colour: string }) {
    const [hsv, setHsv] = useState<Hsv>(hsvOf(colour));
    const now = hsv;
    const show = (next: Hsv): void => {
        setHsv(next);
        tryValue(subject, row, inForm(rgbOf(next)));
    };
    const set = (next: Hsv): void => {
        setHsv(next);
        write(subject, row, inForm(rgbOf(next)));
    };
    const at = (event: PointerEvent): Hsv => {
        const box = (event.currentTarget as HTMLElement).getBoundingClientRect();
        const unit = (value: number): number => Math.max(0, Math.min(1, value));
        return {
            ...now,
            s: unit((event.clientX - box.left) / box.width),
            v: 1 - unit((event.clientY - box.top) / box.height),
        };
    };
    const keys = (event: KeyboardEvent): void => {
        const by = event.shiftKey ? 5 * STEP : STEP;
        const step: Record<string, [number, number]> = {
            ArrowLeft: [-by, 0],
            ArrowRight: [by, 0],
            ArrowUp: [0, by],
            ArrowDown: [0, -by],
        };
        const [s, v] = step[event.key] ?? [0, 0];
        if (event.key === 'Escape') {
            setHsv(hsvOf(colour));
            tryEnd();
        } else if (event.key === 'Enter') set(now);
        else if (s || v)
            show({ ...now, s: Math.max(0, Math.min(1, now.s + s)), v: Math.max(0, Math.min(1, now.v + v)) });
        else return;
        event.preventDefault();
        event.stopPropagation();
    };
    const shown = rgbOf(now);
    return (
        <div class="chooser" id={id + '-panel'} role="group" aria-label={words.chooseColour(labelOf(row.key), colour)}>
            <div
                class="square"
                role="slider"
                tabIndex={0}
                aria-label={words.square}
                aria-valuenow={Math.round(now.s * 100)}
                aria-valuetext={shown}
                style={{ '--hue': `hsl(${now.h} 100% 50%)` }}
                onPointerDown={(event) => {
                    event.currentTarget.setPointerCapture(event.pointerId);
                    show(at(event));
                }}
                onPointerMove={(event) => event.buttons === 1 && show(at(event))}
                onPointerUp={(event) => set(at(event))}
                onKeyDown={keys}
                onBlur={() => shown !== colour && set(now)}
            >
                <i style={{ left: `${now.s * 100}%`, top: `${(1 - now.v) * 100}%`, background: shown }} />
            </div>
            <input
                type="range"
                class="hue"
                aria-label={words.hue}
                min={0}
                max={359}
                value={now.h}
                onInput={(event) => show({ ...now, h: Number(event.currentTarget.value) })}
                onChange={(event) => set({ ...now, h: Number(event.currentTarget.value) })}
            />
            <div class="numbers">
                <span class="in mono">{shown}</span>
                <span class="in mono">
                    <span class="u">dec</span> {parseInt(shown.slice(1), 16)}
                </span>
                <Pipette onColour={(picked) => set(hsvOf(picked))} />
            </div>
            <div class="named" role="group" aria-label={words.colourUses}>
                {[...new Map(project.value?.colours.map((one) => [one.name, one])).values()].map((one) => (
                    <button
                        style={{ background: resolved(one.value) }}
                        aria-label={one.name}
                        title={`$${one.name} · ${one.value}`}
                        onClick={() => {
                            setHsv(hsvOf(resolved(one.value)));
                            write(subject, row, () => '$' + one.name);
                        }}
                    />
                ))}
            </div>
        </div>
    );
}

interface Dropper {
    open(): Promise<{ sRGBHex: string }>;
}

/** Takes a colour from the screen, where the browser can. */
function Pipette({ onColour }: { onColour: (colour: string) => void }) {
    const Maker = (window as { EyeDropper?: new () => Dropper }).EyeDropper;
    if (!Maker) return null;
    const pick = (): void =>
        void new Maker().open().then(
            (picked) => onColour(picked.sRGBHex.toUpperCase()),
            () => undefined, // Esc
        );
    return (
        <button class="btn edge" onClick={pick}>
            {words.pipette}
        </button>
    );
}
