// The messages of a log, a line for each.

import { element, say } from './elements.js';
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

function badgesOf(message) {
    const first = message.parts[0] ?? {};
    const missing = message.joined?.parts_missing ?? message.joined?.pages_missing ?? [];
    const remarks = message.parts.reduce((sum, part) => sum + (part.remarks?.length ?? 0), 0);
    return [
        missing.length > 0 &&
            element(
                'span',
                { class: 'tag fault' },
                words.list.missing(missing.length, message.parts.length + missing.length),
            ),
        !missing.length &&
            message.parts.length > 1 &&
            element('span', { class: 'tag' }, words.list.parts(message.parts.length)),
        isDuplicate(first) && element('span', { class: 'tag' }, words.list.duplicate(first.duplicate_of)),
        first.error && element('span', { class: 'tag fault' }, words.list.broken),
        remarks > 0 && element('span', { class: 'tag remark', title: words.remarks.heading }, `! ${remarks}`),
    ];
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

    show(messages) {
        this.#messages = messages;
        this.#chosen = 0;
        this.#drawn = AT_ONCE;
        this.#list.replaceChildren();
        this.add();
    }

    /** Draws those that have come since. */
    add() {
        this.element.hidden = this.#messages.length < 2;
        const end = Math.min(this.#drawn, this.#messages.length);
        for (let index = this.#list.children.length; index < end; index++)
            this.#list.append(this.#item(this.#messages[index], index));
        const left = this.#messages.length - end;
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

    #item(message, index) {
        const time = timeOf(message);
        const first = message.parts[0] ?? {};
        const isNamed = first.type !== undefined || message.joined;
        return element(
            'li',
            {},
            element(
                'button',
                { type: 'button', 'aria-pressed': String(index === this.#chosen) },
                element(
                    'span',
                    { class: 'top' },
                    isNamed && element('bdi', { class: 'who' }, whoOf(message)),
                    badgesOf(message),
                    element(
                        'span',
                        { class: 'when' },
                        time ? words.time(time) : first.line ? words.list.line(first.line) : '',
                    ),
                ),
                element('span', { class: 'summary', dir: 'auto' }, summaryOf(message)),
            ),
        );
    }
}
