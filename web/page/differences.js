// What libQX_Encoding makes of a message or a text, where that differs from the standard.

import { element, fill } from './elements.js';
import { words } from './words.js';

/** Of a counted text, by the standard and by libQX_Encoding: { name, standard, host }, what differs. */
export function differencesOfCounts(counted, hosted) {
    const { members, size, cuts } = words.differences;
    const rows = [
        { name: members.alphabet, of: ({ alphabet }) => alphabet ?? '' },
        { name: members.size, of: ({ septets, characters }) => size(septets, characters) },
        { name: members.parts, of: ({ parts }) => parts ?? '' },
        { name: members.room, of: ({ room }) => room ?? '' },
        { name: members.cuts, of: (count) => (count.cuts ?? []).map(cuts).join(', ') },
        { name: members.error, of: ({ error }) => error ?? '' },
    ];
    return rows
        .map(({ name, of }) => ({ name, standard: of(counted), host: of(hosted) }))
        .filter(({ standard, host }) => standard !== host);
}

export class Differences {
    #body = element('tbody', {});

    constructor() {
        const { heading, intro, member, standard, host } = words.differences;
        const headings = [member, standard, host].map((column) => element('th', { scope: 'col' }, column));
        this.element = element(
            'section',
            { class: 'panel differences', 'aria-labelledby': 'differences-heading' },
            element('h2', { id: 'differences-heading' }, heading),
            element('p', { class: 'aside' }, intro),
            element('table', {}, element('thead', {}, element('tr', {}, headings)), this.#body),
        );
    }

    /** Rows of { name, standard, host }; without any nothing is shown. */
    show(rows) {
        this.element.hidden = rows.length === 0;
        fill(
            this.#body,
            rows.map((row) =>
                element(
                    'tr',
                    {},
                    element('th', { scope: 'row' }, row.name),
                    element('td', { dir: 'auto' }, this.#said(row.standard)),
                    element('td', { dir: 'auto' }, this.#said(words.differences.outcomes[row.name] ?? row.host)),
                ),
            ),
        );
    }

    #said(value) {
        return value === '' ? words.differences.nothing : String(value);
    }
}
