// The octets of a PDU in the colours of their fields.

import { element, reconcile } from './elements.js';
import { kindOf, nameOf, octetsOf } from './fields.js';
import { listenToPointer } from './pointing.js';
import { setStop, walk } from './walking.js';
import { words } from './words.js';

/** Whether two rows are pieces of the same field. */
function areOne(row, other) {
    return other !== undefined && kindOf(row) === kindOf(other) && row.field === other.field;
}

function cellsOf(rows, { remarks = [], fault }) {
    const remarked = new Set(remarks.map((remark) => remark.octet));
    return rows.flatMap((row, index) =>
        octetsOf(row.octets).map((digits, place) => {
            const offset = row.offset + place;
            const look = [
                place === 0 && (areOne(row, rows[index - 1]) ? 'joint' : 'first'),
                place === row.length - 1 && !areOne(row, rows[index + 1]) && 'last',
                remarked.has(offset) && 'remarked',
                fault?.octet === offset && 'broken',
            ];
            const label = row.isMissing ? nameOf(row) : words.map.octet(offset, digits, nameOf(row));
            return {
                digits,
                offset,
                row: index,
                kind: kindOf(row),
                label: remarked.has(offset) ? `${label}, ${words.map.remarked}` : label,
                look: look.filter(Boolean).join(' '),
            };
        }),
    );
}

/** `onPoint` and `onChoose` are given the index of a row, -1 for none; `onChoose` the octet as well. */
export class Octets {
    constructor(onPoint, onChoose) {
        this.element = element('div', { class: 'octets', role: 'listbox', 'aria-label': words.map.grid });
        listenToPointer(this.element, onPoint);
        this.element.addEventListener('click', ({ target }) => target.closest('.octet')?.focus());
        this.element.addEventListener('focusin', ({ target }) =>
            onChoose(Number(target.dataset.row), Number(target.dataset.offset)),
        );
        this.element.addEventListener('keydown', (event) => this.#walk(event));
    }

    show(rows, object) {
        reconcile(
            this.element,
            cellsOf(rows, object),
            ({ digits, row, kind, label, look }) => `${digits} ${row} ${kind} ${label} ${look}`,
            (cell) => this.#cell(cell),
        );
    }

    /** Lights the octets of a row; the tabulator stops at the octet. */
    light(row, octet) {
        for (const cell of this.element.children) {
            const isLit = row >= 0 && Number(cell.dataset.row) === row;
            if (cell.classList.contains('lit') === isLit) continue;
            cell.classList.toggle('lit', isLit);
            cell.setAttribute('aria-selected', isLit);
        }
        setStop([...this.element.children], octet);
    }

    #cell({ digits, offset, row, kind, label, look }) {
        return element(
            'span',
            {
                class: `octet ${look}`,
                role: 'option',
                'aria-selected': 'false',
                'aria-label': label,
                'data-kind': kind,
                'data-row': row,
                'data-offset': offset,
                tabindex: '-1',
            },
            digits,
        );
    }

    /** The octets above and below stand in other lines of as many columns as there is room for. */
    #walk(event) {
        const cells = [...this.element.children];
        const columns = cells.findIndex((cell) => cell.offsetTop !== cells[0].offsetTop);
        const line = columns < 0 ? cells.length : columns;
        walk(event, cells, { ArrowLeft: -1, ArrowRight: 1, ArrowUp: -line, ArrowDown: line });
    }
}
