// Reads PDUs and pages: at once while somebody types, a long log in slices between which the page can breathe.

import { Inbox, byLine } from './messages.js';

const SLICE = 1 << 15; // characters
const JOINED = { join: true, each: true };

const ENOUGH = 8; // octets that are read of a damaged PDU: a number or a word breaks before

/** In a log that has it, what stands around a PDU tells what it is: nothing of it may be left out. */
const ANNOUNCEMENT = /\+C(MGL|MGR|MT|DS|BM):|AT\+C(MGS|MGW|MGC|NMA)=/i;
const DIGITS = [/\b[\da-f]{16,}\b/i, /\b[\da-f]{2}( [\da-f]{2}){7,}\b/i]; // of a PDU among words
const FEWEST = 16; // digits of a PDU: a date or the number of a telephone has less

function decode(text, engine, { kind, options }) {
    return kind === 'cell' ? engine.decodePages(text, JOINED) : engine.decode(text, { ...options, ...JOINED });
}

/** Whether it was meant as a PDU and is one, be it damaged. */
export function isOfPdu({ error, fault }) {
    return error === undefined || fault?.octet >= ENOUGH;
}

/** Whether nobody meant the line as a PDU. */
export function isTalk(line, engine) {
    const digits = line.replace(/[^\da-f]/gi, '');
    return engine.isText(line) || (digits.length < FEWEST && /[^\da-f\s]/i.test(line));
}

/** The PDU that a line is, or that stands in it among words; undefined where there is none. */
export function pduIn(line, engine, how) {
    const candidates = [line, ...DIGITS.map((digits) => digits.exec(line)?.[0] ?? '')];
    return candidates.find((candidate) => candidate.trim() && decode(candidate, engine, how).some(isOfPdu));
}

/** What a modem says of other things hides PDUs that no heading announces: each line is what PDU stands in it. */
function withoutModem(text, engine, how) {
    return mapLines(text, (line) => pduIn(line, engine, how) ?? '');
}

/** PDUs without the words around them. */
function withoutWords(text, engine, how) {
    return mapLines(text, (line) =>
        /[^\da-f\s]/i.test(line) && DIGITS.some((digits) => digits.test(line))
            ? (pduIn(line, engine, how) ?? line)
            : line,
    );
}

function mapLines(text, change) {
    return text.split('\n').map(change).join('\n');
}

/** Lines of digits that are broken each, as one: a mail wraps what is long. */
function unwrapped(text) {
    return /^[\da-f\s]*$/i.test(text) ? text.replace(/\s+/g, '') : '';
}

/** The objects of a short text, in which nothing hides a PDU. */
export function objectsOf(text, engine, how) {
    if (ANNOUNCEMENT.test(text)) return decode(text, engine, how);
    const objects = decode(withoutWords(text, engine, how), engine, how);
    if (objects.length === 0) return decode(withoutModem(text, engine, how), engine, how);
    if (objects.length === 1 || objects.some(({ error }) => error === undefined)) return objects;
    const whole = decode(unwrapped(text), engine, how);
    return whole.length > 0 && whole.every(({ error }) => error === undefined) ? whole : objects;
}

/** The objects without those of lines that are talk, and how many these are. */
function withoutTalk(objects, lines, engine) {
    const left = objects.filter(
        ({ error, fault, line }) => error === undefined || fault || !isTalk(lines[line - 1] ?? '', engine),
    );
    return { objects: left, passedOver: objects.length - left.length };
}

/**
 * A short text: { messages, passedOver }, in the order in which they begin, and the number of lines that are none.
 * `how` is { kind: "pdu" or "cell", options }, with `objects` where they are known.
 */
export function readAtOnce(text, engine, how) {
    const inbox = new Inbox();
    const all = how.objects ?? objectsOf(text, engine, how);
    const { objects, passedOver } = withoutTalk(all, text.split('\n'), engine);
    return { messages: [...inbox.take(objects), ...inbox.finish()].sort(byLine), passedOver };
}

const octetsOf = ({ parts }) => parts.map(({ octets, error }) => octets ?? error);

/** Where a message that was chosen is after the text was edited: what has a part of it, or the only one that is new; else -1. */
export function stillChosen(before, chosen, messages) {
    const of = before.map(octetsOf);
    const now = messages.map(octetsOf);
    if (!of[chosen]) return -1;
    const isIt = (octets) => octets?.some((part) => of[chosen].includes(part)) ?? false;
    if (isIt(now[chosen])) return chosen;
    const isEdited =
        now.length > 1 &&
        now.length === of.length &&
        now.every((octets, index) => index === chosen || octets.join() === of[index].join());
    return isEdited ? chosen : now.findIndex(isIt);
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
export function* readInSlices(text, engine, how) {
    const isAnnounced = ANNOUNCEMENT.test(text);
    let isSilent = true;
    for (const read of readSlices(text, engine, how, isAnnounced ? String : withoutWords)) {
        isSilent &&= read.messages.length === 0 && read.passedOver === 0;
        yield read;
    }
    if (isSilent && !isAnnounced) yield* readSlices(text, engine, how, withoutModem);
}

function* readSlices(text, engine, how, prepared) {
    const inbox = new Inbox();
    const reader = engine.reader({ cell: how.kind === 'cell', ...how.options, ...JOINED });
    const lines = text.split('\n');
    let done = 0;
    try {
        for (const slice of slicesOf(text)) {
            const { objects, passedOver } = withoutTalk(reader.take(prepared(slice, engine, how)), lines, engine);
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
export function octetsByLine(text, engine, how) {
    const options = how.kind === 'cell' ? { cell: true } : how.options;
    const objects = engine.inspect(text, options);
    return new Map(objects.map(({ line, octets }) => [line, octets]));
}

/** The octets of the PDU that stands in a line among words. */
export function octetsIn(line, engine, how) {
    const pdu = pduIn(line, engine, how);
    return pdu && octetsByLine(pdu, engine, how).get(1);
}
