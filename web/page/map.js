// The octet map: the octets in the colours of their fields, and the fields in a table. Either lights the other.

import { element, fill, reconcile, say, unseen } from './elements.js';
import { bitsOf, kindOf, nameOf, octetsOf, rowAt, spaced, valueOf } from './fields.js';
import { copyButton } from './copying.js';
import { words } from './words.js';

const MISSING_SHOWN = 16; // cells that are drawn of what a broken PDU lacks
const WIDE = '(min-width: 72rem)'; // as in the style

/** What stands at a row, and is said below it. */
function notesOf(row, { remarks = [] }, fault) {
    const isAt = ({ octet }) => octet >= row.offset && octet < row.offset + row.length;
    return [
        ...remarks.filter(isAt).map((remark) => ({ isFault: false, text: remark.meaning })),
        ...(fault?.row === row ? [{ isFault: true, text: fault.text }] : []),
    ];
}

/** "7 octets" says what 7 does. */
function shownValue(row) {
    const value = valueOf(row);
    return row.meaning?.startsWith(`${value} `) ? '' : value;
}

/** Draws the bits of one octet or two, those of the groups that are asked for filled. */
function strip(octets, isFilled) {
    return element(
        'span',
        { class: 'strip', 'aria-hidden': 'true' },
        octets.map((bits) =>
            element(
                'span',
                { class: 'eight' },
                bits.map(({ bit, group }) =>
                    element('i', { class: isFilled(group) ? (group % 2 ? 'bit odd' : 'bit even') : 'bit' }, bit),
                ),
            ),
        ),
    );
}

/** The tabulator stops at one of the nodes only. */
function setStop(nodes, stop) {
    nodes.forEach((node, index) => {
        const tabIndex = index === stop ? 0 : -1;
        if (node.tabIndex !== tabIndex) node.tabIndex = tabIndex;
    });
}

export class OctetMap {
    #size;
    #remarks;
    #grid;
    #lens;
    #table;
    #object = {};
    #rows = [];
    #lit = -1; // the row that the pointer is on
    #chosen = -1; // the row that was clicked or has the focus
    #chosenName;
    #octet = 0; // the one that the keyboard is at

    constructor() {
        this.#size = element('p', { class: 'aside' });
        this.#remarks = element('ul', { class: 'remarks', 'aria-label': words.remarks.heading });
        this.#grid = element('div', { class: 'octets', role: 'listbox', 'aria-label': words.map.grid });
        this.#lens = element('div', { class: 'lens' });
        const { octet, octets, field, meaning } = words.map.columns;
        this.#table = element(
            'table',
            { class: 'fields', 'aria-label': words.map.fields },
            element(
                'thead',
                {},
                element(
                    'tr',
                    {},
                    element('th', { scope: 'col' }, octet),
                    element('th', { scope: 'col' }, octets),
                    element('th', { scope: 'col' }, field),
                    element('th', { scope: 'col' }, meaning),
                ),
            ),
        );
        this.element = element(
            'section',
            { class: 'panel map', 'aria-labelledby': 'octets-heading' },
            element(
                'header',
                { class: 'bar' },
                element('h2', { id: 'octets-heading' }, words.map.heading),
                this.#size,
                copyButton(words.map.copy, () => this.#object.octets ?? ''),
            ),
            this.#remarks,
            element(
                'div',
                { class: 'halves' },
                element(
                    'div',
                    { class: 'drawn' },
                    this.#grid,
                    this.#lens,
                    element('p', { class: 'hint' }, words.map.hint),
                ),
                element('div', { class: 'told' }, this.#table),
            ),
        );
        this.#listen();
    }

    /** Shows an inspected PDU or page. `isSeptets` says whether its text is packed. */
    show(object, isSeptets) {
        this.#object = object;
        this.#rows = (object.map ?? []).map((row) => ({ ...row, isSeptets }));
        const fault = object.fault && {
            row: this.#rows[Math.max(rowAt(this.#rows, object.fault.octet), this.#rows.length ? 0 : -1)],
            text: object.error,
        };
        this.#showSize(object);
        this.#showRemarks(object);
        this.#showOctets(object);
        reconcile(
            this.#table,
            this.#rows.map((row) => ({ row, notes: notesOf(row, object, fault) })),
            (item) => JSON.stringify(item),
            (item, index) => this.#fieldRows(item, index),
            1,
        );
        this.#keepChosen(object);
        this.#lit = -1;
        this.#setStops();
        this.#light();
    }

    /** The field that was chosen stays so in another PDU that has it there; else that is chosen which most asks for a look. */
    #keepChosen({ fault, remarks = [] }) {
        const row = this.#rows[this.#chosen];
        if (!row || nameOf(row) !== this.#chosenName) {
            const noted = fault?.octet ?? remarks[0]?.octet;
            const index =
                noted === undefined
                    ? this.#rows.findIndex(({ bits, field }) => bits && field !== 'service centre')
                    : rowAt(this.#rows, noted);
            this.#chosen = Math.max(index, this.#rows.length ? 0 : -1);
            this.#octet = this.#rows[this.#chosen]?.offset ?? 0;
        }
        this.#octet = Math.min(this.#octet, Math.max(this.#grid.children.length - 1, 0));
        this.#chosenName = this.#rows[this.#chosen] && nameOf(this.#rows[this.#chosen]);
    }

    /** Lights the field at an octet until another is pointed at. */
    choose(octet) {
        this.#setChosen(rowAt(this.#rows, octet), octet);
        this.#setStops();
        this.#light();
    }

    #showSize({ octets = '', map = [] }) {
        const size = octets.length / 2;
        const centre = map.filter((row) => row.field === 'service centre').reduce((sum, row) => sum + row.length, 0);
        const tpdu = centre && centre < size ? `, ${words.map.tpdu(size - centre)}` : '';
        say(this.#size, words.map.size(size) + tpdu);
    }

    #showRemarks({ remarks = [], fault, error }) {
        const items = [
            ...(fault
                ? [{ octet: fault.octet, field: fault.field, text: error.replace(/^octet \d+: /, ''), isFault: true }]
                : []),
            ...remarks.map((remark) => ({ ...remark, text: remark.meaning, isFault: false })),
        ];
        this.#remarks.hidden = !items.length;
        reconcile(
            this.#remarks,
            items,
            (item) => JSON.stringify(item),
            (item) =>
                element(
                    'li',
                    {},
                    element(
                        'button',
                        {
                            type: 'button',
                            class: item.isFault ? 'remark fault' : 'remark',
                            onclick: () => this.choose(item.octet),
                        },
                        element('b', {}, `${words.remarks.octet(item.octet)} · ${item.field}`),
                        ' ',
                        item.text,
                    ),
                ),
        );
    }

    #showOctets({ octets = '', remarks = [], fault }) {
        const remarked = new Set(remarks.map((remark) => remark.octet));
        const cells = [];
        this.#rows.forEach((row, index) => {
            octetsOf(row.octets).forEach((digits, place) => {
                const offset = row.offset + place;
                const neighbour = (at) =>
                    this.#rows[at] && kindOf(this.#rows[at]) === kindOf(row) && this.#rows[at].field === row.field;
                const isFirst = place === 0;
                const isLast = place === row.length - 1;
                const parts = [
                    isFirst && (neighbour(index - 1) ? 'joint' : 'first'),
                    isLast && !neighbour(index + 1) && 'last',
                    remarked.has(offset) && 'remarked',
                    fault && offset === fault.octet && 'broken',
                ];
                cells.push({
                    digits,
                    offset,
                    row: index,
                    kind: kindOf(row),
                    name: nameOf(row),
                    look: parts.filter(Boolean).join(' '),
                });
            });
        });
        const missing = fault ? Math.min(Math.max(fault.expected - fault.found, 0), MISSING_SHOWN) : 0;
        for (let index = 0; index < missing; index++)
            cells.push({
                digits: '··',
                offset: octets.length / 2 + index,
                row: -1,
                kind: 'missing',
                name: '',
                look: '',
            });
        reconcile(
            this.#grid,
            cells,
            ({ digits, row, kind, name, look }) => `${digits} ${row} ${kind} ${name} ${look}`,
            (cell) => this.#octetCell(cell, fault),
        );
    }

    #octetCell({ digits, offset, row, kind, name, look }, fault) {
        const label = row < 0 ? words.map.missing(fault.expected - fault.found) : words.map.octet(offset, digits, name);
        const remarked = look.includes('remarked') ? `, ${words.map.remarked}` : '';
        return element(
            'span',
            {
                class: `octet ${look}`,
                role: 'option',
                'aria-selected': 'false',
                'aria-label': label + remarked,
                'data-kind': kind,
                'data-row': row,
                'data-offset': offset,
                tabindex: '-1',
            },
            digits,
        );
    }

    /** A group of rows for a field: its own, and one for all bits that mean something together. */
    #fieldRows({ row, notes }, index) {
        const value = shownValue(row);
        const bits = row.bits && bitsOf(row, false);
        return element(
            'tbody',
            {
                'data-kind': kindOf(row),
                'data-row': index,
                class: notes.some((note) => note.isFault) ? 'field broken' : 'field',
            },
            element(
                'tr',
                {},
                element('td', { class: 'offset' }, row.offset),
                element('td', { class: 'digits' }, element('span', { class: 'chip' }, spaced(row.octets))),
                element(
                    'th',
                    { scope: 'row' },
                    element(
                        'button',
                        { type: 'button', tabindex: '-1' },
                        nameOf(row),
                        unseen(`, ${words.map.range(row.offset, row.offset + row.length - 1)}`),
                    ),
                ),
                element(
                    'td',
                    { class: 'meaning' },
                    value && element('span', { class: 'value', dir: 'auto' }, value),
                    value && row.meaning && ' ',
                    row.meaning && element('span', { class: 'sense' }, row.meaning),
                    notes.map((note) => element('p', { class: note.isFault ? 'note fault' : 'note' }, note.text)),
                ),
            ),
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

    /** The lit field, large, with the bits of its octets. */
    #showLens(row) {
        if (!row) {
            this.#lens.removeAttribute('data-kind');
            fill(this.#lens);
            return;
        }
        this.#lens.setAttribute('data-kind', kindOf(row));
        const isText = row.isSeptets && kindOf(row) === 'text' && typeof row.value === 'string';
        const value = shownValue(row);
        fill(
            this.#lens,
            element(
                'p',
                { class: 'name' },
                element('b', {}, nameOf(row)),
                element('span', { class: 'aside' }, words.map.range(row.offset, row.offset + row.length - 1)),
            ),
            (value || row.meaning) &&
                element(
                    'p',
                    { class: 'sense' },
                    value && element('span', { class: 'value', dir: 'auto' }, value),
                    value && row.meaning && ' ',
                    row.meaning,
                ),
            element(
                'div',
                { class: 'binary' },
                bitsOf(row, isText).map((bits, index) =>
                    element(
                        'span',
                        { class: 'column' },
                        element('span', { class: 'digits' }, octetsOf(row.octets)[index]),
                        strip([bits], () => true),
                    ),
                ),
            ),
            row.bits &&
                element(
                    'ul',
                    { class: 'parts' },
                    row.bits.map((part) =>
                        element(
                            'li',
                            {},
                            element('code', {}, part.bits),
                            element('span', {}, part.name),
                            element('span', { class: 'sense' }, part.meaning ?? part.value),
                        ),
                    ),
                ),
        );
    }

    #listen() {
        const indexAt = (target) => {
            const index = target.closest('[data-row]')?.dataset.row;
            return index === undefined ? -1 : Number(index);
        };
        for (const half of [this.#grid, this.#table]) {
            half.addEventListener('pointerover', ({ target, pointerType }) => {
                if (pointerType === 'touch') return;
                this.#lit = indexAt(target);
                this.#light();
            });
            half.addEventListener('pointerleave', () => {
                this.#lit = -1;
                this.#light();
            });
        }
        this.#grid.addEventListener('focusin', ({ target }) => this.#focused(target, true));
        this.#grid.addEventListener('click', ({ target }) => target.closest('.octet')?.focus());
        this.#grid.addEventListener('keydown', (event) => this.#walkOctets(event));
        this.#table.addEventListener('focusin', ({ target }) => this.#focused(target, false));
        this.#table.addEventListener('click', ({ target }) => target.closest('tbody')?.querySelector('button').focus());
        this.#table.addEventListener('keydown', (event) => this.#walkRows(event));
    }

    #setChosen(index, octet) {
        this.#chosen = index;
        this.#chosenName = this.#rows[index] && nameOf(this.#rows[index]);
        this.#octet = octet;
    }

    #focused(target, isOctet) {
        const index = Number(target.closest('[data-row]').dataset.row);
        this.#setChosen(index, isOctet ? [...this.#grid.children].indexOf(target) : (this.#rows[index]?.offset ?? 0));
        this.#lit = -1;
        this.#setStops();
        this.#light();
        if (isOctet && matchMedia(WIDE).matches) this.#groups()[index]?.scrollIntoView({ block: 'nearest' });
    }

    /** The octets above and below stand in other lines of as many columns as there is room for. */
    #walkOctets(event) {
        const cells = [...this.#grid.children];
        const columns = cells.findIndex((cell) => cell.offsetTop !== cells[0].offsetTop);
        const line = columns < 0 ? cells.length : columns;
        const steps = {
            ArrowLeft: -1,
            ArrowRight: 1,
            ArrowUp: -line,
            ArrowDown: line,
            Home: -cells.length,
            End: cells.length,
        };
        this.#walk(event, steps, cells, this.#octet);
    }

    #walkRows(event) {
        const buttons = [...this.#table.querySelectorAll('button')];
        const steps = { ArrowUp: -1, ArrowDown: 1, Home: -buttons.length, End: buttons.length };
        this.#walk(event, steps, buttons, Math.max(this.#chosen, 0));
    }

    #walk(event, steps, nodes, from) {
        const step = steps[event.key];
        if (step === undefined || event.altKey || event.ctrlKey || event.metaKey) return;
        event.preventDefault();
        const isToEnd = event.key === 'Home' || event.key === 'End';
        const to = from + step;
        if (isToEnd) nodes[step < 0 ? 0 : nodes.length - 1].focus();
        else nodes[to]?.focus();
    }

    #groups() {
        return [...this.#table.tBodies];
    }

    /** One octet and one field can be reached by the tabulator, the others from there. */
    #setStops() {
        setStop([...this.#grid.children], this.#octet);
        setStop([...this.#table.querySelectorAll('button')], Math.max(this.#chosen, 0));
    }

    #light() {
        const index = this.#lit >= 0 ? this.#lit : this.#chosen;
        for (const cell of this.#grid.children) {
            const isLit = index >= 0 && Number(cell.dataset.row) === index;
            cell.classList.toggle('lit', isLit);
            if ((cell.getAttribute('aria-selected') === 'true') !== isLit) cell.setAttribute('aria-selected', isLit);
        }
        this.#groups().forEach((row, at) => row.classList.toggle('lit', at === index));
        this.#showLens(this.#rows[index]);
    }
}
