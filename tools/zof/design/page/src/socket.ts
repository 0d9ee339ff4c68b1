// The connection to the program: requests with their replies, events, and pictures. It is opened again after a break.
import { signal } from '@preact/signals';

import { FRAME_HEAD_BYTES, type Events, type FrameHead, type Requests } from './protocol';

type EventName = Events['event'];
type EventOf<E extends EventName> = Extract<Events, { event: E }>;
type FrameFn = (head: FrameHead, pixels: Uint8ClampedArray) => void;

interface Waiting {
    resolve: (reply: never) => void;
    reject: (fault: Error) => void;
}

const AGAIN_MS = 1000;

/** Whether the program can be reached; `old`: it was started again since, with another address; `full`: it serves no more
 *  pages. */
export const linked = signal<'connecting' | 'open' | 'lost' | 'old' | 'full'>('connecting');

const waiting = new Map<number, Waiting>();
const listeners = new Map<string, Set<(event: never) => void>>();
const frameListeners = new Set<FrameFn>();
const openListeners = new Set<() => void>();
let socket: WebSocket | null = null;
let lastId = 0;

/** The token is kept for reloads, and taken out of the address, which people copy. */
function tokenOf(): string {
    const given = new URLSearchParams(location.search).get('token');
    if (given) {
        sessionStorage.setItem('token', given);
        history.replaceState(null, '', location.pathname + location.hash);
    }
    return sessionStorage.getItem('token') ?? '';
}

function frameTake(data: ArrayBuffer): void {
    const words = new Uint32Array(data, 0, FRAME_HEAD_BYTES / 4);
    const [kind = 0, number = 0, x = 0, y = 0, width = 0, height = 0, fullWidth = 0, fullHeight = 0] = words;
    const head = { kind, number, x, y, width, height, fullWidth, fullHeight };
    const pixels = new Uint8ClampedArray(data, FRAME_HEAD_BYTES);
    frameListeners.forEach((fn) => fn(head, pixels));
}

function textTake(text: string): void {
    const message = JSON.parse(text) as { id?: number; ok?: boolean; error?: string; event?: string };
    if (message.id === undefined) {
        listeners.get(message.event ?? '')?.forEach((fn) => fn(message as never));
        return;
    }
    const one = waiting.get(message.id);
    waiting.delete(message.id);
    if (message.ok) one?.resolve(message as never);
    else one?.reject(new Error(message.error ?? ''));
}

async function reason(): Promise<'lost' | 'old' | 'full'> {
    const status = await fetch(`/socket?token=${tokenOf()}`).then(
        (answer) => answer.status,
        () => 0,
    );
    return status === 403 ? 'old' : status === 503 ? 'full' : 'lost';
}

function closed(): void {
    socket = null;
    if (linked.value === 'open') linked.value = 'lost';
    void reason().then((why) => {
        linked.value = why;
        if (why !== 'old') setTimeout(connect, AGAIN_MS);
    });
    waiting.forEach((one) => one.reject(new Error('the program does not answer')));
    waiting.clear();
}

export function connect(): void {
    socket = new WebSocket(`ws://${location.host}/socket?token=${tokenOf()}`);
    socket.binaryType = 'arraybuffer';
    socket.onopen = () => {
        linked.value = 'open';
        openListeners.forEach((fn) => fn());
    };
    socket.onmessage = (event: MessageEvent<string | ArrayBuffer>) =>
        typeof event.data === 'string' ? textTake(event.data) : frameTake(event.data);
    socket.onclose = closed;
}

/** Sends a request. The promise is rejected with the program's reason. */
export function request<K extends keyof Requests>(name: K, args: Requests[K]['args']): Promise<Requests[K]['reply']> {
    return new Promise((resolve, reject) => {
        if (socket?.readyState !== WebSocket.OPEN) {
            reject(new Error('the program does not answer'));
            return;
        }
        const id = ++lastId;
        waiting.set(id, { resolve: resolve, reject });
        socket.send(JSON.stringify({ id, do: name, ...args }));
    });
}

/** Calls a function at each event of a name, until the returned function is called. */
export function on<E extends EventName>(name: E, fn: (event: EventOf<E>) => void): () => void {
    const all = listeners.get(name) ?? new Set();
    listeners.set(name, all);
    all.add(fn);
    return () => all.delete(fn);
}

export function onFrame(fn: FrameFn): () => void {
    frameListeners.add(fn);
    return () => frameListeners.delete(fn);
}

export function onOpen(fn: () => void): void {
    openListeners.add(fn);
}
