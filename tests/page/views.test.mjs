// Views as a whole, languages, colours, and the settings of the project.
import assert from 'node:assert/strict';
import { existsSync, readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after } from 'node:test';

import { axe_findings, browser, story, until } from './lib.mjs';

after(() => browser.close());

story('A view is made, renamed, copied and deleted, and undo brings all back', async (at) => {
    const { page } = at;
    const folder = dirname(at.file);
    const project = join(folder, '../project/zofprj.g');
    const first = readFileSync(project, 'utf8');
    const asked = async (name) => {
        await page.getByRole('dialog').getByRole('textbox').fill(name);
        await page.keyboard.press('Enter');
    };
    const exists = (name) => existsSync(join(folder, `${name}.g`));
    await page.getByRole('button', { name: 'New view', exact: true }).click();
    await asked('menu');
    const shown = (name) => until(`${name} is shown`, async () => (await page.locator('.who input').inputValue()) === name);
    await shown('menu');
    await until('its file', () => exists('menu') && readFileSync(project, 'utf8').includes('"menu.g"'));
    await page.locator('.who input').fill('order');
    await page.keyboard.press('Enter');
    await until('its new name', () => exists('order') && !exists('menu') && readFileSync(project, 'utf8').includes('"order.g"'));
    await page.getByRole('button', { name: 'Duplicate the view' }).click();
    await asked('order');
    await page.getByRole('dialog').getByText('there is a view order').waitFor(); // and stays open
    await asked('order2');
    await until('the copy', () => exists('order2'));
    await shown('order2');
    await page.getByRole('button', { name: 'Delete the view' }).click();
    await until('it is gone', () => !exists('order2') && !readFileSync(project, 'utf8').includes('order2'));
    assert.deepEqual(await axe_findings(page), []);
    await page.locator('.screen').focus();
    await until('as at first', async () => {
        await page.keyboard.press('Control+z');
        const whole = readFileSync(project, 'utf8') === first && exists('main');
        return whole && !['menu', 'order', 'order2'].some(exists);
    });
});

story('Settings of the project are a form, and a language and a colour are made by their names', async (at) => {
    const { page } = at;
    const config = join(dirname(at.file), '..');
    await page.getByRole('button', { name: 'panel', exact: true }).click();
    await page.getByLabel('Start view', { exact: true }).waitFor();
    assert.deepEqual(await axe_findings(page), []);
    await page.getByRole('button', { name: 'Texts' }).click();
    await page.getByRole('button', { name: 'Language', exact: true }).click();
    await page.getByRole('dialog').getByRole('textbox').fill('fr');
    await page.keyboard.press('Enter');
    await page.getByRole('columnheader', { name: 'fr' }).waitFor();
    assert.equal(readFileSync(join(config, 'languages/fr.g'), 'utf8'), readFileSync(join(config, 'languages/en.g'), 'utf8'));
    await page.getByRole('button', { name: 'Colours' }).click();
    await page.getByRole('button', { name: 'New colour' }).first().click();
    await page.getByRole('dialog').getByRole('textbox').fill('warm');
    await page.keyboard.press('Enter');
    await until('the colour', () => JSON.parse(readFileSync(join(config, 'looks.g'), 'utf8')).colors.warm === '#808080');
});
