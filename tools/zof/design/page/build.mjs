// Builds the page into a folder: node build.mjs --out FOLDER [--modules node_modules] [--watch]
import { copyFileSync, mkdirSync, readdirSync, readFileSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { dirname, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';

const here = dirname(fileURLToPath(import.meta.url));
const option = (name, otherwise) => {
    const at = process.argv.indexOf(name);
    return at < 0 ? otherwise : process.argv[at + 1];
};
const out = resolve(option('--out', join(here, 'dist')));
const modules = resolve(option('--modules', join(here, 'node_modules')));
const esbuild = createRequire(join(modules, 'x.js'))('esbuild');

/** The licences of everything that is in the page, for the packages. */
function licencesWrite(inputs) {
    const names = inputs.map((input) => /node_modules\/((?:@[^/]+\/)?[^/]+)/.exec(input)?.[1]).filter(Boolean);
    const fonts = ['@fontsource-variable/inter', '@fontsource-variable/jetbrains-mono'];
    let text = '';
    for (const name of [...new Set([...names, ...fonts])].sort()) {
        const folder = join(modules, name);
        const { version } = JSON.parse(readFileSync(join(folder, 'package.json'), 'utf8'));
        const file = readdirSync(folder).find((one) => /^licen[cs]e/i.test(one));
        if (!file) throw new Error(`${name} has no licence`);
        text += `${name} ${version}\n\n${readFileSync(join(folder, file), 'utf8').trim()}\n\n\n`;
    }
    writeFileSync(join(out, 'licences.txt'), text);
}

mkdirSync(out, { recursive: true });
copyFileSync(join(here, 'src/index.html'), join(out, 'index.html'));
copyFileSync(join(modules, '@fontsource-variable/inter/files/inter-latin-wght-normal.woff2'), join(out, 'inter.woff2'));
copyFileSync(
    join(modules, '@fontsource-variable/jetbrains-mono/files/jetbrains-mono-latin-wght-normal.woff2'),
    join(out, 'jetbrains-mono.woff2'),
);
const context = await esbuild.context({
    entryPoints: { app: join(here, 'src/main.tsx') },
    outdir: out,
    bundle: true,
    format: 'esm',
    target: 'es2022',
    minify: !process.argv.includes('--watch'),
    jsx: 'automatic',
    jsxImportSource: 'preact',
    nodePaths: [modules],
    external: ['*.woff2'],
    legalComments: 'none',
    metafile: true,
    logLevel: 'warning',
});
if (process.argv.includes('--watch')) {
    await context.watch();
} else {
    const { metafile } = await context.rebuild();
    await context.dispose();
    licencesWrite(Object.keys(metafile.inputs));
}
