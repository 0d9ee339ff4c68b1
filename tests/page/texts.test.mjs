// Texts go to a table and come back, cells of a spreadsheet are pasted, and a colour says how well it is read.
import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { after } from 'node:test';

import { axe_findings, browser, story, until } from './lib.mjs';

after(() => browser.close());

story('Texts are saved as a table and taken in again: only what differs is written, as one step of undo', async (at) => {
    const { page } = at;
    const file = (language) => join(dirname(at.file), `../languages/${language}.g`);
    const words = (language) => JSON.parse(readFileSync(file(language), 'utf8'));
    const first = readFileSync(file('de'), 'utf8');
    await page.getByRole('button', { name: 'Texts' }).click();
    await page.getByRole('cell', { name: '#stop' }).waitFor();
    assert.deepEqual(await axe_findings(page), []);
    const download = page.waitForEvent('download');
    await page.getByRole('button', { name: 'Save as a table (CSV)' }).click();
    const table = readFileSync(await (await download).path(), 'utf8');
    assert.match(table, /^key,de,en\r\n/);
    assert.match(table, /\r\ntrend,"Leistung, 30 s","Power, 30 s"\r\n/);
    const take = async (text) => {
        const chooser = page.waitForEvent('filechooser');
        await page.getByRole('button', { name: 'Take in a table (CSV)' }).click();
        await (await chooser).setFiles({ name: 'words.csv', mimeType: 'text/csv', buffer: Buffer.from(text) });
    };
    await take(table);
    await take('a;b\n1;2\n');
    await page.getByText('words.csv has no line with').waitFor();
    assert.equal(readFileSync(file('de'), 'utf8'), first);
    await take(Buffer.from('key;de\r\nflow;Menge f\xfcr jetzt\r\n', 'latin1'));
    await until('an older encoding', () => words('de').flow === 'Menge für jetzt');
    await page.locator('.grid').focus();
    await page.keyboard.press('Control+z');
    await until('the first texts', () => readFileSync(file('de'), 'utf8') === first);
    await take('\uFEFFnote;KEY;de\r\nx;trend;"Kraft; ""30 s"""\r\n\r\ny;fresh.key;Neu\r\nz;stop;\r\n');
    await until('it is written', () => words('de').trend === 'Kraft; "30 s"' && words('de')['fresh.key'] === 'Neu');
    assert.equal(words('de').stop, JSON.parse(first).stop);

    await page.getByLabel('flow, de', { exact: true }).focus();
    const keys = await page.locator('td.key .mono').allInnerTexts();
    const below = keys[keys.indexOf('#flow') + 1].slice(1);
    await page.evaluate(() => navigator.clipboard.writeText('Menge\tAmount\nUnten\tBelow\n'));
    await page.keyboard.press('Control+v');
    await until('four cells', () => words('de').flow === 'Menge' && words('en').flow === 'Amount' && words('de')[below] === 'Unten' && words('en')[below] === 'Below');
    await page.locator('.grid').focus();
    await page.keyboard.press('Control+z');
    await page.keyboard.press('Control+z');
    await until('the first texts', () => readFileSync(file('de'), 'utf8') === first);
});

story('The colour of a text says its contrast with what is behind it', async (at) => {
    const { page } = at;
    await at.row('start').click();
    await page.getByRole('tab', { name: 'Style' }).click();
    await page.getByText(/^\d+\.\d : 1 on #0B6E75/).waitFor();
});
