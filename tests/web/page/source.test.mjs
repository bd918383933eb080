// As what a text is read.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { fromAddress, recognise, sizeOf, toAddress, withoutHalfOctet } from '../../../web/page/source.js';

const FAULT = { error: 'cut', fault: {} };
const SOUND = {};
const page = (meaning, remarks) => ({ message_identifier: { meaning }, ...(remarks && { remarks }) });

/** An engine that reads what it is told, and takes lines of small letters beyond f for text. */
const engineOf = (messages, pages = []) => ({
    decode: () => messages,
    decodePages: () => pages,
    isText: (line) => /[g-z]/.test(line),
});

const likeliestKind = (text, engine) => recognise(text, engine).kind;

test('what is sound is a PDU', () => {
    assert.equal(likeliestKind('0791', engineOf([SOUND], [page('assigned')])), 'pdu');
});

test('a page is taken for one where it makes less odd sense than as a PDU, and somebody gave its identifier a meaning', () => {
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('assigned')])), 'cell');
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('not assigned')])), 'pdu');
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('assigned'), page('not assigned')])), 'pdu');
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('operator not assigned')])), 'pdu');
    assert.equal(likeliestKind('00', engineOf([{ remarks: [1, 2] }], [page('assigned', [1])])), 'cell');
    assert.equal(likeliestKind('00', engineOf([{ remarks: [1] }], [page('assigned', [1])])), 'pdu');
    assert.equal(likeliestKind('00', engineOf([FAULT], [])), 'pdu');
});

test('a fault weighs more than remarks', () => {
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('assigned', [1, 2, 3, 4, 5, 6, 7, 8, 9])])), 'cell');
    assert.equal(
        likeliestKind('00', engineOf([{ remarks: [1, 2, 3] }], [{ ...page('assigned'), error: 'cut' }])),
        'pdu',
    );
});

test('short words of the letters a to f are a text', () => {
    for (const words of ['face', 'Bad', 'deaf dad', 'effaced'])
        assert.equal(likeliestKind(words, engineOf([FAULT])), 'text', words);
    for (const digits of ['facade12', 'deadbeef', '12'])
        assert.equal(likeliestKind(digits, engineOf([FAULT])), 'pdu', digits);
});

test('what cannot be read is a text where a line is not meant to be a PDU', () => {
    assert.equal(likeliestKind('07\nhello', engineOf([FAULT, { error: 'no digit' }])), 'text');
    assert.equal(likeliestKind('07\n08', engineOf([FAULT, FAULT])), 'pdu');
    assert.equal(likeliestKind('07\nhello', engineOf([SOUND, { error: 'no digit' }])), 'pdu');
});

test('where nothing is found it is a text, unless a modem wrote it', () => {
    assert.equal(likeliestKind('OK', engineOf([])), 'text');
    assert.equal(likeliestKind('OK\r\nAT+CSQ\r\n', engineOf([])), 'pdu');
    assert.equal(likeliestKind('^RSSI: 20', engineOf([])), 'pdu');
    assert.equal(likeliestKind('1 + CD: 2', engineOf([])), 'text');
});

const GOOD = '0791214365870921';
const CUT = '0791214365870922';

/** An engine that knows two PDUs of a line, and passes over what a modem says, with all that no heading announces. */
const reading = {
    decode(text) {
        if (/^(OK|AT)/m.test(text)) return [];
        return text.split('\n').flatMap((line, index) => {
            if (line === '') return [];
            if (line === GOOD) return [{ line: index + 1 }];
            const fault = { octet: line === CUT ? 8 : 7 };
            return [{ line: index + 1, error: 'broken', ...(/^[\da-f]+$/i.test(line) && { fault }) }];
        });
    },
    decodePages: () => [],
    isText: (text) => !/[\da-f]{16}/i.test(text),
};

test('a PDU is no text, whatever stands beside it, and be it damaged', () => {
    for (const pdu of [GOOD, CUT])
        for (const text of [`${pdu}\nOK`, `OK\n\n${pdu}\n`, `AT+CMGR=1\n${pdu}\nOK`, `hello\n${pdu}`, `see ${pdu} here`])
            assert.equal(likeliestKind(text, reading), 'pdu', text);
});

test('digits that break before the eighth octet are part of a text', () => {
    assert.equal(likeliestKind('the number\n0791214365870923', reading), 'text');
    assert.equal(likeliestKind('0791214365870923', reading), 'pdu');
    for (const text of ['+41 (79) 123-45.67', '+123456789012345', '12:30', '50 %'])
        assert.equal(likeliestKind(text, reading), 'text', text);
    assert.equal(likeliestKind('079121436587092O', reading), 'text');
    assert.equal(likeliestKind('0791214365870921O', reading), 'pdu');
});

test('a PDU is found however late it comes', () => {
    const noise = 'the modem begins\n'.repeat(2000);
    assert.deepEqual(recognise(`${noise}${GOOD}\n`, reading), { kind: 'pdu' });
    assert.equal(likeliestKind(noise, reading), 'text');
});

test('what was read of a short text need not be read again', () => {
    assert.deepEqual(recognise(GOOD, reading), { kind: 'pdu', objects: [{ line: 1 }] });
    const pages = [page('assigned')];
    assert.deepEqual(recognise('00', engineOf([FAULT], pages)), { kind: 'cell', objects: pages });
});

test('half an octet at the end is left out of a PDU, and of nothing else', () => {
    assert.equal(withoutHalfOctet('079'), '07');
    assert.equal(withoutHalfOctet('07 91 2\n'), '07 91 ');
    assert.equal(withoutHalfOctet('0791'), '0791');
    assert.equal(withoutHalfOctet('07\n9'), '07\n9');
    assert.equal(withoutHalfOctet('07g'), '07g');
});

test('an address tells as what its text is read', () => {
    const options = {};
    assert.deepEqual(fromAddress('#0791'), { kind: 'auto', options, text: '0791' });
    assert.deepEqual(fromAddress('#cell:00'), { kind: 'cell', options, text: '00' });
    assert.deepEqual(fromAddress('#text:a%0Ab'), { kind: 'text', options, text: 'a\nb' });
    assert.deepEqual(fromAddress('#file:a'), { kind: 'auto', options, text: 'file:a' });
    assert.deepEqual(fromAddress('#text%3Aa'), { kind: 'auto', options, text: 'text:a' });
    assert.deepEqual(fromAddress(''), { kind: 'auto', options, text: '' });
    assert.equal(fromAddress('#%E0'), null);
    assert.equal(toAddress({ kind: 'auto', options, text: 'a #1' }), '#a%20%231');
    assert.equal(toAddress({ kind: 'auto', options, text: 'cell: 1' }), '#cell%3A%201');
    assert.equal(toAddress({ kind: 'pdu', options, text: '07' }), '#pdu:07');
    assert.equal(toAddress({ kind: 'auto', options, text: 'x'.repeat(8000) }, '07'), `#${'x'.repeat(8000)}`);
    assert.equal(toAddress({ kind: 'cell', options, text: 'x'.repeat(8001) }, '07'), '#cell:07');
    assert.equal(toAddress({ kind: 'auto', options, text: 'x'.repeat(8001) }), `#${'x'.repeat(8001)}`);
});

test('an address tells what is known of PDUs', () => {
    const pdu = { kind: 'pdu', options: { direction: 'from-mobile', smsc: 'no' }, text: '07' };
    assert.equal(toAddress(pdu), '#pdu,direction=from-mobile,smsc=no:07');
    assert.deepEqual(fromAddress('#pdu,direction=from-mobile,smsc=no:07'), pdu);
    assert.equal(toAddress({ ...pdu, options: { direction: undefined, smsc: 'yes' } }), '#pdu,smsc=yes:07');
    assert.deepEqual(fromAddress('#pdu,07'), { kind: 'auto', options: {}, text: 'pdu,07' });
});

test('the size is that in UTF-8', () => {
    assert.equal(sizeOf('a€😀'), 8);
});
