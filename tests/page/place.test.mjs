// New controls are drawn where the pointer says, states are shown for looking, and one change is taken back alone.
import assert from 'node:assert/strict';
import { writeFileSync } from 'node:fs';
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

story('A container is drawn inside another one, slowly, and takes what is drawn in it next', async (at) => {
    const { page } = at;
    await page.getByRole('button', { name: 'Add', exact: true }).click();
    for (const [type, from, to] of [['container', [150, 90], [260, 180]], ['label', [170, 110], [230, 140]]]) {
        await page.locator('.palette .kind').filter({ hasText: new RegExp(`^${type}$`) }).click();
        await page.mouse.move(...(await at.at(...from)));
        await page.mouse.down();
        for (const part of [0.3, 0.6, 1]) {
            await page.mouse.move(...(await at.at(from[0] + (to[0] - from[0]) * part, from[1] + (to[1] - from[1]) * part)));
            await page.waitForTimeout(150); // the picture has the control that is tried
        }
        await page.mouse.up();
        await until(`the ${type}`, () => entry(at, `${type}_1`));
    }
    assert.equal(entry(at, 'label_1').parent_id, entry(at, 'container_1').id);
});

story('What another program changes while one types in the source stays', async (at) => {
    const { page, file } = at;
    const first = at.text();
    await at.row('stop').click();
    await page.getByRole('tab', { name: 'Source' }).click();
    await page.locator('.cm-content').focus();
    await page.keyboard.press('Control+End');
    await page.keyboard.type(' ');
    writeFileSync(file, at.text().replace('"name": "title"', '"name": "heading"'));
    for (let i = 0; i < 12; i++) {
        await page.keyboard.type(' ');
        await page.waitForTimeout(40);
    }
    await until('both are there', () => at.text().includes('"heading"') && /\n +$/.test(at.text()));
    await page.waitForTimeout(600);
    assert.equal(at.text().trimEnd(), first.replace('"name": "title"', '"name": "heading"').trimEnd());
    // A press in the source selects the control there, and the cursor stays where it was pressed.
    await page.locator('.cm-line').filter({ hasText: '"txt": "#stop"' }).click();
    await until('it is selected', async () => (await page.locator('.who input').inputValue()) === 'stop');
    await page.waitForTimeout(300);
    await page.keyboard.press('Home');
    await page.keyboard.press('Shift+End');
    assert.match(await page.evaluate(() => getSelection().toString()), /"txt": "#stop"/);
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
