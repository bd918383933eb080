// What is drawn of a counted text.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { fillings, markedPieces } from '../../../web/page/counter.js';

const at = (...positions) => [{ positions }];

test('characters that cost are marked where they stand', () => {
    assert.deepEqual(markedPieces('a’€b', { alphabet: 'GSM 7-bit', forces_ucs2: at(2), two_septets: at(3) }), [
        { text: 'a', reason: undefined },
        { text: '’', reason: 'forces_ucs2' },
        { text: '€', reason: 'two_septets' },
        { text: 'b', reason: undefined },
    ]);
});

test('in UCS2 none takes two septets', () => {
    assert.deepEqual(markedPieces('€', { alphabet: 'UCS2', two_septets: at(1) }), [{ text: '€', reason: undefined }]);
});

test('positions count characters, and parts begin between them', () => {
    assert.deepEqual(markedPieces('😀ab', { breaks: [{ after_part: 1, position: 3 }], needs_table: at(1) }), [
        { text: '😀', reason: 'needs_table' },
        { text: 'a', reason: undefined },
        { part: 2 },
        { text: 'b', reason: undefined },
    ]);
});

test('all parts but the last are full', () => {
    assert.deepEqual(fillings({ septets: 40, parts: 1, room: 120 }), [0.25]);
    assert.deepEqual(fillings({ characters: 0, parts: 1, room: 70 }), [0]);
    assert.deepEqual(fillings({ septets: 204, parts: 2, room: 102 }), [1, 1 - 102 / 153]);
});
