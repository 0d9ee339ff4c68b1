// The scenario below the values of the virtual host: written here, recorded or opened, and played.
import { Button } from '../shell/button';
import { Chooser } from '../shell/chooser';
import { save } from '../shell/save';
import { keep, kept, project } from '../state';
import { words } from '../words';
import {
    playing,
    recordBegin,
    recordEnd,
    recording,
    scenarioLength,
    scenarioParse,
    scenarioPlay,
    scenarioStop,
} from './scenario';

export function Scenario() {
    const text = kept.value.scenario;
    const { steps, fault } = scenarioParse(text);
    const now = playing.value;
    const length = scenarioLength(steps);
    const records = recording.value !== null;
    const record = (): void => {
        if (records) keep({ scenario: recordEnd() });
        else recordBegin();
    };
    return (
        <section class="scenario">
            <div class="head">
                <h2 class="grow">{words.scenario}</h2>
                <Button
                    icon={now === null ? 'play' : 'stop'}
                    name={now === null ? words.play : words.stop}
                    disabled={!steps.length || records}
                    onClick={() => (now === null ? scenarioPlay(steps) : scenarioStop())}
                />
                <Button icon="record" name={records ? words.recordEnd : words.record} on={records} onClick={record} />
                <Chooser
                    icon="file"
                    name={words.openFile}
                    accept=".txt"
                    onFiles={(files) => void files[0]?.text().then((opened) => keep({ scenario: opened }))}
                />
                <Button
                    icon="drop"
                    name={words.saveFile}
                    disabled={!text}
                    onClick={() => save(`${project.value?.name ?? 'panel'}.txt`, new Blob([text]))}
                />
            </div>
            <input
                type="range"
                aria-label={words.scenarioTime}
                min={0}
                max={Math.max(length, 0.1)}
                step={0.1}
                value={now ?? 0}
                disabled={!steps.length || records}
                onChange={(event) => scenarioPlay(steps, Number(event.currentTarget.value))}
            />
            <textarea
                class="mono"
                aria-label={words.scenario}
                spellcheck={false}
                placeholder={words.scenarioHint}
                readOnly={records}
                value={records ? recording.value?.lines.join('\n') : text}
                onChange={(event) => keep({ scenario: event.currentTarget.value })}
            />
            <p class={fault ? 'err small' : 't3 small'}>
                {fault
                    ? words.scenarioLine(fault.line, words.scenarioFault[fault.why](fault.text))
                    : words.scenarioLength(steps.length, length)}
            </p>
        </section>
    );
}
