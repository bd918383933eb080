// Buttons that copy something.

import { element, say } from './elements.js';
import { words } from './words.js';

const SHOWN_FOR = 1500; // ms

let region = null;

/** Where all buttons say to screen readers that something was copied; it is there before anything is said. */
function sharedRegion() {
    region ??= document.body.appendChild(element('div', { class: 'unseen', 'aria-live': 'polite' }));
    return region;
}

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

/** Copies what `text()` gives; false where that cannot be made or is nothing. */
async function hasCopied(text) {
    try {
        const made = text();
        return made !== '' && (await copy(made));
    } catch {
        return false;
    }
}

/** A button that copies what `text()` gives, and says that it did. Its name stays while it does. */
export function copyButton(label, text, title) {
    const status = sharedRegion();
    const button = element('button', { type: 'button', class: 'quiet', title, 'aria-label': label }, label);
    let timer = 0;
    button.addEventListener('click', async () => {
        const said = (await hasCopied(text)) ? words.copy.done : words.copy.failed;
        say(button, said);
        say(status, said);
        clearTimeout(timer);
        timer = setTimeout(() => {
            say(button, label);
            say(status, '');
        }, SHOWN_FOR);
    });
    return button;
}
