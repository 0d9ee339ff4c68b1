// Run mode: keys go to the panel while the picture has the focus. The runtime takes the codes of SDL.
import { request } from '../socket';
import { shown } from '../state';

const OTHER = 0x40000000; // keys without a character
const CODES: Record<string, number> = {
    Backspace: 8,
    Tab: 9,
    Enter: 13,
    Escape: 27,
    Delete: 127,
    Home: OTHER + 0x4a,
    PageUp: OTHER + 0x4b,
    End: OTHER + 0x4d,
    PageDown: OTHER + 0x4e,
    ArrowRight: OTHER + 0x4f,
    ArrowLeft: OTHER + 0x50,
    ArrowDown: OTHER + 0x51,
    ArrowUp: OTHER + 0x52,
};

/** Sends a key to the panel. Returns false if the page keeps it: F6 and keys with Ctrl leave the panel. */
export function panelKey(event: KeyboardEvent, down: boolean): boolean {
    const key = CODES[event.key] ?? (event.key.length === 1 ? event.key.toLowerCase().codePointAt(0) : undefined);
    const inPicture = (event.target as HTMLElement).closest?.('.stage') !== null;
    if (shown.value.mode !== 'run' || !inPicture || key === undefined || event.ctrlKey || event.metaKey) return false;
    event.preventDefault();
    void request('key', { key, down }).catch(() => undefined); // a runtime that has stopped is reported by an event
    return true;
}
