// From the move of a pointer that drags a control to the runtime's picture of it, in a browser: prints rows for
// bench/RESULTS.md. The reference is the next picture of a page that has nothing to draw.
//   the environment is that of lib.mjs
import { writeFileSync, readFileSync } from 'node:fs';

import { browser, open, until } from './lib.mjs';

const MOVES = 100;

/** Fills the view with labels, the first of which can be dragged. */
const fill = (count) => (file) => {
    const view = JSON.parse(readFileSync(file, 'utf8'));
    const label = view.controls.find((one) => one.type === 'label');
    view.controls = Array.from({ length: count }, (_, i) => {
        const one = structuredClone(label);
        Object.assign(one.property.pub_t, {
            name: `l${i}`,
            id: i + 1,
            pt: { x: (i % 20) * 23, y: Math.floor(i / 20) * (count > 200 ? 5 : 40) },
            size: { width: 22, height: 20 },
        });
        delete one.property.pub_t.parent_id;
        one.property.txt = `${i}`;
        return one;
    });
    writeFileSync(file, JSON.stringify(view, null, 4));
};

const watch = () => {
    const Native = window.WebSocket;
    window.seen = { moved: 0, drawn: 0, frame: 0 };
    window.WebSocket = class extends Native {
        constructor(...args) {
            super(...args);
            this.addEventListener('message', (event) => {
                // The page's own listener has put the picture into its canvas by then; the next animation frame shows it.
                if (event.data instanceof ArrayBuffer) requestAnimationFrame(() => (window.seen.drawn = performance.now()));
            });
        }
    };
    addEventListener('pointermove', (event) => {
        window.seen.moved = event.timeStamp;
        requestAnimationFrame(() => (window.seen.frame = performance.now()));
    }, true);
};

const at_percent = (all, percent) => all[Math.min(all.length - 1, Math.floor((all.length * percent) / 100))];

async function measure(count) {
    const at = await open({ prepare: fill(count), width: 1440, height: 900, before: watch });
    const { page } = at;
    await until('the picture', async () => (await page.locator('.screen').boundingBox())?.width > 100);
    const [x, y] = await at.at(10, 8);
    await page.mouse.move(x, y);
    await page.mouse.down();
    await page.mouse.move(x + 10, y + 10);
    await page.waitForTimeout(1000);
    const pictures = [];
    const frames = [];
    for (let i = 0; i < MOVES; i++) {
        await page.evaluate(() => (window.seen.drawn = window.seen.frame = 0));
        await page.mouse.move(x + 40 + 7 * (i % 50), y + 30 + 5 * (i % 9));
        const drawn_now = () => window.seen.drawn > window.seen.moved && window.seen.frame;
        const shown = await page.waitForFunction(drawn_now, undefined, { timeout: 2000 }).catch(() => null);
        if (!shown) continue; // snapping has kept it where it was
        const { moved, drawn, frame } = await page.evaluate(() => window.seen);
        pictures.push(drawn - moved);
        frames.push(frame - moved);
    }
    await page.mouse.up();
    await at.end();
    pictures.sort((a, b) => a - b);
    frames.sort((a, b) => a - b);
    const ours = at_percent(pictures, 50);
    const reference = at_percent(frames, 50);
    console.log(
        `| a control dragged on the design page, ${count.toLocaleString('en')} in its view, until the runtime's picture of it is shown | ` +
            `${ours.toFixed(1)} ms in ${pictures.length} moves, the slowest 1 % from ${at_percent(pictures, 99).toFixed(1)} ms | ` +
            `${reference.toFixed(1)} ms, the browser's next picture | ${(ours / reference).toFixed(2)} |`,
    );
}

for (const count of [100, 1000]) await measure(count);
await browser.close();
