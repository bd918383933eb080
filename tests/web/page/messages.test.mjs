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
    ]);
    assert.deepEqual(differencesOf({ type: 'SMS-COMMAND', libQX_Encoding: { rejected: true } }), [
        { name: 'rejected', standard: 'SMS-COMMAND', host: true },
    ]);
    assert.deepEqual(differencesOf({ error: 'cut', libQX_Encoding: { result: 1 } }), [
        { name: 'result', standard: 'cut', host: 1 },
    ]);
    assert.deepEqual(differencesOf({}), []);
});

/** Of one member: what stands beside each other of an object. */
function pairOf(name, host, object) {
    const [{ standard, host: shown } = {}] = differencesOf({ ...object, libQX_Encoding: { [name]: host } });
    return [standard, shown];
}

test('numbers of libQX_Encoding that are not those of the standard are told in words', () => {
    const number = { type_of_number: { raw: 6, meaning: 'abbreviated' }, numbering_plan: { meaning: 'reserved' } };
    assert.deepEqual(pairOf('m_NumberTon', 1, { tp_oa: number }), ['abbreviated', '1: TON_UNKNOWN']);
    assert.deepEqual(pairOf('m_SmscTon', 7, { sc_address: number }), ['abbreviated', '7: TON_RESERVED']);
    assert.deepEqual(pairOf('m_NumberNpi', 0, { tp_da: number }), ['reserved', '0: NPI_UNKNOWN']);
    assert.deepEqual(pairOf('m_SmscNpi', 7, {}), ['', '7: NPI_RESERVED']);
    assert.deepEqual(pairOf('m_Alphabet', 2, { tp_dcs: { alphabet: 'GSM 7-bit' } }), ['GSM 7-bit', '2: ALPHABET_UCS2']);
    assert.deepEqual(pairOf('m_CodingGroup', 4, { tp_dcs: { meaning: 'reserved' } }), [
        'reserved',
        '4: data coding and class',
    ]);
    assert.deepEqual(pairOf('m_Class', 4, { tp_dcs: { class: 0 } }), ['0: shown at once', '4: CLASS_NONE']);
    assert.deepEqual(pairOf('m_Class', 0, { tp_dcs: {} }), ['', '0: CLASS_0']);
    assert.deepEqual(pairOf('m_Status', 18, { tp_st: { raw: 127, meaning: 'reserved' } }), ['reserved', '18: ST_UNKNOWN']);
    assert.deepEqual(pairOf('m_Status', 7, {}), ['', '7: ST_QUALITY_OF_SERVICE_UNAVAILABLE']);
    assert.deepEqual(pairOf('m_SmsType', 3, { type: 'SMS-COMMAND' }), ['SMS-COMMAND', '3: TP_MTI_SMS_STATUS_REPORT']);
    assert.deepEqual(pairOf('m_ValidityFormat', 2, { tp_vpf: { meaning: 'none' } }), ['none', '2: enhanced']);
    assert.deepEqual(pairOf('m_NumberTon', -1, {}), ['', -1]); // which has no name
});

test('numbers that are those of the standard stand beside these and what they mean', () => {
    const header = { raw: 1, meaning: 'user-data header' };
    assert.deepEqual(pairOf('m_HasUserDataHeader', 0, { tp_udhi: header }), ['1: user-data header', 0]);
    assert.deepEqual(pairOf('m_ReplyPath', 1, {}), ['', 1]);
});

test('of the page parameter that is told in which the readings differ', () => {
    const page = { page_parameter: { raw: 1, meaning: 'page 1 of 1', page: 1, pages: 1 } };
    assert.deepEqual(pairOf('m_PageParameter', 0x01, page), ['page 1 of 1', '1: page 0 of 1']);
    assert.deepEqual(pairOf('m_PageParameter', 0x53, {}), ['', '83: page 5 of 3']);
});

test('what both readings lack is no difference', () => {
    assert.deepEqual(differencesOf({ libQX_Encoding: { m_Smsc: '', m_DischargeTime: null } }), []);
});

test('a member is read from its fields', () => {
    assert.ok(isReadFrom('m_Text', 'TP-UD') && isReadFrom('m_Text', 'content') && !isReadFrom('m_Text', 'TP-UDL'));
    assert.ok(isReadFrom('m_Recipient', 'TP-RA') && !isReadFrom('m_Smsc', 'TP-RA'));
    assert.ok(!isReadFrom('rejected', 'TP-UD'));
});
