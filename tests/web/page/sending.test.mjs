// What is made of the PDUs of a text.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { commandsOf, faultOf } from '../../../web/page/sending.js';

test('a modem gets a carriage return after each command, and Ctrl+Z after each PDU', () => {
    const pdus = [
        { tpdu_length: 16, octets: '0001' },
        { tpdu_length: 22, octets: '0491' },
    ];
    assert.equal(commandsOf(pdus), 'AT+CMGF=0\rAT+CMGS=16\r0001\x1AAT+CMGS=22\r0491\x1A');
});

test('a fault of a number names its field', () => {
    assert.deepEqual(faultOf("to: character 3, 'x', is no digit"), { field: 'to', what: "character 3, 'x', is no digit" });
    assert.deepEqual(faultOf('smsc: 40 digits'), { field: 'smsc', what: '40 digits' });
    assert.deepEqual(faultOf('into: 40\ndigits'), { field: undefined, what: 'into: 40\ndigits' });
});
