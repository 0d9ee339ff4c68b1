// The page: its regions, and what holds for all of them.
import { effect } from '@preact/signals';
import { render, type JSX } from 'preact';

import './style/all.css';
import { nameOf, pose, undo } from './actions';
import { Begin } from './begin/begin';
import { Stage } from './canvas/stage';
import { pictureSize } from './canvas/picture';
import { catalogueLoad } from './catalogue';
import { Changes } from './dock/changes';
import { Dock } from './dock/dock';
import { Dialogs } from './find/dialogs';
import { Inspector } from './inspector/inspector';
import { keysStart } from './keys';
import { Palette } from './palette/palette';
import { Host } from './run/host';
import { Bar, darkNow } from './shell/bar';
import { Last } from './shell/last';
import { Menu } from './shell/menu';
import { Rail } from './shell/rail';
import { Split } from './shell/split';
import { Tools } from './shell/tools';
import { connect, linked } from './socket';
import { byPath, chosen, empty, keep, kept, posed, project, runtime, sheet, shown, undoState } from './state';
import { Colours } from './texts/colours';
import { Texts, TextsSide } from './texts/texts';
import { Fonts, Pictures } from './views/assets';
import { Sheet } from './views/sheet';
import { Views } from './views/views';
import { said, words } from './words';

function Band() {
    const broken = linked.value !== 'open' && linked.value !== 'connecting' ? linked.value : null;
    const stopped = !broken && runtime.value.state === 'stopped';
    const live = shown.value.mode === 'live';
    const text = broken
        ? words.broken[broken]
        : stopped
          ? live
              ? words.liveStopped(runtime.value.note)
              : words.stopped(runtime.value.note)
          : !pictureSize.value.width
            ? words.starting
            : undoState.value.error
              ? words.readOnly
              : '';
    const now = posed.value;
    if (!text && now && (byPath.value.get(now.path)?.state ?? 'default') !== 'default')
        return (
            <div class="band" role="status">
                {words.stateShown(nameOf(now.path), now.state.split('+').map(said).join(' + '))}
                <button class="btn edge" onClick={() => pose(now.path, 'default')}>
                    {words.asItIs}
                </button>
            </div>
        );
    return text ? (
        <div class="band" role={broken || stopped ? 'alert' : 'status'}>
            {text}
            {stopped && !live && undoState.value.undo && (
                <button class="btn edge" onClick={undo}>
                    {words.takeBack}
                </button>
            )}
        </div>
    ) : null;
}

function Left() {
    const width = kept.value.leftWidth || (innerWidth >= 1900 ? 288 : innerWidth <= 1360 ? 212 : 228);
    const panels = {
        views: Views,
        add: Palette,
        colours: Colours,
        fonts: Fonts,
        pictures: Pictures,
        texts: TextsSide,
        host: Host,
        changes: Changes,
    };
    const Panel = panels[kept.value.left];
    return (
        <aside class="left" aria-label={words.panels} data-region="left">
            <Panel />
            <Split
                class="at-right"
                name={words.resizePanel}
                vertical
                value={width}
                low={160}
                high={480}
                sign={1}
                onChange={(leftWidth) => keep({ leftWidth })}
                onClose={() => keep({ leftWidth: 0 })}
            />
        </aside>
    );
}

function Centre() {
    const height = kept.value.dockHeight || (innerWidth >= 1900 ? 252 : innerHeight <= 800 ? 180 : 208);
    if (sheet.value && shown.value.mode === 'design') return <Sheet />;
    if (kept.value.left === 'texts' && shown.value.mode === 'design') return <Texts />;
    return (
        <main class="centre">
            <Tools />
            <div class="stage-holder">
                <Stage />
                <Band />
            </div>
            <Split
                class="at-top"
                name={words.resizeDock}
                vertical={false}
                value={height}
                low={80}
                high={600}
                sign={-1}
                onChange={(dockHeight) => keep({ dockHeight, dockOpen: true })}
                onClose={() => keep({ dockOpen: !kept.value.dockOpen })}
            />
            <Dock />
        </main>
    );
}

/** Says what is selected, and what has happened, to a screen reader. */
function Say() {
    const control = chosen.value;
    return (
        <div class="say" aria-live="polite">
            {control
                ? words.selectedSay(control.path.split('/')[1] ?? '', said(control.type), control.box.join(', '))
                : ''}
        </div>
    );
}

function App() {
    if (empty.value) return <Begin empty={empty.value} />;
    if (!project.value) return <Band />; // until it is known, or because the program cannot be reached
    const { leftWidth, inspectorWidth, dockHeight, dockOpen, panels } = kept.value;
    const sizes = {
        ...(leftWidth ? { '--left': `${leftWidth}px` } : {}),
        ...(inspectorWidth ? { '--insp': `${inspectorWidth}px` } : {}),
        ...(dockHeight ? { '--dock': `${dockHeight}px` } : {}),
        ...(dockOpen ? {} : { '--dock': '34px' }),
    } as JSX.CSSProperties;
    // The picture is not that of the program until it is connected.
    const apart = shown.value.mode === 'live' && runtime.value.state !== 'runs';
    return (
        <div class={`app ${panels ? '' : 'bare'} mode-${shown.value.mode} ${apart ? 'apart' : ''}`} style={sizes}>
            <Bar />
            <Rail />
            {panels && <Left />}
            <Centre />
            {panels && <Inspector />}
            <Last />
            <Dialogs />
            <Menu />
            <Say />
        </div>
    );
}

effect(() => {
    document.documentElement.dataset.theme = darkNow() ? 'dark' : 'light';
    document.title = project.value ? `${project.value.name}: ${shown.value.view}` : 'zof design';
});

const root = document.getElementById('page');
if (root) render(<App />, root);
keysStart();
void catalogueLoad();
connect();
