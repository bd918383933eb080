// Objects of the module, put together to messages.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import {
    Inbox,
    byLine,
    differencesOf,
    inspectionOf,
    isReadFrom,
    partyOf,
    piecesOf,
    timeOf,
} from '../../../web/page/messages.js';

const part = (line, number) => ({ line, octets: `0${number}`, concatenation: { part: number, total: 2 } });

test('a joined message takes its parts, in their order', () => {
    const inbox = new Inbox();
    assert.deepEqual(inbox.take([part(1, 2), { line: 2 }]), [{ parts: [{ line: 2 }] }]);
    const joined = {
        joined: [
            { line: 3, part: 1 },
            { line: 1, part: 2 },
        ],
    };
    assert.deepEqual(inbox.take([part(3, 1), joined]), [{ joined, parts: [part(3, 1), part(1, 2)] }]);
    assert.deepEqual(inbox.finish(), []);
});

test('of two parts on a line each goes to its message', () => {
    const inbox = new Inbox();
    inbox.take([part(1, 1), part(1, 2)]);
    const joined = { joined: [{ line: 1, part: 2 }] };
    assert.deepEqual(inbox.take([joined]), [{ joined, parts: [part(1, 2)] }]);
    assert.deepEqual(inbox.finish(), [{ parts: [part(1, 1)] }]);
});

test('pages are joined as well', () => {
    const inbox = new Inbox();
    const page = { line: 1, serial_number: {}, page_parameter: { page: 2, pages: 3 } };
    const joined = { joined: [{ line: 1, pages: [2] }] };
    assert.deepEqual(inbox.take([page]), []);
    assert.deepEqual(inbox.take([joined]), [{ joined, parts: [page] }]);
});

test('a page of one stands for itself', () => {
    const page = { line: 1, page_parameter: { page: 1, pages: 1 } };
    assert.deepEqual(new Inbox().take([page]), [{ parts: [page] }]);
});

test('a part that came before keeps its octets', () => {
    const inbox = new Inbox();
    const [message] = inbox.take([part(4, 1), { line: 4, duplicate_of: 'line 2' }]);
    assert.deepEqual(message, { parts: [{ ...part(4, 1), duplicate_of: 'line 2' }] });
    assert.deepEqual(inbox.finish(), []);
});

test('messages stand in the order of their first lines', () => {
    const late = { parts: [{ line: 9 }, { line: 2 }] };
    const early = { parts: [{ line: 3 }] };
    assert.deepEqual([early, late].sort(byLine), [late, early]);
});

test('gaps are counted in characters', () => {
    const message = {
        joined: {
            text: '😀ab',
            gaps: [
                { position: 1, parts_missing: [2] },
                { position: 3, parts_missing: [4, 5] },
            ],
        },
        parts: [],
    };
    assert.deepEqual(piecesOf(message), ['😀', { missing: [2] }, 'ab', { missing: [4, 5] }]);
    assert.deepEqual(piecesOf({ parts: [{ text: 'all' }] }), ['all']);
    assert.deepEqual(piecesOf({ parts: [{ data: '00' }] }), []);
});

test('the party and the time are those of the type', () => {
    assert.equal(partyOf({ parts: [{ tp_ra: { number: '+1' } }] }).number, '+1');
    assert.equal(partyOf({ joined: { address: { number: '+2' } }, parts: [{ tp_oa: { number: '+1' } }] }).number, '+2');
    assert.equal(partyOf({ parts: [{}] }), undefined);
    assert.equal(timeOf({ parts: [{ warning_time: { time: 'now' } }] }), 'now');
});

test('the octet map is asked for as the message was read', () => {
    const how = { kind: 'pdu', options: { smsc: 'no' } };
    assert.deepEqual(inspectionOf({ type: 'SMS-SUBMIT', direction: 'from-mobile' }, how), {
        smsc: 'no',
        direction: 'from-mobile',
    });
    assert.deepEqual(inspectionOf({ type: 'SMS-DELIVER', direction: 'to-mobile', sc_address: {} }, how), {
        smsc: 'yes',
        direction: 'to-mobile',
    });
    assert.deepEqual(inspectionOf({ type: 'UMTS message', serial_number: {} }, how), { cell: true, type: 'umts' });
    assert.deepEqual(inspectionOf({ error: 'cut' }, how), { smsc: 'no' });
    assert.deepEqual(inspectionOf({ error: 'cut' }, { kind: 'cell', options: {} }), { cell: true });
});

test('both readings stand beside each other', () => {
    const object = {
        text: 'a',
        tp_udl: { raw: 2 },
        libQX_Encoding: { m_Text: 'a@', m_UserDataLength: 1, m_ServiceCentreTime: null },
    };
    assert.deepEqual(differencesOf(object), [
        { name: 'm_Text', standard: 'a', host: 'a@' },
        { name: 'm_UserDataLength', standard: 2, host: 1 },
        { name: 'm_ServiceCentreTime', standard: '', host: '' },
    ]);
    assert.deepEqual(differencesOf({ type: 'SMS-COMMAND', libQX_Encoding: { rejected: true } }), [
        { name: 'rejected', standard: 'SMS-COMMAND', host: true },
    ]);
    assert.deepEqual(differencesOf({ error: 'cut', libQX_Encoding: { result: 1 } }), [
        { name: 'result', standard: 'cut', host: 1 },
    ]);
    assert.deepEqual(differencesOf({}), []);
});

test('a member is read from its fields', () => {
    assert.ok(isReadFrom('m_Text', 'TP-UD') && isReadFrom('m_Text', 'content') && !isReadFrom('m_Text', 'TP-UDL'));
    assert.ok(isReadFrom('m_Recipient', 'TP-RA') && !isReadFrom('m_Smsc', 'TP-RA'));
    assert.ok(!isReadFrom('rejected', 'TP-UD'));
});
