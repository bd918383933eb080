// What is drawn of a counted text.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { cheaperChoices, fillings, markedPieces } from '../../../web/page/counter.js';

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

test('of a long text the beginning is drawn, and how much is not', () => {
    const whole = { text: '😀'.repeat(4000), reason: undefined };
    assert.deepEqual(markedPieces('😀'.repeat(4000), {}), [whole]);
    assert.deepEqual(markedPieces('😀'.repeat(4001), {}), [whole, { hidden: 1 }]);
});

test('all parts but the last are full', () => {
    assert.deepEqual(fillings({ septets: 40, parts: 1, room: 120 }), [0.25]);
    assert.deepEqual(fillings({ characters: 0, parts: 1, room: 70 }), [0]);
    assert.deepEqual(fillings({ septets: 204, parts: 2, room: 102 }), [1, 1 - 102 / 153]);
});

const replacements = [
    { code_point: 'U+2019', by: "'" },
    { code_point: 'U+0065 U+0301', by: '' },
];

test('near characters are cheaper, or in use', () => {
    const counted = { parts: 2, user_data_octets: 200, replaced: { parts: 1, user_data_octets: 120, replacements } };
    const what = 'Near characters';
    const pairs = ["’ → '", 'e\u0301 → nothing'];
    assert.deepEqual(cheaperChoices(counted, { languages: [] }), [
        { what, pairs, saves: '1 message less, 80 octets less', isUsed: false, change: { replace: true } },
    ]);
    assert.deepEqual(cheaperChoices({ replacements }, { replace: true, languages: [] }), [
        { what, pairs, isUsed: true, change: { replace: false } },
    ]);
    assert.deepEqual(cheaperChoices({ parts: 1 }, { replace: true, languages: [] }), []);
});

test('languages are cheaper, or in use', () => {
    const turkish = { languages: ['tr'], parts_saved: 0, octets_saved: 21 };
    const both = { languages: ['tr', 'pt'], replace: true, parts_saved: 1, octets_saved: 40 };
    assert.deepEqual(cheaperChoices({ with_languages: [both, turkish] }, { replace: false, languages: ['tr', 'es'] }), [
        {
            what: 'Tables of Turkish and Portuguese with near characters',
            saves: '1 message less, 40 octets less',
            isUsed: false,
            change: { languages: ['tr', 'pt'], replace: true },
        },
        { what: 'Tables of Turkish', saves: '21 octets less', isUsed: true, change: { languages: ['es'] } },
    ]);
});
