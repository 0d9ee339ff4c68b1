import { icons } from './icons';

/** An icon beside a word; it says nothing to a screen reader. */
export function Icon({ name, class: more = '' }: { name: string; class?: string }) {
    return (
        <svg class={`i ${more}`} viewBox="0 0 16 16" aria-hidden="true">
            <path d={icons[name] ?? icons.container} />
        </svg>
    );
}
