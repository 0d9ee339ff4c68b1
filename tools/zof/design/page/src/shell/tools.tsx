// The tools over the picture: align, same gaps, order; snapping, grid, zoom.
import { align, order, runAgain, sameGaps } from '../actions';
import { tool } from '../canvas/pan';
import { pictureBlob } from '../canvas/picture';
import { zoom, zoomFit, zoomStep, zoomTo } from '../canvas/zoom';
import { keep, kept, selected, shown } from '../state';
import { words } from '../words';
import { keyText } from '../keys';
import { Button } from './button';
import { Icon } from './icon';
import { save } from './save';

function Zoom() {
    return (
        <>
            <Button icon="minus" name={words.zoomOut} action="zoomOut" onClick={() => zoomStep(-1)} />
            <button class="btn zoom" onClick={() => zoomTo(1)}>
                {Math.round(zoom.value * 100)} %
            </button>
            <Button icon="add" name={words.zoomIn} action="zoomIn" onClick={() => zoomStep(1)} />
            <Button icon="fit" name={words.fit} action="fit" on={kept.value.zoom === 0} onClick={zoomFit} />
        </>
    );
}

async function pictureSave(): Promise<void> {
    const picture = await pictureBlob();
    if (picture) save(`${shown.value.view}.png`, picture);
}

/** In Run and Live the line says what the pointer does. */
function RunTools() {
    const run = shown.value.mode === 'run';
    return (
        <div class="tools" role="toolbar" aria-label={words.run}>
            <span class="pill o">
                <Icon name={run ? 'play' : 'device'} />
                {run ? words.running : words.live}
            </span>
            <span class="t2 clip run-hint">{run ? words.runHint : words.liveHint}</span>
            <span class="grow" />
            {run && (
                <button
                    class="btn edge"
                    title={`${words.runAgain} · ${keyText('again')}`}
                    onClick={() => void runAgain()}
                >
                    <Icon name="undo" />
                    {words.runAgain}
                </button>
            )}
            <Button icon="picture" name={words.savePicture} onClick={() => void pictureSave()} />
            <Zoom />
        </div>
    );
}

export function Tools() {
    const count = selected.value.length;
    if (shown.value.mode !== 'design') return <RunTools />;
    return (
        <div class="tools" role="toolbar" aria-label={words.select}>
            <Button
                icon="pointer"
                name={words.select}
                action="select"
                on={tool.value === 'select'}
                onClick={() => (tool.value = 'select')}
            />
            <Button
                icon="hand"
                name={words.pan}
                action="pan"
                on={tool.value === 'pan'}
                onClick={() => (tool.value = 'pan')}
            />
            <span class="sep" />
            <span class="wide-tools">
                <Button icon="al" name={words.alignLeft} disabled={!count} onClick={() => align('left')} />
                <Button icon="ac" name={words.alignCentre} disabled={!count} onClick={() => align('centre')} />
                <Button icon="ar" name={words.alignRight} disabled={!count} onClick={() => align('right')} />
                <Button icon="at" name={words.alignTop} disabled={!count} onClick={() => align('top')} />
                <Button icon="am" name={words.alignMiddle} disabled={!count} onClick={() => align('middle')} />
                <Button icon="ab" name={words.alignBottom} disabled={!count} onClick={() => align('bottom')} />
                <span class="sep" />
                <Button icon="dh" name={words.gapsAcross} disabled={count < 3} onClick={() => sameGaps(false)} />
                <Button icon="dv" name={words.gapsDown} disabled={count < 3} onClick={() => sameGaps(true)} />
                <span class="sep" />
                <Button
                    icon="front"
                    name={words.toFront}
                    action="front"
                    disabled={count !== 1}
                    onClick={() => void order(1, false)}
                />
                <Button
                    icon="back"
                    name={words.toBack}
                    action="back"
                    disabled={count !== 1}
                    onClick={() => void order(-1, false)}
                />
            </span>
            <span class="grow" />
            <Button
                icon="magnet"
                name={words.snap}
                on={kept.value.snap}
                onClick={() => keep({ snap: !kept.value.snap })}
            />
            <Button
                icon="grid"
                name={words.grid}
                on={kept.value.grid}
                onClick={() => keep({ grid: !kept.value.grid })}
            />
            <span class="sep" />
            <Zoom />
        </div>
    );
}
