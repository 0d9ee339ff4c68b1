// Fields of the forms, in a browser: what is typed is shown, written once, and taken back.
import assert from 'node:assert/strict';
import { after, test } from 'node:test';

import { axe_findings, browser, open, until } from './lib.mjs';

after(() => browser.close());

test('A field shows what is typed, writes it at Enter, and refuses what is out of range', async () => {
    const at = await open();
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
    const alpha = page.getByLabel('Alpha', { exact: true });
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
    assert.deepEqual(at.faults, []);
    await at.end();
});
