// All steps of undo, newest first, with what each has changed.
import { useEffect, useState } from 'preact/hooks';

import { attempt, openSource } from '../actions';
import type { Gesture } from '../protocol';
import { request } from '../socket';
import { lastGesture, undoState } from '../state';
import { words } from '../words';

export function Changes() {
    const [all, setAll] = useState<Gesture[]>([]);
    const last = lastGesture.value;
    const undo = undoState.value;
    useEffect(() => {
        void attempt(request('changes', {})).then((reply) => reply && setAll(reply.gestures));
    }, [last, undo]);
    const newest = all.filter((one) => !one.undone).pop()?.number; // Undo takes it back
    if (!all.length) return <p class="empty">{words.noChanges}</p>;
    return (
        <ol class="changes">
            {[...all].reverse().map((gesture) => (
                <li key={gesture.number} class={gesture.undone ? 'undone' : ''}>
                    <span class="mono t3">{new Date(gesture.time).toLocaleTimeString()}</span>
                    <span class="m">{gesture.label}</span>
                    {gesture.source === 'elsewhere' && <span class="t3">{words.changedBy}</span>}
                    {!gesture.undone && gesture.number !== newest && (
                        <button
                            class="link"
                            onClick={() => void attempt(request('takeBack', { number: gesture.number }))}
                        >
                            {words.takeBackOne}
                        </button>
                    )}
                    {gesture.changes.slice(0, 4).map((change) => (
                        <div class="line">
                            <button
                                class="link mono"
                                onClick={() => openSource(change.file, change.line, change.column)}
                            >
                                {change.file.split('/').pop()}:{change.line}:{change.column}
                            </button>
                            {change.before && <del class="mono clip">{change.before}</del>}
                            {change.after && <ins class="mono clip">{change.after}</ins>}
                        </div>
                    ))}
                    {gesture.changes.length > 4 && (
                        <span class="t3">{words.morePlaces(gesture.changes.length - 4)}</span>
                    )}
                </li>
            ))}
        </ol>
    );
}
