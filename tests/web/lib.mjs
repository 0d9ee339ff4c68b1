// For the stories of the panel in a browser: the page, served on this machine, and a browser.
//   ZOF_WEB       the folder of the page
//   ZOF_MODULES   the folder with playwright-core and axe-core
//   CHROMIUM      the browser
import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { resolve } from 'node:path';
import { createInterface } from 'node:readline';
import { test } from 'node:test';

const require = createRequire(resolve(process.env.ZOF_MODULES, 'x.js'));
const { chromium } = require('playwright-core');
const axe = readFileSync(require.resolve('axe-core/axe.min.js'), 'utf8');
const here = new URL('../../', import.meta.url).pathname;

export const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-dev-shm-usage'],
});
const server = spawn('/usr/bin/python3', [`${here}tools/web/serve.py`, process.env.ZOF_WEB], { stdio: ['ignore', 'pipe', 'inherit'] });
export const address = await new Promise((done) => createInterface(server.stdout).once('line', done));
export async function end() {
    server.kill();
    await browser.close();
}

/** Waits until a condition holds, and fails with its name after 20 seconds. */
export async function until(what, condition) {
    for (let tries = 0; tries < 400; tries++) {
        if (await condition()) return;
        await new Promise((done) => setTimeout(done, 50));
    }
    throw new Error(`it never came: ${what}`);
}

/** Runs a story on the panel, in a browser of its own without anything kept; a fault of the page fails it. */
export function story(name, run, { before, ...options } = {}) {
    test(name, async () => {
        const context = await browser.newContext({ viewport: { width: 1280, height: 720 }, ...options });
        const page = await context.newPage();
        const faults = [];
        const lines = []; // that the panel has logged
        page.on('pageerror', (error) => faults.push(error.message));
        page.on('console', (line) => (line.type() === 'error' ? faults : lines).push(line.text()));
        if (before) await before(page);
        const ready = () => page.locator('html[data-ready]').waitFor();
        await page.goto(address);
        await ready();
        const place = async (x, y) => {
            const box = await page.locator('canvas').boundingBox();
            return [box.x + (x * box.width) / 800, box.y + (y * box.height) / 480];
        };
        const picture = () => page.locator('canvas').evaluate((canvas) => canvas.toDataURL());
        try {
            await run({
                context,
                page,
                lines,
                ready,
                picture,
                press: async (x, y) => page.mouse.click(...(await place(x, y)), { delay: 60 }),
                tap: async (x, y) => page.touchscreen.tap(...(await place(x, y))),
                /** Waits until the picture stays the same for a while, and returns it. */
                still: async () => {
                    let last = '';
                    await until('a picture that stays', async () => {
                        const before = last;
                        await page.waitForTimeout(300);
                        last = await picture();
                        return last === before;
                    });
                    return last;
                },
            });
            assert.deepEqual(faults, []);
        } finally {
            await context.close();
        }
    });
}

/** What the accessibility check finds, one line each. */
export async function axe_findings(page) {
    await page.evaluate(axe);
    const result = await page.evaluate(() => window.axe.run());
    return result.violations.map((one) => `${one.id}: ${one.nodes.map((node) => node.html.slice(0, 120)).join(' | ')}`);
}
