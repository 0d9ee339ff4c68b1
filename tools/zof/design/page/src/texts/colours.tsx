// The named colours of the project: a change of one changes all its uses.
import { ask, setValue } from '../actions';
import { tryEdits } from '../canvas/drag';
import { Button } from '../shell/button';
import { request } from '../socket';
import { project } from '../state';
import { words } from '../words';

export function Colours() {
    const all = project.value?.colours ?? [];
    const files = [...new Set(['config/looks.g', ...all.map((colour) => colour.file)])];
    const add = (file: string): void =>
        ask(words.newColour, words.make, '', async (name) => {
            if (!/^[\w-]+$/.test(name)) throw new Error(words.colourName);
            if (all.some((colour) => colour.file === file && colour.name === name))
                throw new Error(words.colourExists(name));
            const edits = [{ file, path: `colors.${name}`, value: '#808080' }];
            await request('edit', { label: words.addOf(name), edits });
        });
    return (
        <>
            <div class="head">
                <h2>{words.colours}</h2>
            </div>
            <div class="scroll">
                {!all.length && <p class="note">{words.noColours}</p>}
                {files.map((file) => (
                    <section class="sect" key={file}>
                        <div class="head">
                            <h3 class="mono grow">{file.replace('config/', '')}</h3>
                            <Button icon="add" name={words.newColour} onClick={() => add(file)} />
                        </div>
                        {all
                            .filter((colour) => colour.file === file)
                            .map((colour) => (
                                <label class="colour" key={colour.path}>
                                    <input
                                        type="color"
                                        class="swatch"
                                        value={
                                            /^#[0-9a-f]{6}$/i.test(colour.value)
                                                ? colour.value.toLowerCase()
                                                : '#000000'
                                        }
                                        onInput={(event) =>
                                            tryEdits([
                                                {
                                                    file,
                                                    path: colour.path,
                                                    value: event.currentTarget.value.toUpperCase(),
                                                },
                                            ])
                                        }
                                        onChange={(event) =>
                                            setValue(
                                                `Colour ${colour.name}`,
                                                file,
                                                colour.path,
                                                event.currentTarget.value.toUpperCase(),
                                            )
                                        }
                                    />
                                    <span class="grow">{colour.name}</span>
                                    <span class="mono t2">{colour.value}</span>
                                </label>
                            ))}
                    </section>
                ))}
            </div>
        </>
    );
}
