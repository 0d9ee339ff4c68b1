// A control or a view that another one names by its number: a list of names, and for controls a click on the picture.
import { nameOf } from '../actions';
import type { KindName } from '../kinds';
import { byPath, chosen, controls, picking, project, selected } from '../state';
import type { Control } from '../protocol';
import { Button } from '../shell/button';
import { words } from '../words';
import type { FieldProps } from './input';
import { held, write } from './subject';
import { numberOf } from './value';

interface Target {
    id: number;
    name: string;
}

/** Whether a control is one of the selected ones, or in one of them: it cannot contain them. */
const isInSelection = (control: Control | undefined): boolean =>
    !!control && (selected.value.includes(control) || isInSelection(byPath.value.get(control.parent ?? '')));

const mayHold = (control: Control): boolean => control.view === chosen.value?.view && !isInSelection(control);

function targetsOf(kind: KindName): Target[] {
    return kind === 'view'
        ? (project.value?.views ?? [])
        : controls.value.filter(mayHold).map((control) => ({ id: control.id, name: nameOf(control.path) }));
}

export function Reference({ subject, row, id }: FieldProps) {
    const now = held(subject, row);
    const value = now.different > 1 ? undefined : (numberOf(row.key, now.value ?? now.inherited ?? 0) ?? 0);
    const targets = targetsOf(row.key.kind);
    const known = value === 0 || targets.some((one) => one.id === value);
    const set = (next: number): void => write(subject, row, () => next);
    const pick = (): void => {
        picking.value = picking.value
            ? null
            : (under) => {
                  const may = under.filter(mayHold);
                  const picked = may.find((control) => control.type === 'container') ?? may[0];
                  if (picked) set(picked.id);
              };
    };
    return (
        <span class="pair">
            <span class={`in grow ${now.written ? '' : 'inh'} ${known ? '' : 'wrong'}`}>
                <select
                    id={id}
                    value={value === undefined ? '' : String(value)}
                    onChange={(event) => set(Number(event.currentTarget.value))}
                >
                    {value === undefined && <option value="">{words.valuesCount(now.different)}</option>}
                    {!known && value !== undefined && <option value={String(value)}>{words.noSuchId(value)}</option>}
                    <option value="0">{words.nothing}</option>
                    {targets.map((one) => (
                        <option value={String(one.id)}>{`${one.name} · ${one.id}`}</option>
                    ))}
                </select>
            </span>
            {row.key.kind === 'control' && (
                <Button icon="pointer" name={words.pick} on={picking.value !== null} onClick={pick} />
            )}
        </span>
    );
}
