// What has happened on a panel that runs, newest first.
import { useState } from 'preact/hooks';

import { attempt } from '../actions';
import { Button } from '../shell/button';
import { selection } from '../state';
import { words } from '../words';
import { codeOf } from './code';
import { timeText, WriterMark } from './writer';
import { happened, type Writer } from './written';

const writers: Writer[] = ['user', 'host', 'program', 'inspector'];
const ROWS = 200;

export function Events() {
    const [only, setOnly] = useState<Writer | ''>('');
    const rows = happened.value.filter((one) => !only || one.by === only);
    return (
        <>
            <div class="chips above" role="group" aria-label={words.events}>
                {(['', ...writers] as const).map((writer) => (
                    <button
                        class={only === writer ? 'chip on' : 'chip'}
                        aria-pressed={only === writer}
                        onClick={() => setOnly(writer)}
                    >
                        {writer ? words.writers[writer] : words.all}
                    </button>
                ))}
            </div>
            {rows.length ? (
                <ol class="events">
                    {rows
                        .slice(-ROWS)
                        .reverse()
                        .map((one) => (
                            <li>
                                <span class="mono t3">{timeText(one.time)}</span>
                                <WriterMark by={one.by} />
                                <span class="clip grow">
                                    <button class="link" onClick={() => (selection.value = [one.control])}>
                                        {one.control}
                                    </button>{' '}
                                    {one.what} <span class="mono t2">{one.value}</span>
                                </span>
                                <Button
                                    icon="copy"
                                    name={words.copyCode}
                                    onClick={() => void attempt(navigator.clipboard.writeText(codeOf(one)))}
                                />
                            </li>
                        ))}
                </ol>
            ) : (
                <p class="empty">{words.noEvents}</p>
            )}
        </>
    );
}
