// A folder without a project, pictures and fonts that are copied in, and texts as keys.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { existsSync, readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after } from 'node:test';

import { axe_findings, browser, story, until, zof } from './lib.mjs';

after(() => browser.close());

const res = (at) => join(dirname(at.file), '../..');

story(
    'A folder without a project gets the panel that was chosen, which checks clean; nothing is written before',
    async (at) => {
        const { page } = at;
        await page.getByRole('radio', { name: /^Readings/ }).click();
        await page.getByRole('radio', { name: 'Upright' }).click();
        await page.getByRole('radio', { name: '115200 baud' }).click();
        await page.getByLabel('Language', { exact: true }).selectOption('fr');
        await page.getByText('config/languages/fr.g').waitFor();
        assert.deepEqual(await axe_findings(page), []);
        const name = page.getByLabel('Name');
        await name.fill('2 wrong');
        await page.getByRole('alert').filter({ hasText: 'cannot be the name' }).waitFor();
        assert.equal(await page.getByRole('button', { name: 'Make this panel' }).isDisabled(), true);
        await name.fill('kiln');
        await page.getByText('config/languages/fr.g').waitFor();
        assert.equal(existsSync(res(at)), false);
        await name.press('Enter');
        await page.locator('[role=treeitem]').first().waitFor();
        assert.match(readFileSync(join(res(at), 'config/project/zofprj.g'), 'utf8'), /"kiln", "width": 272, "height": 480/);
        const check = spawnSync(zof, ['check', '--strict', res(at)], { encoding: 'utf8' });
        assert.equal(check.status, 0, check.stdout);
        await at.row('start').click();
        await page.getByLabel('Width', { exact: true }).fill('50');
        await page.keyboard.press('Enter');
        await until('the new panel is edited', () => at.text().includes('"width": 50'));
    },
    { template: '' },
);

story('A picture that is copied in has a tile, is never overwritten, and is shown beside the field that names it', async (at) => {
    const { page } = at;
    const logo = join(import.meta.dirname, '../screen/golden/new_blank.png');
    await page.getByRole('button', { name: 'Pictures' }).click();
    const choose = async (files) => {
        const chooser = page.waitForEvent('filechooser');
        await page.getByRole('button', { name: 'Copy a file in' }).click();
        await (await chooser).setFiles(files);
    };
    await choose([{ name: 'logo.png', mimeType: 'image/png', buffer: readFileSync(logo) }]);
    const tile = page.getByRole('article', { name: 'logo.png' });
    await tile.getByText('800 × 480').waitFor();
    await tile.locator('canvas').waitFor();
    await tile.getByText('in no file').waitFor();
    await choose([{ name: 'logo.png', mimeType: 'image/png', buffer: Buffer.from('x') }]);
    await page.getByText('exists already').waitFor();
    await choose([{ name: '../up.png', mimeType: 'image/png', buffer: readFileSync(logo) }, { name: 'main.g', mimeType: 'a/b', buffer: Buffer.from('{}') }]);
    await page.getByText('is not a name of a file for image/').waitFor();
    assert.deepEqual(readFileSync(join(res(at), 'image/logo.png')), readFileSync(logo));
    assert.equal(existsSync(join(res(at), 'image/main.g')), false);
    const field = page.getByLabel('Background picture');
    await field.click();
    await page.getByRole('option', { name: 'logo.png' }).click();
    await until('it is written', () => at.text().includes('"bg_image": "logo.png"'));
    await page.locator('.key', { has: field }).locator('canvas').waitFor();
    await page.getByRole('button', { name: 'Pictures' }).click();
    await page.getByRole('article', { name: 'logo.png' }).getByText('1 use').click();
    await page.getByRole('article', { name: 'logo.png' }).getByText(/^main.g:\d+$/).waitFor();
    assert.deepEqual(await axe_findings(page), []);
});

story('A text is made a key, given words in each language, and chosen by its key', async (at) => {
    const { page } = at;
    const words = (language) => JSON.parse(readFileSync(join(res(at), `config/languages/${language}.g`), 'utf8'));
    await at.row('start').click();
    const field = page.getByRole('combobox', { name: 'Text', exact: true });
    await field.fill('Go "now"');
    await field.press('Enter');
    await page.getByRole('button', { name: 'Make it a key of the languages' }).click();
    await until('the key is in each language', () => words('en').start_2 === 'Go "now"' && words('de').start_2 === 'Go "now"');
    await until('the control names it', () => at.text().includes('"#start_2"'));
    const german = page.getByLabel('Text start_2 in de');
    await german.fill('Los');
    await german.press('Enter');
    await until('the German text', () => words('de').start_2 === 'Los' && words('en').start_2 === 'Go "now"');
    await field.fill('#st');
    await page.getByRole('option', { name: '#stop' }).waitFor();
    assert.deepEqual(await axe_findings(page), []);
    await field.fill('#sto');
    await field.press('ArrowDown');
    await field.press('Enter');
    await until('the key is chosen', () => at.text().split('"#stop"').length === 3);
    await field.fill('#quite.new');
    await page.getByRole('option', { name: /New key/ }).click();
    await until('a new key', () => words('en')['quite.new'] === 'quite.new' && at.text().includes('"#quite.new"'));
});

story('The parent is chosen by its name, or by a click on the picture', async (at) => {
    const { page } = at;
    await at.row('start').click();
    const parent = page.getByLabel('Parent', { exact: true });
    const names = await parent.locator('option').allInnerTexts();
    assert.ok(names.some((name) => name.startsWith('body')) && !names.some((name) => name.startsWith('start ')), names.join());
    await page.getByRole('button', { name: 'Choose it by a click on the picture' }).click();
    const id = Number(/"name": "power_card", "id": (\d+)/.exec(at.text())[1]);
    await page.mouse.click(...(await at.at(14, 76)));
    await until('the parent', () => at.text().includes(`"name": "start", "id": ${/"name": "start", "id": (\d+)/.exec(at.text())[1]}, "parent_id": ${id}`));
});
