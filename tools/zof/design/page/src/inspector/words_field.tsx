// A text that is shown: itself, or the text of a language key, whose texts in all languages are edited below.
import { edit } from '../actions';
import { freeKey, keysOf, languageFile, languages, newKey, textOf } from '../texts/languages';
import { words } from '../words';
import type { Offer } from './combo';
import { Input, type FieldProps } from './input';
import { held, labelOf, whole } from './subject';

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

/** The keys that contain what is typed after a "#", each with its text. */
export const keyOffers = (typed: string): Offer[] =>
    typed.startsWith('#')
        ? keysOf()
              .filter((one) => one.toLowerCase().includes(typed.slice(1).toLowerCase()))
              .map((one) => ({ value: '#' + one, detail: textOf(one) ?? '' }))
        : [];

export function WordsField(props: FieldProps) {
    const { subject, row } = props;
    const { value } = held(subject, row);
    const text = typeof value === 'string' ? value : '';
    const key = text.startsWith('#') ? text.slice(1) : '';
    const label = words.labelOf(labelOf(row.key), subject.name);
    const place = subject.places[0];

    const take = (name: string, content: string): void => {
        const uses = subject.places.map((one) => ({ file: one.file, path: whole(one, row.path), value: '#' + name }));
        void edit(label, [...newKey(name, content), ...uses]);
    };
    const offers = (typed: string): Offer[] => {
        const name = typed.slice(1);
        const fresh = /^#[\w.-]+$/.test(typed) && !keysOf().includes(name);
        const make = { value: words.newKey(name), run: () => take(name, key || !text ? name : text) };
        return fresh ? [...keyOffers(typed), make] : keyOffers(typed);
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
