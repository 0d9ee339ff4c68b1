// What the left panel shows.
import { keep, kept, type LeftPanel } from '../state';
import { words } from '../words';
import { Icon } from './icon';

export function Rail() {
    const rows: [LeftPanel, string, string][] = [
        ['views', 'views', words.views],
        ['add', 'add', words.add],
        ['colours', 'colour', words.colours],
        ['fonts', 'font', words.fonts],
        ['pictures', 'picture', words.pictures],
        ['texts', 'texts', words.texts],
        ['host', 'host', words.host],
        ['changes', 'history', words.changes],
    ];
    return (
        <nav class="rail" aria-label={words.panels}>
            {rows.map(([name, icon, text]) => (
                <button
                    class={`${kept.value.left === name ? 'on' : ''} ${name === 'changes' ? 'end' : ''}`}
                    aria-pressed={kept.value.left === name}
                    onClick={() => keep({ left: name, panels: true })}
                >
                    <Icon name={icon} />
                    {text}
                </button>
            ))}
        </nav>
    );
}
