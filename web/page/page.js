// The page: takes what is pasted, has it read, and shows it.

import { Counter } from './counter.js';
import { MessageList } from './list.js';
import { MessageView } from './bubble.js';
import { OctetMap } from './map.js';
import { Sending } from './sending.js';
import { copyButton } from './copying.js';
import { differencesOf, inspectionOf } from './messages.js';
import { element, fill, say } from './elements.js';
import { examples } from './examples.js';
import { load } from './engine.js';
import { octetsByLine, readAtOnce, readInSlices } from './reading.js';
import { AT_ONCE, LIMIT, fromAddress, likeliestKind, sizeOf, toAddress, withoutHalfOctet } from './source.js';
import { words } from './words.js';

const HELD_FROM = 1 << 16; // characters that are not put into the box, where they would slow it down
const LONGEST_LINK = 8000;

class Page {
    #engine = null;
    #held = null; // a pasted log that is too long for the box
    #messages = [];
    #chosen = 0;
    #part = 0;
    #run = 0; // counts the readings, so that one that is overtaken stops
    #how = {}; // as what it is read: { kind, options }
    #failed = null; // octets of what failed, by line
    #hasNames = false;
    #objects = {}; // what the JSON shows: { decoded, inspected }

    #box = element('textarea', {
        id: 'source',
        class: 'source',
        rows: '3',
        spellcheck: 'false',
        autocomplete: 'off',
        autocapitalize: 'off',
        placeholder: words.input.placeholder,
        oninput: () => this.#edited(),
        onpaste: (event) => this.#pasted(event),
    });
    #holding = element('p', { class: 'holding', hidden: true });
    #status = element('p', { class: 'status', role: 'status' });
    #progress = element('progress', { max: '100', hidden: true, 'aria-label': words.status.reading('…') });
    #kind = this.#select('kind', words.input.kinds);
    #direction = this.#select('direction', words.input.directions);
    #centre = this.#select('centre', words.input.centres);
    #readings = element(
        'div',
        { class: 'readings', hidden: true },
        this.#labelled(words.input.direction, this.#direction),
        this.#labelled(words.input.centre, this.#centre),
    );
    #list = new MessageList((index) => this.#choose(index));
    #view = new MessageView((part) => this.#choosePart(part));
    #map = new OctetMap();
    #counter = new Counter((options) => this.#sending.choose(options));
    #sending = new Sending(
        () => this.#read(),
        (pdu) =>
            this.#showOctets(
                this.#engine.inspect(pdu.octets, { smsc: 'yes', direction: 'from-mobile' })[0],
                pdu.alphabet,
            ),
    );
    #differences = element('section', { class: 'panel differences', 'aria-labelledby': 'differences-heading' });
    #json = this.#makeJson();

    #select(name, options) {
        return element(
            'select',
            { name, onchange: () => this.#read() },
            Object.entries(options).map(([value, word]) => element('option', { value }, word)),
        );
    }

    #labelled(label, control) {
        return element('label', {}, element('span', {}, label), control);
    }

    start() {
        document.title = words.title;
        document.body.append(
            element('header', { class: 'masthead' }, element('h1', {}, words.name), element('p', {}, words.tagline)),
            element(
                'main',
                {},
                element(
                    'section',
                    { class: 'panel input', 'aria-label': words.input.label },
                    element('label', { class: 'unseen', for: 'source' }, words.input.label),
                    this.#box,
                    this.#holding,
                    element(
                        'div',
                        { class: 'tools' },
                        this.#status,
                        this.#progress,
                        element(
                            'div',
                            { class: 'choices' },
                            this.#labelled(words.input.readAs, this.#kind),
                            this.#readings,
                            this.#makeOpen(),
                            copyButton(words.input.link, () => this.#link(), words.input.linkTitle),
                            element(
                                'button',
                                { type: 'button', class: 'quiet', onclick: () => this.#put('') },
                                words.input.clear,
                            ),
                        ),
                    ),
                    element(
                        'div',
                        { class: 'examples', role: 'group', 'aria-label': words.examples.label },
                        element('span', { 'aria-hidden': 'true' }, words.examples.label),
                        examples.map(({ name, text }) =>
                            element(
                                'button',
                                { type: 'button', class: 'chip', onclick: () => this.#put(text) },
                                words.examples[name],
                            ),
                        ),
                    ),
                ),
                this.#list.element,
                this.#view.element,
                this.#counter.element,
                this.#sending.element,
                this.#map.element,
                this.#differences,
                this.#json,
            ),
        );
        addEventListener('hashchange', () => this.#openAddress());
        addEventListener('dragover', (event) => event.preventDefault());
        addEventListener('drop', (event) => this.#dropped(event));
        this.#showNothing();
        say(this.#status, words.status.loading);
        load().then(
            (engine) => {
                this.#engine = engine;
                say(this.#status, '');
                if (!this.#openAddress()) this.#read();
            },
            (error) => say(this.#status, words.status.failed(error.message)),
        );
        this.#box.focus({ preventScroll: true });
    }

    // What comes in

    #edited() {
        if (this.#box.value.length > HELD_FROM) this.#put(this.#box.value);
        else this.#read();
    }

    #pasted(event) {
        const text = event.clipboardData.getData('text/plain');
        if (text.length <= HELD_FROM) return;
        event.preventDefault();
        this.#put(text);
    }

    #dropped(event) {
        event.preventDefault();
        const [file] = event.dataTransfer.files;
        if (file) this.#open(file);
        else this.#put(event.dataTransfer.getData('text/plain'));
    }

    async #open(file) {
        if (file.size > LIMIT) this.#refuse(file.size);
        else this.#put(await file.text());
    }

    #makeOpen() {
        const input = element('input', {
            type: 'file',
            class: 'unseen',
            tabindex: '-1',
            'aria-hidden': 'true',
            onchange: () => {
                if (input.files.length) this.#open(input.files[0]);
                input.value = '';
            },
        });
        return [
            element('button', { type: 'button', class: 'quiet', onclick: () => input.click() }, words.input.open),
            input,
        ];
    }

    /** The address is read, and never written. */
    #openAddress() {
        const given = fromAddress(location.hash);
        if (!given?.text) return false;
        this.#kind.value = given.kind;
        this.#put(given.text);
        return true;
    }

    #put(text) {
        const size = sizeOf(text);
        if (size > LIMIT) {
            this.#refuse(size);
            return;
        }
        const isHeld = text.length > HELD_FROM;
        this.#held = isHeld ? text : null;
        this.#box.value = isHeld ? '' : text;
        this.#box.hidden = isHeld;
        this.#holding.hidden = !isHeld;
        if (isHeld)
            fill(
                this.#holding,
                element('b', {}, words.input.heldLabel),
                ' ',
                words.input.held(text.split('\n').length, Math.ceil(size / 1024)),
            );
        this.#read();
    }

    #refuse(size) {
        this.#run++;
        this.#held = null;
        this.#box.value = '';
        this.#box.hidden = false;
        this.#holding.hidden = true;
        this.#showNothing();
        this.#complain(words.input.refused((size / LIMIT).toFixed(1)));
    }

    #complain(text) {
        say(this.#status, text);
        this.#status.classList.add('fault');
    }

    #link() {
        const part = this.#messages[this.#chosen]?.parts[this.#part];
        const whole = toAddress(this.#kind.value, this.#text);
        const isLong = whole.length > LONGEST_LINK && part?.octets;
        return location.href.split('#')[0] + (isLong ? toAddress(this.#kind.value, part.octets) : whole);
    }

    get #text() {
        return this.#held ?? this.#box.value;
    }

    // What is made of it

    #read() {
        if (!this.#engine) return;
        const run = ++this.#run;
        const text = this.#text;
        this.#progress.hidden = true;
        this.#status.classList.remove('fault');
        if (text.trim() === '') {
            this.#showNothing();
            return;
        }
        try {
            this.#readAs(text, run);
        } catch (error) {
            this.#showNothing();
            this.#complain(words.status.stumbled(error.message));
        }
    }

    #readAs(text, run) {
        const chosen = this.#kind.value;
        const kind = chosen === 'auto' ? likeliestKind(withoutHalfOctet(text), this.#engine) : chosen;
        this.#readings.hidden = chosen !== 'pdu';
        this.#setMode(kind);
        if (kind === 'text') this.#count(text);
        else this.#decode(text, { kind, options: chosen === 'pdu' ? this.#said : {} }, run);
    }

    /** What somebody said about the PDUs. */
    get #said() {
        return { direction: this.#direction.value || undefined, smsc: this.#centre.value || undefined };
    }

    #decode(text, how, run) {
        this.#chosen = 0;
        this.#part = 0;
        this.#how = how;
        this.#failed = null;
        if (text.length > AT_ONCE) {
            this.#messages = [];
            this.#list.show(this.#messages, 0);
            this.#showMessage();
            this.#decodeSlices(text, how, run);
            return;
        }
        this.#messages = readAtOnce(withoutHalfOctet(text), this.#engine, how);
        this.#list.show(this.#messages, 0);
        this.#finished();
    }

    async #decodeSlices(text, how, run) {
        this.#progress.hidden = false;
        for (const { messages, done } of readInSlices(text, this.#engine, how)) {
            this.#add(messages);
            const percent = Math.floor((100 * done) / text.length);
            this.#progress.value = percent;
            say(this.#status, words.status.reading(percent));
            await new Promise((resume) => setTimeout(resume));
            if (run !== this.#run) return;
        }
        this.#progress.hidden = true;
        this.#finished();
    }

    #add(messages) {
        const wasEmpty = !this.#messages.length;
        this.#messages.push(...messages);
        this.#list.add();
        if (wasEmpty && messages.length) this.#showMessage();
    }

    #finished() {
        const faults = this.#messages.filter(({ parts }) => parts[0]?.error).length;
        const numbers = this.#messages.length ? words.status.messages(this.#messages.length) : words.status.nothing;
        say(this.#status, faults && this.#messages.length > 1 ? `${numbers}, ${words.status.faults(faults)}` : numbers);
        this.#showMessage();
    }

    #count(text) {
        const options = this.#sending.options;
        const counted = this.#engine.count(text, Sending.countingOf(options));
        const encoded = this.#engine.encode(text, this.#sending.encodingOf(options));
        say(this.#status, words.status.text);
        this.#wantNames();
        this.#counter.show(counted.text ?? text, counted, options);
        this.#sending.show(encoded);
        this.#map.element.hidden = !encoded.pdus?.length;
        this.#showJson({ decoded: counted, inspected: encoded });
    }

    /** The names of characters are unpacked when a text is there for the first time. */
    #wantNames() {
        if (this.#hasNames) return;
        this.#hasNames = true;
        this.#engine.names().then(() => this.#read());
    }

    // What is shown

    #setMode(kind) {
        const isText = kind === 'text';
        this.#counter.element.hidden = !isText;
        this.#sending.element.hidden = !isText;
        if (isText) {
            this.#messages = [];
            this.#list.element.hidden = true;
            this.#view.element.hidden = true;
            this.#differences.hidden = true;
        }
    }

    #showNothing() {
        say(this.#status, '');
        this.#messages = [];
        this.#progress.hidden = true;
        for (const part of [
            this.#list.element,
            this.#view.element,
            this.#counter.element,
            this.#sending.element,
            this.#map.element,
            this.#differences,
            this.#json,
        ])
            part.hidden = true;
    }

    #choose(index) {
        this.#chosen = index;
        this.#part = 0;
        this.#list.choose(index);
        this.#showMessage();
    }

    #choosePart(part) {
        this.#part = part;
        this.#showMessage();
        this.#view.element.querySelectorAll('.tabs button')[part]?.focus();
    }

    #showMessage() {
        const message = this.#messages[this.#chosen];
        const object = message?.parts[this.#part] ?? message?.parts[0];
        this.#view.element.hidden = !message;
        if (!object) {
            this.#map.element.hidden = true;
            this.#differences.hidden = true;
            this.#json.hidden = true;
            return;
        }
        this.#view.show(message, this.#part);
        const octets = object.octets ?? (object.fault && this.#octetsOf(object));
        const inspected = octets && this.#engine.inspect(octets, inspectionOf(object, this.#how))[0];
        this.#map.element.hidden = !inspected?.map;
        if (inspected?.map) this.#showOctets(inspected, (object.tp_dcs ?? object.data_coding_scheme)?.alphabet);
        this.#showDifferences(object);
        this.#showJson({ decoded: message.joined ? [message.joined, ...message.parts] : object, inspected });
    }

    /** Of what failed: looked up once for the whole text, as only then is known what a log's headings say. */
    #octetsOf({ line }) {
        this.#failed ??= octetsByLine(this.#text, this.#engine, this.#how);
        return this.#failed.get(line);
    }

    #showOctets(inspected, alphabet) {
        this.#map.element.hidden = false;
        this.#map.show(inspected, alphabet === 'GSM 7-bit');
    }

    #showDifferences(object) {
        const differences = differencesOf(object);
        this.#differences.hidden = !differences.length;
        const { heading, intro, member, standard, host, rejected, accepted, nothing } = words.differences;
        const ofHost = ({ name, host: value }) =>
            ({ rejected, result: accepted })[name] ?? (value === '' ? nothing : value);
        fill(
            this.#differences,
            element('h2', { id: 'differences-heading' }, heading),
            element('p', { class: 'aside' }, intro),
            element(
                'table',
                {},
                element(
                    'thead',
                    {},
                    element(
                        'tr',
                        {},
                        [member, standard, host].map((column) => element('th', { scope: 'col' }, column)),
                    ),
                ),
                element(
                    'tbody',
                    {},
                    differences.map((difference) =>
                        element(
                            'tr',
                            {},
                            element('th', { scope: 'row' }, element('code', {}, difference.name)),
                            element(
                                'td',
                                { dir: 'auto' },
                                String(difference.standard === '' ? nothing : difference.standard),
                            ),
                            element('td', { dir: 'auto' }, String(ofHost(difference))),
                        ),
                    ),
                ),
            ),
        );
    }

    #makeJson() {
        const text = (name) => JSON.stringify(this.#objects[name], null, 2) ?? '';
        const code = element('pre', { tabindex: '0', 'aria-label': words.json.heading });
        const chosen = () => details.querySelector('[aria-pressed=true]').value;
        const draw = () => details.open && say(code, text(chosen()));
        const choice = (name, isFirst) =>
            element(
                'button',
                {
                    type: 'button',
                    value: name,
                    'aria-pressed': String(isFirst),
                    onclick: ({ currentTarget }) => {
                        for (const button of details.querySelectorAll('[aria-pressed]'))
                            button.setAttribute('aria-pressed', String(button === currentTarget));
                        draw();
                    },
                },
                words.json[name],
            );
        const details = element(
            'details',
            { class: 'panel json', ontoggle: draw },
            element('summary', {}, element('h2', {}, words.json.heading)),
            element(
                'div',
                { class: 'bar' },
                element(
                    'div',
                    { class: 'tabs', role: 'group', 'aria-label': words.json.heading },
                    choice('decoded', true),
                    choice('inspected', false),
                ),
                copyButton(words.json.copy, () => text(chosen())),
            ),
            code,
        );
        details.draw = draw;
        return details;
    }

    #showJson(objects) {
        this.#objects = objects;
        this.#json.hidden = false;
        this.#json.draw();
    }
}

new Page().start();
