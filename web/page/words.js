// All words of the page. What the standards' fields are called, and what is unusual in a PDU, the module says.

const count = (number, one, many) => `${number.toLocaleString('en')} ${number === 1 ? one : many}`;

const MONTHS = ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec'];

export const words = {
    title: 'PDUs, read and written',
    name: 'qxpdu',
    tagline: 'Paste a PDU, a modem’s log or a text. All work is done in this page; nothing is sent anywhere.',

    input: {
        label: 'PDU, log or text',
        placeholder: '07912143658709F1040B91…',
        open: 'Open a file',
        clear: 'Clear',
        link: 'Copy link',
        linkTitle: 'Copies an address that shows this',
        readAs: 'Read as',
        kinds: { auto: 'what it is', pdu: 'PDUs', cell: 'cell broadcast', text: 'text to send' },
        direction: 'Direction',
        directions: { '': 'as the octets tell', 'to-mobile': 'to the mobile', 'from-mobile': 'from the mobile' },
        centre: 'Service centre',
        centres: { '': 'as the octets tell', yes: 'in front', no: 'none' },
        held: (lines, kibibytes) => `${count(lines, 'line', 'lines')}, ${count(kibibytes, 'KiB', 'KiB')}`,
        heldLabel: 'Pasted log',
        refused: (mebibytes) =>
            `That is ${mebibytes} MiB, and one is the most this page takes. The tool qxpdu reads logs of any length.`,
    },
    examples: {
        label: 'Examples',
        deliver: 'Received',
        submit: 'To send',
        turkish: 'Turkish',
        parts: 'Three parts in a log',
        report: 'Status report',
        broken: 'Cut short',
        cell: 'Cell broadcast',
        text: 'A text',
    },
    status: {
        loading: 'Loading …',
        failed: (reason) => `The module did not start: ${reason}`,
        stumbled: (reason) => `This could not be read: ${reason}`,
        reading: (percent) => `Reading, ${percent} %`,
        progress: 'How much is read',
        found: (messages, broken, passedOver) =>
            messages === 0
                ? 'No PDU stands in this.'
                : [
                      count(messages, 'message', 'messages'),
                      messages > 1 && broken > 0 && `${broken} broken`,
                      passedOver > 0 && `${count(passedOver, 'line', 'lines')} passed over`,
                  ]
                      .filter(Boolean)
                      .join(', '),
        text: 'A text to send',
    },
    copy: { done: 'Copied', failed: 'Not copied' },

    list: {
        heading: 'Messages',
        more: (number) => `${count(number, 'more message', 'more messages')}`,
        broken: 'broken',
        duplicate: (of) => (of ? `came before, ${of}` : 'came before'),
        line: (number) => `line ${number}`,
        parts: (number) => `${number} parts`,
        missing: (missing, total) => `${total - missing} of ${total} parts`,
    },

    message: {
        heading: 'Message',
        from: 'From',
        to: 'To',
        of: 'About',
        unknown: 'nobody',
        missing: (parts) => `part ${parts.join(', ')} is missing`,
        missingSome: (parts) => `parts ${parts.join(', ')} are missing`,
        noText: 'no text',
        data: (octets) => count(octets, 'octet of data', 'octets of data'),
        broken: 'This is no whole PDU',
        free: 'A free record of a SIM',
        centre: 'Service centre',
        alphabet: 'Alphabet',
        class: 'Class',
        classes: ['0: shown at once', '1: mobile equipment', '2: SIM', '3: terminal equipment'],
        languages: 'Table of the language',
        ports: 'Ports',
        port: (to, from) => `to ${to}, from ${from}`,
        validity: 'Valid',
        status: 'Status',
        sent: 'Sent',
        discharged: 'Done',
        reference: 'Reference',
        protocol: 'Protocol',
        identifier: 'Identifier',
        serial: 'Serial number',
        language: 'Language',
        waiting: 'Waiting',
        reportOn: 'Reports on',
        part: (part, total) => `Part ${part} of ${total}`,
        partTab: (part, line) => `Part ${part}, line ${line}`,
        pageTab: (page, line) => `Page ${page}, line ${line}`,
        partsLabel: 'Part whose octets are shown',
        warnings: 'What was assumed',
    },

    map: {
        heading: 'Octets',
        size: (octets) => count(octets, 'octet', 'octets'),
        tpdu: (octets) => `${octets} without the service centre`,
        grid: 'Octet map',
        hint: 'Point at an octet, or walk with the arrow keys.',
        fields: 'Fields',
        columns: { octet: 'Octet', octets: 'Octets', field: 'Field', meaning: 'Value and meaning' },
        octet: (offset, digits, field) => `octet ${offset}, ${digits}, ${field}`,
        range: (from, to) => (from === to ? `octet ${from}` : `octets ${from} to ${to}`),
        remarked: 'remark',
        host: (name, value) => `by libQX_Encoding ${name}: ${value}`,
        missing: (octets) => count(octets, 'octet missing', 'octets missing'),
        bits: (pattern) => `bits ${pattern}`,
        copy: 'Copy octets',
    },
    remarks: {
        heading: 'Remarks',
        fault: 'Fault',
        octet: (octet) => `octet ${octet}`,
    },
    differences: {
        heading: 'Two readings',
        intro: 'A host of libQX_Encoding gets something else here.',
        member: 'Member',
        standard: 'by the standard',
        host: 'by libQX_Encoding',
        outcomes: { rejected: 'rejected', result: 'taken as good' },
        nothing: 'nothing',
        members: {
            alphabet: 'Alphabet',
            size: 'Size',
            parts: 'Messages',
            room: 'Still fits',
            cuts: 'Cut in two',
            error: 'Fault',
        },
        size: (septets, characters) =>
            septets === undefined
                ? count(characters ?? 0, 'UCS2 unit', 'UCS2 units')
                : count(septets, 'septet', 'septets'),
        cuts: ({ code_point, after_part }) => `${code_point} after part ${after_part}`,
    },
    json: {
        heading: 'JSON',
        names: { decoded: 'Message', inspected: 'Octet map', counted: 'Count', encoded: 'PDUs' },
        copy: 'Copy JSON',
    },

    count: {
        heading: 'How it goes out',
        parts: (number) => count(number, 'message', 'messages'),
        septets: (number) => count(number, 'septet', 'septets'),
        units: (number) => count(number, 'UCS2 unit', 'UCS2 units'),
        room: (number) => `${number} more fit${number === 1 ? 's' : ''}`,
        octets: (number) => `${count(number, 'octet', 'octets')} of user data`,
        table: (tables) => `table of ${tables.join(' and ')}`,
        bar: 'How full the parts are',
        drawn: 'The text with its breaks and the characters that cost',
        break: (part) => `part ${part} begins`,
        costs: 'Characters that cost',
        reasons: {
            forces_ucs2: 'makes it UCS2',
            two_septets: 'two septets',
            needs_table: 'needs a language’s table',
        },
        columns: { character: 'Character', name: 'Name', why: 'Why', places: 'Places' },
        noName: 'no name',
        places: (positions, more) => positions.join(', ') + (more ? ` and ${more} more` : ''),
        cheaper: 'Cheaper',
        saves: (parts, octets) =>
            [
                parts > 0 && count(parts, 'message less', 'messages less'),
                octets > 0 && count(octets, 'octet less', 'octets less'),
            ]
                .filter(Boolean)
                .join(', '),
        replace: 'Near characters',
        pair: (one, other) => `${one} → ${other || 'nothing'}`,
        language: (languages) => `Tables of ${languages.join(' and ')}`,
        withReplace: ' with near characters',
        use: 'Use',
        used: 'In use',
        drop: 'Do not use',
    },

    send: {
        heading: 'To send',
        to: 'To',
        centre: 'Service centre',
        centrePlaceholder: 'the modem’s own',
        class: 'Class',
        classes: {
            '': 'none',
            0: '0: shown at once',
            1: '1: mobile equipment',
            2: '2: SIM',
            3: '3: terminal equipment',
        },
        validity: 'Valid for',
        validities: {
            '': 'as the network likes',
            '5m': '5 minutes',
            '1h': '1 hour',
            '12h': '12 hours',
            '1d': '1 day',
            '3d': '3 days',
            '1w': '1 week',
            max: '63 weeks',
        },
        alphabet: 'Alphabet',
        alphabets: { '': 'the cheapest', gsm: 'GSM 7-bit', ucs2: 'UCS2' },
        report: 'Status report',
        replace: 'Near characters',
        languages: 'Languages that the receiver knows',
        names: {
            tr: 'Turkish',
            es: 'Spanish',
            pt: 'Portuguese',
            bn: 'Bengali',
            gu: 'Gujarati',
            hi: 'Hindi',
            kn: 'Kannada',
            ml: 'Malayalam',
            or: 'Oriya',
            pa: 'Punjabi',
            ta: 'Tamil',
            te: 'Telugu',
            ur: 'Urdu',
        },
        pdus: 'PDUs',
        length: (octets) => `AT+CMGS=${octets}`,
        copy: 'Copy',
        copyAll: 'Copy AT commands',
        show: 'Show octets',
        shown: 'Octets shown below',
    },

    /** "13 Feb 2012, 12:34:56 +02:00" of ISO 8601; the clock of the message, not of the reader. */
    time(iso) {
        const [, year, month, day, clock, zone] = /^(\d+)-(\d+)-(\d+)T([\d:]+)(.*)$/.exec(iso) ?? [];
        if (!year) return iso;
        return `${Number(day)} ${MONTHS[month - 1]} ${year}, ${clock} ${zone}`.trim();
    },
};
