// The sheet: all views in all languages, or in all themes, each drawn by the runtime.
import { useEffect, useRef, useState } from 'preact/hooks';

import { show } from '../actions';
import { Tile } from '../canvas/tile';
import { keep, problems, project, shown, sheet } from '../state';
import { words } from '../words';

const WIDTH_PX = 240;

/** Draws only what has been in sight: a project may have hundreds of views. */
function Lazy({ view, language, theme }: { view: string; language: string; theme: string }) {
    const holder = useRef<HTMLSpanElement>(null);
    const [seen, setSeen] = useState(false);
    const { width = 1, height = 1 } = project.value ?? {};
    const tall = Math.round((WIDTH_PX * height) / width);
    useEffect(() => {
        const watch = new IntersectionObserver((entries) => {
            if (entries.some((entry) => entry.isIntersecting)) setSeen(true);
        });
        if (holder.current) watch.observe(holder.current);
        return () => watch.disconnect();
    }, []);
    return (
        <span ref={holder} class="sheet-tile" style={{ width: WIDTH_PX, height: tall }}>
            {seen && <Tile view={view} language={language} theme={theme} width={WIDTH_PX} height={tall} />}
        </span>
    );
}

export function Sheet() {
    const now = project.value;
    const [by, setBy] = useState<'language' | 'theme'>('language');
    if (!now) return null;
    const names = by === 'language' ? now.languages : now.themes;
    const columns = names.length ? names : [''];
    const open = (view: string, name: string): void => {
        keep({ left: 'views' });
        sheet.value = false;
        show({ view, ...(name ? { [by]: name } : {}) });
    };
    return (
        <main class="centre" data-region="picture">
            <div class="tools" role="toolbar" aria-label={words.sheet}>
                <h2>{words.sheet}</h2>
                <span class="grow" />
                {(['language', 'theme'] as const).map((one) => (
                    <button
                        class={by === one ? 'chip on' : 'chip'}
                        aria-pressed={by === one}
                        onClick={() => setBy(one)}
                    >
                        {one === 'language' ? words.allLanguages : words.allThemes}
                    </button>
                ))}
                <button class="btn edge" onClick={() => (sheet.value = false)}>
                    {words.close}
                </button>
            </div>
            <div
                class="sheet"
                style={{ '--columns': columns.length }}
                tabIndex={0}
                role="group"
                aria-label={words.sheet}
            >
                {now.views.map((view) =>
                    columns.map((name) => {
                        const found = problems.value.filter((problem) => problem.view === view.name);
                        const errors = found.some((problem) => problem.error);
                        return (
                            <button class="sheet-view" onClick={() => open(view.name, name)}>
                                <Lazy
                                    view={view.name}
                                    language={by === 'language' ? name : shown.value.language}
                                    theme={by === 'theme' ? name : shown.value.theme}
                                />
                                <span class="sheet-name">
                                    <span class="grow clip">
                                        {view.name} {name && <span class="t3">{name}</span>}
                                    </span>
                                    {found.length > 0 && (
                                        <span class={errors ? 'pill e small' : 'pill w small'}>{found.length}</span>
                                    )}
                                </span>
                            </button>
                        );
                    }),
                )}
            </div>
        </main>
    );
}
