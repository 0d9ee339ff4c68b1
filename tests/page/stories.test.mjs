// What people do on the design page, in a browser, against the real program; each story ends with a look at the bytes.
import assert from 'node:assert/strict';
import { writeFileSync } from 'node:fs';
import { after } from 'node:test';

import { axe_findings, browser, story, until } from './lib.mjs';

after(() => browser.close());

const undo_all = async ({ page, text }, first) => {
    await page.locator('.stage').focus();
    await until('the first bytes, by undo', async () => {
        await page.keyboard.press('Control+z');
        return text() === first;
    });
};

/** Presses at a place of the panel, moves, and releases, without snapping. */
async function drag_by(at, x, y, dx, dy) {
    const { mouse, keyboard } = at.page;
    await mouse.move(...(await at.at(x, y)));
    await mouse.down();
    await keyboard.down('Control');
    await mouse.move(...(await at.at(x + dx, y + dy)), { steps: 3 });
    await mouse.up();
    await keyboard.up('Control');
}

const moved = (text, name, dx, dy) =>
    text.replace(
        new RegExp(`("name": "${name}".*?"pt": \\{"x": )(\\d+)(, "y": )(\\d+)`),
        (_, a, x, b, y) => `${a}${+x + dx}${b}${+y + dy}`,
    );

story('A drag changes two numbers, undo and redo their bytes, at any zoom', async (at) => {
    const first = at.text();
    const { page } = at;
    await drag_by(at, 60, 240, 30, -20);
    const want = moved(first, 'start', 30, -20);
    await until('a written file', () => at.text() !== first);
    assert.equal(at.text(), want);
    await page.locator('.last ins').first().waitFor();
    await page.keyboard.press('Control+z');
    await until('undo', () => at.text() === first);
    await page.keyboard.press('Control+Shift+z');
    await until('redo', () => at.text() === want);
    await page.keyboard.press('Shift+Digit2'); // the selection as large as it fits
    await page.mouse.wheel(20, -30);
    await drag_by(at, 150, 220, 7, 5);
    await until('the drag at another zoom', () => at.text() === moved(want, 'start', 7, 5));
    await page.keyboard.press('Shift+Digit1');
    await until('the whole picture', async () => (await page.locator('.screen').boundingBox()).width < 700);
});

story('A drag that ends before the program has answered is written', async (at) => {
    const first = at.text();
    const [x, y] = await at.at(60, 240);
    await at.page.mouse.move(x, y);
    await at.page.evaluate(
        ([from_x, from_y]) => {
            const stage = document.querySelector('.stage');
            const send = (type, clientX, clientY) =>
                stage.dispatchEvent(
                    new PointerEvent(type, { clientX, clientY, pointerId: 1, bubbles: true, ctrlKey: true, buttons: 1 }),
                );
            send('pointerdown', from_x, from_y);
            send('pointermove', from_x + 40, from_y);
            send('pointerup', from_x + 40, from_y);
        },
        [x, y],
    );
    await until('a written file', () => at.text() !== first);
    assert.match(at.text(), /"name": "start".*?"pt": \{"x": (3[5-9]|4\d)/);
});

story('Escape during a drag writes nothing', async (at) => {
    const first = at.text();
    await at.page.mouse.move(...(await at.at(60, 240)));
    await at.page.mouse.down();
    await at.page.mouse.move(...(await at.at(120, 200)), { steps: 5 });
    await at.page.keyboard.press('Escape');
    await at.page.mouse.up();
    await at.page.keyboard.press('ArrowRight');
    await until('the press of a key alone', () => at.text() !== first);
    assert.equal(at.text(), first.replace(/("name": "start".*?"x": )(\d+)/, (_, a, x) => `${a}${+x + 1}`));
});

story('Add, resize, duplicate, align and delete by pointer; undo takes all back', async (at) => {
    const first = at.text();
    const { page } = at;
    await page.locator('.rail button', { hasText: 'Add' }).click();
    const type = await page.locator('.left button', { hasText: /^Switch$/i }).boundingBox();
    await page.mouse.move(type.x + 20, type.y + 20);
    await page.mouse.down();
    await page.mouse.move(...(await at.at(250, 130)), { steps: 6 });
    await page.mouse.up();
    await until('the switch', () => at.text().includes('"switch"'));
    await page.locator('.rail button', { hasText: 'Views' }).click();
    await page.locator('[role=treeitem][aria-selected=true]', { hasText: 'switch' }).waitFor();
    const handle = await page.locator('[data-handle=se]').boundingBox();
    const before = at.text();
    await page.mouse.move(handle.x + 4, handle.y + 4);
    await page.mouse.down();
    await page.mouse.move(handle.x + 40, handle.y + 22, { steps: 4 });
    await page.mouse.up();
    await until('the size', () => at.text() !== before);
    await page.locator('.stage').focus();
    await page.keyboard.press('Control+d');
    await until('the copy', () => at.text().split('"switch').length > 2);
    await page.locator('[role=treeitem][aria-selected=true]', { hasText: 'switch_2' }).waitFor();
    const copied = at.text();
    await page.getByRole('button', { name: 'Align left edges' }).click();
    await until('alignment', () => at.text() !== copied);
    await page.locator('.stage').focus();
    await page.keyboard.press('Delete');
    await until('deletion', () => !at.text().includes('switch_2'));
    await undo_all(at, first);
});

story('Everything by keyboard: select, move, rename, add, run and back', async (at) => {
    const first = at.text();
    const { page } = at;
    await page.keyboard.press('Control+k');
    await page.locator('dialog input:focus').waitFor();
    await page.keyboard.type('stop');
    await page.keyboard.press('Enter');
    await page.locator('[role=treeitem][aria-selected=true]', { hasText: 'stop' }).waitFor();
    await page.locator('.stage').focus();
    for (let i = 0; i < 12; i++) await page.keyboard.press('ArrowDown');
    const down = first.replace(/("name": "stop".*?"y": )(\d+)/, (_, a, y) => `${a}${+y + 12}`);
    await until('twelve presses', () => at.text() === down);
    await undo_all(at, first); // one step, or more if half a second passes between two presses
    await page.keyboard.press('F2');
    await page.locator('dialog input:focus').waitFor();
    await page.keyboard.type('halt');
    await page.keyboard.press('Enter');
    await until('the name', () => at.text() === first.replace('"name": "stop"', '"name": "halt"'));
    await page.locator('dialog').waitFor({ state: 'detached' });
    await page.locator('.stage').focus();
    await page.keyboard.press('a');
    await page.locator('.left input:focus').waitFor();
    await page.keyboard.type('slider');
    await page.keyboard.press('Enter');
    await until('the slider', () => at.text().includes('"slider"'));
    await page.keyboard.press('Control+Enter');
    await page.locator('.stage.running').waitFor();
    const run = at.text();
    await page.mouse.click(...(await at.at(230, 240)));
    await page.locator('.dock [role=tab]', { hasText: 'Events' }).click();
    await page.getByText('main/halt').last().waitFor(); // the panel has taken the touch
    await page.keyboard.press('Control+Enter');
    await page.locator('.stage:not(.running)').waitFor();
    assert.equal(at.text(), run, 'Run changes no file');
    await undo_all(at, first);
});

story('A change of another program is shown, and undo takes it back', async (at) => {
    const first = at.text();
    writeFileSync(at.file, first.replace('"name": "clear"', '"name": "wipe"'));
    await at.row('wipe').waitFor();
    await undo_all(at, first);
    await at.row('clear').waitFor();
});

for (const dark of [false, true]) {
    story(
        `The accessibility check finds nothing, ${dark ? 'dark' : 'light'}`,
        async (at) => {
            const { page } = at;
            const check = async (what) => assert.deepEqual(await axe_findings(page, dark && ['color-contrast']), [], what);
            await check('at the start');
            await page.mouse.click(...(await at.at(60, 240)));
            await page.locator('.selbox').first().waitFor();
            await check('a selection');
            for (const panel of ['Add', 'Colours', 'Texts', 'Views']) {
                await page.locator('.rail button', { hasText: panel }).click();
                await check(panel);
            }
            for (const tab of await page.locator('.dock [role=tab]').all()) {
                await tab.click();
                await check(await tab.textContent());
            }
            await page.keyboard.press('Control+k');
            await check('Find');
            await page.keyboard.press('Escape');
            await page.keyboard.press('Control+Enter');
            await page.locator('.stage.running').waitFor();
            await check('Run');
        },
        { dark, width: 1440, height: 900 },
    );
}
