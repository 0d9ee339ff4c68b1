// The types of controls, to drag onto the picture.
import { useState } from 'preact/hooks';

import { add } from '../actions';
import { carried, placeEnd } from '../canvas/placing';
import { catalogue, type Type } from '../catalogue';
import { Filter } from '../shell/filter';
import { Icon } from '../shell/icon';
import { chosen, project } from '../state';
import { said, words } from '../words';

const sizeOf = (type: Type): { width: number; height: number } => ({
    width: type.width ?? 120,
    height: type.height ?? 48,
});

/** Puts a control into the middle of the selected container, or of the view. */
function addMiddle(type: Type): void {
    const parent = chosen.value?.type === 'container' ? chosen.value : undefined;
    const room = parent ? parent.box : [0, 0, project.value?.width ?? 0, project.value?.height ?? 0];
    const { width, height } = sizeOf(type);
    const x = Math.round(((room[2] ?? 0) - width) / 2);
    const y = Math.round(((room[3] ?? 0) - height) / 2);
    void add(type.name, x, y, parent?.path);
}

export function Palette() {
    const [filter, setFilter] = useState('');
    const has = (text: string): boolean => text.toLowerCase().includes(filter.toLowerCase());
    const named = catalogue.value.types.filter((type) => has(`${said(type.name)} ${type.name}`));
    const types = [...named, ...catalogue.value.types.filter((type) => !named.includes(type) && has(type.help))];
    return (
        <>
            <div class="head">
                <h2>{words.add}</h2>
            </div>
            <Filter
                icon="search"
                name={words.filter}
                value={filter}
                onText={setFilter}
                onEnter={() => types[0] && addMiddle(types[0])}
            />
            <div class="palette">
                {types.map((type) => (
                    <button
                        key={type.name}
                        class={carried.value?.drawn && carried.value.type === type.name ? 'kind on' : 'kind'}
                        title={type.help}
                        draggable
                        aria-pressed={carried.value?.drawn === true && carried.value.type === type.name}
                        onClick={(event) => {
                            const byKey = event.detail === 0;
                            carried.value = byKey ? null : { type: type.name, ...sizeOf(type), drawn: true };
                            if (byKey) addMiddle(type);
                        }}
                        onDblClick={() => {
                            carried.value = null;
                            addMiddle(type);
                        }}
                        onKeyDown={(event) => event.key === 'Escape' && void placeEnd(false)}
                        onDragStart={(event) => {
                            carried.value = { type: type.name, ...sizeOf(type), drawn: false };
                            event.dataTransfer?.setData('text/plain', type.name);
                        }}
                        onDragEnd={() => carried.value && void placeEnd(false)}
                    >
                        <Icon name={type.theme_file} />
                        {said(type.name)}
                    </button>
                ))}
            </div>
            <p class="note">{words.addHint}</p>
        </>
    );
}
