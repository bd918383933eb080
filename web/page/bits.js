// Octets drawn bit by bit.

import { element } from './elements.js';

function lookOf(group) {
    return group % 2 ? 'bit odd' : 'bit even';
}

/** The bits of octets, as fields.js gives them; those of the groups that are asked for are filled. */
export function strip(octets, isFilled) {
    return element(
        'span',
        { class: 'strip', 'aria-hidden': 'true' },
        octets.map((bits) =>
            element(
                'span',
                { class: 'eight' },
                bits.map(({ bit, group }) => element('i', { class: isFilled(group) ? lookOf(group) : 'bit' }, bit)),
            ),
        ),
    );
}
