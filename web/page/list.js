// The messages of a log, a line for each.

import { element, reconcile, say } from './elements.js';
import { contentOf, isDuplicate, timeOf } from './messages.js';
import { whoOf } from './bubble.js';
import { words } from './words.js';

const AT_ONCE = 100; // lines that are drawn until more are asked for

function summaryOf(message) {
    const first = message.parts[0] ?? {};
    if (first.error) return first.error;
    const { text, data } = contentOf(message);
    if (text) return text;
    if (data) return data;
    return (first.tp_st ?? first.tp_fcs ?? first.tp_ct ?? first.warning_type)?.meaning ?? first.warnings?.[0] ?? '';
}

/** Tags as [class, words, title]. */
function tagsOf(message) {
    const first = message.parts[0] ?? {};
    const missing = message.joined?.parts_missing ?? message.joined?.pages_missing ?? [];
    const parts = message.parts.length;
    const remarks = message.parts.reduce((sum, part) => sum + (part.remarks?.length ?? 0), 0);
    return [
        missing.length > 0 && ['tag fault', words.list.missing(missing.length, parts + missing.length)],
        !missing.length && parts > 1 && ['tag', words.list.parts(parts)],
        isDuplicate(first) && ['tag', words.list.duplicate(first.duplicate_of)],
        first.error && ['tag fault', words.list.broken],
        remarks > 0 && ['tag remark', `! ${remarks}`, words.remarks.heading],
    ].filter(Boolean);
}

/** All that its line says. */
function lineOf(message) {
    const first = message.parts[0] ?? {};
    const time = timeOf(message);
    return {
        who: (first.type !== undefined || message.joined) && whoOf(message),
        tags: tagsOf(message),
        when: time ? words.time(time) : first.line ? words.list.line(first.line) : '',
        summary: summaryOf(message),
    };
}

export class MessageList {
    #onChoose;
    #list;
    #more;
    #messages = [];
    #chosen = 0;
    #drawn = AT_ONCE;

    constructor(onChoose) {
        this.#onChoose = onChoose;
        this.#list = element('ol', { class: 'messages' });
        this.#more = element('button', { type: 'button', class: 'quiet more', onclick: () => this.#showMore() });
        this.element = element(
            'section',
            { class: 'panel list', 'aria-labelledby': 'list-heading' },
            element('header', { class: 'bar' }, element('h2', { id: 'list-heading' }, words.list.heading)),
            element(
                'div',
                { class: 'scrolled', tabindex: '0', role: 'group', 'aria-labelledby': 'list-heading' },
                this.#list,
                this.#more,
            ),
        );
        this.#list.addEventListener('click', ({ target }) => {
            const item = target.closest('li');
            if (item) this.#onChoose([...this.#list.children].indexOf(item));
        });
        this.#list.addEventListener('keydown', (event) => this.#walk(event));
    }

    show(messages, chosen) {
        this.#messages = messages;
        this.#drawn = AT_ONCE * Math.ceil((chosen + 1) / AT_ONCE);
        this.add();
        this.choose(chosen);
    }

    /** Draws those that have come since; lines that say the same stay. */
    add() {
        this.element.hidden = this.#messages.length < 2;
        const lines = this.#messages.slice(0, this.#drawn).map(lineOf);
        reconcile(this.#list, lines, (line) => JSON.stringify(line), (line, index) => this.#item(line, index));
        const left = this.#messages.length - lines.length;
        this.#more.hidden = left === 0;
        say(this.#more, words.list.more(left));
    }

    choose(index) {
        this.#button(this.#chosen)?.setAttribute('aria-pressed', 'false');
        this.#button(index)?.setAttribute('aria-pressed', 'true');
        this.#chosen = index;
    }

    #button(index) {
        return this.#list.children[index]?.firstChild;
    }

    #showMore() {
        const first = this.#list.children.length;
        this.#drawn += AT_ONCE;
        this.add();
        this.#button(first)?.focus();
    }

    #walk(event) {
        const step = { ArrowUp: -1, ArrowDown: 1 }[event.key];
        const next = step && this.#button([...this.#list.children].indexOf(event.target.closest('li')) + step);
        if (!next) return;
        event.preventDefault();
        next.focus();
    }

    #item({ who, tags, when, summary }, index) {
        return element(
            'li',
            {},
            element(
                'button',
                { type: 'button', 'aria-pressed': String(index === this.#chosen) },
                element(
                    'span',
                    { class: 'top' },
                    who && element('bdi', { class: 'who' }, who),
                    tags.map(([name, text, title]) => element('span', { class: name, title }, text)),
                    element('span', { class: 'when' }, when),
                ),
                element('span', { class: 'summary', dir: 'auto' }, summary),
            ),
        );
    }
}
