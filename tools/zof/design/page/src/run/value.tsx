// The chosen control of a panel that runs: its value, who wrote it, the last writes, and the line of a host that does it.
import { attempt } from '../actions';
import type { Control } from '../protocol';
import { Icon } from '../shell/icon';
import { request } from '../socket';
import { shown } from '../state';
import { words } from '../words';
import { ValueField } from './host';
import { ageText, timeText, useSeconds, WriterMark } from './writer';
import { happened, textOf, written } from './written';

const LAST = 100;

export function ValueNow({ control }: { control: Control }) {
    useSeconds();
    const value = written.value.get(control.path);
    const writes = happened.value.filter((one) => one.control === control.path).slice(-LAST);
    return (
        <section class="sect">
            <h3>{words.valueNow}</h3>
            {value ? (
                <>
                    {shown.value.mode === 'run' && value.takes ? (
                        <ValueField value={value} />
                    ) : (
                        <p class="mono clip">{textOf(value)}</p>
                    )}
                    <p class="t2">
                        {value.by ? <WriterMark by={value.by} /> : words.notWritten}
                        {value.at > 0 && ` ${ageText(value.at)}`}
                        {value.count !== undefined && ` · ${words.writes(value.count)}`}
                    </p>
                </>
            ) : (
                <p class="t2">{words.noValueHere}</p>
            )}
            <button class="btn edge below" onClick={() => void attempt(request('mark', { control: control.path }))}>
                <Icon name="eye" />
                {words.showOnPanel}
            </button>
            {writes.length > 0 && (
                <ol class="events">
                    {writes.reverse().map((one) => (
                        <li>
                            <span class="mono t3">{timeText(one.time)}</span>
                            <span class="mono grow clip">{one.what ? `${one.what} ${one.value}` : one.value}</span>
                            <WriterMark by={one.by} />
                        </li>
                    ))}
                </ol>
            )}
        </section>
    );
}
