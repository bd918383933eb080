// What was pasted: as what it is read, and how an address shows it.

export const LIMIT = 1 << 20; // octets of UTF-8 that are taken
export const AT_ONCE = 1 << 14; // characters that are read while somebody types
const LONGEST_LINK = 8000;
const LONGEST_WORD = 7; // letters alone: "face", "deaf"

const OF_A_MODEM = /^\s*(AT\+|[+^][A-Z]+:)/im;

/** The size in UTF-8. */
export function sizeOf(text) {
    return new TextEncoder().encode(text).length;
}

function areWords(text) {
    const words = text.trim().split(/\s+/);
    return words.every((word) => /^[a-f]+$/i.test(word) && word.length <= LONGEST_WORD);
}

/** Whether nothing can be read of it, and some line is not even meant to be. */
function isTalk(text, objects, engine) {
    return objects.every(({ error }) => error) && text.split('\n').some((line) => line.trim() && engine.isText(line));
}

/** How much speaks against a reading: a fault more than anything that is unusual. */
function oddities(objects) {
    const FAULT = 10;
    return objects.reduce((sum, { error, remarks = [] }) => sum + (error ? FAULT : remarks.length), 0);
}

/**
 * As what it is read: "text" to send, "cell" for pages of cell broadcast, else "pdu". A log says itself what its
 * lines are; a list does not, and is taken for pages where that makes more sense.
 */
export function likeliestKind(text, engine) {
    const beginning = text.slice(0, AT_ONCE);
    if (areWords(beginning)) return 'text';
    const messages = engine.decode(beginning);
    if (messages.length === 0) return OF_A_MODEM.test(beginning) ? 'pdu' : 'text';
    if (isTalk(beginning, messages, engine)) return 'text';
    if (oddities(messages) === 0) return 'pdu';
    const pages = engine.decodePages(beginning);
    return arePages(pages) && oddities(pages) < oddities(messages) ? 'cell' : 'pdu';
}

/** Any octets can be read as a page; few of them have an identifier that somebody gave a meaning. */
function arePages(objects) {
    return objects.length > 0 && objects.every(({ message_identifier: id }) => id && id.meaning !== 'not assigned');
}

/** A PDU without the half octet that it ends with while somebody types; any other text as it is. */
export function withoutHalfOctet(text) {
    const isHalf = /^[\da-f\s]*$/i.test(text) && !/\n/.test(text.trim()) && text.replace(/\s/g, '').length % 2 === 1;
    return isHalf ? text.trimEnd().slice(0, -1) : text;
}

/** What an address shows behind its #: the kind as which it is read, and the text; null where it is damaged. */
export function fromAddress(hash) {
    try {
        const [, kind = 'auto', text] = /^#?(?:(pdu|cell|text):)?(.*)$/s.exec(decodeURIComponent(hash));
        return { kind, text };
    } catch {
        return null;
    }
}

/** The part of an address that shows a text, or where that is too long, what stands for it. */
export function toAddress(kind, text, instead) {
    const encoded = encodeURIComponent(text);
    const shown = encoded.length > LONGEST_LINK && instead !== undefined ? instead : encoded;
    return `#${kind === 'auto' ? '' : `${kind}:`}${shown}`;
}
