// What lies over the picture: the selection with its handles, guides, gaps, distances, marks of problems.
import type { ComponentChildren, JSX } from 'preact';

import type { Box, Problem } from '../protocol';
import { bottom, HANDLES, right, type Gap, type Guide, type Handle } from './geometry';

const style = ([x, y, width, height]: Box): JSX.CSSProperties => ({
    '--x': x,
    '--y': y,
    '--ow': width,
    '--oh': height,
});

export function Ov({ box, class: look, children }: { box: Box; class: string; children?: ComponentChildren }) {
    return (
        <div class={`ov ${look}`} style={style(box)}>
            {children}
        </div>
    );
}

const handleStyle = (handle: Handle): JSX.CSSProperties => ({
    left: handle.includes('w') ? '0' : handle.includes('e') ? '100%' : '50%',
    top: handle.includes('n') ? '0' : handle.includes('s') ? '100%' : '50%',
    cursor: `${handle}-resize`,
});

export function Selected({ box, handles, key_, size }: { box: Box; handles: boolean; key_: boolean; size: boolean }) {
    return (
        <Ov box={box} class={key_ ? 'selbox key' : 'selbox'}>
            {handles && HANDLES.map((handle) => <b data-handle={handle} style={handleStyle(handle)} />)}
            {size && (
                <span class="tag s size">
                    {box[2]} × {box[3]}
                </span>
            )}
        </Ov>
    );
}

export function Guides({ guides, gaps }: { guides: Guide[]; gaps: Gap[] }) {
    return (
        <>
            {guides.map(({ vertical, at, from, to }) => (
                <Ov
                    box={vertical ? [at, from, 0, to - from] : [from, at, to - from, 0]}
                    class={vertical ? 'gv' : 'gh'}
                />
            ))}
            {gaps.map((gap) => (
                <GapMark gap={gap} />
            ))}
        </>
    );
}

function GapMark({ gap: { vertical, at, from, to } }: { gap: Gap }) {
    return (
        <Ov box={vertical ? [at, from, 0, to - from] : [from, at, to - from, 0]} class={vertical ? 'gapv' : 'gap'}>
            <span class={vertical ? 'tag beside' : 'tag below'}>{to - from}</span>
        </Ov>
    );
}

/** The distances from a box to another one, or to the edges of one that it is in. */
export function Distances({ box, to }: { box: Box; to: Box }) {
    const middleX = box[0] + box[2] / 2;
    const middleY = box[1] + box[3] / 2;
    const inside = box[0] >= to[0] && right(box) <= right(to) && box[1] >= to[1] && bottom(box) <= bottom(to);
    const all: Gap[] = inside
        ? [
              { vertical: false, at: middleY, from: to[0], to: box[0] },
              { vertical: false, at: middleY, from: right(box), to: right(to) },
              { vertical: true, at: middleX, from: to[1], to: box[1] },
              { vertical: true, at: middleX, from: bottom(box), to: bottom(to) },
          ]
        : [
              { vertical: false, at: middleY, from: right(to), to: box[0] },
              { vertical: false, at: middleY, from: right(box), to: to[0] },
              { vertical: true, at: middleX, from: bottom(to), to: box[1] },
              { vertical: true, at: middleX, from: bottom(box), to: to[1] },
          ];
    return <Guides guides={[]} gaps={all.filter((gap) => gap.to > gap.from)} />;
}

export function ProblemMarks({
    marks,
    chosen,
}: {
    marks: { problem: Problem; number: number; box: Box }[];
    chosen: number;
}) {
    return (
        <>
            {marks.map(({ problem, number, box }) => (
                <span
                    class={`badge ${problem.error ? '' : 'w'} ${number === chosen ? 'on' : ''}`}
                    style={style(box)}
                    title={problem.text}
                >
                    {number + 1}
                </span>
            ))}
        </>
    );
}

/** The scale along two edges of the picture, with the place of the selection. */
export function Rulers({ width, height, zoom, box }: { width: number; height: number; zoom: number; box: Box | null }) {
    const step = zoom >= 4 ? 20 : zoom >= 0.9 ? 100 : 200;
    const marks = (length: number): number[] =>
        Array.from({ length: Math.floor(length / step) + 1 }, (_, i) => i * step);
    const at = (place: number, length?: number): JSX.CSSProperties => ({ '--p': place, '--l': length });
    return (
        <>
            <div class="rx" aria-hidden="true">
                {marks(width).map((mark) => (
                    <i style={at(mark)}>{mark}</i>
                ))}
                {box && <u style={at(box[0], box[2])} />}
            </div>
            <div class="ry" aria-hidden="true">
                {marks(height).map((mark) => (
                    <i style={at(mark)}>{mark}</i>
                ))}
                {box && <u style={at(box[1], box[3])} />}
            </div>
        </>
    );
}
