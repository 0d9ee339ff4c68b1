// Random interactions with the design page. After each run of 500 the page has reported no fault, what it lists as
// errors is what zof check finds, the picture is that of a fresh start, and undo gives the first bytes.
//   usage: monkey.mjs [COUNT [SEED]]      the environment is that of lib.mjs
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { readdirSync, readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';

import { browser, open, until, zof } from './lib.mjs';

const RUN = 500;
const count = Number(process.argv[2] ?? RUN);
let seed = Number(process.argv[3] ?? 1);

/** A whole number below `most`. */
function dice(most) {
    seed = (Math.imul(seed, 1664525) + 1013904223) >>> 0;
    return Math.floor((seed / 2 ** 32) * most);
}
const one_of = (all) => all[dice(all.length)];

const keys = [
    ...['ArrowLeft', 'ArrowRight', 'ArrowUp', 'ArrowDown'].flatMap((key) => [key, 'Shift+' + key, 'Control+' + key]),
    ...['Tab', 'Enter', 'Escape', 'Delete', 'F2', 'F6', 'F8', 'Home', 'End', 'PageUp', 'PageDown', 'Alt+ArrowDown'],
    ...['a', 'd', 'z', 'z', 'z', 'y', 'c', 'x', 'v', 'k', 'g', ']', '[', '.', '\\'].map((key) => 'Control+' + key),
    ...['a', 'v', 'h', 'l', 't', 's', '?', 'Shift+Digit1', 'Shift+Digit2'],
];
const typed = ['0', '7', '-3', '480/3', '+8', '1e9', 'x', '', '#', '#title', '255', 'Größe', '"', '{', '99999999999'];

async function click_one(page, what) {
    const all = await page.locator(what).all();
    if (all.length) await one_of(all).click({ timeout: 500, force: true }).catch(() => undefined);
}

const actions = [
    async ({ page, at }) => (await page.locator('.screen').count()) && page.mouse.click(...(await at(dice(480), dice(272)))),
    async ({ page, at }) => {
        if (!(await page.locator('.screen').count())) return;
        await page.mouse.move(...(await at(dice(480), dice(272))));
        await page.mouse.down();
        await page.mouse.move(...(await at(dice(600) - 60, dice(400) - 60)), { steps: 3 });
        await page.mouse.up();
    },
    async ({ page }) => page.keyboard.press(one_of(keys)),
    async ({ page }) => page.keyboard.press(one_of(keys)),
    async ({ page }) => click_one(page, '[role=treeitem]'),
    async ({ page }) => click_one(page, '.rail button, .tabs [role=tab], .tools button, .view-list button'),
    async ({ page }) => click_one(page, '.insp button'),
    async ({ page }) => click_one(page, '.palette .kind'),
    async ({ page }) => {
        await click_one(page, '.insp input');
        await page.keyboard.press('Control+a');
        await page.keyboard.type(one_of(typed));
        await page.keyboard.press(one_of(['Enter', 'Tab', 'Escape']));
    },
];

function files(folder) {
    return readdirSync(folder, { withFileTypes: true, recursive: true })
        .filter((entry) => entry.isFile() && entry.name.endsWith('.g'))
        .map((entry) => join(entry.path, entry.name))
        .sort()
        .map((path) => [path, readFileSync(path, 'utf8')]);
}

async function run(steps) {
    const first_seed = seed;
    const at = await open({ width: 1440, height: 900 });
    const { page } = at;
    const res = join(dirname(at.file), '../..');
    const first = files(res);
    const log = [];
    try {
        for (let i = 0; i < steps; i++) {
            const number = dice(actions.length);
            log.push(number);
            await actions[number](at);
            assert.deepEqual(at.faults, []);
        }
        await page.keyboard.press('Escape');
        await page.keyboard.press('Escape');
        await page.locator('.bar').getByText('Design').click();
        await page.locator('.app.mode-design').waitFor();
        if (!(await page.locator('aside.left').count())) await page.keyboard.press('Control+\\');
        await page.locator('.rail').getByText('Views').click();
        const check = spawnSync(zof, ['check', '--format', 'json', join(res, '..')], { encoding: 'utf8' });
        const errors = JSON.parse(check.stdout).filter((one) => one.severity === 'error').length;
        await until(`${errors} errors`, async () => {
            const said = await page.locator('.last').innerText();
            return Number(/(\d+) errors?/.exec(said)?.[1] ?? 0) === errors;
        });
        await until('the first bytes, by undo', async () => {
            await page.locator('.stage').focus();
            await page.keyboard.press('Control+z');
            return JSON.stringify(files(res)) === JSON.stringify(first);
        });
        assert.deepEqual(at.faults, []);
        return errors;
    } catch (fault) {
        console.log(`seed ${first_seed}, after ${log.length} interactions`);
        await page.screenshot({ path: process.env.SHOT });
        throw fault;
    } finally {
        await at.end();
    }
}

const errors = [];
for (let left = count; left > 0; left -= RUN) errors.push(await run(Math.min(left, RUN)));
console.log(`${count} interactions, errors left in each run: ${errors.join(', ')}`);
await browser.close();
