// The form of what is selected: its name, place and size, its own keys, its styles.
import { signal } from '@preact/signals';
import { useEffect, useState } from 'preact/hooks';

import {
    addView,
    duplicate,
    nameOf,
    openSource,
    quiet,
    refusal,
    remove,
    removeView,
    rename,
    renameView,
    toggleLock,
} from '../actions';
import { catalogue, iconOf, rowsOf, typeOf, type Row } from '../catalogue';
import type { Control } from '../protocol';
import { request } from '../socket';
import { Button } from '../shell/button';
import { handler, rowConstant, target } from '../run/code';
import { Events } from '../run/events';
import { ValueNow } from '../run/value';
import { Icon } from '../shell/icon';
import { about, chosen, kept, lastGesture, project, selected, shown } from '../state';
import { said, words } from '../words';
import { commonRows, Form } from './form';
import { Styles } from './styles';
import { below, type Place, type Subject } from './subject';
import { jsonOf } from './value';
import { useValues } from './values';

/** The values of the entries of controls, again after each change. */
function useEntries(list: Control[]): Place[] {
    const [places, setPlaces] = useState<Place[]>([]);
    const gesture = lastGesture.value;
    const where = list.map(({ place }) => `${place?.file} ${place?.key}`).join();
    useEffect(() => {
        let stale = false;
        const read = async ({ place }: Control): Promise<Place[]> => {
            if (!place) return [];
            const reply = await quiet(request('read', { file: place.file, path: place.key }));
            return reply ? [{ file: place.file, path: place.key, values: reply.values }] : [];
        };
        void Promise.all(list.map(read)).then((all) => !stale && setPlaces(all.flat()));
        return () => {
            stale = true;
        };
    }, [where, gesture]);
    return places;
}

/** The objects at a key of some places. */
const inside = (places: Place[], key: string): Place[] =>
    places.map((place) => ({
        file: place.file,
        path: `${place.path}.${key}`,
        values: below(place.values, key + '.'),
    }));

function Name({ name, onName }: { name: string; onName: (name: string) => Promise<void> }) {
    const [text, setText] = useState(name);
    const [fault, setFault] = useState('');
    const again = (): void => {
        setText(name);
        setFault('');
    };
    useEffect(again, [name]);
    const take = async (): Promise<void> => {
        if (text && text !== name) setFault(await refusal(onName(text)));
        else again();
    };
    return (
        <span class="grow">
            <input
                class={fault ? 'title wrong' : 'title'}
                aria-label={words.name}
                aria-invalid={fault !== ''}
                aria-describedby="name-fault"
                value={text}
                spellcheck={false}
                onInput={(event) => {
                    setText(event.currentTarget.value);
                    setFault('');
                }}
                onBlur={() => (fault ? again() : void take())}
                onKeyDown={(event) => {
                    if (event.key === 'Enter') void take();
                    if (event.key === 'Escape') again();
                }}
            />
            <span class="err" id="name-fault" role="alert">
                {fault}
            </span>
        </span>
    );
}

function Head({ control }: { control: Control }) {
    const locked = kept.value.locked.includes(control.path);
    const place = control.place;
    return (
        <div class="who">
            <div class="l1">
                <Icon name={iconOf(control.type)} class="acc" />
                {shown.value.mode === 'design' ? (
                    <>
                        <Name name={nameOf(control.path)} onName={(name) => rename(control.path, name)} />
                        <Button
                            icon="lock"
                            name={words.lock}
                            action="lock"
                            on={locked}
                            onClick={() => toggleLock([control])}
                        />
                        <Button
                            icon="copy"
                            name={words.duplicate}
                            action="duplicate"
                            onClick={() => void duplicate()}
                        />
                        <Button icon="trash" name={words.remove} action="delete" onClick={() => void remove()} />
                    </>
                ) : (
                    <h2>{nameOf(control.path)}</h2>
                )}
            </div>
            <div class="l2">
                <span>
                    {said(control.type)} · id {control.id}
                </span>
                {place && (
                    <button
                        class="link mono"
                        title={words.goToSource}
                        onClick={() => openSource(place.file, place.line, place.column)}
                    >
                        {place.file.split('/').pop()}:{place.line}
                    </button>
                )}
                {!control.visible && <span class="warn">{words.hiddenNow}</span>}
            </div>
        </div>
    );
}

/** The rows of a control: those of its type, then those of its entry. */
const rowsOfControl = (record: string): Row[] => [
    ...rowsOf(
        record,
        OWN.map((key) => 'property.' + key),
        'property.',
    ),
    ...rowsOf('entry', ['type', 'property']),
];

/** The name of the look that an entry names; empty if it names none. */
const lookOf = (places: Place[]): string => {
    const look = jsonOf(places[0]?.values.find((value) => value.path === 'look')?.raw);
    return typeof look === 'string' ? look : '';
};

type Tab = 'form' | 'style' | 'host';

const chosenTab = signal<Tab>('form'); // stays from one control to the next

function Single({ control }: { control: Control }) {
    const places = useEntries(shown.value.mode === 'design' ? [control] : []);
    const type = typeOf(control.type);
    if (!control.place || !type) return <Head control={control} />;
    if (shown.value.mode !== 'design')
        return (
            <>
                <Head control={control} />
                <div class="forms">
                    <Host control={control} />
                </div>
            </>
        );
    const name = nameOf(control.path);
    const entry: Subject = { name, places };
    const property: Subject = { name, places: inside(places, 'property') };
    const tab = chosenTab.value;
    const tabs: [Tab, string][] = [
        ['form', words.properties],
        ['style', words.style],
        ['host', words.host],
    ];
    return (
        <>
            <Head control={control} />
            <div class="tabs" role="tablist">
                {tabs.map(([id, text]) => (
                    <button
                        role="tab"
                        class={tab === id ? 'tab on' : 'tab'}
                        aria-selected={tab === id}
                        onClick={() => (chosenTab.value = id)}
                    >
                        {text}
                    </button>
                ))}
            </div>
            <div class="forms" role="tabpanel" aria-label={tabs.find(([id]) => id === tab)?.[1]}>
                {tab === 'form' && places.length > 0 && (
                    <Form subject={entry} record="entry" without={[]} rows={rowsOfControl(type.record)} />
                )}
                {tab === 'style' && places.length > 0 && (
                    <Styles control={control} subject={property} type={type} look={lookOf(places)} />
                )}
                {tab === 'host' && <Host control={control} />}
            </div>
        </>
    );
}

/** What a host program needs to read and write the control. */
function Host({ control }: { control: Control }) {
    const row = control.row;
    const where = target(control.path);
    const code = [handler(control.path)];
    if (row) {
        const constant = rowConstant(row);
        code.unshift(`panel.write(${constant}, ...,\n    ${where})`, `value = panel.read(${constant},\n    ${where})`);
    }
    return (
        <>
            {shown.value.mode !== 'design' && <ValueNow control={control} />}
            <section class="sect">
                <h3>{words.host}</h3>
                <p class="t2">{row ? words.hostRow(row) : words.hostNone}</p>
                {code.map((line) => (
                    <pre class="code">{line}</pre>
                ))}
            </section>
        </>
    );
}

const PROJECT = 'config/project/zofprj.g';

function ProjectForm() {
    const values = useValues(PROJECT, '');
    const name = project.value?.name ?? '';
    return (
        <>
            <div class="who">
                <div class="l1">
                    <Icon name="device" class="acc" />
                    <h2 class="grow">{name}</h2>
                    <button class="link" onClick={() => (about.value = 'view')}>
                        {shown.value.view}
                    </button>
                </div>
                <div class="l2">
                    <button class="link mono" onClick={() => openSource(PROJECT, 1, 1)}>
                        zofprj.g
                    </button>
                </div>
            </div>
            <div class="forms">
                {values && (
                    <Form
                        subject={{ name, places: [{ file: PROJECT, path: '', values }] }}
                        record={catalogue.value.files.find((one) => one.path === PROJECT)?.record ?? ''}
                        without={['views']}
                    />
                )}
            </div>
        </>
    );
}

function View() {
    const view = project.value?.views.find((one) => one.name === shown.value.view);
    const values = useValues(view?.file, 'view');
    if (shown.value.mode !== 'design')
        return (
            <>
                <div class="who">
                    <div class="l1">
                        <h2>{words.events}</h2>
                    </div>
                    <p class="t3">{words.selectRunning}</p>
                </div>
                <Events />
            </>
        );
    if (!view) return null;
    return (
        <>
            <div class="who">
                <div class="l1">
                    <Icon name="views" class="acc" />
                    <Name name={view.name} onName={renameView} />
                    <Button icon="copy" name={words.duplicateView} onClick={() => addView(true)} />
                    <Button
                        icon="trash"
                        name={words.removeView}
                        disabled={project.value?.views.length === 1}
                        onClick={() => void removeView()}
                    />
                </div>
                <div class="l2">
                    <span class="t3">{words.selectHint}</span>
                </div>
            </div>
            <div class="forms">
                {values && (
                    <Form
                        subject={{ name: view.name, places: [{ file: view.file, path: 'view', values }] }}
                        record="view"
                        without={['v_id', 'v_name']}
                    />
                )}
            </div>
        </>
    );
}

const OWN = ['styles', 'pub_t.name', 'pub_t.id']; // keys that each control has for itself

/** The fields that all selected controls have. */
function Several({ list }: { list: Control[] }) {
    const places = useEntries(list);
    const types = new Map<string, number>();
    list.forEach((control) => types.set(control.type, (types.get(control.type) ?? 0) + 1));
    const name = words.several(list.length);
    const records = [...types.keys()].map((type) => typeOf(type)?.record ?? '');
    return (
        <>
            <div class="who">
                <div class="l1">
                    <h2>{name}</h2>
                </div>
                <p class="t2">{[...types].map(([type, count]) => `${count} ${said(type)}`).join(', ')}</p>
                <p class="t3">{words.severalHint}</p>
            </div>
            <div class="forms">
                {places.length > 0 && (
                    <Form
                        subject={{ name, places: inside(places, 'property') }}
                        record=""
                        without={[]}
                        rows={commonRows(records, OWN)}
                    />
                )}
            </div>
        </>
    );
}

export function Inspector() {
    const list = selected.value;
    const control = chosen.value;
    return (
        <aside class="insp" aria-label={words.inspector} data-region="inspector">
            {list.length > 1 && shown.value.mode === 'design' ? (
                <Several list={list} />
            ) : control ? (
                <Single key={control.path} control={control} />
            ) : about.value === 'project' && shown.value.mode === 'design' ? (
                <ProjectForm />
            ) : (
                <View />
            )}
            {shown.value.mode === 'design' && (
                <div class="foot">
                    <span>
                        <i class="src-dot own" />
                        {words.ownFile}
                    </span>
                    <span>
                        <i class="src-dot theme" />
                        {words.fromTheme}
                    </span>
                    <span>
                        <i class="src-dot none" />
                        {words.leftOut}
                    </span>
                </div>
            )}
        </aside>
    );
}
