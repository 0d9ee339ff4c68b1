import type { ComponentChildren } from 'preact';
import { useRef } from 'preact/hooks';

import { Icon } from './icon';

interface Props {
    name: string; // for people and screen readers
    accept: string; // endings, with commas
    icon?: string;
    multiple?: boolean;
    onFiles: (files: FileList) => void;
    children?: ComponentChildren; // its words; without them the button is its icon
}

/** A button that lets the user choose files. */
export function Chooser({ name, accept, icon, multiple = false, onFiles, children }: Props) {
    const field = useRef<HTMLInputElement>(null);
    return (
        <>
            <input
                ref={field}
                type="file"
                hidden
                multiple={multiple}
                accept={accept}
                aria-label={name}
                onChange={(event) => {
                    const { files } = event.currentTarget;
                    if (files?.length) onFiles(files);
                    event.currentTarget.value = ''; // the same file may be chosen again
                }}
            />
            <button
                class={children ? 'btn edge' : 'btn icon'}
                aria-label={children ? undefined : name}
                title={name}
                onClick={() => field.current?.click()}
            >
                {icon && <Icon name={icon} />}
                {children}
            </button>
        </>
    );
}
