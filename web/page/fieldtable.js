// The fields of a PDU in a table: octets, name, value and meaning, bit by bit where it consists of bits.

import { strip } from './bits.js';
import { element, reconcile, unseen } from './elements.js';
import { bitsOf, kindOf, nameOf, shortened, shownValueOf, spaced } from './fields.js';
import { hostValueOf, isReadFrom } from './messages.js';
import { listenToPointer, rowOf } from './pointing.js';
import { setStop, walk } from './walking.js';
import { words } from './words.js';

const LONGEST_NOTE = 60; // characters of a value, all of which stand below the map

function noted(value) {
    return value === '' ? words.differences.nothing : shortened(String(value), LONGEST_NOTE);
}

/** What libQX_Encoding makes of a field, said at its first row. */
function hostNotesOf(row, index, rows, host) {
    if (rows[index - 1]?.field === row.field) return [];
    return Object.entries(host)
        .filter(([member]) => isReadFrom(member, row.field))
        .map(([member, value]) => ({ text: words.map.host(member, noted(hostValueOf(member, value))), look: 'note host' }));
}

/** What is said below a row. */
function notesOf(row, index, rows, { remarks = [], fault, error, libQX_Encoding: host = {} }) {
    const isHere = ({ octet }) => octet >= row.offset && octet < row.offset + row.length;
    return [
        ...remarks.filter(isHere).map(({ meaning }) => ({ text: meaning, look: 'note' })),
        ...(fault && isHere(fault) ? [{ text: error, look: 'note fault' }] : []),
        ...hostNotesOf(row, index, rows, host),
    ];
}

/** `onPoint` and `onChoose` are given the index of a row, -1 for none. */
export class FieldTable {
    constructor(onPoint, onChoose) {
        const { columns, fields } = words.map;
        const headings = Object.values(columns).map((column) => element('th', { scope: 'col' }, column));
        this.element = element(
            'table',
            { class: 'fields', 'aria-label': fields },
            element('thead', {}, element('tr', {}, headings)),
        );
        listenToPointer(this.element, onPoint);
        this.element.addEventListener('click', ({ target }) =>
            target.closest('tbody')?.querySelector('button').focus(),
        );
        this.element.addEventListener('focusin', ({ target }) => onChoose(rowOf(target)));
        this.element.addEventListener('keydown', (event) => walk(event, this.#buttons, { ArrowUp: -1, ArrowDown: 1 }));
    }

    show(rows, object) {
        const items = rows.map((row, index) => ({ row, index, notes: notesOf(row, index, rows, object) }));
        const headings = 1;
        reconcile(this.element, items, JSON.stringify, (item) => this.#group(item), headings);
    }

    /** Lights a row; the tabulator stops at that which is chosen. */
    light(row, chosen) {
        [...this.element.tBodies].forEach((group, index) => group.classList.toggle('lit', index === row));
        setStop(this.#buttons, chosen);
    }

    /** Has a row in view. */
    reveal(row) {
        this.element.tBodies[row]?.scrollIntoView({ block: 'nearest' });
    }

    get #buttons() {
        return [...this.element.querySelectorAll('button')];
    }

    /** A field, and below it what its bits mean together. */
    #group({ row, index, notes }) {
        const bits = row.bits && bitsOf(row, false);
        return element(
            'tbody',
            { 'data-kind': kindOf(row), 'data-row': index, class: 'field' },
            this.#field(row, notes),
            row.bits?.map((part, group) =>
                element(
                    'tr',
                    { class: 'bits' },
                    element('td', {}),
                    element(
                        'td',
                        {},
                        strip(bits, (of) => of === group),
                        unseen(words.map.bits(part.bits)),
                    ),
                    element('td', { class: 'name' }, part.name),
                    element('td', { class: 'sense' }, part.meaning ?? part.value),
                ),
            ),
        );
    }

    #field(row, notes) {
        const value = shownValueOf(row);
        const range = words.map.range(row.offset, row.offset + row.length - 1);
        return element(
            'tr',
            {},
            element('td', { class: 'offset' }, row.offset),
            element('td', { class: 'digits' }, element('span', { class: 'chip' }, spaced(row.octets))),
            element(
                'th',
                { scope: 'row' },
                element('button', { type: 'button', tabindex: '-1' }, nameOf(row), unseen(`, ${range}`)),
            ),
            element(
                'td',
                { class: 'meaning' },
                value && element('span', { class: 'value', dir: 'auto' }, value),
                value && row.meaning && ' ',
                row.meaning && element('span', { class: 'sense' }, row.meaning),
                notes.map(({ text, look }) => element('p', { class: look }, text)),
            ),
        );
    }
}
