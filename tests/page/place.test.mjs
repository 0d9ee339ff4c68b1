// New controls are drawn where the pointer says, states are shown for looking, and one change is taken back alone.
import assert from 'node:assert/strict';
import { after } from 'node:test';

import { axe_findings, browser, story, until } from './lib.mjs';

after(() => browser.close());

const entry = (at, name) => JSON.parse(at.text()).controls.find((one) => one.property.pub_t.name === name)?.property.pub_t;

story('A type that was clicked is drawn on the picture; it snaps, and the runtime draws it before it is written', async (at) => {
    const { page } = at;
    const first = at.text();
    const look = () => page.evaluate(() => document.querySelector('.picture canvas').toDataURL());
    const before = await look();
    await page.getByRole('button', { name: 'Add', exact: true }).click();
    const type = page.locator('.palette .kind').filter({ hasText: /^button$/ });
    await type.click();
    assert.equal(await type.getAttribute('aria-pressed'), 'true');
    await page.mouse.move(...(await at.at(300, 100)));
    await page.mouse.down();
    await page.mouse.move(...(await at.at(350, 130)), { steps: 4 });
    await page.mouse.move(...(await at.at(380, 140)), { steps: 4 });
    await until('the runtime draws it', async () => (await look()) !== before);
    await page.keyboard.press('Escape');
    await page.mouse.up();
    await until('the picture as it was', async () => (await look()) === before);
    assert.equal(at.text(), first);

    await type.click();
    await page.mouse.move(...(await at.at(300, 100)));
    await page.mouse.down();
    await page.keyboard.down('Control');
    await page.mouse.move(...(await at.at(380, 140)), { steps: 4 });
    await page.mouse.up();
    await page.keyboard.up('Control');
    await until('it is written', () => entry(at, 'button_1'));
    assert.deepEqual(entry(at, 'button_1').size, { width: 80, height: 40 });
    const box = await page.locator('.selbox').first().boundingBox();
    const [x, y] = await at.at(300, 100);
    assert.ok(Math.abs(box.x - x) < 4 && Math.abs(box.y - y) < 4, 'it stands where it was drawn');

    await type.click();
    await page.mouse.click(...(await at.at(240, 200)));
    await until('a click gives it the size of its type', () => entry(at, 'button_2'));
    await type.focus();
    await page.keyboard.press('Enter');
    await until('Enter puts it into the middle', () => entry(at, 'button_3'));
    const count = JSON.parse(at.text()).controls.length;
    await page.locator('.palette .kind').filter({ hasText: /^label$/ }).dragTo(page.locator('.screen'), { targetPosition: { x: 200, y: 100 } });
    await until('a label is dropped', () => entry(at, 'label_1'));
    assert.equal(JSON.parse(at.text()).controls.length, count + 1);
});

story('A control is shown in its states, and a band takes that back; no file changes', async (at) => {
    const { page } = at;
    const first = at.text();
    await at.row('start').click();
    const band = page.locator('.band');
    for (let tries = 0; tries < 20 && !(await band.filter({ hasText: 'pressed' }).isVisible()); tries++) {
        await page.keyboard.press('s');
        await page.waitForTimeout(150);
    }
    await band.filter({ hasText: 'start pressed' }).waitFor();
    assert.deepEqual(await axe_findings(page), []);
    await band.getByRole('button', { name: 'Show as it is' }).click();
    await band.waitFor({ state: 'hidden' });
    await page.keyboard.press('Control+Shift+L');
    assert.equal(await page.getByRole('button', { name: 'Lock on this page' }).getAttribute('aria-pressed'), 'true');
    assert.equal(at.text(), first);
});

story('One change is taken back alone, and one that another depends on is not', async (at) => {
    const { page } = at;
    const first = at.text();
    await at.row('start').click();
    for (const [label, value] of [['X', '3'], ['Y', '5']]) {
        await page.getByLabel(label, { exact: true }).fill(value);
        await page.keyboard.press('Enter');
        await until(label, () => at.text().includes(`"${label.toLowerCase()}": ${value}`));
    }
    await page.getByRole('button', { name: 'Changes' }).first().click();
    await page.locator('.changes li').filter({ hasText: /X of start/ }).getByRole('button', { name: 'Take back' }).first().click();
    await until('only X is back', () => at.text() === first.replace(/("name": "start".*?"y": )\d+/s, '$15'));
    await page.keyboard.press('Control+z');
    await page.keyboard.press('Control+z');
    await page.keyboard.press('Control+z');
    await until('all is as it was', () => at.text() === first);
});
