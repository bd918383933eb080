// The JSON of what is shown, to read and to copy.

import { copyButton } from './copying.js';
import { element, say } from './elements.js';
import { words } from './words.js';

export class JsonView {
    #objects = {};
    #chosen = 'decoded';
    #code = element('pre', { tabindex: '0', 'aria-label': words.json.heading });
    #choices = ['decoded', 'inspected'].map((name) =>
        element('button', { type: 'button', value: name, onclick: () => this.#choose(name) }, words.json[name]),
    );

    constructor() {
        this.element = element(
            'details',
            { class: 'panel json', ontoggle: () => this.#draw() },
            element('summary', {}, element('h2', {}, words.json.heading)),
            element(
                'div',
                { class: 'bar' },
                element('div', { class: 'tabs', role: 'group', 'aria-label': words.json.heading }, this.#choices),
                copyButton(words.json.copy, () => this.#text),
            ),
            this.#code,
        );
        this.#choose(this.#chosen);
    }

    /** { decoded, inspected }; it is written out only where it is seen. */
    show(objects) {
        this.#objects = objects;
        this.element.hidden = false;
        this.#draw();
    }

    get #text() {
        return JSON.stringify(this.#objects[this.#chosen], null, 2) ?? '';
    }

    #choose(name) {
        this.#chosen = name;
        for (const choice of this.#choices) choice.setAttribute('aria-pressed', String(choice.value === name));
        this.#draw();
    }

    #draw() {
        if (this.element?.open) say(this.#code, this.#text);
    }
}
