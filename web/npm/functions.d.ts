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

/** A text, or its octets in UTF-8. */
export type Input = string | Uint8Array;

type MembersOf<Objects> = Objects extends unknown ? keyof Objects : never;

/** One of several objects, of which one may ask for the members of all: those that it has not are undefined. */
export type OneOf<Objects, All = Objects> = Objects extends unknown
    ? Objects & { [Name in Exclude<MembersOf<All>, keyof Objects>]?: undefined }
    : never;

type Alone = { join?: false; as?: undefined };
type ByStandards = { as?: undefined };
type ByHost = { as: 'libQX_Encoding' };

/** What decode() gives of each PDU by itself, and of each page that stands in a log. */
export type Decoded = OneOf<Decode.Message | Decode.Error | Decode.Free | Cell.Broadcast>;
/** What it gives with join. */
export type DecodedTogether = OneOf<
    Decode.Message | Decode.Error | Decode.Free | Decode.Joined | Decode.Duplicate | Cell.Broadcast | Cell.Joined | Cell.Duplicate
>;
/** What it gives with as. */
export type DecodedByHost = OneOf<Decode.Record | Decode.Error | Decode.Free | Cell.HostPage>;

/** Reads PDUs, a line each, or those in the log of a modem: an object for each. */
export declare function decode(input: Input, options?: DecodeOptions & Alone): Decoded[];
export declare function decode(input: Input, options: DecodeOptions & ByStandards): DecodedTogether[];
export declare function decode(input: Input, options: DecodeOptions & ByHost): DecodedByHost[];
export declare function decode(input: Input, options?: DecodeOptions): OneOf<Decode.Result>[];

/** What decodePages() gives of each page by itself, with join, and with as. */
export type DecodedPage = OneOf<Cell.Broadcast | Cell.Error>;
export type DecodedPagesTogether = OneOf<Cell.Broadcast | Cell.Error | Cell.Joined | Cell.Duplicate>;
export type DecodedPageByHost = OneOf<Cell.HostPage | Cell.Error>;

/** Reads pages, messages and notifications of cell broadcast, a line each, or those in a log. */
export declare function decodePages(input: Input, options?: PageOptions & Alone): DecodedPage[];
export declare function decodePages(input: Input, options: PageOptions & ByStandards): DecodedPagesTogether[];
export declare function decodePages(input: Input, options: PageOptions & ByHost): DecodedPageByHost[];
export declare function decodePages(input: Input, options?: PageOptions): OneOf<Cell.Result>[];

/** Tells what each octet means. */
export declare function inspect(input: Input, options?: InspectOptions): OneOf<Inspect.Result>[];

/** Makes the PDUs of a text, or of any message; null is no text. */
export declare function encode(text: string | null, options?: EncodeOptions): OneOf<Encode.Text | Encode.Error>;

/** Tells how a text would go out, and what would make it cheaper. */
export declare function count(text: Input, options?: CountOptions): OneOf<Count.Result>;

/** From when on count() has names of characters: in browsers from then on, in Node.js always. */
export declare function loadNames(): Promise<void>;

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
export declare function reader(options?: DecodeOptions & { cell?: false }): Reader<OneOf<Decode.Result>>;
export declare function reader(options: PageOptions & { cell: true }): Reader<OneOf<Cell.Result>>;

/** A command of qxpdu from text to text: run(['encode', '--at', '--to=+4179123'], 'hello'). */
export declare function run(words: string[], input?: Input): {
    /** 0 all good, 1 some input failed, 2 wrong options. */
    status: number;
    output: string;
    messages: string;
};

