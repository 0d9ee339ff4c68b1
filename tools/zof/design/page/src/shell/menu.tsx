// The menu of the right button, of the menu key and of Shift F10: what lies under the pointer, and what can be done.
import { useLayoutEffect, useRef } from 'preact/hooks';

import { nameOf } from '../actions';
import { iconOf } from '../catalogue';
import { actions, keyText } from '../keys';
import { menu, selection, type Menu as Asked } from '../state';
import { words } from '../words';
import { Icon } from './icon';

const groups = [
    ['cut', 'copy', 'paste', 'duplicate', 'delete', 'rename'],
    ['front', 'back', 'frontEnd', 'backEnd'],
    ['group', 'parent', 'fitSelection'],
];
const WIDTH_PX = 260;
const ROW_PX = 30;
const LINE_PX = 12;

const close = (): void => {
    menu.value = null;
};

function step(list: HTMLElement, by: number): void {
    const all = [...list.querySelectorAll('button')];
    const at = all.findIndex((one) => one === document.activeElement);
    all[(at + by + all.length) % all.length]?.focus();
}

function Open({ x, y, under }: Asked) {
    const list = useRef<HTMLDivElement>(null);
    useLayoutEffect(() => {
        const before = document.activeElement as HTMLElement | null;
        list.current?.querySelector('button')?.focus();
        return () => before?.focus();
    }, []);
    const rows = groups.map((ids) => actions.filter((action) => ids.includes(action.id) && action.name()));
    const height = (under.length + rows.flat().length) * ROW_PX + (rows.length + 1) * LINE_PX;
    const item = (icon: string, text: string, keys: string, on: boolean, run: () => void) => (
        <button
            role="menuitem"
            class={on ? 'mi on' : 'mi'}
            onClick={() => {
                close();
                run();
            }}
        >
            {icon ? <Icon name={icon} /> : <span class="i" />}
            {text}
            {keys && <span class="kbd">{keys}</span>}
        </button>
    );
    return (
        <section
            class="menu-ground"
            aria-label={words.menu}
            onPointerDown={close}
            onContextMenu={(event) => event.preventDefault()}
        >
            <div
                ref={list}
                class="menu"
                role="menu"
                aria-label={words.menu}
                style={{
                    left: Math.max(0, Math.min(x, innerWidth - WIDTH_PX)),
                    top: Math.max(0, Math.min(y, innerHeight - height)),
                }}
                onPointerDown={(event) => event.stopPropagation()}
                onKeyDown={(event) => {
                    if (event.key === 'Escape' || event.key === 'Tab') close();
                    else if (event.key === 'ArrowDown') step(event.currentTarget, 1);
                    else if (event.key === 'ArrowUp') step(event.currentTarget, -1);
                    else if (event.key !== 'Enter' && event.key !== ' ') return;
                    if (event.key !== 'Enter' && event.key !== ' ') event.preventDefault();
                    event.stopPropagation();
                }}
            >
                {under.map((control) =>
                    item(
                        iconOf(control.type),
                        nameOf(control.path),
                        '',
                        selection.value.includes(control.path),
                        () => (selection.value = [control.path]),
                    ),
                )}
                {rows.map((group) => (
                    <>
                        <hr />
                        {group.map((action) => item('', action.name(), keyText(action.id), false, action.run))}
                    </>
                ))}
            </div>
        </section>
    );
}

export const Menu = () => (menu.value ? <Open {...menu.value} /> : null);
