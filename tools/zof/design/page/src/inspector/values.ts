// What a file says, for the forms.
import { useEffect, useState } from 'preact/hooks';

import { quiet } from '../actions';
import type { Value } from '../protocol';
import { request } from '../socket';
import { lastGesture } from '../state';

/** The values of a file, or of an object in it, again after each change. Null until they are known. */
export function useValues(file: string | undefined, path: string): Value[] | null {
    const [read, setRead] = useState<{ where: string; values: Value[] } | null>(null);
    const gesture = lastGesture.value;
    const where = `${file} ${path}`;
    useEffect(() => {
        let stale = false;
        if (file)
            void quiet(request('read', { file, path })).then((reply) => {
                if (!stale) setRead({ where, values: reply?.values ?? [] });
            });
        return () => {
            stale = true;
        };
    }, [where, gesture]);
    return read?.where === where ? read.values : null;
}
