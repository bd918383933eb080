// What libQX_Encoding makes of a text.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { differencesOfCounts } from '../../../web/page/differences.js';

test('of two counts that is told which differs', () => {
    const counted = { alphabet: 'GSM 7-bit', septets: 9, parts: 1, room: 151 };
    assert.deepEqual(differencesOfCounts(counted, { ...counted }), []);
    assert.deepEqual(differencesOfCounts(counted, { alphabet: 'UCS2', characters: 9, parts: 1, room: 61 }), [
        { name: 'Alphabet', standard: 'GSM 7-bit', host: 'UCS2' },
        { name: 'Size', standard: '9 septets', host: '9 UCS2 units' },
        { name: 'Still fits', standard: 151, host: 61 },
    ]);
    assert.deepEqual(
        differencesOfCounts({ parts: 2 }, { parts: 3, cuts: [{ after_part: 1, code_point: 'U+1F600' }] }),
        [
            { name: 'Messages', standard: 2, host: 3 },
            { name: 'Cut in two', standard: '', host: 'U+1F600 after part 1' },
        ],
    );
    assert.deepEqual(differencesOfCounts({ error: 'too long' }, {}), [
        { name: 'Fault', standard: 'too long', host: '' },
    ]);
});
