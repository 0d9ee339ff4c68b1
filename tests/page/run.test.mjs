// What people do while a panel runs: write values as a host does, touch it, and see who wrote what.
import assert from 'node:assert/strict';
import { after } from 'node:test';

import { axe_findings, browser, story, until } from './lib.mjs';

after(() => browser.close());

story('In Run values are written and watched, touches are listed, and no file changes', async (at) => {
    const { page } = at;
    const first = at.text();
    await page.locator('.rail').getByText('Host').click();
    await page.locator('aside').getByRole('button', { name: 'Run' }).click();
    const field = page.getByRole('textbox', { name: 'main/temperature', exact: true });
    await field.fill('31 °C');
    await field.press('Enter');
    const row = page.locator('.value').filter({ has: field });
    await row.getByText('this page').waitFor();
    await page.getByRole('tab', { name: 'Events' }).click();
    await page.locator('.dock li').filter({ hasText: '31 °C' }).waitFor();
    await page.mouse.click(...(await at.at(60, 240)));
    await page.locator('.dock li').filter({ hasText: 'main/start' }).filter({ hasText: 'clicked' }).waitFor();
    assert.deepEqual(await axe_findings(page), []);
    await page.locator('.rail').getByText('Views').click();
    await at.row('temperature').last().click();
    await page.screenshot({ path: process.env.SHOT });
    await page.keyboard.press('Control+Enter');
    await until('Design again', async () => (await page.locator('.app.mode-design').count()) === 1);
    assert.equal(at.text(), first);
});
