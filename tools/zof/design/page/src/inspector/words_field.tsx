// A text that is shown: itself, or the text of a language key, whose texts in all languages are edited below.
import { edit } from '../actions';
import { freeKey, keysOf, languageFile, languages, newKey, textOf } from '../texts/languages';
import { words } from '../words';
import { Input, type FieldProps, type Offer } from './input';
import { held, title, whole } from './subject';

/** The text of a key in one language, written with Enter or when the field is left. */
function Text({ language, at, text }: { language: string; at: string; text: string | undefined }) {
    const write = (value: string): void => {
        if (value !== (text ?? ''))
            void edit(words.textIn(at, language), [{ file: languageFile(language), path: at, value }]);
    };
    return (
        <label class="spoken">
            <span class="t2">{language}</span>
            <span class={text === undefined ? 'in wrong' : 'in'}>
                <input
                    aria-label={words.textIn(at, language)}
                    value={text ?? ''}
                    placeholder={words.missingText}
                    onChange={(event) => write(event.currentTarget.value)}
                    onKeyDown={(event) => {
                        if (event.key === 'Enter') write(event.currentTarget.value);
                        if (event.key === 'Escape') event.currentTarget.value = text ?? '';
                    }}
                />
            </span>
        </label>
    );
}

export function WordsField(props: FieldProps) {
    const { subject, row } = props;
    const { value } = held(subject, row);
    const text = typeof value === 'string' ? value : '';
    const key = text.startsWith('#') ? text.slice(1) : '';
    const label = words.labelOf(title(row.key.key), subject.name);
    const place = subject.places[0];

    const take = (name: string, content: string): void => {
        const uses = subject.places.map((one) => ({ file: one.file, path: whole(one, row.path), value: '#' + name }));
        void edit(label, [...newKey(name, content), ...uses]);
    };
    const offers = (typed: string): Offer[] => {
        if (!typed.startsWith('#')) return [];
        const name = typed.slice(1);
        const all = keysOf();
        const found = all
            .filter((one) => one.toLowerCase().includes(name.toLowerCase()))
            .map((one): Offer => ({ value: '#' + one, detail: textOf(one) ?? '' }));
        const fresh = /^[\w.-]+$/.test(name) && !all.includes(name);
        return fresh
            ? [...found, { value: words.newKey(name), run: () => take(name, key || !text ? name : text) }]
            : found;
    };
    return (
        <div class="field">
            <Input {...props} offers={offers} />
            {key &&
                [...languages.value].map(([language, texts]) => (
                    <Text key={`${language} ${key}`} language={language} at={key} text={texts.get(key)} />
                ))}
            {!key && text && place && !subject.make && languages.value.size > 0 && (
                <button class="link" onClick={() => take(freeKey(subject.name), text)}>
                    {words.makeKey}
                </button>
            )}
        </div>
    );
}
