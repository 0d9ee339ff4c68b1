// A small picture of a view or a control, drawn by the runtime.
import { useEffect, useRef } from 'preact/hooks';

import { request } from '../socket';
import { lastGesture } from '../state';
import { tileWait } from './picture';

interface Props {
    view: string;
    language?: string;
    theme?: string;
    control?: string;
    state?: string;
    width: number;
    height: number;
    class?: string;
}

const QUIET_MS = 250;

export function Tile(props: Props) {
    const holder = useRef<HTMLSpanElement>(null);
    const gesture = lastGesture.value; // a change may have another picture
    useEffect(() => {
        const timer = setTimeout(
            () => {
                const dense = Math.max(1, window.devicePixelRatio);
                const tile = tileWait((canvas) => {
                    canvas.style.width = `${canvas.width / dense}px`;
                    canvas.style.height = `${canvas.height / dense}px`;
                    holder.current?.replaceChildren(canvas);
                });
                const { view, language, theme, control, state, width, height } = props;
                void request('tile', {
                    tile,
                    view,
                    language,
                    theme,
                    control,
                    state,
                    width: Math.round(width * dense),
                    height: Math.round(height * dense),
                }).catch(
                    () => undefined, // the next change asks again
                );
            },
            QUIET_MS * (holder.current?.childElementCount ? 1 : 0),
        );
        return () => clearTimeout(timer);
    }, [props.view, props.language, props.theme, props.control, props.state, props.width, gesture]);
    return <span class={`tile ${props.class ?? ''}`} ref={holder} aria-hidden="true" />;
}
