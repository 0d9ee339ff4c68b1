// Fields of the forms, in a browser: what is typed is shown, written once, and taken back.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after } from 'node:test';

import { axe_findings, browser, story, until } from './lib.mjs';

after(() => browser.close());

story('A field shows what is typed, writes it at Enter, and refuses what is out of range', async (at) => {
    const { page } = at;
    const first = at.text();
    const width = (now) => first.replace(/("name": "start".*?"width": )(\d+)/s, (_, a, old) => a + now(Number(old)));
    await at.row('start').click();
    const field = page.getByLabel('Width', { exact: true });
    await field.fill('480/3-12');
    assert.equal(at.text(), first);
    await field.press('Escape');
    await field.fill('+8');
    await field.press('Enter');
    await until('a relative entry', () => at.text() === width((old) => old + 8));
    const alpha = page.getByLabel('Opacity', { exact: true });
    await alpha.fill('300');
    await page.getByRole('alert').filter({ hasText: '255 at most' }).waitFor();
    await alpha.press('F1');
    await page.locator('.hint').waitFor();
    assert.deepEqual(await axe_findings(page), []);
    await alpha.press('Enter');
    await alpha.press('Escape');
    await page.locator('.key', { has: alpha }).locator('button.src-dot').click();
    await page.locator('.casc').waitFor();
    assert.equal(at.text(), width((old) => old + 8));
    await page.getByRole('tab', { name: 'Style' }).click();
    await page.locator('.states .state').first().waitFor();
    assert.deepEqual(await axe_findings(page), []);
});

story('An action is put together from what the fields offer, and written once', async (at) => {
    const { page } = at;
    await at.row('start').click();
    await page.getByRole('button', { name: 'Actions' }).click();
    const clicked = page.locator('.key', { hasText: 'Clicked' });
    await clicked.getByRole('button', { name: 'Add' }).click();
    const field = page.getByRole('combobox', { name: 'Clicked 1' });
    await page.keyboard.type('sho');
    await page.getByRole('option', { name: /^show CONTROL/ }).click();
    await page.keyboard.type('pow');
    await page.keyboard.press('ArrowDown');
    await page.keyboard.press('Enter');
    await until('the action', () => /"on": \{"clicked": \["show power\w*"\]\}/.test(at.text()));
    await clicked.getByRole('button', { name: 'Add' }).click();
    await page.keyboard.press('Escape'); // the list
    await page.keyboard.press('Escape');
    await until('no empty row', async () => (await page.getByRole('combobox', { name: 'Clicked 2' }).count()) === 0);
    await field.fill('beep 50');
    await field.press('Enter');
    await until('another action', () => at.text().includes('"on": {"clicked": ["beep 50"]}'));
    assert.deepEqual(await axe_findings(page), []);
});

story('The look of a control is edited in its file, and every control with it follows', async (at) => {
    const { page } = at;
    const looks = join(dirname(at.file), '../looks.g');
    const first = readFileSync(looks, 'utf8');
    const text = at.text();
    await at.row('stop').click();
    await page.getByRole('tab', { name: 'Style' }).click();
    await page.getByLabel('Style of', { exact: true }).selectOption('look button');
    const colour = page.getByLabel('Colour', { exact: true }).first();
    await colour.fill('$accent');
    await colour.press('Enter');
    await until('the look has it', () => readFileSync(looks, 'utf8') === first.replace(/("button": \{[^}]*?"main_color": )"\$card"/s, '$1"$accent"'));
    await page.getByRole('radio', { name: 'pressed' }).click();
    assert.deepEqual(await axe_findings(page), []);
    const opacity = page.getByLabel('Opacity', { exact: true }).first();
    await opacity.fill('200');
    await opacity.press('Enter');
    await until('the pressed one, too', () => readFileSync(looks, 'utf8').includes('"pressed": {"body_t": {"main_color": "$line", "opa": 200}}'));
    assert.equal(at.text(), text);
    // The list's buttons are a second object with styles of their own.
    await page.locator('[role=treeitem]').filter({ hasText: /^messages$/ }).click();
    await page.getByRole('tab', { name: 'Style' }).click();
    await page.getByLabel('Object', { exact: true }).selectOption('second');
    await page.getByLabel('Style of', { exact: true }).selectOption('look list');
    await page.getByLabel('Opacity', { exact: true }).first().waitFor();
});
