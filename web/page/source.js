// What was pasted: as what it is read, and how an address shows it.

import { isOfPdu, isTalk, objectsOf, slicesOf } from './reading.js';

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

/** Lines in which a PDU may stand, as many as are read at once: what a modem says before may be long. */
function sampleOf(text, engine) {
    if (text.length <= AT_ONCE) return text;
    let sample = '';
    for (const slice of slicesOf(text)) {
        if (engine.isText(slice)) continue;
        for (const line of slice.split('\n')) {
            if (sample.length + line.length >= AT_ONCE) return sample || line;
            if (!isTalk(line, engine)) sample += `${line}\n`;
        }
    }
    return sample;
}

/** How much speaks against a reading: a fault more than anything that is unusual. */
function oddities(objects) {
    const FAULT = 10;
    return objects.reduce((sum, { error, remarks = [] }) => sum + (error ? FAULT : remarks.length), 0);
}

/**
 * As what it is read: { kind }, "text" to send, "cell" for pages of cell broadcast, else "pdu", and the objects of
 * a short one. A PDU, be it damaged, is never a text, whatever stands beside it. A log says itself what its lines
 * are; a list does not, and is taken for pages where that makes more sense.
 */
export function recognise(text, engine) {
    const sample = sampleOf(text, engine);
    const found = (kind, objects) => (sample === text ? { kind, objects } : { kind });
    if (areWords(sample)) return { kind: 'text' };
    const messages = objectsOf(sample, engine, { kind: 'pdu' });
    if (!messages.some(isOfPdu) && isText(text, messages, engine)) return { kind: 'text' };
    if (oddities(messages) === 0) return found('pdu', messages);
    const pages = objectsOf(sample, engine, { kind: 'cell' });
    return arePages(pages) && oddities(pages) < oddities(messages) ? found('cell', pages) : found('pdu', messages);
}

/** Whether that in which no PDU stands is talk, and not of a modem. */
function isText(text, objects, engine) {
    if (objects.length === 0) return !OF_A_MODEM.test(text);
    return text.split('\n').some((line) => line.trim() && isTalk(line, engine));
}

/** Any octets can be read as a page; few of them have an identifier that somebody gave a meaning. */
function arePages(objects) {
    return objects.length > 0 && objects.every(({ message_identifier: id }) => id && !/not assigned$/.test(id.meaning));
}

/** A PDU without the half octet that it ends with while somebody types; any other text as it is. */
export function withoutHalfOctet(text) {
    const isHalf = /^[\da-f\s]*$/i.test(text) && !/\n/.test(text.trim()) && text.replace(/\s/g, '').length % 2 === 1;
    return isHalf ? text.trimEnd().slice(0, -1) : text;
}

/**
 * What an address shows behind its #: { kind, options, text }, as what it is read, what is known of PDUs, and the
 * text; null where it is damaged. "#pdu,direction=to-mobile,smsc=no:0791…"
 */
export function fromAddress(hash) {
    const [, kind = 'auto', given = '', text] = /^#?(?:(pdu|cell|text)((?:,[a-z]+=[a-z-]+)*):)?(.*)$/s.exec(hash);
    const options = Object.fromEntries([...given.matchAll(/(\w+)=([\w-]+)/g)].map(([, name, value]) => [name, value]));
    try {
        return { kind, options, text: decodeURIComponent(text) };
    } catch {
        return null;
    }
}

/** The part of an address that shows a text, or where that is too long, what stands for it. */
export function toAddress({ kind, options, text }, instead) {
    const encoded = encodeURIComponent(text);
    const shown = encoded.length > LONGEST_LINK && instead !== undefined ? instead : encoded;
    const given = Object.entries(options).map(([name, value]) => (value ? `,${name}=${value}` : ''));
    return `#${kind === 'auto' ? '' : `${kind}${given.join('')}:`}${shown}`;
}
