// The log of a modem: which of its lines are PDUs, and what the modem announced about them, 3GPP TS 27.005.
#ifndef QXPDU_TRANSCRIPT_H
#define QXPDU_TRANSCRIPT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qxpdu {

/// What the line before a PDU says about it.
struct Heading {
    std::string name;                   ///< "+CMGL"
    std::size_t line = 0;               ///< its number
    bool isCellPage = false;            ///< a cell broadcast page follows
    std::optional<unsigned int> length; ///< the octets of the TPDU, or of the page; none in text mode
};

/// Reads a log line by line. Only what no PDU can be mistaken for is the modem's: blank lines, commands,
/// result codes, what it says unasked. The last may stand between a heading and its PDU.
class Transcript {
public:
    enum class Line {
        Pdu,     ///< under a heading, or by itself
        Chatter, ///< nothing to decode
        Orphan   ///< the heading before lacks its PDU; the line itself is chatter
    };

    /// Takes in the next line, which has this number, from 1. Where it is a PDU that was typed, the prompt
    /// before it and the end of input after it are taken off.
    Line Take(std::string& line, std::size_t number);

    /// The heading of the PDU, or the one that lacks it, that Take() gave last.
    const std::optional<Heading>& LastHeading() const { return m_Last; }

    /// At the end of the log; whether its last heading lacks the PDU.
    bool Finish();

private:
    std::optional<Heading> m_Open; ///< waits for its PDU
    std::optional<Heading> m_Last;
};

/// Throws InputError where the modem is in text mode, so that no PDU follows.
void CheckMode(const Heading& heading);

/// Throws InputError unless the octets are what the heading announced, which has passed CheckMode().
void CheckLength(const Heading& heading, unsigned int octets);

} // namespace qxpdu

#endif
