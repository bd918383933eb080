// Short texts at once, long ones in slices.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { octetsByLine, octetsIn, pduIn, readAtOnce, readInSlices, slicesOf, stillChosen } from '../../../web/page/reading.js';

test('a text is cut after lines, and nothing of it is lost', () => {
    const text = 'one\ntwo\nthree\nfour';
    assert.deepEqual([...slicesOf(text, 4)], ['one\n', 'two\n', 'three\n', 'four']);
    assert.deepEqual([...slicesOf(text, 5)], ['one\ntwo\n', 'three\n', 'four']);
    assert.deepEqual([...slicesOf('no end of a line', 3)], ['no end of a line']);
    assert.deepEqual([...slicesOf('', 3)], []);
});

test('messages are read as they are said to be', () => {
    const asked = [];
    const engine = {
        decode: (...all) => (asked.push(['decode', ...all]), [{ line: 2 }, { line: 1 }]),
        decodePages: (...all) => (asked.push(['cell', ...all]), [{ line: 1 }]),
    };
    assert.deepEqual(readAtOnce('07', engine, { kind: 'pdu', options: { smsc: 'no' } }), {
        messages: [{ parts: [{ line: 1 }] }, { parts: [{ line: 2 }] }],
        passedOver: 0,
    });
    readAtOnce('00', engine, { kind: 'cell', options: {} });
    assert.deepEqual(asked, [
        ['decode', '07', { smsc: 'no', join: true, each: true }],
        ['cell', '00', { join: true, each: true }],
    ]);
});

test('slices are read one after the other, and what waits comes in the end', () => {
    const part = { line: 1, concatenation: { part: 1 } };
    const taken = [];
    const engine = {
        reader: (options) => {
            assert.deepEqual(options, { cell: false, join: true, each: true });
            return {
                take: (slice) => (taken.push(slice), [part]),
                finish: () => [{ line: 3 }],
                close: () => taken.push('closed'),
            };
        },
    };
    assert.deepEqual(
        [...readInSlices('a\n', engine, { kind: 'pdu', options: {} })],
        [
            { messages: [], passedOver: 0, done: 2 },
            { messages: [{ parts: [{ line: 3 }] }, { parts: [part] }], passedOver: 0, done: 2 },
        ],
    );
    assert.deepEqual(taken, ['a\n', 'closed']);
});

test('what failed finds its octets by its line', () => {
    const engine = { inspect: (text, options) => [{ line: 4, octets: `${text}${JSON.stringify(options)}` }] };
    assert.equal(octetsByLine('07', engine, { kind: 'pdu', options: { smsc: 'no' } }).get(4), '07{"smsc":"no"}');
    assert.equal(octetsByLine('07', engine, { kind: 'cell', options: {} }).get(4), '07{"cell":true}');
});

test('lines that nobody meant as PDUs are passed over, faults are not', () => {
    const talk = { line: 1, error: 'no digit' };
    const odd = { line: 2, error: 'odd number of digits' };
    const cut = { line: 3, error: 'cut', fault: {} };
    const engine = {
        decode: () => [talk, odd, cut],
        isText: (line) => line !== '079',
        reader: () => ({ take: () => [talk, cut], finish: () => [odd], close: () => {} }),
    };
    const how = { kind: 'pdu', options: {} };
    const messages = [{ parts: [odd] }, { parts: [cut] }];
    assert.deepEqual(readAtOnce('hello\n079\nno', engine, how), { messages, passedOver: 1 });
    assert.deepEqual(
        [...readInSlices('hello\n079\nno', engine, how)],
        [
            { messages: [{ parts: [cut] }], passedOver: 1, done: 12 },
            { messages: [{ parts: [odd] }], passedOver: 0, done: 12 },
        ],
    );
});

test('who leaves in the middle closes the reader', () => {
    let isClosed = false;
    const engine = { reader: () => ({ take: () => [], finish: () => [], close: () => (isClosed = true) }) };
    for (const { done } of readInSlices('a', engine, { kind: 'pdu', options: {} })) {
        assert.equal(done, 1);
        break;
    }
    assert.ok(isClosed);
});

const GOOD = '0791214365870921';
const SPACED = '07 91 21 43 65 87 09 21';
const CUT = '0791214365870922';

/** An engine that knows a PDU, a damaged one and the halves of another; a log in which no heading announces one has none. */
const engine = {
    decode(text) {
        if (/^OK/m.test(text)) return [];
        return text.split('\n').flatMap((line, index) => {
            if (line === '') return [];
            const object = { line: index + 1 };
            if ([GOOD, SPACED, '0102030405'].includes(line)) return [object];
            return [{ ...object, error: 'broken', ...(/^[\da-f]+$/i.test(line) && { fault: { octet: line === CUT ? 8 : 7 } }) }];
        });
    },
    isText: (line) => !/\d/.test(line),
    inspect: (text) => [{ line: 1, octets: text }],
    reader() {
        let all = '';
        return { take: (slice) => ((all += slice), []), finish: () => this.decode(all), close: () => {} };
    },
};
const PDUS = { kind: 'pdu', options: {} };
const linesOf = ({ messages }) => messages.map(({ parts }) => parts[0].line);

test('a PDU is found among words', () => {
    assert.equal(pduIn(GOOD, engine, PDUS), GOOD);
    assert.equal(pduIn(`read ${GOOD} for me`, engine, PDUS), GOOD);
    assert.equal(pduIn(`read ${SPACED}, please`, engine, PDUS), SPACED);
    assert.equal(pduIn(`read ${CUT}`, engine, PDUS), CUT);
    assert.equal(pduIn('read 0791214365870923', engine, PDUS), undefined);
    assert.equal(pduIn('', engine, PDUS), undefined);
    assert.equal(octetsIn(`read ${CUT}`, engine, PDUS), CUT);
    assert.equal(octetsIn('read', engine, PDUS), undefined);
});

test('what a modem says hides no PDU that it does not announce', () => {
    for (const read of [(text) => readAtOnce(text, engine, PDUS), (text) => [...readInSlices(text, engine, PDUS)].at(-1)]) {
        assert.deepEqual(linesOf(read(`OK\n${GOOD}\nOK\n${CUT}\n0791214365870923`)), [2, 4]);
        assert.deepEqual(linesOf(read(`hello\nsee ${GOOD}`)), [2]);
        assert.deepEqual(linesOf(read(`+CMGR: 1,"REC READ"\nOK\n${GOOD}`)), []);
    }
});

test('lines that are broken each are one where that is sound', () => {
    assert.deepEqual(linesOf(readAtOnce('010203\r\n0405\r\n', engine, PDUS)), [1]);
    assert.deepEqual(linesOf(readAtOnce('010203\n0406', engine, PDUS)), [1, 2]);
    assert.deepEqual(linesOf(readAtOnce(`0102030405\n${CUT}`, engine, PDUS)), [1, 2]);
});

test('a message stays chosen while the text is edited', () => {
    const messages = (...all) => all.map((parts) => ({ parts: [...parts].map((octets) => ({ octets })) }));
    const before = messages('a', 'b', 'c');
    assert.equal(stillChosen(before, 2, messages('a', 'b', 'c')), 2);
    assert.equal(stillChosen(before, 2, messages('b', 'c')), 1);
    assert.equal(stillChosen(before, 0, messages('x', 'a', 'b', 'c')), 1);
    assert.equal(stillChosen(before, 1, messages('a', 'x', 'c')), 1);
    assert.equal(stillChosen(before, 1, messages('a', 'x', 'y')), -1);
    assert.equal(stillChosen(before, 1, messages('x', 'y')), -1);
    assert.equal(stillChosen(messages('a', 'bcd'), 1, messages('a', 'bxd')), 1);
    assert.equal(stillChosen(messages('a', 'a'), 1, messages('a', 'a', 'a')), 1);
    assert.equal(stillChosen(messages('a'), 0, messages('x')), -1);
    assert.equal(stillChosen([], 0, messages('x')), -1);
    assert.equal(stillChosen([{ parts: [{ error: 'cut' }] }], 0, [{ parts: [{ octets: 'x' }] }, { parts: [{ error: 'cut' }] }]), 1);
});
