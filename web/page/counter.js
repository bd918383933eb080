// How a text goes out: the alphabet, the parts, the characters that cost, and what would be cheaper.

import { element, fill, unseen } from './elements.js';
import { words } from './words.js';

const PLACES_SHOWN = 8;
const MARKED_SHOWN = 4000; // characters of the text that are drawn with their marks
const REASONS = ['forces_ucs2', 'needs_table', 'two_septets'];

/** The characters of a list in an object of the counter: { character, code, name, positions }. */
function characterOf(entry) {
    const codes = entry.code_point.split(' ').map((code) => parseInt(code.slice(2), 16));
    return String.fromCodePoint(...codes);
}

/** The characters that cost, and why: lists of the counter. In UCS2 none takes two septets. */
function reasonsOf({ alphabet }) {
    return REASONS.filter((reason) => reason !== 'two_septets' || alphabet !== 'UCS2');
}

/** Pieces of the text: { text, reason } and { part }, in their order; of what is not drawn { hidden }. */
export function markedPieces(text, counted) {
    const reasonAt = new Map();
    for (const reason of reasonsOf(counted))
        for (const entry of counted[reason] ?? [])
            for (const position of entry.positions) if (!reasonAt.has(position)) reasonAt.set(position, reason);
    const partAt = new Map((counted.breaks ?? []).map(({ position, after_part }) => [position, after_part + 1]));
    const characters = [...text];
    const pieces = [];
    let last = null;
    characters.slice(0, MARKED_SHOWN).forEach((character, index) => {
        const position = index + 1;
        const reason = reasonAt.get(position);
        if (partAt.has(position)) {
            pieces.push({ part: partAt.get(position) });
            last = null;
        }
        if (last && last.reason === reason) last.text += character;
        else pieces.push((last = { text: character, reason }));
    });
    if (characters.length > MARKED_SHOWN) pieces.push({ hidden: characters.length - MARKED_SHOWN });
    return pieces;
}

/** How full each part is, from 0 to 1. All but the last are; what that still takes the counter says. */
export function fillings({ septets, characters, parts, room }) {
    const size = ((septets ?? characters) + room) / parts;
    return Array.from({ length: parts }, (_, index) =>
        index < parts - 1 || size === 0 ? 1 : Math.max(1 - room / size, 0),
    );
}

function tablesOf(counted) {
    return [...new Set([counted.locking_shift, counted.single_shift].filter(Boolean))];
}

/** "’ → '" */
function pairsOf(replacements) {
    return replacements.map((entry) => words.count.pair(characterOf(entry), entry.by));
}

function nearChoice(counted, options) {
    const { replace: what } = words.count;
    if (options.replace && counted.replacements)
        return [{ what, pairs: pairsOf(counted.replacements), isUsed: true, change: { replace: false } }];
    if (!counted.replaced) return [];
    const { replacements, parts, user_data_octets: octets } = counted.replaced;
    const saves = words.count.saves(counted.parts - parts, counted.user_data_octets - octets);
    return [{ what, pairs: pairsOf(replacements), saves, isUsed: false, change: { replace: true } }];
}

function languageChoice({ languages, replace, parts_saved: parts, octets_saved: octets }, options) {
    const isUsed = languages.every((language) => options.languages.includes(language));
    const names = languages.map((language) => words.send.names[language]);
    return {
        what: words.count.language(names) + (replace ? words.count.withReplace : ''),
        saves: words.count.saves(parts, octets),
        isUsed,
        change: isUsed
            ? { languages: options.languages.filter((language) => !languages.includes(language)) }
            : { languages, replace: replace || options.replace },
    };
}

/** What would be cheaper, or is: { what, pairs, saves, isUsed, change }, the change being that of the options. */
export function cheaperChoices(counted, options) {
    const ofLanguages = (counted.with_languages ?? []).map((choice) => languageChoice(choice, options));
    return [...nearChoice(counted, options), ...ofLanguages];
}

export class Counter {
    #onChange;

    /** `onChange` is given what is to be used from now on: { replace } or { languages }. */
    constructor(onChange) {
        this.#onChange = onChange;
        this.element = element('section', { class: 'panel counter', 'aria-labelledby': 'count-heading' });
    }

    show(text, counted, options) {
        this.element.hidden = false;
        fill(
            this.element,
            element('h2', { id: 'count-heading', class: 'unseen' }, words.count.heading),
            counted.error ? element('p', { class: 'fault' }, counted.error) : this.#sum(counted),
            element(
                'div',
                { class: 'drawn-text', dir: 'auto', role: 'group', 'aria-label': words.count.drawn, tabindex: '0' },
                this.#drawn(text, counted),
            ),
            this.#cheaper(counted, options),
            this.#costs(counted),
        );
    }

    #sum(counted) {
        const isSeptets = counted.septets !== undefined;
        const size = isSeptets ? words.count.septets(counted.septets) : words.count.units(counted.characters);
        const tables = tablesOf(counted);
        const facts = [
            counted.alphabet,
            tables.length && words.count.table(tables),
            size,
            words.count.room(counted.room),
            words.count.octets(counted.user_data_octets),
        ];
        return element(
            'div',
            { class: 'sum' },
            element('p', { class: 'parts' }, words.count.parts(counted.parts)),
            element(
                'p',
                { class: 'how' },
                facts.filter(Boolean).map((fact) => element('span', {}, fact)),
            ),
            element(
                'div',
                { class: 'meter', role: 'img', 'aria-label': words.count.bar },
                fillings(counted).map((filling) => {
                    const bar = element('span', {}, element('i', {}));
                    bar.firstChild.style.width = `${100 * filling}%`;
                    return bar;
                }),
            ),
        );
    }

    #drawn(text, counted) {
        return markedPieces(text, counted).map(({ text: piece, reason, part, hidden }) => {
            if (hidden) return element('span', { class: 'aside' }, ` … ${words.count.more(hidden)}`);
            if (part)
                return element(
                    'span',
                    { class: 'break', title: words.count.break(part) },
                    element('span', { 'aria-hidden': 'true' }, part),
                    unseen(words.count.break(part)),
                );
            return reason ? element('mark', { class: reason, title: words.count.reasons[reason] }, piece) : piece;
        });
    }

    #cheaper(counted, options) {
        const choices = cheaperChoices(counted, options);
        if (!choices.length) return null;
        return element(
            'div',
            { class: 'cheaper' },
            element('h3', {}, words.count.cheaper),
            element(
                'ul',
                {},
                choices.map((choice) => this.#choice(choice)),
            ),
        );
    }

    #choice({ what, pairs = [], saves, isUsed, change }) {
        const label = isUsed ? words.count.drop : words.count.use;
        const onclick = () => this.#onChange(change);
        return element(
            'li',
            {},
            element('span', { class: 'what' }, what),
            pairs.map((pair) => element('span', { class: 'tag pair' }, pair)),
            element('span', { class: 'saves' }, isUsed ? words.count.used : saves),
            element('button', { type: 'button', class: 'quiet', 'aria-label': `${label}: ${what}`, onclick }, label),
        );
    }

    #costs(counted) {
        const entries = reasonsOf(counted).flatMap((reason) =>
            (counted[reason] ?? []).map((entry) => ({ reason, entry })),
        );
        if (!entries.length) return null;
        const { character, name, why, places } = words.count.columns;
        return element(
            'div',
            { class: 'costs' },
            element('h3', {}, words.count.costs),
            element(
                'table',
                {},
                element(
                    'thead',
                    {},
                    element(
                        'tr',
                        {},
                        [character, name, why, places].map((column) => element('th', { scope: 'col' }, column)),
                    ),
                ),
                element(
                    'tbody',
                    {},
                    entries.map((item) => this.#cost(item)),
                ),
            ),
        );
    }

    #cost({ reason, entry }) {
        const more = entry.positions.length - PLACES_SHOWN;
        const languages = entry.languages?.map((language) => words.send.names[language]).join(', ');
        return element(
            'tr',
            {},
            element(
                'th',
                { scope: 'row' },
                element('mark', { class: reason }, characterOf(entry)),
                ' ',
                element('span', { class: 'code' }, entry.code_point),
            ),
            element('td', {}, entry.name ?? words.count.noName),
            element('td', {}, words.count.reasons[reason], languages && `: ${languages}`),
            element(
                'td',
                { class: 'places' },
                words.count.places(entry.positions.slice(0, PLACES_SHOWN), Math.max(more, 0)),
            ),
        );
    }
}
