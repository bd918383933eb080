// Buttons that copy something.

import { element, say } from './elements.js';
import { words } from './words.js';

const SHOWN_FOR = 1500; // ms

async function copy(text) {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        return copyBySelection(text); // where a page from a disk may not write to the clipboard
    }
}

function copyBySelection(text) {
    const focused = document.activeElement;
    const field = element('textarea', { class: 'unseen', 'aria-hidden': 'true', tabindex: '-1' });
    field.value = text;
    document.body.append(field);
    field.select();
    const isDone = document.execCommand('copy');
    field.remove();
    focused?.focus();
    return isDone;
}

/** A button that copies what `text()` gives, and says that it did. */
export function copyButton(label, text, title) {
    const said = element('span', { 'aria-live': 'polite' }, label);
    const button = element('button', { type: 'button', class: 'quiet', title }, said);
    let timer = 0;
    button.addEventListener('click', async () => {
        const isDone = await copy(text());
        say(said, isDone ? words.copy.done : words.copy.failed);
        clearTimeout(timer);
        timer = setTimeout(() => say(said, label), SHOWN_FOR);
    });
    return button;
}
