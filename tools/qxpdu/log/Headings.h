// What modems and programs say about a message beside it, 3GPP TS 27.005.
#ifndef QXPDU_HEADINGS_H
#define QXPDU_HEADINGS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Messages/Read.h"

namespace qxpdu {

/// What the modem, or its user, says about the PDU that follows.
struct Heading {
    enum class Kind {
        Tpdu,            ///< a TPDU, as a rule after a service centre
        Page,            ///< a cell broadcast page
        Acknowledgement, ///< a report that stands without a service centre
        Reference        ///< no PDU: the reference that the message sent before was given
    };

    std::string_view name; ///< "+CMGL"
    std::size_t line = 0;  ///< its number
    Kind kind = Kind::Tpdu;
    std::optional<unsigned int> length; ///< of the TPDU, or of the page, in octets, where it is told
    Messages::Direction direction = Messages::Direction::Unknown;
    bool isStored = false;      ///< of what the modem has kept: a message, or a page
    bool isTyped = false;       ///< a command: its PDU is typed after a prompt
    bool isUnasked = false;     ///< of a message that the modem gives while it may answer something else
    bool isSent = false;        ///< a command that sends, so that the network gives the message a reference
    unsigned int reference = 0; ///< TP-MR
    std::size_t sentLine = 0;   ///< of the PDU that was given the reference; 0 where none was seen
    std::string digits;         ///< of a PDU that stands in the heading itself
};

/// What a line says at one place.
struct Mark {
    enum class Kind {
        Heading,  ///< a PDU follows, or stands in it
        TextMode, ///< a message in text mode
        Empty,    ///< nothing follows: an empty place, a test
        Notice    ///< an indication, which may stand between a heading and its PDU
    };

    std::size_t begin = 0; ///< of the name
    std::size_t end = 0;   ///< after the last value
    Kind kind = Kind::Empty;
    Heading heading;
};

/// The next one at or after `from`, whatever stands before it.
std::optional<Mark> FindMark(std::string_view line, std::size_t from);

/// Whether the line, without what a program wrote before it, ends what the modem said or is a command.
bool EndsAnswer(std::string_view line);

/// Whether the answer that it ends is that something failed.
bool EndsInError(std::string_view line);

/// Whether a modem says so unasked, between a heading and its PDU even.
bool IsUnasked(std::string_view line);

/// Whether somebody wrote the line beside the PDUs: "# " or "//" begins it. "#CREG: 1" is of a modem.
bool IsComment(std::string_view line);

/// Whether only a modem, or who talks to one, writes so.
bool IsOfModem(std::string_view line);

/// The text without what is neither letter nor digit around it.
std::string_view Core(std::string_view text);

} // namespace qxpdu

#endif
