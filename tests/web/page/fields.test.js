// Values and bits of the octet map.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { bitsOf, kindOf, nameOf, rowAt, shownValueOf, spaced, valueOf } from '../../../web/page/fields.js';

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
