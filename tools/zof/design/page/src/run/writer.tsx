// Who wrote a value, and how long ago.
import { useEffect, useState } from 'preact/hooks';

import { Icon } from '../shell/icon';
import { words } from '../words';
import type { Writer } from './written';

const icons: Record<Writer, string> = { host: 'host', user: 'finger', inspector: 'device', program: 'prog' };

export function WriterMark({ by }: { by: Writer }) {
    return (
        <span class={`by ${by}`}>
            <Icon name={icons[by]} />
            {words.writers[by]}
        </span>
    );
}

/** Draws its part of the page again each second, so that ages are right. */
export function useSeconds(): void {
    const [, setTick] = useState(0);
    useEffect(() => {
        const timer = setInterval(() => setTick((tick) => tick + 1), 1000);
        return () => clearInterval(timer);
    }, []);
}

export function ageText(at: number): string {
    const seconds = Math.max(0, Math.round((Date.now() - at) / 1000));
    if (seconds < 2) return words.now;
    return seconds < 120
        ? `${seconds} s`
        : seconds < 7200
          ? `${Math.round(seconds / 60)} min`
          : `${Math.round(seconds / 3600)} h`;
}

/** A time of day, with milliseconds. */
export const timeText = (time: number): string =>
    `${new Date(time).toLocaleTimeString([], { hour12: false })}.${`${time % 1000}`.padStart(3, '0')}`;
