// For the stories of the design page: a project of a template, the program that serves it, and a browser.
//   ZOF_BUILD     the build with the program
//   ZOF_MODULES   the folder with playwright-core and axe-core
//   CHROMIUM      the browser
import assert from 'node:assert/strict';
import { spawn, spawnSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync } from 'node:fs';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { createInterface } from 'node:readline';
import { test } from 'node:test';

export const zof = resolve(process.env.ZOF_BUILD, 'tools/zof');
const require = createRequire(resolve(process.env.ZOF_MODULES, 'x.js'));
const { chromium } = require('playwright-core');
const axe = readFileSync(require.resolve('axe-core/axe.min.js'), 'utf8');

export const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-dev-shm-usage'],
});

/** Waits until a condition holds, and fails with its name after 20 seconds. */
export async function until(what, condition) {
    for (let tries = 0; tries < 400; tries++) {
        if (await condition()) return;
        await new Promise((done) => setTimeout(done, 50));
    }
    throw new Error(`it never came: ${what}`);
}

/** Opens the page on a new project, which `prepare` may change, or on a missing folder without a template; `before` runs
 *  in the browser before the page. `end` has to be called at the end. */
export async function open({ template = 'dashboard', width = 1280, height = 720, dark = false, prepare = () => {}, before = () => {} } = {}) {
    const folder = mkdtempSync(join(tmpdir(), 'zof-page-'));
    const dir = join(folder, 'panel');
    const made = template && spawnSync(zof, ['new', dir, '--template', template, '--size', '480x272'], { encoding: 'utf8' });
    if (made && made.status !== 0) throw new Error(made.stderr);
    prepare(join(dir, 'res/config/view/main.g'));
    const served = process.env.ZOF_PAGE ? ['--page', process.env.ZOF_PAGE] : [];
    const program = spawn(zof, ['design', dir, ...served], {
        env: { ...process.env, SDL_VIDEODRIVER: 'offscreen', SDL_AUDIODRIVER: 'dummy', XDG_STATE_HOME: join(folder, 'state') },
        stdio: ['ignore', 'pipe', 'inherit'],
    });
    const [address] = await new Promise((done) => createInterface(program.stdout).once('line', (line) => done([line])));
    const context = await browser.newContext({
        viewport: { width, height },
        colorScheme: dark ? 'dark' : 'light',
        locale: 'en-US',
        permissions: ['clipboard-read', 'clipboard-write'],
    });
    const page = await context.newPage();
    const faults = [];
    page.on('pageerror', (error) => faults.push(error.message));
    page.on('console', (line) => line.type() === 'error' && faults.push(line.text()));
    await page.addInitScript(before);
    await page.goto(address);
    await page.locator(template ? '[role=treeitem]' : '.begin canvas').first().waitFor();
    const file = join(dir, 'res/config/view/main.g');
    return {
        page,
        program,
        file,
        faults,
        text: () => readFileSync(file, 'utf8'),
        row: (name) => page.locator('[role=treeitem]').filter({ hasText: new RegExp(`^${name}`) }).first(),
        /** The place in the window of a place on the panel. */
        at: async (x, y) => {
            const box = await page.locator('.screen').boundingBox();
            return [box.x + (x * box.width) / 480, box.y + (y * box.height) / 272];
        },
        end: async () => {
            await context.close();
            program.kill();
            await new Promise((done) => (program.exitCode === null && !program.signalCode ? program.once('exit', done) : done()));
            rmSync(folder, { recursive: true });
        },
    };
}

/** Runs a story on a project of its own; a fault of the page fails it. */
export function story(name, run, options) {
    test(name, async () => {
        const at = await open(options);
        try {
            await run(at);
            assert.deepEqual(at.faults, []);
        } finally {
            await at.end();
        }
    });
}

/** What the accessibility check finds, one line each; with `rules` only what these find. */
export async function axe_findings(page, rules) {
    await page.evaluate(axe);
    const result = await page.evaluate((only) => window.axe.run(document, only ? { runOnly: only } : {}), rules);
    return result.violations.map((one) => `${one.id}: ${one.nodes.map((node) => node.html.slice(0, 120)).join(' | ')}`);
}
