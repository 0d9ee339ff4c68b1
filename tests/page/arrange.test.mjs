// The outline, the menu of the right button and completion in the source, in a browser against the real program.
import assert from 'node:assert/strict';
import { after } from 'node:test';

import { axe_findings, browser, story, until } from './lib.mjs';

after(() => browser.close());

story('The outline folds, a control dropped on a container is in it and stays where it is on the screen', async (at) => {
    const { page } = at;
    const first = at.text();
    const rows = page.locator('[role=treeitem]');
    const count = await rows.count();
    await at.row('chart_card').locator('.twisty').click();
    await until('a folded row', async () => (await rows.count()) === count - 2);
    assert.equal(await at.row('chart_card').getAttribute('aria-expanded'), 'false');
    await at.row('chart_card').click();
    await page.keyboard.press('ArrowRight');
    await until('all rows', async () => (await rows.count()) === count);
    await at.row('start').dragTo(at.row('flow_card'));
    await until('a written file', () => at.text() !== first);
    assert.match(at.text(), /"name": "start", "id": 25, "parent_id": 16, "pt": \{"x": -147, "y": 54\}/);
    await page.locator('.last').getByText('8, 216 · 149 × 48').waitFor();
    await page.locator('.stage').focus();
    await page.keyboard.press('Control+z');
    await until('the first bytes', () => at.text() === first);
});

story('Ctrl G puts the selection into a new container, and nothing moves on the screen', async (at) => {
    const { page } = at;
    const first = at.text();
    await page.locator('.stage').focus();
    const before = await page.locator('.screen').screenshot();
    await at.row('stop').click();
    await at.row('clear').click({ modifiers: ['Shift'] });
    await page.keyboard.press('Control+g');
    await until('the container', () => /"name": "container_1", "id": 28, "parent_id": 1, "pt": {"x": 165, "y": 216}/.test(at.text()));
    await page.locator('.stage').focus();
    for (let i = 0; i < 3; i++) await page.keyboard.press('Escape'); // the container, the page, nothing
    await page.mouse.move(5, 5);
    await until('the same picture', async () => (await page.locator('.screen').screenshot()).equals(before));
    await page.keyboard.press('Control+z');
    await until('the first bytes', () => at.text() === first);
});

story('The menu of the right button lists what lies there, works by keyboard, and gives the focus back', async (at) => {
    const { page } = at;
    const first = at.text();
    const menu = page.getByRole('menu');
    await page.mouse.click(...(await at.at(60, 240)), { button: 'right' });
    assert.deepEqual(await axe_findings(page), []);
    assert.match(await menu.innerText(), /^start\nmessages_card\n/);
    await page.keyboard.press('ArrowDown');
    await page.keyboard.press('Enter');
    await until('the control below', async () => (await page.locator('.insp .l1 input').inputValue()) === 'messages_card');
    assert.equal(await menu.count(), 0);
    await page.mouse.click(...(await at.at(60, 240)), { button: 'right' });
    await menu.waitFor();
    await page.keyboard.press('Escape');
    assert.equal(await menu.count(), 0);
    await at.row('stop').click({ button: 'right' });
    await menu.getByText('Duplicate').click();
    await until('a copy', () => at.text().includes('"stop_2"'));
    await page.keyboard.press('Control+z');
    await until('the first bytes', () => at.text() === first);
});

story(
    'The source completes keys and names from the catalogue, and keys of texts from the project',
    async (at) => {
        const { page } = at;
        /** The first options at the end of a text in the source of a control. */
        const options = async (name, text) => {
            await at.row(name).click();
            const line = page.locator('.cm-line').filter({ hasText: text });
            await line.first().waitFor();
            await page.locator('.cm-content').focus();
            await line.first().evaluate((element, wanted) => {
                let left = element.textContent.indexOf(wanted) + wanted.length;
                const texts = document.createTreeWalker(element, NodeFilter.SHOW_TEXT);
                for (let one = texts.nextNode(); one; one = texts.nextNode()) {
                    if (left <= one.length) return getSelection().collapse(one, left);
                    left -= one.length;
                }
            }, text);
            await page.keyboard.press('Control+Space');
            const list = page.locator('.cm-tooltip-autocomplete');
            await list.waitFor();
            const all = await list.locator('.cm-completionLabel').allInnerTexts();
            await page.keyboard.press('Escape');
            return all;
        };
        const first = at.text();
        assert.deepEqual((await options('title', '"align_e": ')).slice(0, 3), ['"auto"', '"left"', '"center"']);
        assert.ok((await options('title', '"txt": "#t')).includes('"#title_dashboard"'));
        const keys = await options('title', '"name": "title", ');
        assert.ok(keys.includes('"hidden"') && !keys.includes('"alpha"'), keys.join());
        assert.equal(at.text(), first);
    },
    { width: 1440, height: 900 },
);

story('The sheet shows each view in each language and theme, and a click opens it there', async (at) => {
    const { page } = at;
    const drawn = page.locator('.sheet canvas');
    await page.locator('.stage').focus();
    await page.keyboard.press('Shift+Digit3');
    await until('a picture for each language', async () => (await drawn.count()) === 2);
    assert.deepEqual(await axe_findings(page), []);
    await page.getByText('In all themes').click();
    await page.locator('.sheet-view').filter({ hasText: 'night' }).click();
    await page.locator('.stage').waitFor();
    await until('the theme', async () => (await page.locator('.bar').innerText()).includes('night'));
});
