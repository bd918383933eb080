// The commands as functions: a text and options in, objects out, as the tool writes them with --jsonl.
import { Commands } from './module.js';

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
        const members = given({ ...options, text });
        return this.#convert('encode', JSON.stringify(Object.fromEntries(members)))[0];
    }

    count(text, options) {
        return this.#convert('count', text, options)[0];
    }

    /** The same as decode(), or with `cell` as decodePages(), of an input that comes in pieces. */
    reader({ cell, ...options } = {}) {
        return new Reader(this.#commands.open([cell ? 'cell' : 'decode', '--jsonl', ...wordsOf(options)]));
    }

    /** Whether nobody can have meant it as PDUs, nor has it from a modem. */
    isText(input) {
        return !this.#commands.mayHavePdu(input);
    }

    #convert(command, input, options) {
        return objectsOf(this.run([command, '--jsonl', ...wordsOf(options)], input));
    }
}
