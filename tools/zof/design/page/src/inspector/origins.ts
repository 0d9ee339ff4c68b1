// The looks of themes and of looks.g that dress a part of a control in a state, as the runtime reports them.
import { useEffect, useState } from 'preact/hooks';

import { quiet } from '../actions';
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

const textOf = (values: Value[]): Value[] => values.filter(({ path }) => path.startsWith('txt_t'));

async function originOf(place: Place, section: number): Promise<Origin[]> {
    const reply = await quiet(request('read', { file: place.file, path: '' }));
    if (!reply) return [];
    const object = objectAt(reply.values, place);
    const inner = object ? below(reply.values, object.path + '.') : [];
    if (!object || isSecond(object, inner) !== section > 0) return [];
    const name = place.file.split('/').slice(-2).join('/');
    return [
        {
            label: `${place.look ? `${place.look} ` : ''}${name}:${place.line}`,
            file: place.file,
            path: object.path,
            values: inner,
        },
    ];
}

/** The places other than the view's own file that dress a part of an object in a state, the strongest first. What they
 *  leave out is inherited: from the state "always", and a text from the main part. */
export function useOrigins(control: Control, section: number, part: number, state: number): Origin[] {
    const [origins, setOrigins] = useState<Origin[]>([]);
    const gesture = lastGesture.value;
    const own = control.place?.file;
    const dressing = (ofPart: number, ofState: number): Place[] =>
        control.styles
            .filter((style) => style.file !== own && style.part === ofPart && style.state === ofState)
            .reverse();
    const levels = [
        dressing(part, state),
        state !== 0 ? dressing(part, 0) : [],
        part !== 0 ? dressing(0, state) : [],
        part !== 0 && state !== 0 ? dressing(0, 0) : [],
    ];
    const where = JSON.stringify(levels);
    useEffect(() => {
        let stale = false;
        const read = async (place: Place, level: number): Promise<Origin[]> => {
            const found = await originOf(place, section);
            return level < 2 ? found : found.map((origin) => ({ ...origin, values: textOf(origin.values) }));
        };
        const all = levels.flatMap((places, level) => places.map((place) => read(place, level)));
        void Promise.all(all).then((read) => !stale && setOrigins(read.flat()));
        return () => {
            stale = true;
        };
    }, [where, section, gesture]);
    return origins;
}
