// What was pasted: as what it is read, and how an address shows it.

export const LIMIT = 1 << 20; // octets of UTF-8 that are taken
export const AT_ONCE = 1 << 14; // characters that are read while somebody types
const SHORTEST_WORD_OF_LETTERS = 8; // "Face" and "deaf" are words

/** The size in UTF-8. */
export function sizeOf(text) {
    return new TextEncoder().encode(text).length;
}

function isWord(text) {
    const word = text.trim();
    return /^[a-f]+$/i.test(word) && word.length < SHORTEST_WORD_OF_LETTERS;
}

/** Whether nothing can be read of it, and some of it is not even hexadecimal. */
function isTalk(objects) {
    return objects.every(({ error }) => error) && objects.some(({ fault }) => !fault);
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
    if (isWord(beginning) || engine.isText(beginning)) return 'text';
    const messages = engine.decode(beginning);
    if (isTalk(messages)) return 'text';
    if (oddities(messages) === 0) return 'pdu';
    const pages = engine.decodePages(beginning);
    return pages.length && oddities(pages) < oddities(messages) ? 'cell' : 'pdu';
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

/** The part of an address that shows it. */
export function toAddress(kind, text) {
    return `#${kind === 'auto' ? '' : `${kind}:`}${encodeURIComponent(text)}`;
}
