// Puts what was read together to messages, as somebody would see them on a handset.

import { words } from './words.js';

const PARTIES = ['tp_oa', 'tp_da', 'tp_ra'];

/** Whether the object is of cell broadcast. */
export function isCell(object) {
    return object.serial_number !== undefined;
}

/** Whether more parts belong to it, so that a joined message follows. */
function isPart(object) {
    return object.concatenation !== undefined || (object.page_parameter?.pages ?? 1) > 1;
}

/** Whether it is a part that came before. */
export function isDuplicate(object) {
    return Boolean(object.duplicate_of ?? object.duplicate_pages);
}

/** Takes objects in the order in which they were read, and gives messages. */
export class Inbox {
    #waiting = new Map(); // objects that a joined message may take, by their line

    /** The messages that are whole with these objects. */
    take(objects) {
        return objects.map((object) => this.#take(object)).filter((message) => message !== null);
    }

    /** At the end: parts of no joined message stand for themselves. */
    finish() {
        const rest = [...this.#waiting.values()].flat();
        this.#waiting.clear();
        return rest.map((object) => ({ parts: [object] }));
    }

    #take(object) {
        if (object.joined)
            return { joined: object, parts: object.joined.map((part) => this.#part(part)).filter(Boolean) };
        if (isDuplicate(object)) return { parts: [this.#withOctets(object)] };
        if (!isPart(object)) return { parts: [object] };
        const sameLine = this.#waiting.get(object.line);
        if (sameLine) sameLine.push(object);
        else this.#waiting.set(object.line, [object]);
        return null;
    }

    /** That a part came before is told after the object of the part itself, which then has waited for nothing. */
    #withOctets(duplicate) {
        const sameLine = this.#waiting.get(duplicate.line) ?? [];
        const object = sameLine.pop();
        if (sameLine.length === 0) this.#waiting.delete(duplicate.line);
        return { ...object, ...duplicate };
    }

    #part({ line, part, pages }) {
        const objects = this.#waiting.get(line) ?? [];
        const index = objects.findIndex(
            (object) => object.concatenation?.part === part || pages?.includes(object.page_parameter?.page),
        );
        const [found] = objects.splice(Math.max(index, 0), 1);
        if (!objects.length) this.#waiting.delete(line);
        return found;
    }
}

/** The line on which a message begins. */
function lineOf(message) {
    return Math.min(...message.parts.map((part) => part.line ?? 1));
}

/** Sorts messages as they stand in the log. */
export function byLine(one, other) {
    return lineOf(one) - lineOf(other);
}

/** The names of a status report, a submission and so on differ; these are the same of all. */
export function partyOf(message) {
    const first = message.parts[0] ?? {};
    const name = PARTIES.find((field) => first[field] !== undefined);
    return message.joined?.address ?? (name && first[name]);
}

/** The time that a message bears, in ISO 8601 with its zone; undefined where it has none. */
export function timeOf(message) {
    const first = message.parts[0] ?? {};
    return message.joined?.time ?? first.tp_scts?.time ?? first.warning_time?.time;
}

/** Text and data of the whole message. */
export function contentOf(message) {
    const { text, data } = message.joined ?? message.parts[0] ?? {};
    return { text, data };
}

/** Pieces of a joined text: strings, and for what is missing { missing: [2] }. */
export function piecesOf(message) {
    const { text } = contentOf(message);
    const gaps = message.joined?.gaps;
    if (text === undefined || !gaps) return text === undefined ? [] : [text];
    const characters = [...text];
    const pieces = [];
    let begin = 0;
    for (const gap of gaps) {
        pieces.push(characters.slice(begin, gap.position).join(''), { missing: gap.parts_missing });
        begin = gap.position;
    }
    pieces.push(characters.slice(begin).join(''));
    return pieces.filter((piece) => piece !== '');
}

const CELL_TYPES = { 'GSM page': 'gsm', 'UMTS message': 'umts', 'ETWS primary notification': 'etws' };

/** How an octet map of the object is asked for, so that it is read in the same way: as it was, or what is broken as all is. */
export function inspectionOf(object, { kind, options }) {
    if (isCell(object)) return { cell: true, type: CELL_TYPES[object.type] };
    if (object.type === undefined) return kind === 'cell' ? { cell: true } : options;
    return { smsc: object.sc_address ? 'yes' : 'no', direction: object.direction };
}

const PARTY = ['TP-OA', 'TP-DA', 'TP-RA'];
const { told, paged } = words.differences;
const toldOf = (field) => field && told(field.raw, field.meaning);
const typeOf = (address) => address?.type_of_number?.meaning;
const planOf = (address) => address?.numbering_plan?.meaning;

const pageOf = ({ page_parameter: parameter }) => parameter?.pages && paged(parameter.page, parameter.pages);

/**
 * Members of libQX_Encoding's records: the fields that they are read from, and what the standard says of these.
 * That is a number where the member is the same number; where its numbers are others, words.
 */
const MEMBERS = {
    m_Smsc: [['service centre'], (of) => of.sc_address?.number],
    m_Originator: [PARTY, (of) => of.tp_oa?.number],
    m_Recipient: [PARTY, (of) => (of.tp_da ?? of.tp_ra)?.number],
    m_SmscNpi: [['service centre'], (of) => planOf(of.sc_address)],
    m_SmscTon: [['service centre'], (of) => typeOf(of.sc_address)],
    m_NumberNpi: [PARTY, (of) => planOf(partyOf({ parts: [of] }))],
    m_NumberTon: [PARTY, (of) => typeOf(partyOf({ parts: [of] }))],
    m_SmsType: [['first octet'], (of) => of.type],
    m_ReplyPath: [['first octet'], (of) => toldOf(of.tp_rp)],
    m_HasUserDataHeader: [['first octet'], (of) => toldOf(of.tp_udhi)],
    m_StatusReport: [['first octet'], (of) => toldOf(of.tp_srr)],
    m_ValidityFormat: [['first octet'], (of) => of.tp_vpf?.meaning],
    m_RejectDuplicates: [['first octet'], (of) => toldOf(of.tp_rd)],
    m_MessageReference: [['TP-MR'], (of) => of.tp_mr?.raw],
    m_ProtocolId: [['TP-PID'], (of) => of.tp_pid?.raw],
    m_DataCoding: [['TP-DCS'], (of) => of.tp_dcs?.raw],
    m_ValidityPeriod: [['TP-VP'], (of) => toldOf(of.tp_vp)],
    m_ValidityTime: [['TP-VP'], (of) => of.tp_vp?.time],
    m_DischargeTime: [['TP-DT'], (of) => of.tp_dt?.time],
    m_ServiceCentreTime: [['TP-SCTS'], (of) => of.tp_scts?.time],
    m_UserDataLength: [['TP-UDL'], (of) => of.tp_udl?.raw],
    m_Status: [['TP-ST'], (of) => of.tp_st?.meaning],
    m_CodingGroup: [['TP-DCS'], (of) => of.tp_dcs?.meaning],
    m_Class: [['TP-DCS'], (of) => words.message.classes[of.tp_dcs?.class]],
    m_Alphabet: [['TP-DCS'], (of) => of.tp_dcs?.alphabet],
    m_Text: [['TP-UD', 'content'], (of) => of.text ?? of.data],
    m_ConcatReference: [['TP-UDH'], (of) => of.concatenation?.reference],
    m_ConcatTotal: [['TP-UDH'], (of) => of.concatenation?.total],
    m_ConcatSequence: [['TP-UDH'], (of) => of.concatenation?.part],
    m_SerialNumber: [['serial number'], (of) => of.serial_number?.raw],
    m_MessageIdentifier: [['message identifier'], (of) => of.message_identifier?.raw],
    m_DataCodingScheme: [['data coding scheme'], (of) => of.data_coding_scheme?.raw],
    m_PageParameter: [['page parameter'], pageOf],
};

/** Whether the member is read from the field. */
export function isReadFrom(member, field) {
    return MEMBERS[member]?.[0].includes(field) ?? false;
}

/** What libQX_Encoding puts into a member: where its numbers are not those of the standard, in words as well. */
export function hostValueOf(name, value) {
    const { values } = words.differences;
    const word = name === 'm_PageParameter' ? paged(value >> 4, value & 0xf) : values[name]?.[value];
    return word === undefined ? (value ?? '') : told(value, word);
}

/** What libQX_Encoding makes of an object where that differs: { name, standard, host }; "" is nothing. */
export function differencesOf(object) {
    return Object.entries(object.libQX_Encoding ?? {})
        .map(([name, host]) => ({
            name,
            standard:
                name === 'rejected' || name === 'result'
                    ? (object.error ?? object.type ?? '')
                    : (MEMBERS[name]?.[1](object) ?? ''),
            host: hostValueOf(name, host),
        }))
        .filter(({ standard, host }) => standard !== host);
}
