// The bench panel in a browser, with its virtual box and with a stand-in for a real one.
import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { readFileSync, writeFileSync } from 'node:fs';
import { after } from 'node:test';

import { axe_findings, browser, end, story, until } from './lib.mjs';

after(end);
const RECORD = { x: 684, y: 396 };
const TABS = { output: 80, rails: 240, trend: 400, settings: 560, about: 720 };

story('The panel draws, answers the pointer, and its page is accessible', async ({ page, press, still, picture }) => {
    const first = await still();
    for (const [name, x] of Object.entries(TABS).reverse()) {
        const before = await picture();
        await press(x, 460);
        await until(`the view ${name}`, async () => (await picture()) !== before);
        const now = await still().catch(() => ''); // the trend moves
        if (process.env.ZOF_SHOTS && now) writeFileSync(`${process.env.ZOF_SHOTS}/${name}.png`, Buffer.from(now.split(',')[1], 'base64'));
    }
    assert.equal(await still(), first);
    await page.getByRole('button', { name: 'Virtual box' }).click();
    assert.deepEqual(await axe_findings(page), []);
});

story('Each fault of the line shows on the panel or does no harm, and ends', async ({ page, press, lines, still, picture }) => {
    await press(TABS.rails, 460);
    const good = await still();
    await page.getByRole('button', { name: 'Virtual box' }).click();
    for (const name of ['Silent', 'Unplugged']) {
        await page.getByLabel(name).check();
        await until(`the panel says that the box is ${name}`, async () => (await picture()) !== good);
        await page.getByLabel(name).uncheck();
        await until('all is well', async () => (await picture()) === good);
    }
    assert.ok(lines.includes('serial line box: the device is gone; waiting for it'));
    assert.ok(lines.includes('serial line box: the device is back'));
    for (const name of ['Lost bytes', 'Noise', 'Late', 'Flood', 'Loose plug']) {
        await page.getByLabel(name).check();
        await page.waitForTimeout(700);
        await page.getByLabel(name).uncheck();
        await until(`all is well after ${name}`, async () => (await picture()) === good);
    }
});

story('What is set stays after a reload, and the page starts without a network', async ({ context, page, press, ready, still }) => {
    await press(TABS.settings, 460);
    const english = await still();
    await press(685, 314); // Deutsch
    await until('another language', async () => (await still()) !== english);
    await page.waitForTimeout(1000); // the store is written
    await context.setOffline(true);
    await page.reload();
    await ready();
    await press(TABS.settings, 460);
    await until('the language that was set', async () => (await still()) !== english);
});

story(
    'On a phone, a finger changes the view',
    async ({ page, tap, picture }) => {
        const before = await picture();
        await tap(TABS.rails, 460);
        await until('the rails', async () => (await picture()) !== before);
        const canvas = await page.locator('canvas').boundingBox();
        assert.ok(canvas.width <= 844 && canvas.height <= 390 && canvas.width > 400);
    },
    { viewport: { width: 844, height: 390 }, deviceScaleFactor: 3, hasTouch: true, isMobile: true },
);

// Stands in for navigator.serial: bytes to and from a virtual box on this machine. It is as strict about locks as browsers are.
let cable = null;
async function port_make(page) {
    await page.exposeFunction('cable_write', (bytes) => void cable?.stdin.write(Buffer.from(bytes)));
    await page.addInitScript(() => {
        let open = false;
        const port = {
            getInfo: () => ({ usbVendorId: 1, usbProductId: 2 }),
            async open({ baudRate }) {
                if (baudRate !== 115200) throw new Error(`baud ${baudRate}`);
                if (open) throw new Error('it is open');
                open = true;
                port.readable = new ReadableStream({ start: (control) => (window.cable = control) });
                port.writable = new WritableStream({ write: (bytes) => window.cable_write([...bytes]) });
            },
            async close() {
                if (port.readable.locked || port.writable.locked) throw new Error('its streams are locked');
                open = false;
            },
        };
        const serial = Object.assign(new EventTarget(), { requestPort: async () => port });
        const other = { getInfo: () => ({ usbVendorId: 1, usbProductId: 3 }), open: () => (window.wrong = true) };
        window.cable_in = (right) => {
            const event = new Event('connect');
            Object.defineProperty(event, 'target', { value: right ? port : other });
            serial.dispatchEvent(event);
        };
        Object.defineProperty(navigator, 'serial', { value: serial });
    });
}
function cable_plug(page) {
    cable = spawn('/usr/bin/python3', [new URL('bridge.py', import.meta.url).pathname, process.env.ZOF_BOARD], { stdio: ['pipe', 'pipe', 'inherit'] });
    cable.stdout.on('data', (data) => page.evaluate((bytes) => window.cable?.enqueue(new Uint8Array(bytes)), [...data]).catch(() => {}));
}
function cable_pull() {
    cable?.kill();
    cable = null;
}

story(
    'A real box is connected, unplugged and plugged in again, and the virtual one comes back',
    async ({ page, press, lines, still, picture }) => {
        await press(TABS.rails, 460);
        const good = await still();
        cable_plug(page);
        await page.getByRole('button', { name: 'Connect a real box' }).click();
        await until('the port', () => lines.some((line) => line.startsWith('serial port 6: usb at')));
        await until('its rails', async () => (await picture()) === good);
        cable_pull();
        await page.evaluate(() => window.cable.error(new Error('unplugged')));
        await page.getByText('is unplugged').waitFor();
        await until('the panel says so', async () => (await picture()) !== good);
        cable_plug(page);
        await page.evaluate(() => window.cable_in(false));
        assert.equal(await page.evaluate(() => window.wrong), undefined); // another adapter is left alone
        await page.evaluate(() => window.cable_in(true));
        await until('its rails again', async () => (await picture()) === good);
        page.on('dialog', (dialog) => void dialog.accept());
        for (let times = 0; times < 2; times++) {
            await page.getByRole('button', { name: 'Disconnect the real box' }).click();
            await page.getByText('virtual box', { exact: true }).first().waitFor();
            await until('the virtual box', async () => (await picture()) === good);
            await page.getByRole('button', { name: 'Connect a real box' }).click();
            await page.getByText('real box', { exact: true }).first().waitFor();
            await until('its rails once more', async () => (await picture()) === good);
        }
        cable_pull();
    },
    { before: port_make },
);

story('A recording is saved, and is still there after a reload', async ({ page, press, ready }) => {
    await press(TABS.trend, 460);
    await page.waitForTimeout(500);
    await press(RECORD.x, RECORD.y);
    await page.getByRole('button', { name: 'Virtual box' }).click();
    const link = page.locator('#recordings a');
    await link.waitFor();
    await page.waitForTimeout(2500);
    await press(RECORD.x, RECORD.y);
    await page.waitForTimeout(1500);
    const [download] = await Promise.all([page.waitForEvent('download'), link.click()]);
    const text = readFileSync(await download.path(), 'utf8');
    assert.match(download.suggestedFilename(), /\.csv$/);
    assert.ok(text.split('\n').length > 3, text);
    await page.reload();
    await ready();
    await page.getByRole('button', { name: 'Virtual box' }).click();
    await link.waitFor();
    const [again] = await Promise.all([page.waitForEvent('download'), link.click()]);
    assert.equal(readFileSync(await again.path(), 'utf8'), text);
});
