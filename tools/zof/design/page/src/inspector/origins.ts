// The looks of themes and of looks.g that dress a part of a control in a state, as the runtime reports them.
import { useEffect, useState } from 'preact/hooks';

import { attempt } from '../actions';
import type { Control, Value } from '../protocol';
import { request } from '../socket';
import { lastGesture } from '../state';
import { below, type Origin } from './subject';

type Place = Control['styles'][number];

/** The object that stands at a place of a file. */
function objectAt(values: Value[], place: Place): Value | undefined {
    const near = values.filter((value) => value.kind === 'object' && value.line === place.line);
    return near.find((value) => value.column === place.column) ?? near[0];
}

/** Whether an entry dresses the second object of a control, such as the open list of a drop list. */
const isSecond = (object: Value, inner: Value[]): boolean =>
    /\.second(:|$)/.test(object.path) ||
    inner.some(({ path, raw }) => path === 'style_sect' && !/^(0|"control")$/.test(raw));

async function originOf(place: Place): Promise<Origin[]> {
    const reply = await attempt(request('read', { file: place.file, path: '' }));
    if (!reply) return [];
    const object = objectAt(reply.values, place);
    const inner = object ? below(reply.values, object.path + '.') : [];
    if (!object || isSecond(object, inner)) return [];
    const name = place.file.split('/').slice(-2).join('/');
    return [
        {
            label: `${place.look ? `${place.look} ` : ''}${name}:${place.line}`,
            file: place.file,
            values: inner,
        },
    ];
}

/** The places other than the view's own file that dress a part in a state, the strongest first. */
export function useOrigins(control: Control, part: number, state: number): Origin[] {
    const [origins, setOrigins] = useState<Origin[]>([]);
    const gesture = lastGesture.value;
    const own = control.place?.file;
    const places = control.styles.filter((style) => style.file !== own && style.part === part && style.state === state);
    const where = places.map((place) => `${place.file}:${place.line}:${place.column}`).join();
    useEffect(() => {
        let stale = false;
        void Promise.all(places.map(originOf)).then((all) => !stale && setOrigins(all.flat().reverse()));
        return () => {
            stale = true;
        };
    }, [where, gesture]);
    return origins;
}
