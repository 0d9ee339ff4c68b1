// What lies over a panel that runs: frames around what was just written, and the chosen control with its last writer.
import { Ov } from '../canvas/overlay';
import { nameOf } from '../actions';
import { byPath, hovered, selection, shown } from '../state';
import { words } from '../words';
import { ageText, useSeconds } from './writer';
import { written } from './written';

const FRESH_MS = 1200; // the frame fades in the style sheet meanwhile

export function RunOver() {
    useSeconds();
    const now = Date.now();
    const fresh = [...written.value.values()].filter((value) => value.by && now - value.at < FRESH_MS);
    const paths = new Set([...selection.value, ...(hovered.value ? [hovered.value] : [])]);
    return (
        <>
            {fresh.map((value) => {
                const box = byPath.value.get(value.control)?.box;
                return box && <Ov key={`${value.control} ${value.count}`} box={box} class="wrote" />;
            })}
            {(shown.value.mode === 'live' || hovered.value) &&
                [...paths].map((path) => {
                    const control = byPath.value.get(path);
                    const value = written.value.get(path);
                    const by = value?.by && `, ${words.writtenBy(words.writers[value.by])}, ${ageText(value.at)}`;
                    return (
                        control && (
                            <Ov box={control.box} class="selbox">
                                <span class="tag s size">
                                    {nameOf(path)}
                                    {by}
                                </span>
                            </Ov>
                        )
                    );
                })}
        </>
    );
}
