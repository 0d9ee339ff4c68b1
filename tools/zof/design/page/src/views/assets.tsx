// The left panels "Pictures" and "Fonts": the files of a folder, as the runtime shows them, and where they are used.
import { signal } from '@preact/signals';
import { useEffect, useState } from 'preact/hooks';

import { attempt, message, openSource } from '../actions';
import { Asked } from '../canvas/tile';
import type { Asset } from '../protocol';
import { request } from '../socket';
import { Filter } from '../shell/filter';
import { Chooser } from '../shell/chooser';
import { Icon } from '../shell/icon';
import { darkNow } from '../shell/bar';
import { fault, lastGesture, problems, project, shown } from '../state';
import { languages } from '../texts/languages';
import { words } from '../words';

type Folder = 'image' | 'font';
const assets: Record<Folder, ReturnType<typeof signal<Asset[]>>> = {
    image: signal<Asset[]>([]),
    font: signal<Asset[]>([]),
};

function useAssets(folder: Folder): Asset[] {
    const gesture = lastGesture.value;
    const names = (folder === 'image' ? project.value?.pictures : project.value?.fonts)?.join();
    useEffect(() => {
        void attempt(request('assets', { folder })).then((reply) => {
            if (reply) assets[folder].value = reply.rows;
        });
    }, [folder, gesture, names, project.value]);
    return assets[folder].value ?? [];
}

const bytesText = (bytes: number): string =>
    bytes < 1000 ? `${bytes} B` : bytes < 1e6 ? `${(bytes / 1000).toFixed(1)} kB` : `${(bytes / 1e6).toFixed(1)} MB`;

/** Copies files in; they are there when the project is reported again. */
async function copyIn(folder: Folder, files: FileList | null | undefined): Promise<void> {
    fault.value = '';
    for (const file of files ?? []) {
        const bytes = new Uint8Array(await file.arrayBuffer());
        let text = '';
        for (let at = 0; at < bytes.length; at += 8192) text += String.fromCharCode(...bytes.subarray(at, at + 8192));
        await request('import', { folder, name: file.name, data: btoa(text) }).catch(
            (reason: unknown) => (fault.value = message(reason)),
        );
    }
}

function Uses({ asset }: { asset: Asset }) {
    const [open, setOpen] = useState(false);
    const found = problems.value.filter((problem) => problem.text.includes(asset.name));
    return (
        <>
            {asset.uses.length ? (
                <button class="link" aria-expanded={open} onClick={() => setOpen(!open)}>
                    {words.usesCount(asset.uses.length)}
                </button>
            ) : (
                <span class="t3">{words.noUses}</span>
            )}
            {open && (
                <span class="use-list">
                    {asset.uses.map((use) => (
                        <button class="link mono" onClick={() => openSource(use.file, use.line, use.column)}>
                            {use.file.split('/').pop()}:{use.line}
                        </button>
                    ))}
                </span>
            )}
            {found.slice(0, 3).map((problem) => (
                <span class={problem.error ? 'err' : 'warn'}>
                    <Icon name={problem.error ? 'error' : 'warning'} />
                    {problem.text}
                </span>
            ))}
        </>
    );
}

function Picture({ asset }: { asset: Asset }) {
    return (
        <article class="asset" aria-label={asset.name}>
            <span class="asset-tile">
                {asset.width ? (
                    <Asked
                        what="asset"
                        key={`${asset.bytes}`}
                        args={{ name: asset.name }}
                        width={88}
                        height={64}
                        again={asset.bytes}
                    />
                ) : (
                    <Icon name="picture" />
                )}
            </span>
            <span class="asset-text">
                <b class="clip">{asset.name}</b>
                <span class="t2">
                    {asset.width ? `${asset.width} × ${asset.height} · ` : ''}
                    {bytesText(asset.bytes)}
                </span>
                <Uses asset={asset} />
            </span>
        </article>
    );
}

/** What a font is drawn with: digits, which nearly all have, and the first texts of the language that is shown. */
const sample = (): string =>
    ['0123', ...[...(languages.value.get(shown.value.language)?.values() ?? [])].slice(0, 3)].join('  ');

const SIZES = 3; // that are drawn of each font
const LINE_PX = 184;

function Font({ asset }: { asset: Asset }) {
    const sizes = asset.sizes.length ? asset.sizes : [asset.name.endsWith('.bin') ? 52 : 20];
    return (
        <article class="asset font" aria-label={asset.name}>
            <b class="clip">{asset.name}</b>
            <span class="t2">
                {bytesText(asset.bytes)}
                {asset.sizes.length > 0 && ` · ${asset.sizes.join(', ')} px`}
            </span>
            {sizes.slice(0, SIZES).map((size) => (
                <Asked
                    what="specimen"
                    args={{
                        name: asset.name,
                        size: Math.round(size * devicePixelRatio),
                        text: sample(),
                        dark: darkNow(),
                    }}
                    width={LINE_PX}
                    height={Math.round(size * 1.4)}
                    again={asset.bytes}
                />
            ))}
            <Uses asset={asset} />
        </article>
    );
}

function Panel({ folder, title, hint }: { folder: Folder; title: string; hint: string }) {
    const [filter, setFilter] = useState('');
    const [over, setOver] = useState(false);
    const rows = useAssets(folder).filter((row) => row.name.toLowerCase().includes(filter.toLowerCase()));
    const One = folder === 'image' ? Picture : Font;
    return (
        <div
            class={over ? 'assets over' : 'assets'}
            onDragOver={(event) => {
                if (!event.dataTransfer?.types.includes('Files')) return;
                event.preventDefault();
                setOver(true);
            }}
            onDragLeave={() => setOver(false)}
            onDrop={(event) => {
                event.preventDefault();
                setOver(false);
                void copyIn(folder, event.dataTransfer?.files);
            }}
        >
            <div class="head">
                <h2>{title}</h2>
            </div>
            <Filter name={words.filter} hint={words.filter} value={filter} onText={setFilter} />
            <div class="scroll" tabIndex={0} role="group" aria-label={title}>
                {rows.map((row) => (
                    <One key={row.name} asset={row} />
                ))}
                {!rows.length && <p class="empty">{filter ? words.noneCalled(filter) : words.noFiles}</p>}
            </div>
            <div class="assets-foot">
                <Chooser
                    icon="add"
                    name={words.copyIn}
                    multiple
                    accept={folder === 'image' ? '.png,.jpg,.gif' : '.ttf,.otf,.ttc,.woff,.bin'}
                    onFiles={(files) => void copyIn(folder, files)}
                >
                    {words.copyIn}
                </Chooser>
                <p class="t3">{hint}</p>
            </div>
        </div>
    );
}

export const Pictures = () => <Panel folder="image" title={words.pictures} hint={words.copyHint('image/')} />;
export const Fonts = () => <Panel folder="font" title={words.fonts} hint={words.copyHint('font/')} />;
