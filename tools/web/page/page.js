// @ts-check
// The page around the panel: loads and scales it, and connects it to the virtual box or, over WebSerial, to a real one.

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
        return 'Pages at this address cannot use threads. The server has to send the headers Cross-Origin-Opener-Policy: same-origin and Cross-Origin-Embedder-Policy: require-corp.';
    return '';
}

/** Installs the service worker, which serves the page offline and adds the headers that threads need. Returns whether the
 *  page is being reloaded for them. */
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

/** Fetches files of the program, and shows the progress. @param {string[]} names */
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

/** Mounts the folders that are kept in the browser's store. */
function storeMount() {
    const { FS } = module;
    FS.mkdir('/state');
    FS.mkdir('/recordings');
    // @ts-expect-error the program's own
    const store = IDBFS;
    for (const folder of ['/state', '/recordings']) FS.mount(store, {}, folder);
    module.addRunDependency('store');
    FS.syncfs(true, (/** @type {Error | null} */ fault) => {
        keepSay(fault);
        module.removeRunDependency('store');
    });
}

/** @param {Error | null} fault */
function keepSay(fault) {
    at('kept').textContent = fault ? `This browser keeps nothing of the panel: ${fault.message}` : '';
}

let changed = false; // since the store was written last
let keeping = false;
/** Writes the folders to the store: at most every half second, because a recording grows all the time. */
function keep() {
    changed = true;
    if (keeping) return;
    keeping = true;
    setTimeout(keepNow, 500);
}
function keepNow() {
    changed = false;
    module.FS.syncfs(false, (/** @type {Error | null} */ fault) => {
        keepSay(fault);
        keeping = false;
        if (changed) keep();
    });
}

/** Shows the panel once it has drawn something. */
function firstFrame() {
    const context = /** @type {CanvasRenderingContext2D} */ (canvas.getContext('2d', { willReadFrequently: true }));
    const look = () => {
        if (!context.getImageData(0, 0, 1, 1).data[3]) {
            requestAnimationFrame(look);
            return;
        }
        at('loading').hidden = true;
        canvas.hidden = false;
        at('bar').hidden = false;
        setInterval(lineShow, 300);
        setInterval(recordingsShow, 1000);
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

/** The port that was allowed, until it is left. @type {any} */
let port = null;
/** Of the port while it is open. @type {WritableStreamDefaultWriter<Uint8Array> | null} */
let writer = null;
/** @type {ReadableStreamDefaultReader<Uint8Array> | null} */
let reader = null;
let trouble = ''; // with the port, until the next attempt

const usePort = (/** @type {string} */ path) => module.ccall('zof_page_port', null, ['string'], [path]);

/** Says which box the panel shows: the panel can change its port itself. */
function lineShow() {
    const real = module._zof_page_real() !== 0;
    const text = real ? (writer ? 'real box' : 'the real box is unplugged; plug it in again') : 'virtual box';
    at('line').textContent = trouble || text;
    at('connect').textContent = port ? 'Disconnect the real box' : 'Connect a real box';
    at('more').hidden = real;
    if (real) drawer(false);
}

/** Sends what the panel has written. */
function usbSend() {
    const size = 1024;
    const memory = module._malloc(size);
    for (let n = module._zof_usb_next(memory, size); n > 0; n = module._zof_usb_next(memory, size)) {
        const bytes = module.HEAPU8.slice(memory, memory + n);
        writer?.write(bytes).catch((reason) => (trouble = `The box takes no bytes: ${reason.message}`));
    }
    module._free(memory);
}

/** Passes bytes on to the panel, and waits while it has no room for them. @param {Uint8Array} bytes */
async function usbTake(bytes) {
    const memory = module._malloc(bytes.length);
    module.HEAPU8.set(bytes, memory);
    for (let sent = 0; sent < bytes.length && writer; ) {
        sent += module._zof_usb_take(memory + sent, bytes.length - sent);
        if (sent < bytes.length) await new Promise((done) => setTimeout(done, 5));
    }
    module._free(memory);
}

/** Opens the port, and passes bytes on until it is gone or left. */
async function usbRun() {
    trouble = '';
    await port.open({ baudRate: BAUD });
    const open = port;
    writer = open.writable.getWriter();
    reader = open.readable.getReader();
    module._zof_usb_plug(1);
    usePort('usb');
    try {
        for (let piece = await reader?.read(); piece && !piece.done; piece = await reader?.read()) await usbTake(piece.value);
    } catch {
        // The cable is unplugged, and the panel says so.
    }
    module._zof_usb_plug(0);
    // A port cannot be closed while its streams are locked.
    reader?.releaseLock();
    writer?.releaseLock();
    reader = writer = null;
    await open.close().catch(() => {});
}

const usbTry = () => usbRun().catch((reason) => (trouble = `The port cannot be opened: ${reason.message}`));

const serial = /** @type {any} */ (navigator).serial;
at('connect').onclick = async () => {
    if (port) {
        if (writer && !confirm('The output of the real box stays as it is, and nobody watches it here any more. Disconnect?')) return;
        port = null;
        trouble = '';
        usePort('box');
        await reader?.cancel().catch(() => {});
        return;
    }
    port = await serial.requestPort().catch(() => null); // nothing was chosen
    if (port) await usbTry();
    if (!writer && trouble) port = null;
};
// Another adapter may belong to another device, which must not receive commands for the box.
serial?.addEventListener('connect', (/** @type {any} */ event) => {
    const same = port && JSON.stringify(event.target.getInfo()) === JSON.stringify(port.getInfo());
    if (!same || writer) return;
    port = event.target;
    void usbTry();
});
addEventListener('beforeunload', (event) => {
    if (writer) event.preventDefault();
});
if (!serial) {
    at('connect').disabled = true;
    at('connect').title = 'This browser does not let pages use serial ports. Chrome, Edge and Opera on a desktop do.';
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
start().catch((reason) => fail(`The panel cannot be loaded: ${reason.message}`));
