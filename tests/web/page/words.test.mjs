// What the page says, of all that needs working out.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { words } from '../../../web/page/words.js';

test('a time is told by the clock of the message, with its zone', () => {
    assert.equal(words.time('2012-02-03T12:34:56+02:00'), '3 Feb 2012, 12:34:56 +02:00');
    assert.equal(words.time('2026-12-24T18:00:00'), '24 Dec 2026, 18:00:00');
    assert.equal(words.time('never'), 'never');
});

test('one is not many', () => {
    assert.equal(words.count.room(1), '1 more fits');
    assert.equal(words.count.room(2), '2 more fit');
});

test('what is too much is more than is told', () => {
    assert.match(words.input.refused(1 + 2 ** -20), /^That is over 1\.0 MiB, and one is the most/);
    assert.match(words.input.refused(2.58), /^That is over 2\.5 MiB/);
});

test('what was found is told with what was broken and what was passed over', () => {
    assert.equal(words.status.found(0, 0, 3), 'No PDU stands in this.');
    assert.equal(words.status.found(1, 1, 0), '1 message');
    assert.equal(words.status.found(2, 1, 0), '2 messages, 1 broken');
    assert.equal(words.status.found(12345, 0, 1), '12,345 messages, 1 line passed over');
    assert.equal(words.status.found(1, 0, 2), '1 message, 2 lines passed over');
});

test('what is saved names only what is less', () => {
    assert.equal(words.count.saves(1, 131), '1 message less, 131 octets less');
    assert.equal(words.count.saves(0, 1), '1 octet less');
    assert.equal(words.count.saves(2, -3), '2 messages less');
});
