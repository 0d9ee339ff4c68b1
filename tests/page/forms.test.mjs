// Forms: what is typed becomes the right value, and each row of the catalogue has a field.
// ZOF_BUILD and ZOF_MODULES: see lib.mjs.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { createRequire } from 'node:module';
import { dirname, join, resolve } from 'node:path';
import { test } from 'node:test';
import { fileURLToPath } from 'node:url';

const page = join(dirname(fileURLToPath(import.meta.url)), '../../tools/zof/design/page');
const modules = resolve(process.env.ZOF_MODULES);
const { build } = createRequire(join(modules, 'x.js'))('esbuild');
const parts = ['catalogue', 'inspector/value', 'inspector/hsv'];
const bundle = await build({
    stdin: { contents: parts.map((part) => `export * from './src/${part}';`).join('\n'), resolveDir: page },
    nodePaths: [modules],
    bundle: true,
    write: false,
    format: 'esm',
});
const forms = await import('data:text/javascript;base64,' + Buffer.from(bundle.outputFiles[0].text).toString('base64'));
const { applies, catalogue, fieldOf, hsvOf, jsonTypeOf, numberOf, parse, rgbOf, rowsOf, shownText, unknownBits } = forms;

test('what is typed becomes the value for the file, or one reason', () => {
    const length = { kind: 'length', low: 0, high: 1000 };
    const opacity = { kind: 'opacity', low: 0, high: 255 };
    const tenths = { kind: 'angle', unit: '0.1 deg', low: -3600, high: 3600 };
    const colour = { kind: 'colour', low: 0, high: 0xffffff };
    const rows = [
        [length, '480/3-12', 0, 148],
        [length, '2*(3+-1)', 0, 4],
        [length, '+8', 12, 20],
        [length, '*2', 12, 24],
        [length, '-=2', 12, 10],
        [length, '-8', 12, 'low 0'],
        [length, '1001', 0, 'high 1000'],
        [length, '1/0', 0, 'number 1/0'],
        [length, '3 px', 0, 'number 3 px'],
        [opacity, '50%', 0, 128],
        [opacity, '+10%', 51, 77],
        [opacity, '256', 0, 'high 255'],
        [tenths, '12.5', 0, 125],
        [tenths, '+1', 125, 135],
        [tenths, '361', 0, 'high 360'],
        [colour, '#d93', '#000000', '#DD9933'],
        [colour, 'd9863d', undefined, '#D9863D'],
        [colour, '#D9863D', 0, 0xd9863d],
        [colour, '14255677', '#000000', '#D9863D'],
        [colour, '$accent', 0, '$accent'],
        [colour, '16777216', 0, 'colour 16777216'],
        [colour, 'red', 0, 'colour red'],
    ];
    for (const [key, text, before, expected] of rows) {
        const { value, fault } = parse(key, 'number', text, before);
        assert.equal(fault ? `${fault.why} ${fault.text}` : value, expected, `${key.kind} ${text}`);
    }
    assert.equal(shownText(tenths, 125), '12.5');
});

test('names, unknown bits and conditions follow the catalogue', () => {
    const flags = { key: 'flags', kind: 'sum', names: [{ name: 'a', value: 1 }, { name: 'b', value: 4 }] };
    assert.equal(numberOf(flags, 'a + b'), 5);
    assert.equal(numberOf(flags, 'c'), undefined);
    assert.equal(unknownBits(flags, 517), 512);
    const beside = { mode: { value: 2 }, on: { value: true }, flags: { row: flags, value: 'a+b' } };
    const rows = [
        ['`mode` is 2 or 3', true],
        ['`mode` is not 0', true],
        ['`mode` is not 2', false],
        ['`on` is true', true],
        ['`on` is false', false],
        ['`flags` has `b`', true],
        ['there is a `font`', false],
        [undefined, true],
    ];
    for (const [when, expected] of rows) {
        assert.equal(applies(when, (key) => beside[key] ?? {}), expected, when);
    }
    for (const text of ['#000000', '#FFFFFF', '#D9863D', '#0B6E75', '#010203']) assert.equal(rgbOf(hsvOf(text)), text);
});

test('each row of the catalogue has a field', () => {
    const zof = resolve(process.env.ZOF_BUILD, 'tools/zof');
    catalogue.value = JSON.parse(spawnSync(zof, ['catalogue', '--json'], { encoding: 'utf8' }).stdout);
    const walked = new Set();
    const walk = (record) => {
        if (walked.has(record)) return;
        walked.add(record);
        for (const { key, beside } of rowsOf(record, [])) {
            assert.ok(fieldOf(key, jsonTypeOf(key)), `${record}: ${key.key}, ${key.kind}`);
            const other = /^(?:there is a )?`(\w+)`/.exec(key.when ?? '')?.[1];
            assert.ok(!key.when || beside.some((one) => one.key === other), `${record}: ${key.key} if ${key.when}`);
            if (key.kind === 'array' && key.record) walk(key.record);
        }
    };
    catalogue.value.records.forEach((record) => walk(record.name));
});
