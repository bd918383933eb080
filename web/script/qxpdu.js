// The commands as functions: a text and options in, objects out, as the tool writes them with --jsonl.
import { Commands, MOST_INPUT, wholeInput } from './module.js';

const WRONG_OPTIONS = 2;

/** 'ignore-time-zone' of ignoreTimeZone. */
const nameOf = (key) => key.replace(/[A-Z]/g, (letter) => `-${letter.toLowerCase()}`);

const given = (options = {}) =>
    Object.entries(options)
        .filter(([, value]) => value !== undefined && value !== null)
        .map(([key, value]) => [nameOf(key), value]);

/** {smsc: 'no', join: true} as '--smsc=no', '--join'. */
const wordsOf = (options) =>
    given(options)
        .filter(([, value]) => value !== false)
        .map(([name, value]) => (value === true ? `--${name}` : `--${name}=${value}`));

/** The object as JSON, without halves of characters. */
const jsonOf = (object) =>
    JSON.stringify(object, (name, value) =>
        typeof value === 'string' ? value.replaceAll(/\p{Surrogate}/gu, '\ufffd') : value);

const sizeOf = (text) => new TextEncoder().encode(text).length;

const objectsIn = (lines) => lines.split('\n').slice(0, -1).map((line) => JSON.parse(line));

/** The objects of a result, unless the options were wrong. */
function objectsOf({ status, output, messages }) {
    if (status === WRONG_OPTIONS)
        throw new TypeError(messages);
    return objectsIn(output);
}

/** Takes a log in pieces and gives the objects of what has come. */
class Reader {
    #session;

    constructor(session) {
        this.#session = session;
        objectsOf({ ...session, output: '' });
    }

    take(piece) {
        return objectsOf(this.#session.take(piece));
    }

    finish() {
        return objectsOf(this.#session.finish());
    }

    close() {
        this.#session.close();
    }
}

export class Qxpdu {
    #commands;

    constructor(module, random) {
        this.#commands = new Commands(module, random);
    }

    /** Any command of the tool, from text to text. */
    run(words, input = '') {
        return this.#commands.run(words, input);
    }

    /** Gives names to the characters that count() tells of. */
    setNames(rows) {
        this.#commands.setNames(rows);
    }

    decode(input, options) {
        return this.#convert('decode', input, options);
    }

    decodePages(input, options) {
        return this.#convert('cell', input, options);
    }

    inspect(input, options) {
        return this.#convert('inspect', input, options);
    }

    encode(text, options) {
        if (typeof (text ?? '') !== 'string')
            throw new TypeError('the text is no string');
        const object = jsonOf(Object.fromEntries(given({ ...options, text })));
        // JSON writes some characters as six. No text of so much fits into messages; the tool says how many it needs.
        return sizeOf(object) > MOST_INPUT && text
            ? this.#encodeByItself(text, options)
            : this.#convert('encode', object)[0];
    }

    count(text, options) {
        return this.#convert('count', wholeInput(text), options)[0];
    }

    /** The same as decode(), or with `cell` as decodePages(), of an input that comes in pieces. */
    reader({ cell, ...options } = {}) {
        return new Reader(this.#commands.open([cell ? 'cell' : 'decode', '--jsonl', ...wordsOf(options)]));
    }

    /** Whether nobody can have meant it as PDUs, nor has it from a modem. */
    isText(input) {
        return !this.#commands.mayHavePdu(input);
    }

    /** The text in a line, where a blank costs what an end of a line does. */
    #encodeByItself(text, options) {
        return this.#convert('encode', text.replaceAll(/[\r\n]/g, ' '), { ...options, lines: true })[0];
    }

    #convert(command, input, options) {
        return objectsOf(this.#commands.run([command, '--jsonl', ...wordsOf(options)], input));
    }
}
