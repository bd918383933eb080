// Reads PDUs and pages: at once while somebody types, a long log in slices between which the page can breathe.

import { Inbox, byLine } from './messages.js';

const SLICE = 1 << 15; // characters
const JOINED = { join: true, each: true };

/** The messages of a short text, in the order in which they begin. `how` is { kind: "pdu" or "cell", options }. */
export function readAtOnce(text, engine, { kind, options }) {
    const inbox = new Inbox();
    const objects = kind === 'cell' ? engine.decodePages(text, JOINED) : engine.decode(text, { ...options, ...JOINED });
    return [...inbox.take(objects), ...inbox.finish()].sort(byLine);
}

/** A text in pieces of whole lines, of about the size of a slice. */
export function* slicesOf(text, size = SLICE) {
    for (let begin = 0; begin < text.length;) {
        const end = text.indexOf('\n', begin + size - 1) + 1 || text.length;
        yield text.slice(begin, end);
        begin = end;
    }
}

/** Reads slice by slice: { messages, done }, those that are whole now, and the characters that were read. */
export function* readInSlices(text, engine, { kind, options }) {
    const inbox = new Inbox();
    const reader = engine.reader({ cell: kind === 'cell', ...options, ...JOINED });
    let done = 0;
    for (const slice of slicesOf(text)) {
        const objects = reader.take(slice);
        done += slice.length;
        yield { messages: inbox.take(objects), done };
    }
    yield { messages: [...inbox.take(reader.finish()), ...inbox.finish()], done };
}

/** The octets of inputs that failed, by their lines: the objects of these do not tell them, their octet maps do. */
export function octetsByLine(text, engine, { kind, options }) {
    const objects = engine.inspect(text, kind === 'cell' ? { cell: true } : options);
    return new Map(objects.map(({ line, octets }) => [line, octets]));
}
