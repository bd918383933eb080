// As what a text is read.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { fromAddress, likeliestKind, sizeOf, toAddress, withoutHalfOctet } from '../../../web/page/source.js';

const FAULT = { error: 'cut', fault: {} };
const SOUND = {};
const page = (meaning, remarks) => ({ message_identifier: { meaning }, ...(remarks && { remarks }) });

/** An engine that reads what it is told, and takes lines of small letters beyond f for text. */
const engineOf = (messages, pages = []) => ({
    decode: () => messages,
    decodePages: () => pages,
    isText: (line) => /[g-z]/.test(line),
});

test('what is sound is a PDU', () => {
    assert.equal(likeliestKind('0791', engineOf([SOUND], [page('assigned')])), 'pdu');
});

test('a page is taken for one where it makes less odd sense than as a PDU, and somebody gave its identifier a meaning', () => {
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('assigned')])), 'cell');
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('not assigned')])), 'pdu');
    assert.equal(likeliestKind('00', engineOf([FAULT], [page('assigned'), page('not assigned')])), 'pdu');
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

test('half an octet at the end is left out of a PDU, and of nothing else', () => {
    assert.equal(withoutHalfOctet('079'), '07');
    assert.equal(withoutHalfOctet('07 91 2\n'), '07 91 ');
    assert.equal(withoutHalfOctet('0791'), '0791');
    assert.equal(withoutHalfOctet('07\n9'), '07\n9');
    assert.equal(withoutHalfOctet('07g'), '07g');
});

test('an address tells as what its text is read', () => {
    assert.deepEqual(fromAddress('#0791'), { kind: 'auto', text: '0791' });
    assert.deepEqual(fromAddress('#cell:00'), { kind: 'cell', text: '00' });
    assert.deepEqual(fromAddress('#text:a%0Ab'), { kind: 'text', text: 'a\nb' });
    assert.deepEqual(fromAddress('#file:a'), { kind: 'auto', text: 'file:a' });
    assert.deepEqual(fromAddress(''), { kind: 'auto', text: '' });
    assert.equal(fromAddress('#%E0'), null);
    assert.equal(toAddress('auto', 'a #1'), '#a%20%231');
    assert.equal(toAddress('pdu', '07'), '#pdu:07');
    assert.equal(toAddress('auto', 'x'.repeat(8000), '07'), `#${'x'.repeat(8000)}`);
    assert.equal(toAddress('cell', 'x'.repeat(8001), '07'), '#cell:07');
    assert.equal(toAddress('auto', 'x'.repeat(8001)), `#${'x'.repeat(8001)}`);
});

test('the size is that in UTF-8', () => {
    assert.equal(sizeOf('a€😀'), 8);
});
