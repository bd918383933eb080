/// @file
/// The values of the C interface that have names. Those of C++ are the same, by the same names.
#ifndef MESSAGES_QX_CODES_H
#define MESSAGES_QX_CODES_H

/// What a call came to.
enum qx_result {
    QX_OK = 0,    ///< done
    QX_FAULT = 1, ///< what was given cannot be read, written, cut …: what was handed out says why
    QX_ARGUMENT =
        2, ///< an argument breaks what is required of it: nothing was done, but results of before are gone
    QX_NO_MEMORY = 3 ///< there was no memory
};

/// The types of TPDUs, clause 9.2.2 of 3GPP TS 23.040.
enum qx_type {
    QX_TYPE_NONE = 0,           ///< nothing was read
    QX_TYPE_DELIVER = 1,        ///< SMS-DELIVER
    QX_TYPE_DELIVER_REPORT = 2, ///< SMS-DELIVER-REPORT
    QX_TYPE_SUBMIT = 3,         ///< SMS-SUBMIT
    QX_TYPE_SUBMIT_REPORT = 4,  ///< SMS-SUBMIT-REPORT
    QX_TYPE_STATUS_REPORT = 5,  ///< SMS-STATUS-REPORT
    QX_TYPE_COMMAND = 6         ///< SMS-COMMAND
};

/// The fields of all TPDUs, 3GPP TS 23.040 clause 9.2.3, and of cell broadcast, TS 23.041 clause 9.4, in no
/// order that means anything.
enum qx_field {
    QX_FIELD_SERVICE_CENTRE = 0, ///< the service-centre address before the TPDU
    // in the first octet
    QX_FIELD_MESSAGE_TYPE = 1,               ///< TP-MTI
    QX_FIELD_MORE_MESSAGES = 2,              ///< TP-MMS
    QX_FIELD_LOOP_PREVENTION = 3,            ///< TP-LP
    QX_FIELD_REJECT_DUPLICATES = 4,          ///< TP-RD
    QX_FIELD_VALIDITY_FORMAT = 5,            ///< TP-VPF
    QX_FIELD_STATUS_REPORT_INDICATION = 6,   ///< TP-SRI
    QX_FIELD_STATUS_REPORT_REQUEST = 7,      ///< TP-SRR
    QX_FIELD_STATUS_REPORT_QUALIFIER = 8,    ///< TP-SRQ
    QX_FIELD_USER_DATA_HEADER_INDICATOR = 9, ///< TP-UDHI
    QX_FIELD_REPLY_PATH = 10,                ///< TP-RP
    QX_FIELD_UNUSED_BITS = 11,               ///< bits of the first octet that the type does not use
    // after it
    QX_FIELD_MESSAGE_REFERENCE = 12,        ///< TP-MR
    QX_FIELD_ORIGINATING_ADDRESS = 13,      ///< TP-OA
    QX_FIELD_DESTINATION_ADDRESS = 14,      ///< TP-DA
    QX_FIELD_RECIPIENT_ADDRESS = 15,        ///< TP-RA
    QX_FIELD_PROTOCOL_IDENTIFIER = 16,      ///< TP-PID
    QX_FIELD_DATA_CODING_SCHEME = 17,       ///< TP-DCS
    QX_FIELD_SERVICE_CENTRE_TIMESTAMP = 18, ///< TP-SCTS
    QX_FIELD_DISCHARGE_TIME = 19,           ///< TP-DT
    QX_FIELD_VALIDITY_PERIOD = 20,          ///< TP-VP
    QX_FIELD_STATUS = 21,                   ///< TP-ST
    QX_FIELD_FAILURE_CAUSE = 22,            ///< TP-FCS
    QX_FIELD_PARAMETER_INDICATOR = 23,      ///< TP-PI, one place an octet
    QX_FIELD_COMMAND_TYPE = 24,             ///< TP-CT
    QX_FIELD_MESSAGE_NUMBER = 25,           ///< TP-MN
    QX_FIELD_COMMAND_DATA_LENGTH = 26,      ///< TP-CDL
    QX_FIELD_COMMAND_DATA = 27,             ///< TP-CD, without its header
    QX_FIELD_USER_DATA_LENGTH = 28,         ///< TP-UDL
    QX_FIELD_HEADER_LENGTH = 29,            ///< the length octet of the user-data header
    QX_FIELD_HEADER_ELEMENT = 30,           ///< one element
    QX_FIELD_IGNORED_HEADER = 31,           ///< octets of a header whose elements do not add up
    QX_FIELD_FILL_BITS = 32,                ///< between the header and the first septet
    QX_FIELD_USER_DATA = 33,                ///< TP-UD after its header
    QX_FIELD_SURPLUS = 34,                  ///< octets after the TPDU, or after what cell broadcast sends
    // of cell broadcast
    QX_FIELD_SERIAL_NUMBER = 35,      ///< scope, message code and update number
    QX_FIELD_MESSAGE_IDENTIFIER = 36, ///< what the message is about
    QX_FIELD_CELL_DATA_CODING = 37,   ///< the data coding scheme
    QX_FIELD_PAGE_PARAMETER = 38,     ///< page and pages, of a GSM page
    QX_FIELD_CELL_MESSAGE_TYPE = 39,  ///< of a UMTS message
    QX_FIELD_PAGE_COUNT = 40,         ///< of a UMTS message
    QX_FIELD_PAGE_LANGUAGE = 41,      ///< that stands before the text of a page
    QX_FIELD_PAGE_CONTENT = 42,       ///< of a page, after its header and its language; with the padding
    QX_FIELD_PAGE_FILLING = 43,       ///< octets of a UMTS message's page that are not used
    QX_FIELD_PAGE_LENGTH = 44,        ///< octets that are used of it
    QX_FIELD_WARNING_TYPE = 45,       ///< of an ETWS primary notification
    QX_FIELD_WARNING_TIME = 46,       ///< when it was signed
    QX_FIELD_WARNING_SIGNATURE = 47   ///< octets
};

/// Which octets of a field a place covers, for the fields that have an inner order.
enum qx_piece {
    QX_PIECE_WHOLE = 0,           ///< the field, or of the first octet its bits
    QX_PIECE_LENGTH = 1,          ///< of an address, or of a header element
    QX_PIECE_TYPE_OF_ADDRESS = 2, ///< of an address
    QX_PIECE_DIGITS = 3,          ///< of an address, or its name in septets
    QX_PIECE_IDENTIFIER = 4,      ///< of a header element
    QX_PIECE_CONTENT = 5          ///< of a header element
};

/// What is unusual in a PDU that can be read. None of them stops the reading. The comment says what the
/// remark's `number` and `other` are, where they are anything but 0.
enum qx_remark_code {
    // the whole
    QX_REMARK_TYPE_GUESSED =
        0, ///< without a direction: the type is the less likely one of its TP-MTI, as that one is sound
    QX_REMARK_RESERVED_TYPE = 1,    ///< TP-MTI 3 towards the mobile, read as an SMS-DELIVER
    QX_REMARK_LENGTH_DISAGREES = 2, ///< number: octets announced for the TPDU; other: octets found
    QX_REMARK_UNUSED_BITS_SET =
        3, ///< number: the bits of the first octet that the type does not use and that are set
    QX_REMARK_SURPLUS_OCTETS = 4, ///< number: octets after the TPDU
    // addresses
    QX_REMARK_EXTENSION_BIT_CLEAR = 5,     ///< bit 7 of the type of address is 0
    QX_REMARK_RESERVED_TYPE_OF_NUMBER = 6, ///< type of number 7
    QX_REMARK_RESERVED_NUMBERING_PLAN = 7, ///< number: the numbering plan
    QX_REMARK_ADDRESS_TOO_LONG = 8,        ///< number: semi-octets, over 20
    QX_REMARK_FILLER_INSIDE =
        9, ///< number: the position, from 0, of a filler 1111 among the digits, which ends them
    QX_REMARK_FILLER_MISSING =
        10, ///< number: the semi-octet after an odd number of digits, which is not 1111
    QX_REMARK_POSSIBLE_FILLING = 11,  ///< the last septet of a name is 0: "@", or filling
    QX_REMARK_ADDRESS_BITS_LEFT = 12, ///< bits after the last septet of a name are set
    // times
    QX_REMARK_TIME_SEMI_OCTET = 13, ///< number: the octet of the field, from 0, that has a semi-octet above 9
    QX_REMARK_TIME_OUT_OF_RANGE = 14, ///< number: the octet of the field, from 0, whose part is out of range
    QX_REMARK_TIME_ALL_ZERO = 15,     ///< all octets of the time are 0
    // validity
    QX_REMARK_RESERVED_VALIDITY =
        16, ///< number: the first octet of the enhanced format, with a reserved format or reserved bits
    QX_REMARK_VALIDITY_EXTENSION =
        17, ///< number: the same octet, which says that another one of its kind follows
    QX_REMARK_VALIDITY_SECONDS_ZERO = 18, ///< the enhanced format's seconds are 0, which is reserved
    QX_REMARK_VALIDITY_OCTETS_SET = 19,   ///< unused octets of the enhanced format are not 0
    // values
    QX_REMARK_RESERVED_PROTOCOL = 20,            ///< number: TP-PID
    QX_REMARK_RESERVED_DATA_CODING = 21,         ///< number: the data coding scheme
    QX_REMARK_RESERVED_STATUS = 22,              ///< number: TP-ST
    QX_REMARK_RESERVED_FAILURE_CAUSE = 23,       ///< number: TP-FCS
    QX_REMARK_RESERVED_COMMAND_TYPE = 24,        ///< number: TP-CT
    QX_REMARK_RESERVED_PARAMETER_BITS = 25,      ///< number: the bits of TP-PI that are reserved and set
    QX_REMARK_EXTENDED_PARAMETER_INDICATOR = 26, ///< number: octets of TP-PI, more than one
    // user data
    QX_REMARK_USER_DATA_MISSING = 27,  ///< number: septets or octets announced; other: those that are there
    QX_REMARK_USER_DATA_TOO_LONG = 28, ///< number: octets of TP-UD; other: the most that the type allows
    QX_REMARK_COMPRESSED = 29,         ///< no text is made
    QX_REMARK_SPARE_BITS_SET = 30,     ///< number: the bits after the last septet, which are not 0
    QX_REMARK_FILL_BITS_SET = 31,      ///< number: the fill bits, which are not 0
    // user-data header
    QX_REMARK_HEADER_MISSING = 32, ///< a header is announced and there is no user data
    QX_REMARK_HEADER_BEYOND_USER_DATA =
        33, ///< number: octets of the header; other: octets of the user data that are there. No text
    QX_REMARK_HEADER_OVERRUN = 34, ///< number: octets that the last element lacks; the header is ignored
    QX_REMARK_HEADER_LEFT_OVER =
        35, ///< number: octets after the last element that are none; the header is ignored
    QX_REMARK_ELEMENT_REPEATED =
        36, ///< number: the identifier of an element that may stand once; the last valid one holds
    QX_REMARK_ELEMENTS_EXCLUSIVE =
        37, ///< number, other: identifiers that exclude each other; the last valid one holds
    QX_REMARK_ELEMENT_LENGTH =
        38, ///< number: the identifier; other: the length, which its kind does not have
    QX_REMARK_RESERVED_ELEMENT = 39,      ///< number: an identifier that is reserved
    QX_REMARK_CONCATENATION_INVALID = 40, ///< number: the part; other: the total. The element is ignored
    QX_REMARK_UNKNOWN_LANGUAGE =
        41, ///< number: the language; other: the identifier of the element, which is ignored
    // text
    QX_REMARK_ESCAPE_AT_END = 42,  ///< a lone escape is the last septet; it shows nothing
    QX_REMARK_UNKNOWN_ESCAPE = 43, ///< number: the septet after an escape that the single shift table lacks;
                                   ///< other: the place of the escape, in septets of the text from 0
    QX_REMARK_CONTROL_ESCAPE = 44, ///< escape, 0D: a control code, which shows nothing; other: as above
    QX_REMARK_NO_CHARACTER =
        45, ///< number: a septet without a character in the locking table; other: its place
    QX_REMARK_UNPAIRED_SURROGATE =
        46, ///< number: the UTF-16 unit; other: its place, in units of the text from 0
    QX_REMARK_ODD_OCTET =
        47, ///< UCS2 text of an odd number of octets; number: the last octet, which is passed over
    // user-data header, once more
    QX_REMARK_HEADER_NOT_COUNTED =
        48, ///< number: septets announced; other: those of the header with its fill bits, one more
    // cell broadcast
    QX_REMARK_PAGE_SURPLUS = 49, ///< number: octets after the page, message or notification
    QX_REMARK_PAGE_PARAMETER_ZERO =
        50,                           ///< number: the page parameter, half of which is 0; read as page 1 of 1
    QX_REMARK_PAGE_BEYOND_TOTAL = 51, ///< number: the page; other: the pages
    QX_REMARK_RESERVED_CELL_TYPE = 52, ///< number: the message type, which is not that of a CBS message
    QX_REMARK_RESERVED_PAGE_COUNT =
        53,                       ///< number: the number of pages; 0 is read as 1, and more than 15 as 15
    QX_REMARK_PAGES_MISSING = 54, ///< number: pages announced; other: pages wholly there
    QX_REMARK_RESERVED_PAGE_LENGTH = 55, ///< number: the octets said to be used, 0 or more than 82
    QX_REMARK_LANGUAGE_MISSING =
        56, ///< the first page has no language where its coding says that there is one
    QX_REMARK_PAGE_POSSIBLE_FILLING = 57, ///< number: septets of 0 at the end, "@" or filling
    QX_REMARK_NO_WARNING_IDENTIFIER =
        58, ///< number: the message identifier of a notification, which is none of ETWS
    QX_REMARK_RESERVED_WARNING_TYPE = 59,   ///< number: the warning type
    QX_REMARK_WARNING_FILLING_SET = 60,     ///< number: bits 6 to 0 of the warning type, which are not 0
    QX_REMARK_WARNING_SECURITY_MISSING = 61 ///< a notification without time and signature
};

/// What ends the reading.
enum qx_fault_code {
    QX_FAULT_EMPTY = 0,          ///< there is not one octet
    QX_FAULT_FIELD_CUT = 1,      ///< the octets end inside a field that must be there
    QX_FAULT_RESERVED_TYPE = 2,  ///< TP-MTI 3 from the mobile
    QX_FAULT_NOT_HEXADECIMAL = 3 ///< octet: the pair of digits, from 0, that is none, or lacks one
};

/// Why a PDU is not written. The comment says what the fault's `number` and `other` are, where they are
/// anything but 0.
enum qx_write_fault_code {
    QX_WRITE_FAULT_NO_TYPE = 0, ///< there is no message
    // addresses
    QX_WRITE_FAULT_EXTENSION_BIT_CLEAR = 1, ///< bit 7 of the type of address is 0
    QX_WRITE_FAULT_ADDRESS_CHARACTER =
        2, ///< number: a character that no number, or no name, has; other: its octet in the text
    QX_WRITE_FAULT_ADDRESS_TOO_LONG = 3, ///< number: semi-octets; other: the most that there may be
    // times
    QX_WRITE_FAULT_NO_TIME = 4,        ///< the octets are none
    QX_WRITE_FAULT_TIME_DISAGREES = 5, ///< the members say another time than the octets
    QX_WRITE_FAULT_VALIDITY_INVALID =
        6, ///< number: the octet of the field, from 0, that is reserved or out of range
    // values
    QX_WRITE_FAULT_FAILURE_CAUSE_TOO_LOW = 7, ///< number: TP-FCS, below 0x80, which would be taken for TP-PI
    QX_WRITE_FAULT_RESERVED_PARAMETER_BITS = 8, ///< number: the bits of TP-PI that are reserved and set
    // user data
    QX_WRITE_FAULT_USER_DATA_LENGTH =
        9, ///< number: octets that TP-UDL announces; other: those that are there
    QX_WRITE_FAULT_USER_DATA_TOO_LONG = 10, ///< number: octets; other: the most that there is room for
    QX_WRITE_FAULT_HEADER_INVALID = 11, ///< the header is ignored, lies beyond the user data or is missing
    QX_WRITE_FAULT_TEXT_DISAGREES =
        12 ///< the text, or what the header is said to hold, is not what the octets say
};

/// Why a text, or data, is not cut.
enum qx_cut_fault_code {
    QX_CUT_FAULT_NOT_UTF8 = 0,       ///< at `offset` of the text
    QX_CUT_FAULT_NO_CHARACTER = 1,   ///< what is allowed does not hold the character at `offset` of the text
    QX_CUT_FAULT_NO_ROOM = 2,        ///< the header leaves no room for two units
    QX_CUT_FAULT_TOO_MANY_PARTS = 3, ///< over 255
    QX_CUT_FAULT_REFERENCE = 4,      ///< over 255, for one of 8 bits
    QX_CUT_FAULT_NO_RANDOM = 5       ///< the system gives no random reference
};

/// Why a joiner hands a message back.
enum qx_join_outcome {
    QX_OUTCOME_COMPLETE = 0,  ///< all of its parts are there
    QX_OUTCOME_DUPLICATE = 1, ///< the part came before, with the same octets: it alone
    QX_OUTCOME_REPLACED = 2,  ///< a part came again with other octets, and began a new message
    QX_OUTCOME_TIMED_OUT = 3, ///< its time is over
    QX_OUTCOME_DISPLACED = 4, ///< others needed the room
    QX_OUTCOME_FINISHED = 5   ///< the caller wants no more
};

/// Bits 6 to 4 of the type-of-address octet.
enum qx_type_of_number {
    QX_NUMBER_UNKNOWN = 0,          ///< unknown
    QX_NUMBER_INTERNATIONAL = 1,    ///< international
    QX_NUMBER_NATIONAL = 2,         ///< national
    QX_NUMBER_NETWORK_SPECIFIC = 3, ///< network specific
    QX_NUMBER_SUBSCRIBER = 4,       ///< subscriber
    QX_NUMBER_ALPHANUMERIC = 5,     ///< alphanumeric
    QX_NUMBER_ABBREVIATED = 6,      ///< abbreviated
    QX_NUMBER_RESERVED = 7          ///< reserved
};

/// Bits 3 to 0 of the type-of-address octet; values without a name are reserved.
enum qx_numbering_plan {
    QX_PLAN_UNKNOWN = 0,                   ///< unknown
    QX_PLAN_ISDN = 1,                      ///< E.164, E.163
    QX_PLAN_DATA = 3,                      ///< X.121
    QX_PLAN_TELEX = 4,                     ///< telex
    QX_PLAN_SERVICE_CENTRE_SPECIFIC_5 = 5, ///< service centre specific 5
    QX_PLAN_SERVICE_CENTRE_SPECIFIC_6 = 6, ///< service centre specific 6
    QX_PLAN_NATIONAL = 8,                  ///< national
    QX_PLAN_PRIVATE = 9,                   ///< private
    QX_PLAN_ERMES = 10,                    ///< ERMES
    QX_PLAN_RESERVED_FOR_EXTENSION = 15    ///< reserved for extension
};

/// National language identifiers, TS 23.038 clause 6.2.1.2.4. Spanish has no locking shift table.
enum qx_language {
    QX_LANGUAGE_DEFAULT = 0,    ///< the default alphabet
    QX_LANGUAGE_TURKISH = 1,    ///< Turkish
    QX_LANGUAGE_SPANISH = 2,    ///< Spanish
    QX_LANGUAGE_PORTUGUESE = 3, ///< Portuguese
    QX_LANGUAGE_BENGALI = 4,    ///< Bengali
    QX_LANGUAGE_GUJARATI = 5,   ///< Gujarati
    QX_LANGUAGE_HINDI = 6,      ///< Hindi
    QX_LANGUAGE_KANNADA = 7,    ///< Kannada
    QX_LANGUAGE_MALAYALAM = 8,  ///< Malayalam
    QX_LANGUAGE_ORIYA = 9,      ///< Oriya
    QX_LANGUAGE_PUNJABI = 10,   ///< Punjabi
    QX_LANGUAGE_TAMIL = 11,     ///< Tamil
    QX_LANGUAGE_TELUGU = 12,    ///< Telugu
    QX_LANGUAGE_URDU = 13       ///< Urdu
};

/// In which units the user data is written.
enum qx_alphabet {
    QX_ALPHABET_GSM7 = 0, ///< septets of the default alphabet or of a national language
    QX_ALPHABET_DATA = 1, ///< octets that are no text
    QX_ALPHABET_UCS2 = 2  ///< UTF-16, most significant octet first
};

/// The groups of data coding schemes, by bits 7 to 4.
enum qx_coding_group {
    QX_GROUP_GENERAL = 0,              ///< 00xx
    QX_GROUP_AUTOMATIC_DELETION = 1,   ///< 01xx
    QX_GROUP_RESERVED = 2,             ///< 1000 to 1011
    QX_GROUP_WAITING_DISCARD = 3,      ///< 1100
    QX_GROUP_WAITING_STORE = 4,        ///< 1101
    QX_GROUP_WAITING_STORE_UCS2 = 5,   ///< 1110
    QX_GROUP_DATA_CODING_AND_CLASS = 6 ///< 1111
};

/// What waits for the receiver.
enum qx_waiting_type {
    QX_WAITING_VOICE = 0, ///< voice
    QX_WAITING_FAX = 1,   ///< fax
    QX_WAITING_EMAIL = 2, ///< e-mail
    QX_WAITING_OTHER = 3  ///< other
};

/// TP-VPF, bits 4 and 3 of the first octet of an SMS-SUBMIT.
enum qx_validity_format {
    QX_VALIDITY_NONE = 0,     ///< none
    QX_VALIDITY_ENHANCED = 1, ///< enhanced
    QX_VALIDITY_RELATIVE = 2, ///< relative
    QX_VALIDITY_ABSOLUTE = 3  ///< absolute
};

/// Bits 2 to 0 of the functionality indicator of the enhanced format, clause 9.2.3.12.3; 4 to 7 are reserved.
enum qx_enhanced_validity {
    QX_ENHANCED_NONE = 0,     ///< none
    QX_ENHANCED_RELATIVE = 1, ///< an octet as in the relative format
    QX_ENHANCED_SECONDS = 2,  ///< an octet of seconds
    QX_ENHANCED_CLOCK = 3     ///< hours, minutes and seconds in semi-octets
};

/// Which way a TPDU goes; together with TP-MTI it gives the type, clause 9.2.3.1.
enum qx_direction {
    QX_DIRECTION_UNKNOWN = 0,    ///< not known
    QX_DIRECTION_TO_MOBILE = 1,  ///< from the service centre to the mobile
    QX_DIRECTION_FROM_MOBILE = 2 ///< from the mobile to the service centre
};

/// Whether something is there, where the octets alone do not say so.
enum qx_presence {
    QX_PRESENCE_UNKNOWN = 0, ///< the octets are asked
    QX_PRESENCE_YES = 1,     ///< it is there
    QX_PRESENCE_NO = 2       ///< it is not
};

/// Identifiers of the elements whose content is decoded; qx_element_name() has names for all 256.
enum qx_element_id {
    QX_ELEMENT_CONCATENATION_8 = 0x00,            ///< a part of a text, reference of 8 bits
    QX_ELEMENT_SPECIAL_MESSAGE_INDICATION = 0x01, ///< special message indication
    QX_ELEMENT_PORTS_8 = 0x04,                    ///< application ports of 8 bits
    QX_ELEMENT_PORTS_16 = 0x05,                   ///< application ports of 16 bits
    QX_ELEMENT_SERVICE_CENTRE_CONTROL = 0x06,     ///< service centre control
    QX_ELEMENT_HEADER_SOURCE = 0x07,              ///< header source
    QX_ELEMENT_CONCATENATION_16 = 0x08,           ///< the same, of 16 bits
    QX_ELEMENT_TEXT_FORMATTING = 0x0A,            ///< text formatting
    QX_ELEMENT_PREDEFINED_SOUND = 0x0B,           ///< predefined sound
    QX_ELEMENT_PREDEFINED_ANIMATION = 0x0D,       ///< predefined animation
    QX_ELEMENT_USER_PROMPT = 0x13,                ///< user prompt
    QX_ELEMENT_OBJECT_DISTRIBUTION = 0x17,        ///< object distribution
    QX_ELEMENT_EMAIL_HEADER = 0x20,               ///< e-mail header
    QX_ELEMENT_HYPERLINK = 0x21,                  ///< hyperlink
    QX_ELEMENT_REPLY_ADDRESS = 0x22,              ///< reply address
    QX_ELEMENT_ENHANCED_VOICE_MAIL = 0x23,        ///< enhanced voice mail
    QX_ELEMENT_SINGLE_SHIFT = 0x24,               ///< language of the single shift table
    QX_ELEMENT_LOCKING_SHIFT = 0x25               ///< language of the locking shift table
};

/// What cell broadcast sends.
enum qx_cell_format {
    QX_CELL_UNKNOWN = 0,          ///< not told
    QX_CELL_GSM_PAGE = 1,         ///< one page, of 88 octets as a rule, clause 9.4.1.2
    QX_CELL_UMTS_MESSAGE = 2,     ///< all pages, each with its length, clause 9.4.2.2
    QX_CELL_ETWS_NOTIFICATION = 3 ///< 56 octets without text, clause 9.4.1.3
};

/// Where a message is valid, and how it is displayed, clause 9.4.1.2.1.
enum qx_geographical_scope {
    QX_SCOPE_IMMEDIATE_CELL = 0, ///< the cell, displayed at once
    QX_SCOPE_NETWORK = 1,        ///< the whole network
    QX_SCOPE_AREA = 2,           ///< location area, service area or tracking area
    QX_SCOPE_CELL = 3            ///< the cell
};

/// The groups of data coding schemes of cell broadcast, TS 23.038 clause 5.
enum qx_cell_coding_group {
    QX_CELL_GROUP_LANGUAGE = 0,              ///< GSM 7-bit, in a language that the scheme names
    QX_CELL_GROUP_LANGUAGE_IN_TEXT = 1,      ///< the language stands before the text of each page
    QX_CELL_GROUP_GENERAL = 2,               ///< alphabet, class and compression
    QX_CELL_GROUP_USER_DATA_HEADER = 3,      ///< a user-data header begins each page
    QX_CELL_GROUP_I1_PROTOCOL = 4,           ///< no text, TS 24.294
    QX_CELL_GROUP_WAP = 5,                   ///< no text, laid down by the WAP Forum
    QX_CELL_GROUP_DATA_CODING_AND_CLASS = 6, ///< alphabet and class
    QX_CELL_GROUP_RESERVED = 7               ///< read as GSM 7-bit
};

/// Why a draft cannot be sent.
enum qx_cell_draft_fault {
    QX_DRAFT_FAULT_NONE = 0,               ///< it can
    QX_DRAFT_FAULT_NOT_UTF8 = 1,           ///< the text is not UTF-8
    QX_DRAFT_FAULT_NOT_IN_ALPHABET = 2,    ///< the text has a character that the alphabet asked for lacks
    QX_DRAFT_FAULT_TOO_LONG = 3,           ///< more than 15 pages
    QX_DRAFT_FAULT_NO_SUCH_LANGUAGE = 4,   ///< the language is not two letters from a to z
    QX_DRAFT_FAULT_LANGUAGE_AND_CLASS = 5, ///< no data coding scheme has both
    QX_DRAFT_FAULT_NO_SUCH_CLASS = 6,      ///< above 3
    QX_DRAFT_FAULT_NO_SUCH_FORMAT = 7,     ///< neither a GSM page nor a UMTS message
    QX_DRAFT_FAULT_NO_SUCH_ALPHABET = 8    ///< no text can be written as data
};
#endif
