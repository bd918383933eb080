// The octet map: octets and fields beside each other. What the pointer or the keyboard is on is lit in both.

import { copyButton } from './copying.js';
import { element, reconcile, say } from './elements.js';
import { FieldTable } from './fieldtable.js';
import { drawnRows, missingRow, nameOf, rowAt } from './fields.js';
import { Lens } from './lens.js';
import { Octets } from './octets.js';
import { words } from './words.js';

const OCTETS_SHOWN = 1280; // the longest message of cell broadcast has 1,252
const BESIDE = '(min-width: 72rem)'; // as in the style

export class OctetMap {
    #object = {};
    #rows = []; // those that are drawn, and what lacks as the last
    #pointed = -1; // the row that the pointer is on
    #chosen = -1; // the row that was clicked or has the focus
    #chosenName;
    #octet = 0; // the one that the keyboard is at

    #size = element('p', { class: 'aside' });
    #remarks = element('ul', { class: 'remarks', 'aria-label': words.remarks.heading });
    #lens = new Lens();
    #more = element('p', { class: 'hint' });
    #octets = new Octets(
        (row) => this.#point(row),
        (row, octet) => {
            this.#choose(row, octet);
            if (matchMedia(BESIDE).matches) this.#table.reveal(row);
        },
    );
    #table = new FieldTable(
        (row) => this.#point(row),
        (row) => this.#choose(row, this.#rows[row].offset),
    );

    constructor() {
        const hint = element('p', { class: 'hint' }, words.map.hint);
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
                element('div', { class: 'drawn' }, this.#octets.element, this.#more, this.#lens.element, hint),
                this.#table.element,
            ),
        );
    }

    /** Shows an inspected PDU or page. `isSeptets` says whether its text is packed. */
    show(object, isSeptets) {
        this.#object = object;
        const { rows, hidden } = drawnRows(object.map ?? [], OCTETS_SHOWN);
        const fields = rows.map((row) => ({ ...row, isSeptets }));
        const missing = hidden ? null : missingRow(object, words.map.missing);
        this.#rows = missing ? [...fields, missing] : fields;
        this.#showSize(object);
        this.#showRemarks(object);
        this.#octets.show(this.#rows, object);
        this.#more.hidden = hidden === 0;
        say(this.#more, words.map.more(hidden));
        this.#table.show(fields, object);
        this.#pointed = -1;
        this.#keepChosen(object);
        this.#light();
    }

    #point(row) {
        if (row === this.#pointed) return;
        this.#pointed = row;
        this.#light();
    }

    #choose(row, octet) {
        this.#chosen = row;
        this.#chosenName = this.#rows[row] && nameOf(this.#rows[row]);
        this.#octet = octet;
        this.#pointed = -1; // until it is moved again
        this.#light();
    }

    /**
     * What is cut asks for a look where it ends, which is where somebody types. Otherwise the field that was chosen
     * stays so, if it stands in the same place; else the first remark has one, or the octet that says what this is.
     */
    #keepChosen({ fault, remarks = [] }) {
        const isKept = this.#rows[this.#chosen] && nameOf(this.#rows[this.#chosen]) === this.#chosenName;
        if (isKept && !fault) return;
        const octet = fault?.octet ?? remarks[0]?.octet;
        const telling = this.#rows.findIndex(({ bits, field }) => bits && field !== 'service centre');
        const row = octet === undefined ? Math.max(telling, 0) : this.#rowAt(octet);
        this.#choose(row, this.#rows[row]?.offset ?? 0);
    }

    /** The row of an octet; of one that is not there or not drawn, the last. */
    #rowAt(octet) {
        const fields = this.#rows.filter(({ isMissing }) => !isMissing);
        const row = rowAt(fields, octet);
        return row < 0 ? fields.length - 1 : row;
    }

    #light() {
        const row = this.#pointed >= 0 ? this.#pointed : this.#chosen;
        this.#octets.light(row, this.#octet);
        this.#table.light(row, this.#chosen);
        this.#lens.show(this.#rows[row]);
    }

    #showSize({ octets = '', map = [] }) {
        const size = octets.length / 2;
        const ofCentre = map.filter(({ field }) => field === 'service centre');
        const centre = ofCentre.reduce((sum, { length }) => sum + length, 0);
        const tpdu = centre > 0 && centre < size ? `, ${words.map.tpdu(size - centre)}` : '';
        say(this.#size, words.map.size(size) + tpdu);
    }

    #showRemarks({ remarks = [], fault, error }) {
        const items = remarks.map(({ octet, field, meaning }) => ({ octet, field, text: meaning, look: 'remark' }));
        if (fault) items.unshift({ ...fault, text: error.replace(/^octet \d+: /, ''), look: 'remark fault' });
        this.#remarks.hidden = !items.length;
        reconcile(this.#remarks, items, JSON.stringify, ({ octet, field, text, look }) =>
            element(
                'li',
                {},
                element(
                    'button',
                    { type: 'button', class: look, onclick: () => this.#choose(this.#rowAt(octet), octet) },
                    element('b', {}, `${words.remarks.octet(octet)} · ${field}`),
                    ' ',
                    text,
                ),
            ),
        );
    }
}
