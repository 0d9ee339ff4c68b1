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
    await page.keyboard.press('Control+Enter');
    await until('Design again', async () => (await page.locator('.app.mode-design').count()) === 1);
    assert.equal(at.text(), first);
});

story('What is done is recorded as a scenario, which plays again; a line that is not understood is named', async (at) => {
    const { page } = at;
    await page.locator('.rail').getByText('Host').click();
    await page.locator('aside').getByRole('button', { name: 'Run' }).click();
    const field = page.getByRole('textbox', { name: 'main/temperature', exact: true });
    await field.waitFor();
    await page.getByRole('button', { name: 'Record what' }).click();
    await field.fill('31 C');
    await field.press('Enter');
    await page.mouse.click(...(await at.at(60, 240)));
    await page.getByRole('button', { name: 'End the recording' }).click();
    const text = page.getByRole('textbox', { name: 'Scenario' });
    assert.match(await text.inputValue(), /^\d+\.\d\d {2}set main\/temperature 31 C\n\d+\.\d\d {2}press 60 240\n(.*move.*\n)*\d+\.\d\d {2}release 60 240\n$/);
    await field.fill('20 C');
    await field.press('Enter');
    await until('the other value', async () => (await field.inputValue()) === '20 C');
    await page.getByRole('tab', { name: 'Events' }).click();
    const clicks = page.locator('.dock li').filter({ hasText: 'main/start' }).filter({ hasText: 'clicked' });
    const before = await clicks.count();
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    await until('the recorded value', async () => (await field.inputValue()) === '31 C');
    await until('the recorded click', async () => (await clicks.count()) === before + 1);
    await page.locator('.dock li').filter({ hasText: '31 C' }).first().getByRole('button', { name: 'Copy as code' }).click();
    const code = await page.evaluate(() => navigator.clipboard.readText());
    assert.equal(code, 'panel.write(rows.LABEL_TEXT, "31 C",\n    view="main", control="temperature")');
    await text.fill('0 ramp main/power 10 90 0.5\nnonsense');
    await text.blur();
    await page.getByText('Line 2: not understood: nonsense').waitFor();
    for (const [line, why] of [
        ['0 view other', 'there is no view other'],
        ['0 set main/power warm', 'warm is not a number'],
        ['0 ramp main/power 1 2 -1', 'not understood'],
        ['0 press 480 0', '480, 0 is not on the panel'],
    ]) {
        await text.fill(line);
        await text.blur();
        await page.getByText(`Line 1: ${why}`).waitFor();
    }
    await text.fill('0 press 10 10\n0.1 move 500 20\n0.2 release -5 300'); // the finger leaves the panel
    await text.blur();
    await page.getByText('3 steps').waitFor();
    await text.fill('0 ramp main/power 10 90 0.5');
    await text.blur();
    await page.getByRole('button', { name: 'Play', exact: true }).click();
    const power = page.getByRole('textbox', { name: 'main/power', exact: true });
    await until('the end of the ramp', async () => (await power.inputValue()) === '90');
    assert.deepEqual(await axe_findings(page), []);
});
