// Reads PDUs and pages: at once while somebody types, a long log in slices between which the page can breathe.

import { Inbox, byLine } from './messages.js';

const SLICE = 1 << 15; // characters
const JOINED = { join: true, each: true };

/** Whether nobody meant the line of an input as a PDU. What stands around those in a mail is no fault. */
function isTalk({ error, fault, line }, lines, engine) {
    return error !== undefined && !fault && engine.isText(lines[line - 1] ?? '');
}

/** The objects without those of lines that are talk, and how many these are. */
function withoutTalk(objects, lines, engine) {
    const left = objects.filter((object) => !isTalk(object, lines, engine));
    return { objects: left, passedOver: objects.length - left.length };
}

/**
 * A short text: { messages, passedOver }, in the order in which they begin, and the number of lines that are none.
 * `how` is { kind: "pdu" or "cell", options }.
 */
export function readAtOnce(text, engine, { kind, options }) {
    const inbox = new Inbox();
    const all = kind === 'cell' ? engine.decodePages(text, JOINED) : engine.decode(text, { ...options, ...JOINED });
    const { objects, passedOver } = withoutTalk(all, text.split('\n'), engine);
    return { messages: [...inbox.take(objects), ...inbox.finish()].sort(byLine), passedOver };
}

/** A text in pieces of whole lines, of about the size of a slice. */
export function* slicesOf(text, size = SLICE) {
    for (let begin = 0; begin < text.length;) {
        const end = text.indexOf('\n', begin + size - 1) + 1 || text.length;
        yield text.slice(begin, end);
        begin = end;
    }
}

/** Reads slice by slice: { messages, passedOver, done }, those that are whole now, and the characters that were read. */
export function* readInSlices(text, engine, { kind, options }) {
    const inbox = new Inbox();
    const reader = engine.reader({ cell: kind === 'cell', ...options, ...JOINED });
    const lines = text.split('\n');
    let done = 0;
    try {
        for (const slice of slicesOf(text)) {
            const { objects, passedOver } = withoutTalk(reader.take(slice), lines, engine);
            done += slice.length;
            yield { messages: inbox.take(objects), passedOver, done };
        }
        const { objects, passedOver } = withoutTalk(reader.finish(), lines, engine);
        yield { messages: [...inbox.take(objects), ...inbox.finish()], passedOver, done };
    } finally {
        reader.close(); // who no longer wants the rest leaves in the middle
    }
}

/** The octets of inputs that failed, by their lines: the objects of these do not tell them, their octet maps do. */
export function octetsByLine(text, engine, { kind, options }) {
    const objects = engine.inspect(text, kind === 'cell' ? { cell: true } : options);
    return new Map(objects.map(({ line, octets }) => [line, octets]));
}
