// A message as a handset would show it: who, when, the text; and beside it what else is worth knowing.

import { element, fill } from './elements.js';
import { octetsOf, spaced } from './fields.js';
import { contentOf, isCell, isDuplicate, partyOf, piecesOf, timeOf } from './messages.js';
import { words } from './words.js';

/** "From", "To", … before the party. */
function roleOf(message) {
    const { type, direction } = message.joined ?? message.parts[0] ?? {};
    if (type === 'SMS-STATUS-REPORT' || type === 'SMS-SUBMIT-REPORT') return words.message.of;
    return direction === 'to-mobile' ? words.message.from : words.message.to;
}

export function whoOf(message) {
    const first = message.parts[0] ?? {};
    if (isCell(first)) return first.message_identifier.meaning;
    return partyOf(message)?.number || first.type || words.message.unknown;
}

function timeNode(iso) {
    return element('time', { datetime: iso }, words.time(iso));
}

/** What stands in the bubble where no text does. */
function insteadOfText(message, first) {
    const { data } = contentOf(message);
    if (data !== undefined)
        return [
            element('span', { class: 'aside' }, words.message.data(octetsOf(data).length)),
            element('span', { class: 'data' }, spaced(data)),
        ];
    const said = first.tp_st ?? first.tp_fcs ?? first.tp_ct ?? first.warning_type;
    return element('span', { class: said ? 'said' : 'aside' }, said?.meaning ?? words.message.noText);
}

function bubble(message, first) {
    const { text } = contentOf(message);
    const pieces = piecesOf(message).map((piece) =>
        typeof piece === 'string'
            ? piece
            : element(
                  'span',
                  { class: 'gap' },
                  piece.missing.length === 1
                      ? words.message.missing(piece.missing)
                      : words.message.missingSome(piece.missing),
              ),
    );
    const isOutgoing = first.direction === 'from-mobile';
    return element(
        'div',
        { class: isOutgoing ? 'bubble out' : 'bubble' },
        text ? element('p', { class: 'said', dir: 'auto' }, pieces) : insteadOfText(message, first),
    );
}

/** Pairs of a name and a value, those that apply. */
function factsOf(message, first) {
    const { message: named } = words;
    const coding = first.tp_dcs ?? first.data_coding_scheme;
    const languages = [...new Set([first.locking_shift, first.single_shift].filter(Boolean))];
    const isReport = first.tp_dt !== undefined;
    return [
        [named.identifier, isCell(first) && first.message_identifier.raw],
        [named.serial, first.serial_number?.meaning],
        [named.alphabet, coding?.alphabet],
        [named.language, first.language],
        [named.languages, languages.join(', ')],
        [named.class, coding?.class !== undefined && named.classes[coding.class]],
        [named.waiting, coding?.waiting && coding.meaning],
        [named.ports, first.ports && named.port(first.ports.destination, first.ports.originator)],
        [named.validity, first.tp_vp && (first.tp_vp.time ? timeNode(first.tp_vp.time) : first.tp_vp.meaning)],
        [named.sent, isReport && first.tp_scts?.time && timeNode(first.tp_scts.time)],
        [named.discharged, isReport && first.tp_dt.time && timeNode(first.tp_dt.time)],
        [named.reportOn, first.report_on && words.list.line(first.report_on)],
        [named.reference, first.tp_mr?.raw],
        [named.protocol, first.tp_pid?.raw ? first.tp_pid.meaning : null],
        [named.centre, first.sc_address?.number],
    ].filter(([, value]) => value !== undefined && value !== null && value !== false && value !== '');
}

/** Shows one message, and lets choose of which part the octets are shown. */
export class MessageView {
    #onPart;

    constructor(onPart) {
        this.#onPart = onPart;
        this.element = element('section', { class: 'panel message', 'aria-label': words.message.heading });
    }

    focusPart(part) {
        this.element.querySelectorAll('.tabs button')[part]?.focus();
    }

    show(message, part) {
        this.element.hidden = false;
        const shown = message.parts[part] ?? {};
        const first = message.parts[0] ?? {};
        fill(
            this.element,
            this.#isWhole(shown) ? this.#whole(message, first) : this.#broken(shown),
            this.#warnings(shown),
            this.#tabs(message, part),
        );
    }

    #whole(message, first) {
        const time = timeOf(message);
        const kind = message.joined?.type ?? first.type;
        return [
            element(
                'header',
                { class: 'who' },
                element(
                    'h2',
                    {},
                    !isCell(first) && partyOf(message) && element('span', { class: 'role' }, roleOf(message), ' '),
                    element('bdi', {}, whoOf(message)),
                ),
                element(
                    'p',
                    { class: 'when' },
                    time ? timeNode(time) : '',
                    kind && element('span', { class: 'tag' }, kind),
                    isDuplicate(first) && element('span', { class: 'tag' }, words.list.duplicate(first.duplicate_of)),
                ),
            ),
            element(
                'div',
                { class: 'body' },
                bubble(message, first),
                element(
                    'dl',
                    { class: 'facts' },
                    factsOf(message, first).map(([name, value]) =>
                        element('div', {}, element('dt', {}, name), element('dd', { dir: 'auto' }, value)),
                    ),
                ),
            ),
        ];
    }

    /** Not so what is cut, or a record of a SIM in which nothing stands. */
    #isWhole({ error, type }) {
        return !error && type !== undefined;
    }

    #broken({ error }) {
        return element(
            'header',
            { class: 'who' },
            element('h2', { class: 'broken' }, error ? words.message.broken : words.message.free),
            error && element('p', { class: 'fault' }, error),
        );
    }

    #warnings({ warnings }) {
        return (
            warnings &&
            element(
                'ul',
                { class: 'warnings', 'aria-label': words.message.warnings },
                warnings.map((warning) => element('li', {}, warning)),
            )
        );
    }

    #tabs(message, shown) {
        if (message.parts.length < 2) return null;
        return element(
            'div',
            { class: 'tabs', role: 'group', 'aria-label': words.message.partsLabel },
            message.parts.map((object, index) => {
                const label = isCell(object)
                    ? words.message.pageTab(object.page_parameter?.page ?? index + 1, object.line)
                    : words.message.partTab(object.concatenation.part, object.line);
                return element(
                    'button',
                    { type: 'button', 'aria-pressed': String(index === shown), onclick: () => this.#onPart(index) },
                    label,
                );
            }),
        );
    }
}
