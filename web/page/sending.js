// The PDUs that a text becomes, with what can be chosen about them.

import { copyButton } from './copying.js';
import { element, fill, say } from './elements.js';
import { spaced } from './fields.js';
import { words } from './words.js';

const EXAMPLE_NUMBER = '+12025550142'; // reserved for examples

const NUMBERS = { to: words.send.to, smsc: words.send.centre }; // fields in which a number can be wrong

/** What a modem takes: each command ends in a carriage return, each PDU in Ctrl+Z. */
export function commandsOf(pdus) {
    const commands = pdus.map(({ tpdu_length: length, octets }) => `${words.send.length(length)}\r${octets}\x1A`);
    return [`${words.send.mode}\r`, ...commands].join('');
}

/** What a fault is about: { field, what }, the name of a field of the form, or of another fault none. */
export function faultOf(error) {
    const [, field, what] = /^(?:(to|smsc): )?(.*)$/s.exec(error);
    return { field, what };
}

export class Sending {
    #onChange;
    #onShow;
    #form;
    #results;
    #fault = element('p', { id: 'send-fault', class: 'fault', 'aria-live': 'polite' });
    #copyAll = copyButton(words.send.copyAll, () => commandsOf(this.#pdus));
    #pdus = [];
    #shown = 0;
    #languages = new Set();
    #reference = Math.floor(Math.random() * 256); // one for the page, so that typing does not change it

    constructor(onChange, onShow) {
        this.#onChange = onChange;
        this.#onShow = onShow;
        this.#form = this.#makeForm();
        this.#results = element('div', { class: 'pdus' });
        this.element = element(
            'section',
            { class: 'panel sending', 'aria-labelledby': 'send-heading' },
            element(
                'header',
                { class: 'bar' },
                element('h2', { id: 'send-heading' }, words.send.heading),
                this.#copyAll,
            ),
            this.#form,
            this.#fault,
            this.#results,
        );
    }

    /** What counting and encoding take. */
    get options() {
        const { to, smsc, class: messageClass, validity, alphabet, report, replace } = this.#form.elements;
        return {
            to: to.value.trim() || EXAMPLE_NUMBER,
            smsc: smsc.value.trim(),
            class: messageClass.value,
            validity: validity.value,
            alphabet: alphabet.value,
            report: report.checked,
            replace: replace.checked,
            languages: [...this.#languages],
        };
    }

    /** Takes over what somebody chose elsewhere: { replace }, { languages }. */
    choose({ replace, languages }) {
        if (replace !== undefined) this.#form.elements.replace.checked = replace;
        if (languages !== undefined) {
            this.#languages = new Set(languages);
            for (const box of this.#form.querySelectorAll('[name=language]'))
                box.checked = this.#languages.has(box.value);
        }
        this.#onChange();
    }

    /** The options as the module takes them for a text; those that are not chosen are left out. */
    static countingOf({ alphabet, languages, replace }) {
        return {
            ...(alphabet && { alphabet }),
            ...(languages.length && { language: languages.join(',') }),
            ...(replace && { replace: true }),
        };
    }

    encodingOf(options) {
        const { to, smsc, validity, report } = options;
        return {
            ...Sending.countingOf(options),
            to,
            'concat-reference': this.#reference,
            ...(smsc && { smsc }),
            ...(validity && { validity }),
            ...(report && { 'status-report': true }),
            ...(options.class && { class: Number(options.class) }),
        };
    }

    /** `said` is a fault that is told elsewhere. */
    show({ pdus = [], error, warnings = [] }, said) {
        this.element.hidden = false;
        this.#copyAll.hidden = pdus.length === 0;
        this.#showFault(error === said ? '' : error);
        this.#pdus = pdus;
        this.#shown = Math.min(this.#shown, Math.max(pdus.length - 1, 0));
        fill(
            this.#results,
            warnings.map((warning) => element('p', { class: 'note' }, warning)),
            element(
                'ol',
                {},
                pdus.map((pdu, index) => this.#pdu(pdu, index)),
            ),
        );
        if (pdus.length) this.#onShow(pdus[this.#shown]);
    }

    /** Says what is wrong, which is announced, and ties it to the field that has it. */
    #showFault(error = '') {
        const { field: faulty, what } = faultOf(error);
        for (const name of Object.keys(NUMBERS)) {
            const field = this.#form.elements[name];
            field.setAttribute('aria-invalid', String(name === faulty));
            if (name === faulty) field.setAttribute('aria-describedby', this.#fault.id);
            else field.removeAttribute('aria-describedby');
        }
        say(this.#fault, faulty ? words.send.fault(NUMBERS[faulty], what) : what);
    }

    #pdu(pdu, index) {
        return element(
            'li',
            {},
            element(
                'header',
                {},
                element('code', { class: 'command' }, words.send.length(pdu.tpdu_length)),
                pdu.parts > 1 && element('span', { class: 'aside' }, words.message.part(pdu.part, pdu.parts)),
                element(
                    'button',
                    {
                        type: 'button',
                        class: 'quiet',
                        'aria-pressed': String(index === this.#shown),
                        onclick: () => this.#choosePdu(index),
                    },
                    index === this.#shown ? words.send.shown : words.send.show,
                ),
                copyButton(words.send.copy, () => pdu.octets),
            ),
            element('code', { class: 'digits' }, spaced(pdu.octets)),
        );
    }

    #choosePdu(index) {
        this.#shown = index;
        this.show({ pdus: this.#pdus });
        this.#results.querySelectorAll('[aria-pressed]')[index].focus();
    }

    #makeForm() {
        const changed = () => this.#onChange();
        const field = (label, control) => element('label', {}, element('span', {}, label), control);
        const choice = (name, options) =>
            element(
                'select',
                { name, onchange: changed },
                Object.entries(options)
                    .sort(([one], [other]) => (one === '' ? -1 : other === '' ? 1 : 0))
                    .map(([value, word]) => element('option', { value }, word)),
            );
        const box = (name, label, value, onchange) =>
            element(
                'label',
                { class: 'check' },
                element('input', { type: 'checkbox', name, value, onchange }),
                element('span', {}, label),
            );
        const { send } = words;
        return element(
            'form',
            { onsubmit: (event) => event.preventDefault() },
            element(
                'div',
                { class: 'choices' },
                field(
                    send.to,
                    element('input', {
                        name: 'to',
                        type: 'tel',
                        autocomplete: 'off',
                        placeholder: EXAMPLE_NUMBER,
                        oninput: changed,
                    }),
                ),
                field(
                    send.centre,
                    element('input', {
                        name: 'smsc',
                        type: 'tel',
                        autocomplete: 'off',
                        placeholder: send.centrePlaceholder,
                        oninput: changed,
                    }),
                ),
                field(send.class, choice('class', send.classes)),
                field(send.validity, choice('validity', send.validities)),
                field(send.alphabet, choice('alphabet', send.alphabets)),
            ),
            element(
                'div',
                { class: 'checks' },
                box('report', send.report, 'on', changed),
                box('replace', send.replace, 'on', changed),
            ),
            element(
                'fieldset',
                {},
                element('legend', {}, send.languages),
                element(
                    'div',
                    { class: 'checks' },
                    Object.entries(send.names).map(([code, name]) =>
                        box('language', name, code, ({ target }) => {
                            if (target.checked) this.#languages.add(code);
                            else this.#languages.delete(code);
                            changed();
                        }),
                    ),
                ),
            ),
        );
    }
}
