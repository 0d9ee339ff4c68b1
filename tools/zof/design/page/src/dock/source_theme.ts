// The editor in the colours of the page.
import { HighlightStyle, syntaxHighlighting } from '@codemirror/language';
import { EditorView } from '@codemirror/view';
import { tags } from '@lezer/highlight';

const look = EditorView.theme({
    '&': { height: '100%', backgroundColor: 'var(--raised)', color: 'var(--text)', fontSize: '12px' },
    '&.cm-focused': { outline: 'none' },
    '.cm-scroller': { fontFamily: 'var(--mono)', lineHeight: '19px' },
    '.cm-content': { padding: '5px 0', caretColor: 'var(--text)' },
    '.cm-gutters': { backgroundColor: 'var(--raised)', color: 'var(--text-3)', border: 'none', fontSize: '11px' },
    '.cm-lineNumbers .cm-gutterElement': { minWidth: '36px', padding: '0 12px 0 8px' },
    '.cm-activeLine, .cm-activeLineGutter': { backgroundColor: 'transparent' },
    '&.cm-focused .cm-activeLine': { backgroundColor: 'var(--hover)' },
    '.cm-cursor': { borderLeftColor: 'var(--text)' },
    '&.cm-focused .cm-selectionBackground, .cm-selectionBackground, ::selection': {
        backgroundColor: 'var(--selected)',
    },
    '.cm-chosen': { backgroundColor: 'var(--own-bg)' },
    '.cm-changed': { backgroundColor: 'var(--add-bg)', boxShadow: '0 0 0 1px var(--ok)', borderRadius: '2px' },
    '.cm-was': {
        backgroundColor: 'var(--del-bg)',
        textDecoration: 'line-through',
        borderRadius: '2px',
        padding: '1px 2px',
        marginRight: '4px',
    },
    '.cm-swatch': {
        display: 'inline-block',
        width: '10px',
        height: '10px',
        borderRadius: '2px',
        margin: '0 4px 0 1px',
        boxShadow: '0 0 0 1px rgb(128 128 128 / .6)',
        verticalAlign: '-1px',
    },
    '.cm-panels': { backgroundColor: 'var(--chrome)', color: 'var(--text)', borderColor: 'var(--line)' },
    '.cm-textfield': { backgroundColor: 'var(--raised)', color: 'var(--text)', border: '1px solid var(--edge)' },
    '.cm-button': { backgroundImage: 'none', backgroundColor: 'var(--raised)', border: '1px solid var(--edge)' },
    '.cm-tooltip': {
        backgroundColor: 'var(--raised)',
        color: 'var(--text)',
        border: 'none',
        boxShadow: 'var(--shadow-2)',
    },
    '.cm-tooltip-autocomplete > ul > li[aria-selected]': { backgroundColor: 'var(--selected)', color: 'var(--text)' },
    '.cm-completionDetail': { color: 'var(--text-2)', fontStyle: 'normal', marginLeft: '10px' },
    '.cm-completionInfo': { maxWidth: '320px', padding: '6px 10px' },
    '.cm-searchMatch': { backgroundColor: 'var(--warn-bg)' },
    '.cm-searchMatch-selected': { backgroundColor: 'var(--selected)' },
});

const colours = HighlightStyle.define([
    { tag: tags.propertyName, color: 'var(--syn-key)' },
    { tag: tags.number, color: 'var(--syn-num)' },
    { tag: [tags.bool, tags.null], color: 'var(--syn-num)' },
    { tag: tags.string, color: 'var(--syn-str)' },
    { tag: [tags.punctuation, tags.separator, tags.squareBracket, tags.brace], color: 'var(--syn-punct)' },
]);

export const sourceTheme = [look, syntaxHighlighting(colours)];
