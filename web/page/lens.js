// One field of the octet map, large: its value, and its octets bit by bit.

import { strip } from './bits.js';
import { element, fill } from './elements.js';
import { bitsOf, kindOf, nameOf, octetsOf, shownValueOf } from './fields.js';
import { words } from './words.js';

const OCTETS_SHOWN = 256; // bit by bit

function isPacked(row) {
    return row.isSeptets && kindOf(row) === 'text' && typeof row.value === 'string';
}

export class Lens {
    #shown;

    constructor() {
        this.element = element('div', { class: 'lens' });
    }

    show(row) {
        const shown = JSON.stringify(row);
        if (shown === this.#shown) return;
        this.#shown = shown;
        if (!row) {
            this.element.removeAttribute('data-kind');
            fill(this.element);
            return;
        }
        this.element.setAttribute('data-kind', kindOf(row));
        fill(this.element, this.#name(row), this.#value(row), this.#bits(row), this.#parts(row));
    }

    #name(row) {
        const range = words.map.range(row.offset, row.offset + row.length - 1);
        return element(
            'p',
            { class: 'name' },
            element('b', {}, nameOf(row)),
            element('span', { class: 'aside' }, range),
        );
    }

    #value(row) {
        const value = shownValueOf(row);
        if (!value && !row.meaning) return null;
        return element(
            'p',
            { class: 'sense' },
            value && element('span', { class: 'value', dir: 'auto' }, value),
            value && row.meaning && ' ',
            row.meaning,
        );
    }

    #bits(row) {
        if (row.isMissing) return null;
        const octets = octetsOf(row.octets).slice(0, OCTETS_SHOWN);
        const hidden = row.length - octets.length;
        return element(
            'div',
            { class: 'binary' },
            bitsOf({ ...row, octets: octets.join('') }, isPacked(row)).map((bits, index) =>
                element(
                    'span',
                    { class: 'column' },
                    element('span', { class: 'digits' }, octets[index]),
                    strip([bits], () => true),
                ),
            ),
            hidden > 0 && element('span', { class: 'aside' }, words.map.more(hidden)),
        );
    }

    /** What bits mean together. */
    #parts(row) {
        return (
            row.bits &&
            element(
                'ul',
                { class: 'parts' },
                row.bits.map(({ bits, name, meaning, value }) =>
                    element(
                        'li',
                        {},
                        element('code', {}, bits),
                        element('span', {}, name),
                        element('span', { class: 'sense' }, meaning ?? value),
                    ),
                ),
            )
        );
    }
}
