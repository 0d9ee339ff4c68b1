// What an action may be, word by word: `view`, then the views, then how they appear.
import { nameOf } from '../actions';
import { catalogue, typeOf } from '../catalogue';
import type { ArgumentName } from '../kinds';
import { controls, project, shown } from '../state';
import type { Offer } from './combo';

/** The names of controls as actions write them: those of other views with their view. */
function controlNames(keep: (type: string) => string[]): string[] {
    return controls.value
        .filter(({ path }) => !nameOf(path).startsWith('#')) // without a name it cannot be meant
        .flatMap(({ path, type }) => {
            const name = path.startsWith(shown.value.view + '/') ? nameOf(path) : path;
            return keep(type).map((field) => name + field);
        });
}

function argumentsOf(kind: ArgumentName | undefined): string[] {
    const now = project.value;
    switch (kind) {
        case 'view':
            return now?.views.map(({ name }) => name) ?? [];
        case 'slide':
            return catalogue.value.slides;
        case 'language':
            return now?.languages ?? [];
        case 'theme':
            return now?.themes ?? [];
        case 'control':
            return controlNames(() => ['']);
        case 'field':
            return controlNames((type) => typeOf(type)?.fields.map((field) => '.' + field) ?? []);
        default:
            return [];
    }
}

/** What may stand where the last word of an action is typed. */
export function actionOffers(typed: string): Offer[] {
    const done = typed.split(' ');
    const last = (done.pop() ?? '').toLowerCase();
    const word = done[0];
    if (word === undefined) {
        return catalogue.value.actions
            .filter((action) => `${action.word} ${action.help}`.toLowerCase().includes(last))
            .map((action) => ({
                value: action.args.length ? action.word + ' ' : action.word,
                detail: `${action.form} · ${action.help}`.replace(/^ · /, ''),
                more: action.args.length > 0,
            }));
    }
    const action = catalogue.value.actions.find((one) => one.word === word);
    const count = done.length; // with the one that is offered
    return argumentsOf(action?.args[count - 1])
        .filter((name) => name.toLowerCase().includes(last))
        .map((name) => {
            const value = [...done, name].join(' ');
            const needed = (action?.least ?? 0) > count;
            return { value: needed ? value + ' ' : value, more: needed };
        });
}
