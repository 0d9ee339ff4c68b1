// The field over a list that leaves rows out.
import { Icon } from './icon';

interface Props {
    icon?: string;
    name: string;
    hint?: string;
    value: string;
    onText: (text: string) => void;
    onEnter?: () => void;
}

export function Filter({ icon = 'filter', name, hint, value, onText, onEnter }: Props) {
    return (
        <label class="find">
            <Icon name={icon} />
            <input
                aria-label={name}
                placeholder={hint}
                value={value}
                onInput={(event) => onText(event.currentTarget.value)}
                onKeyDown={(event) => event.key === 'Enter' && onEnter?.()}
            />
        </label>
    );
}
