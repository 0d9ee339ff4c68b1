// @ts-check
// The page around the panel: loads it, shows it at a good size, and has what a desk would have: the virtual box's faults,
// the cable to a real box, and the recordings.

/** @param {string} id @returns {any} */
const at = (id) => document.getElementById(id);
const canvas = /** @type {HTMLCanvasElement} */ (at('canvas'));
const BAUD = 115200; // of the box

/** The program, once it runs. @type {any} */
const module = {};

// ---- loading

/** @param {string} why */
function fail(why) {
    at('loading').hidden = false;
    at('loading').className = 'fault';
    at('what').textContent = why;
    at('progress').hidden = true;
    canvas.hidden = true;
}

/** Returns what this browser lacks, or an empty text. */
function missing() {
    if (typeof WebAssembly !== 'object') return 'This browser has no WebAssembly, which the panel is made of.';
    if (!window.isSecureContext) return 'The panel needs an address that begins with https, or this machine itself.';
    if (!window.crossOriginIsolated)
        return 'This address does not let pages have threads. Its server has to send the headers Cross-Origin-Opener-Policy: same-origin and Cross-Origin-Embedder-Policy: require-corp.';
    return '';
}

/** Lets a worker serve the page: offline, and with the headers that threads need. Returns whether the page loads again. */
async function workerStart() {
    if (!navigator.serviceWorker) return false;
    const again = !window.crossOriginIsolated && !sessionStorage.getItem('again');
    await navigator.serviceWorker.register('sw.js');
    await navigator.serviceWorker.ready;
    if (!again) return false;
    sessionStorage.setItem('again', 'yes');
    location.reload();
    return true;
}

/** Fetches the parts of the program, and shows how much has come. @param {string[]} names */
async function parts(names) {
    const answers = await Promise.all(names.map((name) => fetch(name)));
    const bad = answers.find((answer) => !answer.ok);
    if (bad) throw new Error(`${bad.url}: ${bad.status}`);
    const total = answers.reduce((sum, answer) => sum + Number(answer.headers.get('Content-Length') ?? 0), 0);
    let come = 0;
    return Promise.all(
        answers.map(async (answer) => {
            const reader = /** @type {ReadableStream<Uint8Array<ArrayBuffer>>} */ (answer.body).getReader();
            const pieces = [];
            for (let piece = await reader.read(); !piece.done; piece = await reader.read()) {
                pieces.push(piece.value);
                come += piece.value.length;
                if (total) at('progress').value = Math.min(1, come / total);
            }
            return new Blob(pieces).arrayBuffer();
        }),
    );
}

/** What the panel keeps is in a folder that is written to the browser's store. */
function storeMount() {
    const { FS } = module;
    FS.mkdir('/state');
    FS.mkdir('/recordings');
    // @ts-expect-error the program's own
    const store = IDBFS;
    for (const folder of ['/state', '/recordings']) FS.mount(store, {}, folder);
    module.addRunDependency('store');
    FS.syncfs(true, () => module.removeRunDependency('store'));
}

let keeping = 0;
/** Writes the folder to the store, soon after the last change. */
function keep() {
    clearTimeout(keeping);
    keeping = setTimeout(() => module.FS.syncfs(false, () => {}), 300);
}

/** The panel is there when something is drawn. */
function firstFrame() {
    const context = /** @type {CanvasRenderingContext2D} */ (canvas.getContext('2d', { willReadFrequently: true }));
    const look = () => {
        if (!context.getImageData(0, 0, 1, 1).data[3]) {
            requestAnimationFrame(look);
            return;
        }
        at('loading').hidden = true;
        canvas.hidden = false;
        fit();
        canvas.focus();
        performance.mark('first frame');
        document.documentElement.dataset.ready = 'yes';
    };
    look();
}

async function start() {
    if (await workerStart()) return;
    const why = missing();
    if (why) {
        fail(why);
        return;
    }
    const [wasm, data] = await parts(['panel.wasm', 'panel.data']);
    Object.assign(module, {
        canvas,
        arguments: ['--record', '/recordings'],
        wasmBinary: wasm,
        getPreloadedPackage: () => data,
        preRun: [
            () => {
                Object.assign(module.ENV, { ZOF_STATE: '/state', SDL_EMSCRIPTEN_KEYBOARD_ELEMENT: '#canvas' });
                storeMount();
            },
        ],
        onAbort: (/** @type {string} */ reason) => fail(`The panel has stopped: ${reason}`),
        print: console.log,
        printErr: console.warn,
        zofKeep: keep,
        zofUsbSent: usbSend,
    });
    // @ts-expect-error the program looks for it by this name
    window.Module = module;
    const script = document.createElement('script');
    script.src = 'panel.js';
    script.onerror = () => fail('panel.js cannot be loaded.');
    document.body.append(script);
    firstFrame();
}

// ---- size

/** Whole device pixels where there is room for them, else as large as fits. */
function fit() {
    const room = /** @type {HTMLElement} */ (canvas.parentElement).getBoundingClientRect();
    const fits = Math.min(room.width / canvas.width, room.height / canvas.height);
    const whole = Math.floor(fits * devicePixelRatio) / devicePixelRatio;
    const sharp = whole > 0 && whole >= fits * 0.6;
    const scale = sharp ? whole : fits;
    canvas.style.width = `${canvas.width * scale}px`;
    canvas.style.height = `${canvas.height * scale}px`;
    canvas.classList.toggle('sharp', sharp);
}
new ResizeObserver(fit).observe(/** @type {Element} */ (canvas.parentElement));
canvas.addEventListener('contextmenu', (event) => event.preventDefault());

// ---- the virtual box

/** @param {string} command */
const box = (command) => module.ccall('zof_box_command', null, ['string'], [command]);

const faults = [
    ['mute', 'fault mute=1', 'fault mute=0', 'Silent', 'The box sends nothing'],
    ['unplug', 'unplug', 'plug', 'Unplugged', 'The cable is out'],
    ['replug', 'fault replug=5', 'fault replug=0', 'Loose plug', 'Out for a second, every five'],
    ['lose', 'fault lose=5', 'fault lose=0', 'Lost bytes', 'Five of a hundred'],
    ['garbage', 'fault garbage=20', 'fault garbage=0', 'Noise', 'Random bytes before every fifth frame'],
    ['late', 'fault late=300', 'fault late=0', 'Late', 'Everything comes 300 ms late'],
    ['flood', 'fault flood=11520', 'fault flood=0', 'Flood', 'Readings fill the line'],
];
const loads = [
    ['none', '100000'],
    ['10 Ω', '10'],
    ['4.7 Ω', '4.7'],
    ['2 A', '2A'],
];

for (const [id, on, off, name, hint] of faults) {
    const label = document.createElement('label');
    const input = document.createElement('input');
    const line = document.createElement('span');
    Object.assign(line, { className: 'hint', textContent: hint });
    Object.assign(input, { type: 'checkbox', id: `fault-${id}`, onchange: () => box(input.checked ? on : off) });
    label.append(input, name, line);
    at('faults').append(label);
}
for (const [name, value] of loads) {
    const button = document.createElement('button');
    button.textContent = name;
    button.setAttribute('role', 'radio');
    button.setAttribute('aria-checked', String(value === '10'));
    button.onclick = () => {
        box(`load ${value}`);
        for (const other of at('loads').children) other.setAttribute('aria-checked', String(other === button));
    };
    at('loads').append(button);
}

// ---- a real box

/** @type {any} */
let port = null;
/** @type {WritableStreamDefaultWriter<Uint8Array> | null} */
let writer = null;

const usePort = (/** @type {string} */ path) => module.ccall('zof_page_port', null, ['string'], [path]);

/** @param {string} text @param {boolean} real */
function lineSay(text, real) {
    at('line').textContent = text;
    at('connect').textContent = real ? 'Back to the virtual box' : 'Connect a real box';
    at('more').hidden = real;
    if (real) drawer(false);
}

/** Sends what the panel has written. */
function usbSend() {
    const size = 1024;
    const memory = module._malloc(size);
    for (let n = module._zof_usb_next(memory, size); n > 0; n = module._zof_usb_next(memory, size)) {
        const bytes = module.HEAPU8.slice(memory, memory + n);
        writer?.write(bytes).catch(() => {});
    }
    module._free(memory);
}

/** @param {Uint8Array} bytes */
function usbTake(bytes) {
    const memory = module._malloc(bytes.length);
    module.HEAPU8.set(bytes, memory);
    module._zof_usb_take(memory, bytes.length);
    module._free(memory);
}

/** Opens an allowed port, and passes bytes on until it is gone. @param {any} chosen */
async function usbRun(chosen) {
    await chosen.open({ baudRate: BAUD });
    port = chosen;
    writer = chosen.writable.getWriter();
    module._zof_usb_plug(1);
    usePort('usb');
    lineSay('real box', true);
    const reader = chosen.readable.getReader();
    try {
        for (let piece = await reader.read(); !piece.done; piece = await reader.read()) usbTake(piece.value);
    } catch {
        // It is unplugged, which the panel shows.
    }
    writer = null;
    module._zof_usb_plug(0);
    if (port) at('line').textContent = 'The real box is unplugged. Plug it in again, or go back to the virtual box.';
}

async function usbLeave() {
    const last = port;
    port = null;
    usePort('box');
    lineSay('virtual box', false);
    await last?.close().catch(() => {});
}

const serial = /** @type {any} */ (navigator).serial;
at('connect').onclick = async () => {
    if (port) {
        await usbLeave();
        return;
    }
    try {
        await usbRun(await serial.requestPort());
    } catch (reason) {
        const name = /** @type {Error} */ (reason).name;
        if (name !== 'NotFoundError') at('line').textContent = `The port cannot be opened: ${/** @type {Error} */ (reason).message}`;
    }
};
serial?.addEventListener('connect', (/** @type {any} */ event) => {
    if (port && !writer) void usbRun(event.target).catch(() => {});
});
if (!serial) {
    at('connect').disabled = true;
    at('connect').title = 'This browser gives pages no serial ports. Chrome, Edge and Opera on a desktop do.';
}

// ---- drawer, full screen, recordings

/** @param {boolean} open */
function drawer(open) {
    at('drawer').hidden = !open;
    at('more').setAttribute('aria-expanded', String(open));
}
at('more').onclick = () => drawer(at('drawer').hidden);
at('full').onclick = () => void document.documentElement.requestFullscreen?.();

function recordingsShow() {
    if (at('drawer').hidden || !module.FS) return;
    const names = module.FS.readdir('/recordings').filter((/** @type {string} */ name) => !name.startsWith('.'));
    at('none').hidden = names.length > 0;
    if (at('recordings').childElementCount === names.length) return;
    at('recordings').replaceChildren(
        ...names.map((/** @type {string} */ name) => {
            const row = document.createElement('li');
            const link = document.createElement('a');
            Object.assign(link, { href: '#', textContent: name });
            link.onclick = (event) => {
                event.preventDefault();
                const save = document.createElement('a');
                save.href = URL.createObjectURL(new Blob([module.FS.readFile(`/recordings/${name}`)]));
                save.download = name;
                save.click();
                setTimeout(() => URL.revokeObjectURL(save.href), 1000);
            };
            row.append(link);
            return row;
        }),
    );
}
setInterval(recordingsShow, 1000);

start().catch((reason) => fail(`The panel cannot be loaded: ${reason.message}`));
