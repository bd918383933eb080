// The module of WebAssembly: the commands of qxpdu without their terminal, text in and text out.

/** Octets of input of one call. A log of more may be given in pieces. */
export const MOST_INPUT = 1 << 20;

const ENOSYS = 52;
const decoder = new TextDecoder();
const encoder = new TextEncoder();

/** What the module asks of a system: it gets the time, chance, and nothing else. */
function systemFor(instance, random) {
    const octets = (place, size) => new Uint8Array(instance.exports.memory.buffer, place, size);
    return {
        clock_time_get(clock, precision, place) {
            new DataView(instance.exports.memory.buffer).setBigUint64(place, BigInt(Date.now()) * 1000000n, true);
            return 0;
        },
        getentropy(place, size) {
            random.getRandomValues(octets(place, size));
            return 0;
        },
        environ_sizes_get(count, size) {
            octets(count, 4).fill(0);
            octets(size, 4).fill(0);
            return 0;
        },
        proc_exit(status) {
            throw new Error(`the module ended with ${status}`);
        },
    };
}

/** One instance; what it throws ends its life. */
class Instance {
    #hasNames = false;

    constructor(module, random) {
        const system = systemFor(this, random);
        const imports = {};
        for (const { module: room, name } of WebAssembly.Module.imports(module))
            (imports[room] ??= {})[name] = system[name] ?? (() => -ENOSYS);
        this.exports = new WebAssembly.Instance(module, imports).exports;
        this.exports._initialize();
    }

    /** The result of `use`, with names of characters where there are any. */
    named(use, names) {
        const result = use();
        if (!result.lacksNames || this.#hasNames || !names)
            return result;
        this.with([names()], this.exports.setNames);
        this.#hasNames = true;
        return use();
    }

    /** Calls `use` with the places and sizes of octets in the module's memory. */
    with(pieces, use) {
        const places = pieces.map((octets) => this.#copied(octets));
        const result = use(...pieces.flatMap((octets, index) => [places[index], octets.length]));
        places.forEach((place) => this.exports.free(place));
        return result;
    }

    resultAt(place) {
        const [output, outputSize, messages, messagesSize, status, lacksNames] =
            new Int32Array(this.exports.memory.buffer, place, 6);
        return {
            status,
            output: this.#text(output, outputSize),
            messages: this.#text(messages, messagesSize),
            lacksNames: lacksNames !== 0,
        };
    }

    #copied(octets) {
        const place = this.exports.malloc(octets.length + 1);
        if (place === 0)
            throw new RangeError('no memory for the input');
        new Uint8Array(this.exports.memory.buffer, place, octets.length).set(octets);
        return place;
    }

    #text(place, size) {
        return decoder.decode(new Uint8Array(this.exports.memory.buffer, place, size));
    }
}

/** One of another window or context is one too. */
const isOctets = (input) => ArrayBuffer.isView(input) && input[Symbol.toStringTag] === 'Uint8Array';

function octetsOf(input) {
    if (typeof input === 'string')
        return encoder.encode(input);
    if (!isOctets(input))
        throw new TypeError('the input is neither a string nor a Uint8Array');
    return input;
}

/** A list of words for the module: each ended by a NUL. */
const octetsOfWords = (words) => octetsOf(words.map((word) => `${word}\0`).join(''));

function checked(octets) {
    if (octets.length > MOST_INPUT)
        throw new RangeError(`the input has ${octets.length} octets, ${MOST_INPUT} are the most`);
    return octets;
}

const LINE_FEED = 0x0a;

/** A text as standard input of a command that takes it whole, and leaves out the line feed at its end. */
export function wholeInput(text) {
    const octets = octetsOf(text);
    if (octets.at(-1) !== LINE_FEED)
        return octets;
    const ended = new Uint8Array(octets.length + 1).fill(LINE_FEED);
    ended.set(octets);
    return ended;
}

/** A command whose input comes in pieces. */
class Session {
    #commands;
    #instance;
    #session;
    #kept = ''; // the first half of a character

    constructor(commands, words) {
        this.#commands = commands;
        const result = commands.guarded((instance) => {
            this.#instance = instance;
            this.#session = instance.exports.open();
            const given = octetsOfWords(words);
            return instance.resultAt(instance.with([given], (...place) => instance.exports.begin(this.#session, ...place)));
        });
        this.status = result.status;
        this.messages = result.messages;
        if (this.status !== 0)
            this.close();
    }

    /** The output of what has come. */
    take(text) {
        if (typeof text !== 'string')
            throw new TypeError('the piece is no string');
        const whole = this.#kept + text;
        const isHalf = /[\ud800-\udbff]$/.test(whole);
        this.#kept = isHalf ? whole.slice(-1) : '';
        return this.#give(isHalf ? whole.slice(0, -1) : whole, false);
    }

    /** The output of what is left; the session is closed. */
    finish() {
        const result = this.#give(this.#kept, true);
        this.close();
        return result;
    }

    close() {
        const session = this.#session;
        this.#session = 0;
        if (session && this.#commands.isUsing(this.#instance))
            this.#commands.guarded(({ exports }) => exports.close(session));
    }

    #give(text, isLast) {
        if (!this.#session)
            throw new Error('the reader is closed');
        if (!this.#commands.isUsing(this.#instance))
            throw new Error('what came before is lost');
        const given = [checked(octetsOf(text))];
        return this.#commands.guarded((instance) =>
            instance.resultAt(instance.with(given, (...place) =>
                instance.exports.take(this.#session, ...place, isLast ? 1 : 0))));
    }
}

export class Commands {
    #module;
    #random;
    #instance;
    #names;

    /**
     * @param {WebAssembly.Module} module
     * @param {Crypto} random  where references of parts come from
     */
    constructor(module, random = globalThis.crypto) {
        this.#module = module;
        this.#random = random;
    }

    /** From now on characters have names: the octets of their table, or what gives them when they are first wanted. */
    setNames(rows) {
        this.#names = typeof rows === 'function' ? rows : () => rows;
    }

    /**
     * Runs a command on what its standard input would be.
     * @param {string[]} words  'decode', '--jsonl', '--smsc=no'
     * @param {string | Uint8Array} input  all else is a TypeError
     * @returns {{status: number, output: string, messages: string, lacksNames: boolean}} the exit status, standard
     *   output, standard error, and whether characters would have names after setNames()
     */
    run(words, input) {
        const given = [octetsOfWords(words), checked(octetsOf(input))];
        return this.guarded((instance) =>
            instance.named(() => instance.resultAt(instance.with(given, instance.exports.run)), this.#names));
    }

    /** Begins a command of which the input comes in pieces: decode, inspect or cell. */
    open(words) {
        return new Session(this, words);
    }

    /** Whether somebody may have meant a line of the text as a PDU, or has it from a modem. */
    mayHavePdu(text) {
        const given = [checked(octetsOf(text))];
        return this.guarded((instance) => instance.with(given, instance.exports.mayHavePdu)) !== 0;
    }

    /** Whether it is the instance that the next call gets. */
    isUsing(instance) {
        return instance === this.#instance;
    }

    /** Calls `use` with an instance that is sound: one that failed is in no state to go on. */
    guarded(use) {
        this.#instance ??= new Instance(this.#module, this.#random);
        try {
            return use(this.#instance);
        } catch (error) {
            this.#instance = undefined;
            const reason = error instanceof WebAssembly.Exception ? 'an exception that nothing caught' : error.message;
            throw new Error(`the module failed, and begins anew: ${reason}`, { cause: error });
        }
    }
}
