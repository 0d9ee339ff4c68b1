// The last line: the last change with Undo, or why something was refused; the place under the pointer.
import { openSource, save, undo } from '../actions';
import { pointerAt } from '../canvas/stage';
import { checkMs, chosen, fault, lastGesture, problems, project, selected, undoState } from '../state';
import { words } from '../words';
import { Icon } from './icon';

function LastChange() {
    const gesture = lastGesture.value;
    const change = gesture?.changes[0];
    if (undoState.value.error) {
        return (
            <span class="chg err">
                <Icon name="error" />
                <span class="clip">{words.notSaved(undoState.value.error)}</span>
                <button class="link" onClick={save}>
                    {words.tryAgain}
                </button>
            </span>
        );
    }
    if (fault.value) {
        return (
            <span class="chg">
                <Icon name="info" class="warn" />
                <span class="clip">{fault.value}</span>
            </span>
        );
    }
    if (!gesture || !change) return <span class="t3">{project.value?.dir}</span>;
    const name = change.file.split('/').pop() ?? '';
    if (gesture.source === 'elsewhere' && !gesture.undone) {
        return (
            <span class="chg">
                <Icon name="info" class="acc" />
                {words.elsewhere(name, gesture.changes.length)}
            </span>
        );
    }
    return (
        <span class="chg">
            <Icon name="check" class="ok" />
            {gesture.undone ? words.undone : words.saved}
            <button class="link mono" onClick={() => openSource(change.file, change.line, change.column)}>
                {name}:{change.line}:{change.column}
            </button>
            {change.before && <del class="mono clip short">{gesture.undone ? change.after : change.before}</del>}
            {change.before && change.after && '→'}
            {change.after && <ins class="mono clip short">{gesture.undone ? change.before : change.after}</ins>}
            {gesture.changes.length > 1 && <span class="t3">{words.morePlaces(gesture.changes.length - 1)}</span>}
            {!gesture.undone && undoState.value.undo && (
                <button class="link" onClick={undo}>
                    {words.undo}
                </button>
            )}
        </span>
    );
}

export function Last() {
    const control = chosen.value;
    const at = pointerAt.value;
    const errors = problems.value.filter((problem) => problem.error).length;
    return (
        <footer class="last">
            <LastChange />
            <span class="grow" />
            {problems.value.length > 0 && (
                <span class="t2 wide">{words.problemsCount(errors, problems.value.length - errors)}</span>
            )}
            {at && <span class="mono t2 wide">{`${at.x}, ${at.y}`}</span>}
            {control && selected.value.length === 1 && (
                <span class="mono">{`${control.box[0]}, ${control.box[1]} · ${control.box[2]} × ${control.box[3]}`}</span>
            )}
            <span class="mono t2">{`${project.value?.width ?? 0} × ${project.value?.height ?? 0}`}</span>
            <span class="t3 wide">{checkMs.value} ms</span>
        </footer>
    );
}
