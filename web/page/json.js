// The JSON of what is shown, to read and to copy.

import { copyButton } from './copying.js';
import { element, reconcile, say } from './elements.js';
import { words } from './words.js';

export class JsonView {
    #objects = {};
    #chosen;
    #code = element('pre', { tabindex: '0', 'aria-label': words.json.heading });
    #choices = element('div', { class: 'tabs', role: 'group', 'aria-label': words.json.heading });

    constructor() {
        this.element = element(
            'details',
            { class: 'panel json', ontoggle: () => this.#draw() },
            element('summary', {}, element('h2', {}, words.json.heading)),
            element(
                'div',
                { class: 'bar' },
                this.#choices,
                copyButton(words.json.copy, () => this.#text),
            ),
            this.#code,
        );
    }

    /** Objects by the names of their words; the first is chosen. They are written out only where they are seen. */
    show(objects) {
        this.#objects = objects;
        const names = Object.keys(objects);
        reconcile(this.#choices, names, String, (name) => this.#choice(name));
        if (!names.includes(this.#chosen)) this.#choose(names[0]);
        this.element.hidden = false;
        this.#draw();
    }

    get #text() {
        return JSON.stringify(this.#objects[this.#chosen], null, 2) ?? '';
    }

    #choice(name) {
        const onclick = () => this.#choose(name);
        return element('button', { type: 'button', 'aria-pressed': 'false', onclick }, words.json.names[name]);
    }

    #choose(name) {
        this.#chosen = name;
        for (const choice of this.#choices.children)
            choice.setAttribute('aria-pressed', String(choice.textContent === words.json.names[name]));
        this.#draw();
    }

    #draw() {
        if (this.element?.open) say(this.#code, this.#text);
    }
}
