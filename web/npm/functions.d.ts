/** Options of PDUs that are read. */
export interface Reading {
    /** Whether the PDUs begin with a service centre; without it, what makes sense. */
    smsc?: 'yes' | 'no';
    /** Which way the PDUs go; without it, what the octets allow. */
    direction?: 'to-mobile' | 'from-mobile';
    /** The reading of libQX_Encoding in place of the standards'. */
    as?: 'libQX_Encoding';
    /** Warnings are errors: a text of which something is missing, cut or compressed. */
    strict?: boolean;
}

/** Options of inputs that belong together. */
export interface Joining {
    /** Put parts together, and match status reports to messages. */
    join?: boolean;
    /** With join, give each part by itself as well. */
    each?: boolean;
}

export interface DecodeOptions extends Reading, Joining {
    /** Times come without their zone. */
    ignoreTimeZone?: boolean;
}

/** What an octet string of cell broadcast is; without it, what the octets tell. */
export type CellType = 'gsm' | 'umts' | 'etws';

export interface PageOptions extends Joining, Pick<Reading, 'as' | 'strict'> {
    type?: CellType;
}

export interface InspectOptions extends Reading {
    /** The inputs are pages of cell broadcast. */
    cell?: boolean;
    type?: CellType;
}

/** How a text goes out. */
export interface Writing {
    /** Languages whose tables may be used, with commas between: 'tr', 'es,pt', 'all'. */
    language?: string;
    /** Send near characters where that is cheaper. */
    replace?: boolean;
    concatBits?: 8 | 16 | '8' | '16';
    /** Port of the application that it is for, and is from: '9200', '9200:49152'. */
    port?: string | number;
    portBits?: 8 | 16 | '8' | '16';
    as?: 'libQX_Encoding';
    /** With as: Greek letters as capitals in GSM 7-bit. */
    greek?: boolean;
}

export interface CountOptions extends Writing {
    alphabet?: 'gsm' | 'ucs2';
}

export interface EncodeOptions extends Writing {
    type?: 'submit' | 'deliver' | 'status-report' | 'command' | 'deliver-report' | 'submit-report';
    to?: string;
    from?: string;
    smsc?: string;
    alphabet?: 'gsm' | 'ucs2' | '8bit';
    /** 8-bit data in place of a text, in hexadecimal. */
    data?: string;
    class?: 0 | 1 | 2 | 3;
    concatReference?: number;
    pid?: number | string;
    /** '90m', '3h', '2d', '1w', 'max', a number for the octet, or a time. */
    validity?: string | number;
    validityFormat?: 'relative' | 'enhanced' | 'absolute';
    singleShot?: boolean;
    statusReport?: boolean | 'first' | 'all';
    rejectDuplicates?: boolean;
    replyPath?: boolean;
    reference?: number;
    /** '2026-12-24T18:00:00+01:00' */
    time?: string;
    dischargeTime?: string;
    status?: number | string;
    forCommand?: boolean;
    moreMessages?: boolean;
    loopPrevention?: boolean;
    failureCause?: number | string;
    commandType?: number | string;
    messageNumber?: number;
    strict?: boolean;
}

/** Reads PDUs, a line each, or those in the log of a modem: an object for each. */
export declare function decode(input: string, options?: DecodeOptions): Decode.Result[];

/** Reads pages, messages and notifications of cell broadcast, a line each, or those in a log. */
export declare function decodePages(input: string, options?: PageOptions): Cell.Result[];

/** Tells what each octet means. */
export declare function inspect(input: string, options?: InspectOptions): Inspect.Result[];

/** Makes the PDUs of a text, or of any message; null is no text. */
export declare function encode(text: string | null, options?: EncodeOptions): Encode.Text | Encode.Error;

/** Tells how a text would go out, and what would make it cheaper. */
export declare function count(text: string, options?: CountOptions): Count.Result;

/** What reads a log that comes in pieces. */
export interface Reader<Result> {
    /** The objects of what has come. */
    take(piece: string): Result[];
    /** Those of what is left. */
    finish(): Result[];
    /** Gives it up. */
    close(): void;
}

/** The same as decode() of an input that comes in pieces; with cell as decodePages(). */
export declare function reader(options?: DecodeOptions & { cell?: false }): Reader<Decode.Result>;
export declare function reader(options: PageOptions & { cell: true }): Reader<Cell.Result>;

/** A command of qxpdu from text to text: run(['encode', '--at', '--to=+4179123'], 'hello'). */
export declare function run(words: string[], input?: string | Uint8Array): {
    /** 0 all good, 1 some input failed, 2 wrong options. */
    status: number;
    output: string;
    messages: string;
};

