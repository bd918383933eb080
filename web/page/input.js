// The box into which everything is pasted, and what is said about it: as what it is read, what it holds.

import { copyButton } from './copying.js';
import { element, fill, say } from './elements.js';
import { examples } from './examples.js';
import { LIMIT, fromAddress, sizeOf, toAddress } from './source.js';
import { words } from './words.js';

const HELD_FROM = 1 << 16; // characters that are not put into the box, where they would slow it down
const KIBIBYTE = 1024;

function labelled(label, control) {
    return element('label', {}, element('span', {}, label), control);
}

export class Input {
    #onChange;
    #onRefused;
    #linked;
    #held = null; // a pasted log that is too long for the box

    #box = element('textarea', {
        id: 'source',
        class: 'source',
        rows: '3',
        spellcheck: 'false',
        autocomplete: 'off',
        autocapitalize: 'off',
        placeholder: words.input.placeholder,
        oninput: () => this.#edited(),
    });
    #holding = element('p', { class: 'holding', tabindex: '0', hidden: true });
    #status = element('p', { class: 'status', role: 'status' });
    #progress = element('progress', { max: '100', hidden: true, 'aria-label': words.status.progress });
    #file = element('input', {
        type: 'file',
        class: 'unseen',
        tabindex: '-1',
        'aria-hidden': 'true',
        onchange: () => this.#chosenFile(),
    });
    #kind = this.#select('kind', words.input.kinds);
    #direction = this.#select('direction', words.input.directions);
    #centre = this.#select('centre', words.input.centres);
    #ofPdus = element(
        'div',
        { class: 'readings', hidden: true },
        labelled(words.input.direction, this.#direction),
        labelled(words.input.centre, this.#centre),
    );

    /** `onRefused` is called where it is too much; `linked` gives what a link shows where all of it is too long. */
    constructor({ onChange, onRefused, linked }) {
        this.#onChange = onChange;
        this.#onRefused = onRefused;
        this.#linked = linked;
        this.element = element(
            'section',
            { class: 'panel input', 'aria-label': words.input.label },
            element('label', { class: 'unseen', for: 'source' }, words.input.label),
            this.#box,
            this.#holding,
            element('div', { class: 'tools' }, this.#status, this.#progress, this.#tools()),
            this.#examples(),
        );
        addEventListener('hashchange', () => this.openAddress());
        addEventListener('paste', (event) => this.#pasted(event));
        addEventListener('dragover', (event) => event.preventDefault());
        addEventListener('drop', (event) => this.#dropped(event));
    }

    get text() {
        return this.#held ?? this.#box.value.replace(/\p{Surrogate}/gu, '\ufffd'); // half of a character
    }

    /** "auto", "pdu", "cell" or "text". */
    get kind() {
        return this.#kind.value;
    }

    /** What somebody said about PDUs. */
    get options() {
        if (this.kind !== 'pdu') return {};
        return { direction: this.#direction.value || undefined, smsc: this.#centre.value || undefined };
    }

    focus() {
        (this.#held === null ? this.#box : this.#holding).focus({ preventScroll: true });
    }

    /** Says what the text is; `isFault` where it is none that can be shown. */
    say(text, isFault = false) {
        say(this.#status, text);
        this.#status.classList.toggle('fault', isFault);
        this.#progress.hidden = true;
    }

    sayProgress(percent) {
        this.say(words.status.reading);
        this.#progress.hidden = false;
        this.#progress.value = percent;
    }

    /** Shows what stands behind the address, which is read and never written; false where nothing does. */
    openAddress() {
        const given = fromAddress(location.hash);
        if (given?.text === '') return false;
        this.#choose(given?.options ?? {});
        this.#put(given?.text ?? '', given?.kind);
        if (!given) this.say(words.input.damaged, true);
        return true;
    }

    #choose({ direction = '', smsc = '' }) {
        this.#direction.value = direction;
        this.#centre.value = smsc;
    }

    #clear() {
        this.#choose({});
        this.#put('', 'auto');
        this.focus();
    }

    #edited() {
        if (this.#box.value.length <= HELD_FROM) {
            this.#changed();
            return;
        }
        this.#put(this.#box.value);
        this.focus();
    }

    #changed() {
        this.#ofPdus.hidden = this.kind !== 'pdu';
        this.#onChange();
    }

    /** What is too long for the box does not get there; what is pasted over a log that is not there takes its place. */
    #pasted(event) {
        const text = event.clipboardData.getData('text/plain');
        const isLong = event.target === this.#box && text.length > HELD_FROM;
        const isOver = this.#held !== null && !event.target.matches?.('input');
        if (!isLong && !isOver) return;
        event.preventDefault();
        this.#put(text);
        this.focus();
    }

    #dropped(event) {
        event.preventDefault();
        const [file] = event.dataTransfer.files;
        if (file) this.#open(file);
        else this.#put(event.dataTransfer.getData('text/plain'));
    }

    #chosenFile() {
        const [file] = this.#file.files;
        if (file) this.#open(file);
        this.#file.value = '';
    }

    async #open(file) {
        if (file.size > LIMIT) this.#refuse(file.size);
        else this.#put(await file.text());
    }

    #put(text, kind = this.kind) {
        const size = sizeOf(text);
        if (size > LIMIT) {
            this.#refuse(size);
            return;
        }
        this.#kind.value = kind;
        const isHeld = text.length > HELD_FROM;
        this.#hold(isHeld ? text : null);
        this.#box.value = isHeld ? '' : text;
        if (isHeld) {
            const measure = words.input.held(text.split('\n').length, Math.ceil(size / KIBIBYTE));
            fill(this.#holding, element('b', {}, words.input.heldLabel), ' ', measure);
        }
        this.#changed();
    }

    #refuse(size) {
        this.#hold(null);
        this.#box.value = '';
        this.#onRefused();
        this.say(words.input.refused(size / LIMIT), true);
    }

    #hold(text) {
        this.#held = text;
        this.#box.hidden = text !== null;
        this.#holding.hidden = text === null;
    }

    /** The page's own address, without what stood behind it. */
    #link() {
        return location.href.split('#')[0] + toAddress(this, this.#linked());
    }

    #select(name, options) {
        return element(
            'select',
            { name, onchange: () => this.#changed() },
            Object.entries(options).map(([value, word]) => element('option', { value }, word)),
        );
    }

    #tools() {
        const { readAs, open, link, linkTitle, clear } = words.input;
        return element(
            'div',
            { class: 'choices' },
            labelled(readAs, this.#kind),
            this.#ofPdus,
            element('button', { type: 'button', class: 'quiet', onclick: () => this.#file.click() }, open),
            this.#file,
            copyButton(link, () => this.#link(), linkTitle),
            element('button', { type: 'button', class: 'quiet', onclick: () => this.#clear() }, clear),
        );
    }

    #examples() {
        return element(
            'div',
            { class: 'examples', role: 'group', 'aria-label': words.examples.label },
            element('span', { 'aria-hidden': 'true' }, words.examples.label),
            examples.map(({ name, text }) =>
                element(
                    'button',
                    { type: 'button', class: 'chip', onclick: () => this.#put(text, 'auto') },
                    words.examples[name],
                ),
            ),
        );
    }
}
