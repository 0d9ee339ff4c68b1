import type { ComponentChildren } from 'preact';

import { keyText } from '../keys';
import { Icon } from './icon';

interface Props {
    icon: string;
    name: string; // for people and screen readers
    action?: string; // whose keys the hint shows
    on?: boolean;
    disabled?: boolean;
    class?: string;
    onClick: () => void;
    children?: ComponentChildren;
}

/** A button with an icon, and a word if it has children. */
export function Button(props: Props) {
    const keys = props.action ? keyText(props.action) : '';
    const look = ['btn', props.children ? '' : 'icon', props.on ? 'on' : '', props.class ?? ''].join(' ');
    return (
        <button
            class={look}
            aria-label={props.children ? undefined : props.name}
            title={keys ? `${props.name} · ${keys}` : props.name}
            aria-pressed={props.on}
            disabled={props.disabled}
            onClick={props.onClick}
        >
            <Icon name={props.icon} />
            {props.children}
        </button>
    );
}
