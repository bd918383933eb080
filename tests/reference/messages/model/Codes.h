// The names of remarks, faults and fields, as the vectors have them.
#ifndef TESTS_REFERENCE_MESSAGES_MODEL_CODES_H
#define TESTS_REFERENCE_MESSAGES_MODEL_CODES_H

#include <array>
#include <string_view>

namespace plain {

using Name = std::string_view;

/// Remarks; after each, what its number and its other number are.
namespace code {

// on the whole
inline constexpr Name TYPE_GUESSED = "type-guessed";
inline constexpr Name RESERVED_TYPE = "reserved-type";
inline constexpr Name LENGTH_DISAGREES = "length-disagrees"; ///< octets announced, octets of the TPDU
inline constexpr Name UNUSED_BITS_SET = "unused-bits-set";   ///< the bits
inline constexpr Name SURPLUS_OCTETS = "surplus-octets";     ///< how many
// on addresses
inline constexpr Name EXTENSION_BIT_CLEAR = "extension-bit-clear";
inline constexpr Name RESERVED_TYPE_OF_NUMBER = "reserved-type-of-number";
inline constexpr Name RESERVED_NUMBERING_PLAN = "reserved-numbering-plan"; ///< the plan
inline constexpr Name ADDRESS_TOO_LONG = "address-too-long";               ///< semi-octets
inline constexpr Name FILLER_INSIDE = "filler-inside";                     ///< its position
inline constexpr Name FILLER_MISSING = "filler-missing";                   ///< what is there instead
inline constexpr Name POSSIBLE_FILLING = "possible-filling";
inline constexpr Name ADDRESS_BITS_LEFT = "address-bits-left";
// on times
inline constexpr Name TIME_SEMI_OCTET = "time-semi-octet";     ///< the octet of the time
inline constexpr Name TIME_OUT_OF_RANGE = "time-out-of-range"; ///< the octet of the time
inline constexpr Name TIME_ALL_ZERO = "time-all-zero";
// on validity
inline constexpr Name RESERVED_VALIDITY = "reserved-validity";   ///< the first octet
inline constexpr Name VALIDITY_EXTENSION = "validity-extension"; ///< the first octet
inline constexpr Name VALIDITY_SECONDS_ZERO = "validity-seconds-zero";
inline constexpr Name VALIDITY_OCTETS_SET = "validity-octets-set";
// on single values: the value
inline constexpr Name RESERVED_PROTOCOL = "reserved-protocol";
inline constexpr Name RESERVED_DATA_CODING = "reserved-data-coding";
inline constexpr Name RESERVED_STATUS = "reserved-status";
inline constexpr Name RESERVED_FAILURE_CAUSE = "reserved-failure-cause";
inline constexpr Name RESERVED_COMMAND_TYPE = "reserved-command-type";
inline constexpr Name RESERVED_PARAMETER_BITS = "reserved-parameter-bits";           ///< the bits
inline constexpr Name EXTENDED_PARAMETER_INDICATOR = "extended-parameter-indicator"; ///< its octets
// on user data
inline constexpr Name USER_DATA_MISSING = "user-data-missing";   ///< septets or octets announced, and there
inline constexpr Name USER_DATA_TOO_LONG = "user-data-too-long"; ///< octets, and the most of them
inline constexpr Name COMPRESSED = "compressed";
inline constexpr Name SPARE_BITS_SET = "spare-bits-set"; ///< the bits
inline constexpr Name FILL_BITS_SET = "fill-bits-set";   ///< the bits
// on its header
inline constexpr Name HEADER_MISSING = "header-missing";
inline constexpr Name HEADER_BEYOND_USER_DATA =
    "header-beyond-user-data";                                         ///< octets of the header, of the data
inline constexpr Name HEADER_OVERRUN = "header-overrun";               ///< octets lacking
inline constexpr Name HEADER_LEFT_OVER = "header-left-over";           ///< octets
inline constexpr Name HEADER_NOT_COUNTED = "header-not-counted";       ///< septets announced, of the header
inline constexpr Name ELEMENT_REPEATED = "element-repeated";           ///< the identifier
inline constexpr Name ELEMENTS_EXCLUSIVE = "elements-exclusive";       ///< this identifier, the earlier one
inline constexpr Name ELEMENT_LENGTH = "element-length";               ///< identifier, length
inline constexpr Name RESERVED_ELEMENT = "reserved-element";           ///< the identifier
inline constexpr Name CONCATENATION_INVALID = "concatenation-invalid"; ///< part, total
inline constexpr Name UNKNOWN_LANGUAGE = "unknown-language";           ///< language, identifier
// on text
inline constexpr Name ESCAPE_AT_END = "escape-at-end";
inline constexpr Name UNKNOWN_ESCAPE = "unknown-escape";         ///< the second septet, place of the escape
inline constexpr Name CONTROL_ESCAPE = "control-escape";         ///< the same
inline constexpr Name NO_CHARACTER = "no-character";             ///< the septet, its place
inline constexpr Name UNPAIRED_SURROGATE = "unpaired-surrogate"; ///< the unit, its place
inline constexpr Name ODD_OCTET = "odd-octet";                   ///< the octet

// on cell broadcast
inline constexpr Name PAGE_SURPLUS = "page-surplus";                 ///< octets
inline constexpr Name PAGE_PARAMETER_ZERO = "page-parameter-zero";   ///< the page parameter
inline constexpr Name PAGE_BEYOND_TOTAL = "page-beyond-total";       ///< page, pages
inline constexpr Name RESERVED_CELL_TYPE = "reserved-cell-type";     ///< the message type
inline constexpr Name RESERVED_PAGE_COUNT = "reserved-page-count";   ///< the number of pages
inline constexpr Name PAGES_MISSING = "pages-missing";               ///< pages announced, those wholly there
inline constexpr Name RESERVED_PAGE_LENGTH = "reserved-page-length"; ///< the octets said to be used
inline constexpr Name LANGUAGE_MISSING = "language-missing";
inline constexpr Name PAGE_POSSIBLE_FILLING = "page-possible-filling"; ///< septets of 0 at the end
inline constexpr Name NO_WARNING_IDENTIFIER = "no-warning-identifier"; ///< the message identifier
inline constexpr Name RESERVED_WARNING_TYPE = "reserved-warning-type"; ///< the type
inline constexpr Name WARNING_FILLING_SET = "warning-filling-set";     ///< bits 6 to 0
inline constexpr Name WARNING_SECURITY_MISSING = "warning-security-missing";

/// Those that pages, messages and notifications of cell broadcast have.
inline constexpr std::array CELL_REMARKS = {RESERVED_DATA_CODING,
                                            COMPRESSED,
                                            FILL_BITS_SET,
                                            HEADER_MISSING,
                                            HEADER_BEYOND_USER_DATA,
                                            HEADER_OVERRUN,
                                            HEADER_LEFT_OVER,
                                            ELEMENT_REPEATED,
                                            ELEMENTS_EXCLUSIVE,
                                            ELEMENT_LENGTH,
                                            RESERVED_ELEMENT,
                                            CONCATENATION_INVALID,
                                            UNKNOWN_LANGUAGE,
                                            TIME_SEMI_OCTET,
                                            TIME_OUT_OF_RANGE,
                                            TIME_ALL_ZERO,
                                            ESCAPE_AT_END,
                                            UNKNOWN_ESCAPE,
                                            CONTROL_ESCAPE,
                                            NO_CHARACTER,
                                            UNPAIRED_SURROGATE,
                                            ODD_OCTET,
                                            PAGE_SURPLUS,
                                            PAGE_PARAMETER_ZERO,
                                            PAGE_BEYOND_TOTAL,
                                            RESERVED_CELL_TYPE,
                                            RESERVED_PAGE_COUNT,
                                            PAGES_MISSING,
                                            RESERVED_PAGE_LENGTH,
                                            LANGUAGE_MISSING,
                                            PAGE_POSSIBLE_FILLING,
                                            NO_WARNING_IDENTIFIER,
                                            RESERVED_WARNING_TYPE,
                                            WARNING_FILLING_SET,
                                            WARNING_SECURITY_MISSING};

/// All of messages.
inline constexpr std::array REMARKS = {TYPE_GUESSED,
                                       RESERVED_TYPE,
                                       LENGTH_DISAGREES,
                                       UNUSED_BITS_SET,
                                       SURPLUS_OCTETS,
                                       EXTENSION_BIT_CLEAR,
                                       RESERVED_TYPE_OF_NUMBER,
                                       RESERVED_NUMBERING_PLAN,
                                       ADDRESS_TOO_LONG,
                                       FILLER_INSIDE,
                                       FILLER_MISSING,
                                       POSSIBLE_FILLING,
                                       ADDRESS_BITS_LEFT,
                                       TIME_SEMI_OCTET,
                                       TIME_OUT_OF_RANGE,
                                       TIME_ALL_ZERO,
                                       RESERVED_VALIDITY,
                                       VALIDITY_EXTENSION,
                                       VALIDITY_SECONDS_ZERO,
                                       VALIDITY_OCTETS_SET,
                                       RESERVED_PROTOCOL,
                                       RESERVED_DATA_CODING,
                                       RESERVED_STATUS,
                                       RESERVED_FAILURE_CAUSE,
                                       RESERVED_COMMAND_TYPE,
                                       RESERVED_PARAMETER_BITS,
                                       EXTENDED_PARAMETER_INDICATOR,
                                       USER_DATA_MISSING,
                                       USER_DATA_TOO_LONG,
                                       COMPRESSED,
                                       SPARE_BITS_SET,
                                       FILL_BITS_SET,
                                       HEADER_MISSING,
                                       HEADER_BEYOND_USER_DATA,
                                       HEADER_OVERRUN,
                                       HEADER_LEFT_OVER,
                                       HEADER_NOT_COUNTED,
                                       ELEMENT_REPEATED,
                                       ELEMENTS_EXCLUSIVE,
                                       ELEMENT_LENGTH,
                                       RESERVED_ELEMENT,
                                       CONCATENATION_INVALID,
                                       UNKNOWN_LANGUAGE,
                                       ESCAPE_AT_END,
                                       UNKNOWN_ESCAPE,
                                       CONTROL_ESCAPE,
                                       NO_CHARACTER,
                                       UNPAIRED_SURROGATE,
                                       ODD_OCTET};

// faults; RESERVED_TYPE is one as well, where it leaves no type to read
inline constexpr Name EMPTY = "empty";
inline constexpr Name FIELD_CUT = "field-cut";

} // namespace code

/// Fields without a name of the form TP-XX.
namespace field {

inline constexpr Name CENTRE = "service-centre";
inline constexpr Name UNUSED = "unused-bits";
inline constexpr Name HEADER_LENGTH = "header-length";
inline constexpr Name HEADER_ELEMENT = "header-element";
inline constexpr Name IGNORED_HEADER = "ignored-header";
inline constexpr Name FILL_BITS = "fill-bits";
inline constexpr Name SURPLUS = "surplus";
// of cell broadcast
inline constexpr Name SERIAL_NUMBER = "serial-number";
inline constexpr Name MESSAGE_IDENTIFIER = "message-identifier";
inline constexpr Name CELL_CODING = "data-coding-scheme";
inline constexpr Name PAGE_PARAMETER = "page-parameter";
inline constexpr Name CELL_TYPE = "message-type";
inline constexpr Name PAGE_COUNT = "number-of-pages";
inline constexpr Name PAGE_LANGUAGE = "language";
inline constexpr Name PAGE_CONTENT = "content";
inline constexpr Name PAGE_FILLING = "filling";
inline constexpr Name PAGE_LENGTH = "page-length";
inline constexpr Name WARNING_TYPE = "warning-type";
inline constexpr Name WARNING_TIME = "warning-time";
inline constexpr Name WARNING_SIGNATURE = "warning-signature";

} // namespace field

} // namespace plain

#endif
