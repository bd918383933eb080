// Values and bits of the octet map.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import {
    bitsOf,
    drawnRows,
    kindOf,
    missingRow,
    nameOf,
    rowAt,
    shortened,
    shownValueOf,
    spaced,
    valueOf,
} from '../../../web/page/fields.js';

const bits = [
    { bits: '1... ....', name: 'extension' },
    { bits: '.001 0001', name: 'rest' },
];

test('a value is written as what it is', () => {
    assert.equal(valueOf({ value: 145, length: 1, bits }), '0x91');
    assert.equal(valueOf({ value: 17, length: 2, bits }), '0x0011');
    assert.equal(valueOf({ value: 5, length: 1, subfield: 'element' }), '0x05');
    assert.equal(valueOf({ value: 42, length: 1 }), '42');
    assert.equal(valueOf({ value: '+1', subfield: 'digits' }), '+1');
    assert.equal(valueOf({ value: 'Hi' }), '“Hi”');
    assert.equal(valueOf({}), '');
});

test('a value that the meaning tells is not told twice', () => {
    assert.equal(shownValueOf({ value: 7, length: 1, meaning: '7 octets' }), '');
    assert.equal(shownValueOf({ value: 7, length: 1, meaning: '70 octets' }), '7');
    assert.equal(shownValueOf({ value: 0, length: 1, meaning: 'mobile to mobile' }), '0');
});

test('a field has its name and its colour', () => {
    assert.equal(nameOf({ field: 'TP-OA', subfield: 'digits' }), 'TP-OA digits');
    assert.equal(nameOf({ field: 'TP-PID' }), 'TP-PID');
    assert.equal(kindOf({ field: 'TP-OA' }), 'address');
    assert.equal(kindOf({ field: 'content' }), 'text');
    assert.equal(kindOf({ field: 'content', subfield: 'padding' }), 'rest');
    assert.equal(kindOf({ field: 'something new' }), 'rest');
});

test('an octet is found in its row', () => {
    const map = [
        { offset: 0, length: 2 },
        { offset: 2, length: 1 },
    ];
    assert.deepEqual(
        [0, 1, 2, 3].map((octet) => rowAt(map, octet)),
        [0, 0, 1, -1],
    );
    assert.equal(spaced('0791'), '07 91');
});

test('of rows the first octets are drawn, the last row cut', () => {
    const first = { offset: 0, length: 1, octets: '00' };
    const long = { offset: 1, length: 3, octets: 'AABBCC' };
    const rows = [first, long, { offset: 4, length: 1, octets: 'DD' }];
    const of = (octets) => ({ ...long, octets });
    assert.deepEqual(drawnRows(rows, 5), { rows, hidden: 0 });
    assert.deepEqual(drawnRows(rows, 4), { rows: [first, long], hidden: 1 });
    assert.deepEqual(drawnRows(rows, 3), { rows: [first, of('AABB')], hidden: 2 });
    assert.deepEqual(drawnRows(rows, 1), { rows: [first], hidden: 4 });
    assert.deepEqual(drawnRows([], 1), { rows: [], hidden: 0 });
});

test('a text is shortened between characters', () => {
    assert.equal(shortened('abc', 3), 'abc');
    assert.equal(shortened('abcd', 3), 'abc …');
    assert.equal(shortened('😀😀😀', 3), '😀😀😀');
    assert.equal(shortened('😀😀😀😀', 3), '😀😀😀 …');
    assert.equal(valueOf({ value: 'x'.repeat(1301) }), `“${'x'.repeat(1300)} …”`);
    assert.equal(valueOf({ value: 'x'.repeat(1300) }), `“${'x'.repeat(1300)}”`);
});

test('what lacks is a row behind those that are there', () => {
    const error = 'cut in TP-SCTS';
    const named = (octets) => `${octets} missing`;
    assert.deepEqual(missingRow({ octets: '0102', error, fault: { expected: 7, found: 5 } }, named), {
        isMissing: true,
        offset: 2,
        length: 2,
        octets: '····',
        field: '2 missing',
        meaning: error,
    });
    const long = missingRow({ fault: { expected: 40, found: 0 } }, named);
    assert.deepEqual([long.length, long.octets.length], [40, 32]);
    assert.equal(kindOf(long), 'missing');
    assert.equal(missingRow({ fault: { expected: 3, found: 3 } }, named), null);
    assert.equal(missingRow({ octets: '01' }, named), null);
});

const drawn = (octets, part) => octets.map((octet) => octet.map((bit) => bit[part]).join('')).join(' ');

test('bits that are explained belong together', () => {
    const octets = bitsOf({ octets: '91', bits }, false);
    assert.equal(drawn(octets, 'bit'), '10010001');
    assert.equal(drawn(octets, 'group'), '01111111');
});

test('septets begin with the lowest bit', () => {
    const octets = bitsOf({ octets: 'C832' }, true);
    assert.equal(drawn(octets, 'bit'), '11001000 00110010');
    assert.equal(drawn(octets, 'group'), '10000000 22111111');
});

test('other octets are each for themselves', () => {
    assert.equal(drawn(bitsOf({ octets: '00FF' }, false), 'group'), '00000000 11111111');
});
