// The page: has what is pasted read, and shows what that is.

import { Counter } from './counter.js';
import { Differences, differencesOfCounts } from './differences.js';
import { Input } from './input.js';
import { JsonView } from './json.js';
import { MessageList } from './list.js';
import { MessageView } from './bubble.js';
import { OctetMap } from './map.js';
import { Sending } from './sending.js';
import { differencesOf, inspectionOf } from './messages.js';
import { element } from './elements.js';
import { load } from './engine.js';
import { octetsByLine, octetsIn, readAtOnce, readInSlices, stillChosen } from './reading.js';
import { AT_ONCE, recognise, withoutHalfOctet } from './source.js';
import { words } from './words.js';

class Page {
    #engine = null;
    #hasNames = false;
    #run = 0; // counts the readings, so that one that is overtaken stops
    #text = ''; // without half an octet at its end
    #how = {}; // as what the text is read: { kind, options, objects }
    #messages = [];
    #before = []; // those of the text before it was edited
    #chosen = 0;
    #part = 0;
    #failed = null; // octets of what failed, by line

    #input = new Input({
        onChange: () => this.#read(),
        onRefused: () => this.#refused(),
        linked: () => this.#messages[this.#chosen]?.parts[this.#part]?.octets,
    });
    #list = new MessageList((index) => this.#choose(index));
    #view = new MessageView((part) => this.#choosePart(part));
    #counter = new Counter((options) => this.#sending.choose(options));
    #sending = new Sending(
        () => this.#read(),
        (pdu) => this.#showOctets(pdu.octets, { smsc: 'yes', direction: 'from-mobile' }, pdu.alphabet),
    );
    #map = new OctetMap();
    #differences = new Differences();
    #json = new JsonView();
    #ofMessages = [this.#list, this.#view];
    #ofTexts = [this.#counter, this.#sending];
    #ofBoth = [this.#map, this.#differences, this.#json];
    #panels = [...this.#ofMessages, ...this.#ofTexts, ...this.#ofBoth];

    start() {
        document.title = words.title;
        document.body.append(
            element('header', { class: 'masthead' }, element('h1', {}, words.name), element('p', {}, words.tagline)),
            element(
                'main',
                {},
                [this.#input, ...this.#panels].map((panel) => panel.element),
            ),
        );
        this.#hide(this.#panels);
        this.#input.say(words.status.loading);
        this.#input.focus();
        load().then(
            (engine) => {
                this.#engine = engine;
                this.#input.say('');
                if (!this.#input.openAddress()) this.#read();
            },
            (error) => this.#input.say(words.status.failed(error.message), true),
        );
    }

    #read() {
        if (!this.#engine) return;
        const run = ++this.#run;
        const { text, kind, options } = this.#input;
        this.#before = this.#messages;
        this.#messages = [];
        this.#failed = null;
        if (text.trim() === '') {
            this.#input.say('');
            this.#hide(this.#panels);
            return;
        }
        try {
            this.#text = withoutHalfOctet(text);
            this.#how = { options, ...(kind === 'auto' ? recognise(this.#text, this.#engine) : { kind }) };
            if (this.#how.kind === 'text') this.#count(text);
            else if (text.length > AT_ONCE) this.#decodeSlices(text, run).catch((error) => this.#stumbled(error));
            else this.#decode(this.#text);
        } catch (error) {
            this.#stumbled(error);
        }
    }

    #stumbled(error) {
        this.#hide(this.#panels);
        this.#input.say(words.status.stumbled(error.message), true);
    }

    #refused() {
        this.#run++;
        this.#messages = [];
        this.#hide(this.#panels);
    }

    #hide(panels) {
        for (const panel of panels) panel.element.hidden = true;
    }

    // Messages

    #decode(text) {
        const { messages, passedOver } = readAtOnce(text, this.#engine, this.#how);
        this.#begin(messages, stillChosen(this.#before, this.#chosen, messages));
        this.#finished(passedOver);
    }

    /** Shows the one that was chosen and is still there, else the first. */
    #begin(messages, still = -1) {
        this.#messages = messages;
        this.#chosen = Math.max(still, 0);
        this.#part = still < 0 ? 0 : Math.min(this.#part, messages[still].parts.length - 1);
        this.#hide(this.#ofTexts);
        this.#list.show(messages, this.#chosen);
    }

    async #decodeSlices(text, run) {
        this.#begin([]);
        this.#showMessage();
        let passed = 0;
        for (const { messages, passedOver, done } of readInSlices(text, this.#engine, this.#how)) {
            const isFirst = this.#messages.length === 0 && messages.length > 0;
            passed += passedOver;
            this.#messages.push(...messages);
            this.#list.add();
            if (isFirst) this.#showMessage();
            this.#input.sayProgress(Math.floor((100 * done) / text.length));
            await new Promise((resume) => setTimeout(resume));
            if (run !== this.#run) return;
        }
        this.#finished(passed);
    }

    #finished(passedOver) {
        const faults = this.#messages.filter(({ parts }) => parts[0]?.error).length;
        this.#input.say(words.status.found(this.#messages.length, faults, passedOver));
        this.#showMessage();
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
        this.#view.focusPart(part);
    }

    #showMessage() {
        const message = this.#messages[this.#chosen];
        const object = message?.parts[this.#part];
        if (!object) {
            this.#hide([this.#view, ...this.#ofBoth]);
            return;
        }
        this.#view.show(message, this.#part);
        const octets = object.octets ?? (object.fault && this.#octetsOf(object));
        const alphabet = (object.tp_dcs ?? object.data_coding_scheme)?.alphabet;
        const inspected = this.#showOctets(octets, inspectionOf(object, this.#how), alphabet);
        this.#differences.show(differencesOf(object));
        this.#json.show({ decoded: message.joined ? [message.joined, ...message.parts] : object, inspected });
    }

    /** Of what failed: looked up once for the whole text, as only then is known what a log's headings say. */
    #octetsOf({ line }) {
        this.#failed ??= octetsByLine(this.#text, this.#engine, this.#how);
        return this.#failed.get(line) ?? octetsIn(this.#text.split('\n')[line - 1], this.#engine, this.#how);
    }

    /** Shows the octet map, and gives what it is made of. */
    #showOctets(octets, options, alphabet) {
        const inspected = octets ? this.#engine.inspect(octets, options)[0] : undefined;
        this.#map.element.hidden = !inspected?.map;
        if (inspected?.map) this.#map.show(inspected, alphabet === 'GSM 7-bit');
        return inspected;
    }

    // Texts

    #count(text) {
        const { options } = this.#sending;
        const counting = Sending.countingOf(options);
        const counted = this.#engine.count(text, counting);
        const encoded = this.#engine.encode(text, this.#sending.encodingOf(options));
        this.#hide(this.#ofMessages);
        this.#input.say(words.status.text);
        this.#counter.show(counted.text ?? text, counted, options);
        this.#sending.show(encoded, counted.error);
        this.#map.element.hidden = !encoded.pdus?.length;
        this.#json.show({ counted, encoded });
        this.#differences.show(this.#differencesOf(text, counted, counting));
        this.#wantNames();
    }

    /** libQX_Encoding has no choice of tables, alphabets and near characters. */
    #differencesOf(text, counted, counting) {
        const isAsItIs = Object.keys(counting).length === 0;
        return isAsItIs ? differencesOfCounts(counted, this.#engine.count(text, { as: 'libQX_Encoding' })) : [];
    }

    /** The names of characters are unpacked when a text is there for the first time. */
    #wantNames() {
        if (this.#hasNames) return;
        this.#hasNames = true;
        this.#engine.names().then(
            () => this.#countAgain(),
            (error) => this.#countAgain() && this.#input.say(words.status.nameless(error.message), true),
        );
    }

    /** Whether a text is still there. */
    #countAgain() {
        const isText = this.#how.kind === 'text' && this.#input.text.trim() !== '';
        if (isText) this.#read();
        return isText;
    }
}

new Page().start();
