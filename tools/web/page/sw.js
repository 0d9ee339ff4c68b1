// Serves the page when there is no network, and with the headers that threads need when the server does not send them.
// What the network has is newer than what is kept.
const STORE = 'panel';
const FILES = ['./', 'page.js', 'page.css', 'manifest.webmanifest', 'icon.png'];
const PROGRAM = ['panel.js', 'panel.worker.js', 'panel.wasm', 'panel.data'];

self.addEventListener('install', (event) => {
    self.skipWaiting();
    event.waitUntil(caches.open(STORE).then((store) => store.addAll([...FILES, ...PROGRAM])));
});
self.addEventListener('activate', (event) => event.waitUntil(self.clients.claim()));

/** @param {Response} answer */
function isolated(answer) {
    const headers = new Headers(answer.headers);
    headers.set('Cross-Origin-Opener-Policy', 'same-origin');
    headers.set('Cross-Origin-Embedder-Policy', 'require-corp');
    return new Response(answer.body, { status: answer.status, statusText: answer.statusText, headers });
}

async function answerOf(request) {
    const store = await caches.open(STORE);
    try {
        const answer = await fetch(request);
        if (answer.ok) await store.put(request, answer.clone());
        return isolated(answer);
    } catch (fault) {
        const kept = await store.match(request, { ignoreSearch: true });
        if (kept) return isolated(kept);
        throw fault;
    }
}

self.addEventListener('fetch', (event) => {
    const { request } = event;
    if (request.method === 'GET' && new URL(request.url).origin === self.location.origin) event.respondWith(answerOf(request));
});
