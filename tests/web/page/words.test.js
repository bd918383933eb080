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
    assert.equal(words.status.messages(1), '1 message');
    assert.equal(words.status.messages(0), '0 messages');
    assert.equal(words.status.messages(12345), '12,345 messages');
    assert.equal(words.count.room(1), '1 more fits');
    assert.equal(words.count.room(2), '2 more fit');
});

test('what is saved names only what is less', () => {
    assert.equal(words.count.saves(1, 131), '1 message less, 131 octets less');
    assert.equal(words.count.saves(0, 1), '1 octet less');
    assert.equal(words.count.saves(2, -3), '2 messages less');
});
