/// @file
/// libQX_Messages from C, and from whatever calls C: short messages and cell broadcast by 3GPP TS 23.038,
/// TS 23.040 and TS 23.041, read, written, cut and joined.
///
/// \code
/// qx_reader* reader = qx_reader_new();
/// const qx_reading* reading;
/// if (qx_read_hex(reader, digits, strlen(digits), NULL, &reading) == QX_OK) {
///     const qx_message* message = reading->message;
///     if (message->party != NULL && message->user_data != NULL) // most status reports have no text
///         printf("%s: %s\n", message->party->written.data, message->user_data->text.data);
/// }
/// qx_reader_free(reader);
/// \endcode
///
/// Handles: made by `…_new`, which gives null where there is no memory, and given back by `…_free`, which
/// takes null too. One thread at a time uses a handle; handles have nothing in common.
///
/// Results: what a call hands out belongs to the handle, with all that it points to, until the next call with
/// that handle; so nothing of it may be given back to a call with the same handle, unless by a copy. A
/// pointer that is null says that there is no such thing; a list is an array of so many pointers, and null or
/// not where it is empty. After QX_OK and QX_FAULT there is a result, and after the others its pointer is
/// null. No exception passes.
///
/// Texts are UTF-8 and have a length, as one may hold NUL; after its last octet there is a NUL in all that is
/// handed out. What is given needs none, and may be null where its length is 0. Only qx_replace_near() hands
/// out octets that are no UTF-8, where it was given such.
///
/// Structures begin with their size, so that they can grow at their ends. The library sets it in what it
/// hands out: a member is there if it lies within. In what is given the caller sets it: `qx_message message =
/// {.size = sizeof message};`. What is 0 then is what is meant when nothing is told. A smaller size than this
/// header had at first is QX_ARGUMENT. Members that a comment calls "told" are worked out by the library and
/// not looked at when given. The three that have no size, qx_text, qx_octets and qx_optional_octet, stand
/// inside others and never grow.
///
/// Values with names are in qx_codes.h; a number that has no name there is QX_ARGUMENT when given.
#ifndef MESSAGES_QX_MESSAGES_H
#define MESSAGES_QX_MESSAGES_H

#include <stdbool.h> // NOLINT(modernize-deprecated-headers): C has no other
#include <stddef.h>  // NOLINT(modernize-deprecated-headers)
#include <stdint.h>  // NOLINT(modernize-deprecated-headers)

#include "Messages/Export.h"
#include "Messages/qx_codes.h"

#ifdef __cplusplus
extern "C" {
#endif

// NOLINTBEGIN(modernize-use-using): C has no other

/// What a call came to.
typedef enum qx_result qx_result;

/// "there was no memory"; empty for a number that is none. Constant text.
MESSAGES_API const char* qx_result_text(int result);

/// "1.0.0": of the library that is loaded. Constant text.
MESSAGES_API const char* qx_version(void);

/// A text in UTF-8.
typedef struct qx_text {
    const char* data; ///< its first octet
    size_t size;      ///< octets, without the NUL after them
} qx_text;

/// Octets.
typedef struct qx_octets {
    const uint8_t* data; ///< the first one
    size_t size;         ///< how many there are
} qx_octets;

/// An octet that may be missing.
typedef struct qx_optional_octet {
    bool has_value; ///< whether it is there
    uint8_t value;  ///< 0 where it is not
} qx_optional_octet;

/// A character of a text that something cannot hold, or octets in it that are none.
typedef struct qx_misfit {
    size_t size;        ///< of the structure
    size_t offset;      ///< of its first octet in the text
    uint32_t character; ///< of Unicode; 0xFFFFFFFF where the octets are not UTF-8
} qx_misfit;

/// The number or name of a party, TS 23.040 clause 9.1.2.5. Made by qx_make_number() and qx_make_name().
typedef struct qx_address {
    size_t size;             ///< of the structure
    uint8_t type_of_address; ///< the octet as it is sent: bit 7 set, type of number, numbering plan
    uint8_t length;          ///< the length octet as it is sent: useful semi-octets, or of a service centre
                             ///< octets with the one of the type. Given, used where it announces `text`, and
                             ///< worked out from that elsewhere: 0 will do
    qx_text text;            ///< digits `0`–`9`, `*`, `#`, `a`, `b`, `c`, without a plus sign; or the name
    uint8_t type;            ///< told: a qx_type_of_number
    uint8_t plan;            ///< told: 0 to 15, see qx_numbering_plan
    qx_text written;         ///< told: as people write it, with a plus sign before an international number
} qx_address;

/// A point in time with its zone, TS 23.040 clause 9.2.3.11. Made by qx_make_timestamp(): given to
/// qx_write(), the octets count, and `is_valid` and what follows up to the zone must say the same, or there
/// is the fault QX_WRITE_FAULT_TIME_DISAGREES.
typedef struct qx_timestamp {
    size_t size;          ///< of the structure
    uint8_t octets[7];    ///< as they are sent: year, month, day, hour, minute, second, zone
    bool is_valid;        ///< whether the octets are a time; otherwise the members below are 0
    uint16_t year;        ///< 2000 to 2099
    uint8_t month;        ///< 1 to 12
    uint8_t day;          ///< 1 to 31
    uint8_t hour;         ///< 0 to 23
    uint8_t minute;       ///< 0 to 59
    uint8_t second;       ///< 0 to 59
    int8_t quarters;      ///< the zone: quarters of an hour east of UTC, -85 to 85
    int64_t unix_seconds; ///< told: since 1970-01-01T00:00:00Z
} qx_timestamp;

/// How long a message is valid, TS 23.040 clause 9.2.3.12. Made by qx_make_relative_validity() and the
/// others.
typedef struct qx_validity {
    size_t size;               ///< of the structure
    uint8_t format;            ///< a qx_validity_format
    uint8_t octets[7];         ///< TP-VP as it is sent: one octet in the relative format, seven in the others
    uint8_t enhanced;          ///< told, of the enhanced format: 0 to 7, see qx_enhanced_validity
    bool is_single_shot;       ///< told: the service centre is to try only once
    bool has_seconds;          ///< told: the period is known
    uint32_t seconds;          ///< told: the period
    const qx_timestamp* until; ///< told: of the absolute format
} qx_validity;

/// A data coding scheme, TS 23.038 clause 4. Given, its value alone counts.
typedef struct qx_coding {
    size_t size;                     ///< of the structure
    uint8_t value;                   ///< TP-DCS
    uint8_t group;                   ///< told: a qx_coding_group
    uint8_t alphabet;                ///< told: a qx_alphabet; of a reserved scheme, the one to assume
    qx_optional_octet message_class; ///< told: 0 to 3
    bool is_compressed;              ///< told: no text is made
    bool is_reserved;                ///< told: holds reserved bits or values
    bool is_automatic_deletion;      ///< told: the message is deleted once it is read
    bool counts_septets;             ///< told: TP-UDL counts septets
    bool has_waiting;                ///< told: there is an indication that messages wait, see below
    bool waiting_is_stored;          ///< told: the message is kept after the indication is updated
    bool waiting_is_active;          ///< told: messages wait; otherwise none do
    uint8_t waiting_type;            ///< told: a qx_waiting_type
} qx_coding;

/// The place of a message among the parts of a text, TS 23.040 clauses 9.2.3.24.1 and 9.2.3.24.8.
typedef struct qx_concatenation {
    size_t size;             ///< of the structure
    bool has_wide_reference; ///< 16 bits instead of 8
    uint16_t reference;      ///< the same in all parts of a text
    uint8_t total;           ///< 1 to 255
    uint8_t part;            ///< 1 to total
} qx_concatenation;

/// The applications that a message is from and for, TS 23.040 clauses 9.2.3.24.3 and 9.2.3.24.4.
typedef struct qx_ports {
    size_t size;          ///< of the structure
    bool are_wide;        ///< 16 bits instead of 8
    uint16_t destination; ///< the application that the message is for
    uint16_t originator;  ///< the application that it is from
} qx_ports;

/// Element 01: how many messages of a kind wait, TS 23.040 clause 9.2.3.24.2.
typedef struct qx_special_message_indication {
    size_t size;           ///< of the structure
    bool is_stored;        ///< the message is kept after the indication is updated
    uint8_t profile;       ///< 0 to 3 for profiles 1 to 4
    uint8_t type;          ///< 0 voice, 1 fax, 2 e-mail, 3 the extended type
    uint8_t extended_type; ///< 1 video; others reserved
    uint8_t count;         ///< messages that wait
} qx_special_message_indication;

/// Element 0A: how a run of characters is shown, TS 23.040 clause 9.2.3.24.10.1.1.
typedef struct qx_text_formatting {
    size_t size;              ///< of the structure
    uint8_t start;            ///< the first character, from 0
    uint8_t length;           ///< characters
    uint8_t alignment;        ///< 0 left, 1 centre, 2 right, 3 as the language has it
    uint8_t font_size;        ///< 0 normal, 1 large, 2 small, 3 reserved
    bool is_bold;             ///< bit 4 of the mode
    bool is_italic;           ///< bit 5 of the mode
    bool is_underlined;       ///< bit 6 of the mode
    bool is_struck;           ///< bit 7 of the mode
    qx_optional_octet colour; ///< foreground in bits 3 to 0, background in bits 7 to 4
} qx_text_formatting;

/// Elements 0B and 0D: something predefined at a character of the text.
typedef struct qx_predefined_object {
    size_t size;      ///< of the structure
    uint8_t position; ///< the character that it belongs to, from 0
    uint8_t number;   ///< of the sound or animation
} qx_predefined_object;

/// Element 17: how many objects follow, and whether they may be forwarded.
typedef struct qx_object_distribution {
    size_t size;             ///< of the structure
    uint8_t count;           ///< objects
    bool forbids_forwarding; ///< bit 0 of the second octet
} qx_object_distribution;

/// Element 21: a run of characters is a title, the next a link, TS 23.040 clause 9.2.3.24.12.
typedef struct qx_hyperlink {
    size_t size;          ///< of the structure
    uint16_t position;    ///< the title's first character, from 0
    uint8_t title_length; ///< characters
    uint8_t url_length;   ///< characters, after the title
} qx_hyperlink;

/// One element of the user-data header, TS 23.040 clause 9.2.3.24. What its data says is in the one member
/// that its identifier is of; in none where the length is another than that kind has.
typedef struct qx_element {
    size_t size;                           ///< of the structure
    uint8_t identifier;                    ///< see qx_element_id
    uint8_t length;                        ///< of the data, in octets
    uint8_t offset;                        ///< of the data, in the octets of user data, or of the page
    qx_octets data;                        ///< told: the data
    const qx_concatenation* concatenation; ///< told: of 00 and 08
    const qx_special_message_indication* indication; ///< told: of 01
    const qx_ports* ports;                           ///< told: of 04 and 05
    const qx_text_formatting* formatting;            ///< told: of 0A
    const qx_predefined_object* object;              ///< told: of 0B and 0D
    const qx_object_distribution* distribution;      ///< told: of 17
    const qx_hyperlink* hyperlink;                   ///< told: of 21
    const qx_address* reply_address;                 ///< told: of 22
    qx_optional_octet octet; ///< told: of 06, 07 (1 sender, 2 receiver, 3 service centre), 13, 20, 24 and 25
} qx_element;

/// TP-UD, or TP-CD, with what its header and its coding make of it. Made by qx_cut() and qx_make_user_data():
/// given to qx_write(), what it says twice must agree.
typedef struct qx_user_data {
    size_t size;                           ///< of the structure
    uint8_t length;                        ///< TP-UDL: septets where the coding counts them, else octets
    qx_octets octets;                      ///< TP-UD, as much of it as is there
    bool has_header;                       ///< TP-UDHI is set and the first octet is the header's length
    bool is_header_ignored;                ///< the elements do not add up, or reach beyond the user data
    const qx_element* const* elements;     ///< in their order; none where the header is ignored
    size_t element_count;                  ///< how many there are
    const qx_concatenation* concatenation; ///< of the last valid element
    const qx_ports* ports;                 ///< of the last valid element
    uint8_t locking;                       ///< a qx_language: of the locking shift table
    uint8_t single;                        ///< a qx_language: of the single shift table
    uint16_t text_offset;                  ///< the octet where the text begins
    uint8_t fill_bits;                     ///< between the header and the first septet, 0 to 6
    uint16_t text_units;                   ///< septets, octets or UTF-16 units of the text that are there
    qx_text text; ///< empty for 8-bit data, for compressed text and where a header reaches too far
    qx_octets
        content; ///< told: the octets after the header; of septets, from the one with the first of them on
} qx_user_data;

/// One TPDU, TS 23.040 clause 9.2.2. The types that have a member stand after it in brackets: D for
/// QX_TYPE_DELIVER, DR for QX_TYPE_DELIVER_REPORT, S for QX_TYPE_SUBMIT, SR for QX_TYPE_SUBMIT_REPORT, R for
/// QX_TYPE_STATUS_REPORT and C for QX_TYPE_COMMAND, in small letters where a message of the type may do
/// without it. A member that the type has not is 0, and not looked at when given. Where the type has to have
/// what is not given, it is written as 0; but a time has to be given. What says that another field is there
/// (TP-UDHI, TP-VPF, the bits of TP-PI) is worked out from what is given.
typedef struct qx_message {
    size_t size;                           ///< of the structure
    uint8_t type;                          ///< a qx_type
    bool more_messages;                    ///< more messages wait: TP-MMS is 0 [D R]
    bool loop_prevention;                  ///< TP-LP: forwarded or spawned; stop a loop [D R]
    bool reject_duplicates;                ///< TP-RD [S]
    bool status_report_indication;         ///< TP-SRI: the sender gets a status report [D]
    bool status_report_request;            ///< TP-SRR [S C]
    bool is_for_command;                   ///< TP-SRQ: the result of an SMS-COMMAND [R]
    bool reply_path;                       ///< TP-RP [D S]
    uint8_t reference;                     ///< TP-MR [S R C]
    uint8_t status;                        ///< TP-ST [R]
    uint8_t command_type;                  ///< TP-CT [C]
    uint8_t message_number;                ///< TP-MN [C]
    qx_optional_octet failure_cause;       ///< TP-FCS, of a report of an error [dr sr]
    qx_optional_octet parameter_indicator; ///< the first octet of TP-PI; given, the bits of the fields that
                                           ///< are given are set, and those of the others cleared [dr sr r]
    qx_optional_octet protocol;            ///< TP-PID [D dr S sr r C]
    const qx_address* party;               ///< TP-OA, TP-DA or TP-RA [D S R C]
    const qx_coding* coding;               ///< TP-DCS [D dr S sr r]
    const qx_timestamp* timestamp;         ///< TP-SCTS [D SR R]
    const qx_timestamp* discharge;         ///< TP-DT [R]
    const qx_validity* validity;           ///< TP-VPF and TP-VP [S]
    const qx_user_data* user_data;         ///< TP-UDL and TP-UD, or TP-CDL and TP-CD [D dr S sr r C]
} qx_message;

/// Where a field, or a piece of one, stands.
typedef struct qx_place {
    size_t size;    ///< of the structure
    uint8_t field;  ///< a qx_field
    uint8_t piece;  ///< a qx_piece
    uint8_t mask;   ///< its bits of `octet`, where it is not all of them; of octets after that one, all are
    uint8_t value;  ///< of a field in the TPDU's first octet: its bits, moved to the right
    uint32_t octet; ///< the first one, from 0
    uint32_t count; ///< octets
} qx_place;

/// What is unusual, and ends nothing.
typedef struct qx_remark {
    size_t size;     ///< of the structure
    uint8_t code;    ///< a qx_remark_code
    uint8_t field;   ///< a qx_field
    uint32_t octet;  ///< of the PDU, from 0, that it is about
    uint32_t number; ///< see the code
    uint32_t other;  ///< see the code
    qx_text name;    ///< that programs know it by: "filler-inside"
    qx_text meaning; ///< a sentence without a full stop
} qx_remark;

/// What ended the reading. What was read before it holds.
typedef struct qx_fault {
    size_t size;       ///< of the structure
    uint8_t code;      ///< a qx_fault_code
    uint8_t field;     ///< a qx_field
    uint32_t octet;    ///< of the PDU, from 0, where the field begins
    uint32_t expected; ///< octets that the field takes
    uint32_t found;    ///< octets of it that are there
    qx_text name;      ///< that programs know it by: "field-cut"
    qx_text meaning;   ///< a sentence without a full stop
} qx_fault;

/// What a PDU says.
typedef struct qx_reading {
    size_t size;                      ///< of the structure
    const qx_address* service_centre; ///< there, but empty, where its length is 0
    bool is_service_centre_guessed;   ///< neither the options nor an announced length told
    uint8_t direction;                ///< a qx_direction: as given, or as the type has it
    const qx_message* message;        ///< as much of it as was read; null where a fault came before its type
    const qx_place* const* places;   ///< in the order of the octets; each bit of each octet is in one of them
    size_t place_count;              ///< how many there are
    const qx_remark* const* remarks; ///< in the order in which they were met
    size_t remark_count;             ///< how many there are
    const qx_fault* fault;           ///< that ended the reading
    bool is_sound;                   ///< nothing is wrong, missing or left over
} qx_reading;

/// What the reader knows beside the octets. Null: nothing.
typedef struct qx_read_options {
    size_t size; ///< of the structure
    uint8_t
        service_centre;    ///< a qx_presence: whether a service-centre address comes first, as modems have it
    uint8_t direction;     ///< a qx_direction
    uint8_t failure_cause; ///< a qx_presence: whether a report has TP-FCS
    bool has_announced_length; ///< whether the next one is told
    uint32_t announced_length; ///< octets of the TPDU as a modem announces them, without the service centre
} qx_read_options;

/// Reads.
typedef struct qx_reader qx_reader;
/// A reader; null where there is no memory.
MESSAGES_API qx_reader* qx_reader_new(void);
/// Gives it back, with what it has handed out. Null is nothing.
MESSAGES_API void qx_reader_free(qx_reader* reader);

/// Reads one PDU, in time linear in the number of octets. QX_FAULT where a fault ended the reading, which is
/// there up to it.
MESSAGES_API qx_result qx_read(qx_reader* reader, const uint8_t* octets, size_t count,
                               const qx_read_options* options, const qx_reading** reading);

/// qx_read() of hexadecimal digits, in upper or lower case, nothing between them.
MESSAGES_API qx_result qx_read_hex(qx_reader* reader, const char* digits, size_t count,
                                   const qx_read_options* options, const qx_reading** reading);

/// Why a PDU is not written, and which field is to blame.
typedef struct qx_write_fault {
    size_t size;     ///< of the structure
    uint8_t code;    ///< a qx_write_fault_code
    uint8_t field;   ///< a qx_field
    uint32_t number; ///< see the code
    uint32_t other;  ///< see the code
    qx_text name;    ///< that programs know it by: "no-time"
    qx_text meaning; ///< a sentence without a full stop
} qx_write_fault;

/// A PDU, or why there is none.
typedef struct qx_written {
    size_t size;        ///< of the structure
    qx_octets octets;   ///< of the service centre, where there is one, and the TPDU; none with a fault
    size_t tpdu_octets; ///< those of the TPDU, as modems want to be told
    const qx_write_fault* fault; ///< why there is no PDU
} qx_written;

/// Writes.
typedef struct qx_writer qx_writer;
/// A writer; null where there is no memory.
MESSAGES_API qx_writer* qx_writer_new(void);
/// Gives it back, with what it has handed out. Null is nothing.
MESSAGES_API void qx_writer_free(qx_writer* writer);

/// Writes one PDU. Without a service centre (null) the TPDU stands alone; one without digits is the octet 0,
/// for which a modem takes its own. What qx_read() gave without a remark is written as it was, octet for
/// octet. QX_FAULT where the message would be read as another one.
MESSAGES_API qx_result qx_write(qx_writer* writer, const qx_message* message,
                                const qx_address* service_centre, const qx_written** written);

/// What a maker has made: the one that was asked for, or why it was not.
typedef struct qx_made {
    size_t size;                   ///< of the structure
    const qx_address* address;     ///< of qx_make_number() and qx_make_name()
    const qx_user_data* user_data; ///< of qx_make_user_data()
    const qx_misfit* misfit;       ///< the character that no number, or no name, has
} qx_made;

/// Makes what a message is written of, one thing at a time.
typedef struct qx_maker qx_maker;
/// A maker; null where there is no memory.
MESSAGES_API qx_maker* qx_maker_new(void);
/// Gives it back, with what it has handed out. Null is nothing.
MESSAGES_API void qx_maker_free(qx_maker* maker);

/// An address of a number as people write it: digits, `*`, `#`, `a`, `b`, `c`, with or without a plus sign
/// first, which makes it international. Blanks, `-`, `.`, `/`, `(` and `)` are passed over. QX_FAULT at any
/// other character. Nothing is too long, and no digit at all too short: it is for qx_write() to say what a
/// PDU holds; the length is 255 at most.
MESSAGES_API qx_result qx_make_number(qx_maker* maker, const char* written, size_t size,
                                      const qx_made** made);
/// An address of a name, of any length as well. QX_FAULT at a character that the default alphabet lacks.
MESSAGES_API qx_result qx_make_name(qx_maker* maker, const char* written, size_t size, const qx_made** made);
/// User data of header elements, as they are sent and without the header's length, and content: septets, one
/// an octet, where the data coding scheme counts septets, and octets elsewhere. A command's data has the
/// scheme 4. QX_FAULT where TP-UDL cannot count it; QX_ARGUMENT for a septet above 127.
MESSAGES_API qx_result qx_make_user_data(qx_maker* maker, uint8_t coding, qx_octets elements,
                                         qx_octets content, const qx_made** made);

/// What needs no memory is written where the caller says; its size has to be set. QX_FAULT where a part is
/// out of range, and nothing is written then.
/// @{

/// The year 2000 to 2099, the zone less than 80 quarters of an hour from UTC.
MESSAGES_API qx_result qx_make_timestamp(int year, int month, int day, int hour, int minute, int second,
                                         int quarters, qx_timestamp* timestamp);
/// Of seconds since 1970-01-01T00:00:00Z, told in the zone given.
MESSAGES_API qx_result qx_make_unix_timestamp(int64_t unix_seconds, int quarters, qx_timestamp* timestamp);
/// The shortest period of the relative format that is not shorter, up to 63 weeks.
MESSAGES_API qx_result qx_make_relative_validity(uint32_t seconds, qx_validity* validity);
/// A period in the enhanced format, 1 second to 63 weeks.
MESSAGES_API qx_result qx_make_enhanced_validity(uint32_t seconds, bool is_single_shot,
                                                 qx_validity* validity);
/// Until a point in time, to which the validity points from then on; its octets count.
MESSAGES_API qx_result qx_make_absolute_validity(const qx_timestamp* until, qx_validity* validity);
/// What a data coding scheme says.
MESSAGES_API qx_result qx_make_coding(uint8_t value, qx_coding* coding);
/// @}

/// How a text is written and cut. Null, and zeros: in the default alphabet with its extension, or UCS2, for
/// messages of 140 octets.
typedef struct qx_cut_options {
    size_t size;                ///< of the structure
    uint16_t languages;         ///< that may be used: a bit for each qx_language, `1 << QX_LANGUAGE_TURKISH`
    qx_optional_octet alphabet; ///< the only one that may be: QX_ALPHABET_GSM7 or QX_ALPHABET_UCS2
    bool has_tables;            ///< whether the next two are the only ones that may be, in GSM 7-bit
    uint8_t locking;            ///< a qx_language: of the locking shift table; Spanish has the default one
    uint8_t single;             ///< a qx_language: of the single shift table
    uint16_t octets;            ///< of user data in one message, at most 159; 0 is 140
    uint16_t element_octets;    ///< of more header elements; qx_cut() works them out and does not look here
    bool has_wide_reference;    ///< of a concatenation: 16 bits instead of 8
    bool replaces_near;         ///< of qx_cut(): puts those near characters in that make it cheaper
    bool has_reference;         ///< of qx_cut(): whether the next one is told; else a random one
    uint16_t reference;         ///< of several parts
    const qx_ports* ports;      ///< of qx_cut(): in each part; null for none
    qx_octets elements;         ///< of qx_cut(): more header elements, as they are sent, in each part
    qx_optional_octet message_class; ///< of qx_cut(): 0 to 3
} qx_cut_options;

/// A way to write a text, the same for all of its parts.
typedef struct qx_choice {
    size_t size;      ///< of the structure
    uint8_t alphabet; ///< a qx_alphabet
    uint8_t locking;  ///< a qx_language, in GSM 7-bit
    uint8_t single;   ///< a qx_language, in GSM 7-bit
    size_t units;     ///< septets or UTF-16 units of the text; octets of data
    size_t parts;     ///< messages; SIZE_MAX where one has no room for a pair
    size_t octets;    ///< of user data in all parts, headers included
} qx_choice;

/// A character that is no single septet of the default alphabet. Its languages are a bit for each
/// qx_language; that of the default alphabet is set.
typedef struct qx_costly_character {
    size_t size;          ///< of the structure
    uint32_t character;   ///< of Unicode
    size_t offset;        ///< of the first one, in octets of the text
    size_t count;         ///< how often the text has it
    bool is_in_extension; ///< of the default alphabet: a pair there
    uint16_t locking;     ///< in whose locking shift tables it is one septet
    uint16_t single;      ///< in whose single shift tables it is a pair
} qx_costly_character;

/// What a text costs, and why.
typedef struct qx_explanation {
    size_t size;                     ///< of the structure
    const qx_choice* const* choices; ///< each one that holds the text, the cheapest first
    size_t choice_count;             ///< how many there are; none with a misfit
    const size_t* offsets;           ///< octets of the text where the parts of the cheapest begin
    size_t offset_count;             ///< how many there are
    const qx_costly_character* const* characters; ///< that force a choice, in the order of the text
    size_t character_count;                       ///< how many there are
    const qx_misfit* misfit;                      ///< what cannot be written
} qx_explanation;

/// One character of a text, or two that were composed, and what stands for it.
typedef struct qx_replacement {
    size_t size;         ///< of the structure
    size_t offset;       ///< in the text before, in octets
    size_t length;       ///< in octets
    qx_text replacement; ///< empty where the character is left out
} qx_replacement;

/// A text with near characters.
typedef struct qx_near_text {
    size_t size;                               ///< of the structure
    qx_text text;                              ///< with what was put in
    const qx_replacement* const* replacements; ///< in their order
    size_t replacement_count;                  ///< how many there are
} qx_near_text;

/// Why a text is not cut.
typedef struct qx_cut_fault {
    size_t size;        ///< of the structure
    uint8_t code;       ///< a qx_cut_fault_code
    size_t offset;      ///< in the text, in octets, where the code says so
    uint32_t character; ///< that is not held
    qx_text name;       ///< that programs know it by: "no-character"
    qx_text meaning;    ///< a sentence without a full stop
} qx_cut_fault;

/// The parts of a text, or of data. With a fault there are no parts and no `offsets`, but `coding` and
/// `choice` are there: all 0 with QX_CUT_FAULT_NOT_UTF8 and QX_CUT_FAULT_NO_CHARACTER, and otherwise how the
/// text would be written.
typedef struct qx_cut_text {
    size_t size;                      ///< of the structure
    const qx_user_data* const* parts; ///< in their order
    size_t part_count;                ///< how many there are, 1 to 255; 0 with a fault
    const qx_coding* coding;          ///< TP-DCS of all parts
    const qx_choice* choice;          ///< how the text is written
    const size_t* offsets;            ///< where each part begins, in octets of `text`, or of the data
    qx_text text;                     ///< as it is sent: with near characters, where they were put in
    const qx_replacement* const* replacements; ///< near characters that were put in
    size_t replacement_count;                  ///< how many there are
    const qx_cut_fault* fault;                 ///< why there are no parts
} qx_cut_text;

/// Chooses how texts are written, and cuts them.
typedef struct qx_cutter qx_cutter;
/// A cutter; null where there is no memory.
MESSAGES_API qx_cutter* qx_cutter_new(void);
/// Gives it back, with what it has handed out. Null is nothing.
MESSAGES_API void qx_cutter_free(qx_cutter* cutter);

/// Finds the cheapest way to write a text: the fewest parts, then the fewest octets, then the default
/// alphabet, a single shift table, a locking shift table, both, UCS2. It is the only choice of the
/// explanation, which has no more. QX_FAULT where what may be used does not hold the text.
MESSAGES_API qx_result qx_choose(qx_cutter* cutter, const char* text, size_t size,
                                 const qx_cut_options* options, const qx_explanation** explanation);
/// The same with every choice, and the characters that it is about.
MESSAGES_API qx_result qx_explain(qx_cutter* cutter, const char* text, size_t size,
                                  const qx_cut_options* options, const qx_explanation** explanation);
/// Puts near characters in for what the languages' tables do not hold: a bit for each qx_language. Octets
/// that are not UTF-8 stay, so that the text that is handed out is none either.
MESSAGES_API qx_result qx_replace_near(qx_cutter* cutter, const char* text, size_t size, uint16_t languages,
                                       const qx_near_text** near_text);
/// Cuts a text into as many messages as it takes, one or more. A part ends before a pair that it has no room
/// for. QX_FAULT where there are no parts. Whether the elements of the options add up is for qx_write() to
/// say, here as with qx_make_user_data().
MESSAGES_API qx_result qx_cut(qx_cutter* cutter, const char* text, size_t size, const qx_cut_options* options,
                              const qx_cut_text** cut);
/// The same of octets, in 8-bit data; how text would be written has no say.
MESSAGES_API qx_result qx_cut_data(qx_cutter* cutter, const uint8_t* data, size_t size,
                                   const qx_cut_options* options, const qx_cut_text** cut);

/// What a joiner may hold. Null, or 0 for a member: as the comment says.
typedef struct qx_join_limits {
    size_t size;     ///< of the structure
    size_t messages; ///< whose parts are kept; 1024
    size_t octets;   ///< of their user data; 1048576
    int64_t seconds; ///< from the first part of a message until it is given up; 86400
} qx_join_limits;

/// One part of a message.
typedef struct qx_joined_part {
    size_t size;               ///< of the structure
    uint8_t number;            ///< from 1
    uint64_t tag;              ///< that the caller gave
    const qx_message* message; ///< as it was read
} qx_joined_part;

/// Neighbours that have not come.
typedef struct qx_joined_gap {
    size_t size;        ///< of the structure
    uint8_t first;      ///< the number of the first of them
    uint8_t last;       ///< that of the last
    size_t text_offset; ///< where they belong in the text, in octets
    size_t data_offset; ///< where they belong in the data
} qx_joined_gap;

/// A message, whole or as much of it as has come.
typedef struct qx_joined {
    size_t size;                        ///< of the structure
    uint8_t outcome;                    ///< a qx_join_outcome
    uint8_t total;                      ///< parts that it has
    const qx_joined_part* const* parts; ///< that have come, by their numbers
    size_t part_count;                  ///< how many there are
    qx_text text;                       ///< of all parts that have come
    qx_octets data;                     ///< of the parts that are 8-bit data
    const qx_joined_gap* const* gaps;   ///< in their order; none of a duplicate
    size_t gap_count;                   ///< how many there are
    uint64_t before;                    ///< of a duplicate: the tag of the part that came before
} qx_joined;

/// What a joiner hands back.
typedef struct qx_joined_list {
    size_t size;                      ///< of the structure
    const qx_joined* const* messages; ///< in the order in which they were given up or completed
    size_t message_count;             ///< how many there are, often none
} qx_joined_list;

/// Joins the parts of long messages. Parts of one message have in common the direction, the other party's
/// number with its type, the reference with its width, and the number of parts. Whatever is added is handed
/// back once: at once where it is no part, with its message when that is complete or given up. Where
/// QX_NO_MEMORY kept something from being handed back, the next call does that; nothing that was added before
/// is lost. What was to be added then may have been taken in or not: adding it again is right, as a part that
/// comes twice counts once.
typedef struct qx_joiner qx_joiner;
/// A joiner; null where there is no memory, and where limits are less than 0 or too small to be some.
MESSAGES_API qx_joiner* qx_joiner_new(const qx_join_limits* limits);
/// Gives it back, with what it has handed out and what it holds. Null is nothing.
MESSAGES_API void qx_joiner_free(qx_joiner* joiner);

/// Takes in what the reader has read last, which it keeps. `now` are seconds of whatever clock the caller
/// likes. A reading that a fault ended, which has no user data, comes back at once, as what is no part does;
/// user data that is cut short is taken as far as it is there. QX_ARGUMENT where the reading has no type, or
/// is of cell broadcast, and where the reader's last call was refused, so that there is none.
MESSAGES_API qx_result qx_joiner_add(qx_joiner* joiner, const qx_reader* reader, int64_t now, uint64_t tag,
                                     const qx_joined_list** joined);
/// Gives up what has waited too long.
MESSAGES_API qx_result qx_joiner_expire(qx_joiner* joiner, int64_t now, const qx_joined_list** joined);
/// Gives up everything, the oldest first.
MESSAGES_API qx_result qx_joiner_finish(qx_joiner* joiner, const qx_joined_list** joined);

/// Tells messages of one identifier from each other, TS 23.041 clause 9.4.1.2.1.
typedef struct qx_serial_number {
    size_t size;              ///< of the structure
    uint16_t value;           ///< as it is sent
    uint8_t scope;            ///< a qx_geographical_scope
    uint16_t message_code;    ///< 0 to 1023
    uint8_t update_number;    ///< 0 to 15
    bool has_emergency_alert; ///< the message code asks for an alert; in messages of ETWS alone it does
    bool has_popup;           ///< the message code asks for a popup; in messages of ETWS alone it does
} qx_serial_number;

/// A data coding scheme of cell broadcast, TS 23.038 clause 5.
typedef struct qx_cell_coding {
    size_t size;                     ///< of the structure
    uint8_t value;                   ///< as it is sent
    uint8_t group;                   ///< a qx_cell_coding_group
    uint8_t alphabet;                ///< a qx_alphabet; QX_ALPHABET_DATA where there is no text
    qx_optional_octet message_class; ///< 0 to 3
    bool is_compressed;              ///< no text is made
    bool has_header;                 ///< a user-data header begins each page
    bool is_reserved;                ///< holds reserved bits or values
    qx_text language;                ///< ISO 639, "de"; empty where the scheme names none
} qx_cell_coding;

/// The content of one page.
typedef struct qx_page {
    size_t size;                       ///< of the structure
    uint8_t number;                    ///< 1 to 15
    qx_octets octets;                  ///< as far as they are used and there; padding among them
    bool is_header_ignored;            ///< the elements do not add up, or reach beyond the page
    const qx_element* const* elements; ///< of the user-data header
    size_t element_count;              ///< how many there are
    uint8_t locking;                   ///< a qx_language: of the locking shift table
    uint8_t single;                    ///< a qx_language: of the single shift table
    qx_text language;                  ///< that stands before the text, "en"; empty where none does
    uint8_t text_offset;               ///< the octet where the text begins
    uint8_t text_bit;                  ///< of septets: the bit of that octet, 0 to 7
    uint8_t text_units;                ///< septets, octets or UTF-16 units, without padding
    uint8_t padding_units;             ///< septets or UTF-16 units of padding after them
    bool is_cut;                       ///< a UMTS message ends before the length of the page
    qx_text text;                      ///< without padding; empty where there is no text
    qx_octets content;                 ///< the octets from the text on; of a page without text, its data
} qx_page;

/// What an ETWS primary notification says beside serial number and identifier, TS 23.041 clause 9.3.24.
typedef struct qx_etws_warning {
    size_t size;              ///< of the structure
    uint16_t value;           ///< the warning type as it is sent
    uint8_t type;             ///< 0 to 127, see qx_warning_type_name()
    bool has_emergency_alert; ///< the user is to be alerted
    bool has_popup;           ///< a popup is to be shown
    const qx_timestamp* time; ///< when it was signed; null where the notification lacks it
    qx_octets signature;      ///< 43 octets, or none
} qx_etws_warning;

/// What octets of cell broadcast say.
typedef struct qx_cell_reading {
    size_t size;                    ///< of the structure
    uint8_t format;                 ///< a qx_cell_format: as told or as recognised
    const qx_serial_number* serial; ///< of every format
    uint16_t message_identifier;    ///< see qx_message_identifier_meaning()
    const qx_cell_coding* coding;   ///< of pages and messages
    uint8_t total;               ///< pages of the message, 1 to 15; 0 of a notification, and before a fault
    const qx_page* const* pages; ///< one of a GSM page, of a message as many as are there
    size_t page_count;           ///< how many there are
    const qx_etws_warning* warning;  ///< of a notification
    qx_text text;                    ///< of all pages that are there
    qx_text language;                ///< of the text; may be empty
    const qx_place* const* places;   ///< in the order of the octets
    size_t place_count;              ///< how many there are
    const qx_remark* const* remarks; ///< in the order in which they were met
    size_t remark_count;             ///< how many there are
    const qx_fault* fault;           ///< that ended the reading
} qx_cell_reading;

/// Reads a page, a message or a notification of cell broadcast, TS 23.041 clause 9.4, with the reader of
/// messages. `format` is a qx_cell_format; what is not told is recognised. QX_FAULT as of qx_read().
MESSAGES_API qx_result qx_read_cell(qx_reader* reader, const uint8_t* octets, size_t count, uint8_t format,
                                    const qx_cell_reading** reading);
/// qx_read_cell() of hexadecimal digits.
MESSAGES_API qx_result qx_read_cell_hex(qx_reader* reader, const char* digits, size_t count, uint8_t format,
                                        const qx_cell_reading** reading);

/// A message of cell broadcast whose pages have come, or some of them.
typedef struct qx_cell_message {
    size_t size;      ///< of the structure
    bool is_given_up; ///< it is handed back because it is not held any more, not as it is complete
    const qx_serial_number* serial; ///< of every page
    uint16_t message_identifier;    ///< of every page
    const qx_cell_coding* coding;   ///< of every page
    uint8_t total;                  ///< pages of the message
    const qx_page* const* pages;    ///< those that have come, by their numbers
    size_t page_count;              ///< how many there are
    qx_octets missing;              ///< the numbers of the pages that have not come whole
    qx_text text;                   ///< of the pages that have come
} qx_cell_message;

/// What a page did.
typedef struct qx_pages_taken {
    size_t size;                            ///< of the structure
    bool is_duplicate;                      ///< the page has come before, the same but for its padding
    const qx_cell_message* const* messages; ///< given up, and the one that the page completes
    size_t message_count;                   ///< how many there are, often none
} qx_pages_taken;

/// Puts pages together that come in any order and many times over. A message is known by scope, message code,
/// update number and identifier; a page of a newer update replaces what is held of an older one. Where
/// QX_NO_MEMORY kept something from being handed back, the next call does.
typedef struct qx_page_joiner qx_page_joiner;
/// A joiner that holds so many messages at most, 256 for 0; null where there is no memory.
MESSAGES_API qx_page_joiner* qx_page_joiner_new(size_t messages);
/// Gives it back, with what it has handed out and what it holds. Null is nothing.
MESSAGES_API void qx_page_joiner_free(qx_page_joiner* joiner);
/// Takes in what the reader has read last, which it keeps. A notification, and a reading with a fault,
/// changes nothing. QX_ARGUMENT where that is not of cell broadcast.
MESSAGES_API qx_result qx_page_joiner_take(qx_page_joiner* joiner, const qx_reader* reader,
                                           const qx_pages_taken** taken);
/// Gives up the oldest message that waits for pages; none where none does.
MESSAGES_API qx_result qx_page_joiner_take_oldest(qx_page_joiner* joiner, const qx_pages_taken** taken);

/// What is to be sent by cell broadcast.
typedef struct qx_cell_draft {
    size_t size;                 ///< of the structure
    uint8_t format;              ///< QX_CELL_GSM_PAGE or QX_CELL_UMTS_MESSAGE
    uint16_t serial_number;      ///< as it is to be sent
    uint16_t message_identifier; ///< as it is to be sent
    qx_text text;                ///< what the pages say
    qx_text language;            ///< ISO 639, two letters from a to z; empty: no language is told
    qx_optional_octet alphabet;  ///< a qx_alphabet; without one, GSM 7-bit, or UCS2 where the text needs it
    qx_optional_octet message_class; ///< 0 to 3; not with a language
} qx_cell_draft;

/// What a draft has become.
typedef struct qx_cell_written {
    size_t size;                  ///< of the structure
    uint8_t fault;                ///< a qx_cell_draft_fault; with one, there are no pages
    qx_text meaning;              ///< of the fault
    const qx_misfit* misfit;      ///< the character that it is about
    const qx_cell_coding* coding; ///< that was chosen
    size_t pages;                 ///< 1 to 15
    const qx_octets* octets;      ///< of each GSM page, 88 a page; or of the one UMTS message
    size_t octets_count;          ///< how many there are
} qx_cell_written;

/// Writes pages, with the writer of messages. QX_FAULT where the draft cannot be sent.
MESSAGES_API qx_result qx_write_cell(qx_writer* writer, const qx_cell_draft* draft,
                                     const qx_cell_written** written);

/// English for numbers, constant texts that stay as long as the library is loaded; empty for a number that
/// has none.
/// @{

/// "SMS-DELIVER", of a qx_type.
MESSAGES_API const char* qx_type_name(uint8_t type);
/// "TP-OA", of a qx_field.
MESSAGES_API const char* qx_field_name(uint8_t field);
/// "originating address".
MESSAGES_API const char* qx_field_description(uint8_t field);
/// "Turkish", of a qx_language.
MESSAGES_API const char* qx_language_name(uint8_t language);
/// "GSM 7-bit", of a qx_alphabet.
MESSAGES_API const char* qx_alphabet_name(uint8_t alphabet);
/// "international", of a qx_type_of_number.
MESSAGES_API const char* qx_type_of_number_name(uint8_t type);
/// "ISDN or telephone (E.164)", of bits 3 to 0.
MESSAGES_API const char* qx_numbering_plan_name(uint8_t plan);
/// Of TP-PID: "internet e-mail".
MESSAGES_API const char* qx_protocol_meaning(uint8_t protocol);
/// Of TP-ST: "validity period expired".
MESSAGES_API const char* qx_status_meaning(uint8_t status);
/// Of TP-ST: "completed", "permanent error" …
MESSAGES_API const char* qx_status_class(uint8_t status);
/// Of TP-FCS: "memory full".
MESSAGES_API const char* qx_failure_cause_meaning(uint8_t cause);
/// Of TP-CT: "delete a message".
MESSAGES_API const char* qx_command_type_meaning(uint8_t type);
/// Of an element of the user-data header: "hyperlink".
MESSAGES_API const char* qx_element_name(uint8_t identifier);
/// Who has the port: "assigned by IANA".
MESSAGES_API const char* qx_port_meaning(bool are_wide, uint16_t port);
/// Of a message class, 0 to 3: "immediate display".
MESSAGES_API const char* qx_class_meaning(uint8_t message_class);
/// "voice", of a qx_waiting_type.
MESSAGES_API const char* qx_waiting_type_name(uint8_t type);
/// "timed-out", of a qx_join_outcome: the name that programs know it by.
MESSAGES_API const char* qx_join_outcome_name(uint8_t outcome);
/// "all of its parts are there".
MESSAGES_API const char* qx_join_outcome_meaning(uint8_t outcome);
/// "GSM page", of a qx_cell_format.
MESSAGES_API const char* qx_cell_format_name(uint8_t format);
/// "earthquake", of a warning type.
MESSAGES_API const char* qx_warning_type_name(uint8_t type);
/// @}

/// Texts that are made: written to `text`, which has room for so many octets, with a NUL after them, as far
/// as there is room. Return the octets that the whole takes without it; 0 where there is no memory, and for
/// what is none.
/// @{

/// ISO 8601, "2012-02-13T12:34:56+05:30", 25 octets; empty where it is no time. Its members count, each by
/// itself: nothing asks whether the month has such a day.
MESSAGES_API size_t qx_timestamp_text(const qx_timestamp* timestamp, char* text, size_t room);
/// "relative, 3 hours".
MESSAGES_API size_t qx_validity_meaning(const qx_validity* validity, char* text, size_t room);
/// "GSM 7-bit, class 0: immediate display", of TP-DCS.
MESSAGES_API size_t qx_coding_meaning(uint8_t coding, char* text, size_t room);
/// "GSM 7-bit, German", of a data coding scheme of cell broadcast.
MESSAGES_API size_t qx_cell_coding_meaning(uint8_t coding, char* text, size_t room);
/// "CMAS presidential, EU-Alert level 1", of every message identifier.
MESSAGES_API size_t qx_message_identifier_meaning(uint16_t identifier, char* text, size_t room);
/// "scope 1: network wide, message code 2, update number 3".
MESSAGES_API size_t qx_serial_number_meaning(uint16_t serial, uint16_t identifier, char* text, size_t room);
/// @}

// NOLINTEND(modernize-use-using)

#ifdef __cplusplus
}
#endif

#endif
