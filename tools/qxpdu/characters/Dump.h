// Octets as tools dump them, with their place before them and their characters after them.
#ifndef QXPDU_DUMP_H
#define QXPDU_DUMP_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qxpdu {

/// Digits before octets, which tell where these stand. More digits without anything between them are no line
/// of a dump.
constexpr std::size_t c_longestOffset = 8;

/// A line of a dump, as `hexdump -C`, `xxd` and others print it.
struct DumpLine {
    std::size_t offset;  ///< of the first octet
    std::string digits;  ///< of the octets
    bool isBare = false; ///< has no characters: what it is can be told by other lines alone
};

/// Nothing unless characters stand after the octets, each of them that of its octet or a point, or `octets`
/// came before and the line is an offset of so many with octets after it, two digits each: nothing else looks
/// so.
std::optional<DumpLine> ReadDumpLine(std::string_view line, std::size_t octets);

/// Whether it is the last line that hexdump prints: an offset alone, after so many octets.
bool EndsDump(std::string_view line, std::size_t octets);

/// The digits of a dump of one line or several, from the first octet on; nothing where the text is none.
std::optional<std::string> ReadDump(std::string_view text);

} // namespace qxpdu

#endif
