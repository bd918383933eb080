// What the octet map knows of fields: which of them belong together in colour, and where bits stand.

const KINDS = {
    'service centre': 'centre',
    'first octet': 'first',
    'serial number': 'first',
    'TP-PI': 'first',
    'TP-MR': 'reference',
    'TP-MN': 'reference',
    'page parameter': 'reference',
    'number of pages': 'reference',
    'TP-OA': 'address',
    'TP-DA': 'address',
    'TP-RA': 'address',
    'message identifier': 'address',
    'TP-PID': 'protocol',
    'TP-DCS': 'coding',
    'data coding scheme': 'coding',
    'TP-SCTS': 'time',
    'TP-DT': 'time',
    'TP-VP': 'time',
    'warning time': 'time',
    'TP-ST': 'status',
    'TP-FCS': 'status',
    'TP-CT': 'status',
    'message type': 'status',
    'warning type': 'status',
    'TP-UDL': 'length',
    'TP-CDL': 'length',
    'page length': 'length',
    'TP-UDH': 'header',
    language: 'header',
    'TP-UD': 'text',
    'TP-CD': 'text',
    content: 'text',
};

/** The colour of a row of the map. What carries nothing is "rest". */
export function kindOf(row) {
    if (row.isMissing) return 'missing';
    return row.subfield === 'padding' ? 'rest' : (KINDS[row.field] ?? 'rest');
}

/** "TP-OA digits" */
export function nameOf(row) {
    return row.subfield ? `${row.field} ${row.subfield}` : row.field;
}

/** ["21", "43"] */
export function octetsOf(digits) {
    return digits.match(/../g) ?? [];
}

/** The digits with blanks between octets. */
export function spaced(digits) {
    return octetsOf(digits).join(' ');
}

const TEXT_SHOWN = 1300; // characters, which the longest text of cell broadcast has

/** The value as it is written out: text in quotes, identifiers and sets of bits in hexadecimal. */
export function valueOf(row) {
    if (row.value === undefined) return '';
    if (typeof row.value === 'string') {
        const text = shortened(row.value, TEXT_SHOWN);
        return row.subfield === 'digits' ? text : `“${text}”`;
    }
    const isOfBits = row.bits !== undefined && !/septets|units/.test(row.bits[0].name);
    if (isOfBits || row.subfield === 'element')
        return `0x${row.value
            .toString(16)
            .toUpperCase()
            .padStart(2 * row.length, '0')}`;
    return String(row.value);
}

/** The same, unless the meaning tells it as well: "7 octets" says what 7 does. */
export function shownValueOf(row) {
    const value = valueOf(row);
    return row.meaning?.startsWith(`${value} `) ? '' : value;
}

/** The index of the row in which an octet stands, -1 where there is none. */
export function rowAt(map, octet) {
    return map.findIndex((row) => octet >= row.offset && octet < row.offset + row.length);
}

/**
 * Of rows those of the first octets, as many as are to be drawn: { rows, hidden }, the last of them cut, and
 * how many octets are not among them.
 */
export function drawnRows(rows, most) {
    const end = rows.reduce((sum, { length }) => sum + length, 0);
    const drawn = rows
        .filter(({ offset }) => offset < most)
        .map((row) => ({ ...row, octets: row.octets.slice(0, 2 * (most - row.offset)) }));
    return { rows: drawn, hidden: Math.max(end - most, 0) };
}

/** The text, or where it is longer its first characters. */
export function shortened(text, most) {
    const characters = [...text.slice(0, 2 * most + 2)];
    return characters.length > most ? `${characters.slice(0, most).join('')} …` : text;
}

const MISSING_SHOWN = 16; // octets that are drawn of what a broken PDU lacks

/** What a broken PDU lacks, as a row by this name; null where it lacks nothing. */
export function missingRow({ octets = '', fault, error }, nameOfMissing) {
    const length = fault ? fault.expected - fault.found : 0;
    if (length <= 0) return null;
    return {
        isMissing: true,
        offset: octets.length / 2,
        length,
        octets: '··'.repeat(Math.min(length, MISSING_SHOWN)),
        field: nameOfMissing(length),
        meaning: error,
    };
}

const BITS = 8;

/**
 * The bits of a row, an array for each octet, from the highest: { bit, group }. Bits of one group mean
 * something together: those that the row explains; else of packed text the septets, which begin with the
 * lowest bit of the first octet; else the octets.
 */
export function bitsOf(row, isSeptets) {
    const groupOf = (octet, place) => {
        if (row.bits) {
            const index = octet * BITS + place;
            return row.bits.findIndex(({ bits }) => bits.replaceAll(' ', '')[index] !== '.');
        }
        return isSeptets ? Math.floor((octet * BITS + BITS - 1 - place) / 7) : octet;
    };
    return octetsOf(row.octets).map((digits, octet) => {
        const bits = parseInt(digits, 16).toString(2).padStart(BITS, '0');
        return [...bits].map((bit, place) => ({ bit, group: groupOf(octet, place) }));
    });
}
