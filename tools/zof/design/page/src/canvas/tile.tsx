// A small picture, drawn by the runtime: of a view or a control, of a file, of a line in a font.
import { useEffect, useRef } from 'preact/hooks';

import type { Requests } from '../protocol';
import { request } from '../socket';
import { lastGesture } from '../state';
import { tileWait } from './picture';

/** The requests that are answered by a picture. */
type Drawing = 'tile' | 'asset' | 'specimen' | 'draft';
type Given<Name extends Drawing> = Omit<Requests[Name]['args'], 'tile' | 'width' | 'height'>;

interface AskedProps<Name extends Drawing> {
    what: Name;
    args: Given<Name>;
    width: number; // of the room for it, in pixels of the page
    height: number;
    again?: unknown; // another value asks again
    class?: string;
    onReply?: (reply: Requests[Name]['reply']) => void;
    onFault?: (reason: unknown) => void;
}

const QUIET_MS = 250;

export function Asked<Name extends Drawing>(props: AskedProps<Name>) {
    const holder = useRef<HTMLSpanElement>(null);
    const { what, args, width, height } = props;
    useEffect(() => {
        const send = (): void => {
            const dense = Math.max(1, window.devicePixelRatio);
            const tile = tileWait((canvas) => {
                canvas.style.width = `${canvas.width / dense}px`;
                canvas.style.height = `${canvas.height / dense}px`;
                holder.current?.replaceChildren(canvas);
            });
            const size = { tile, width: Math.round(width * dense), height: Math.round(height * dense) };
            // A refused picture stays as it was; the next change asks again.
            request(what, { ...args, ...size } as unknown as Requests[Name]['args']).then(
                (reply) => props.onReply?.(reply),
                (reason: unknown) => props.onFault?.(reason),
            );
        };
        const timer = setTimeout(send, QUIET_MS * (holder.current?.childElementCount ? 1 : 0));
        return () => clearTimeout(timer);
    }, [what, JSON.stringify(args), width, height, props.again]);
    return <span class={`tile ${props.class ?? ''}`} ref={holder} aria-hidden="true" />;
}

type Props = Given<'tile'> & { width: number; height: number; class?: string; onFault?: () => void };

/** A view or a control, again after each change. */
export function Tile({ width, height, class: look, onFault, ...args }: Props) {
    const again = lastGesture.value;
    return <Asked what="tile" {...{ args, width, height, again, onFault }} class={look} />;
}
