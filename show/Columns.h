// A message in one line, or as a row of a table.
#ifndef SHOW_COLUMNS_H
#define SHOW_COLUMNS_H

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "show/JoinedBroadcast.h"
#include "show/JoinedMessage.h"
#include "show/Message.h"

namespace show {

/// What a row can tell of a message, in the order of the names.
enum class Column : std::uint8_t {
    Input,     ///< where the message came from
    Time,      ///< TP-SCTS, ISO 8601
    Direction, ///< to-mobile or from-mobile
    Type,      ///< "SMS-DELIVER"
    Address,   ///< of the other party
    ServiceCentre,
    Reference, ///< TP-MR
    Part,      ///< "1/2", "1,3/3"; empty where all is there
    Status,    ///< of a status report
    Alphabet,  ///< "UCS2"
    Text,
    Data,   ///< octets that are no text, in hexadecimal
    Octets, ///< the whole PDU
    Error   ///< why there is no message
};

inline constexpr std::size_t c_columnCount = 14;

/// The column of that name, if there is one.
std::optional<Column> ColumnOf(std::string_view name);

std::string_view NameOf(Column column);

/// "input, time, direction, …"
std::string ColumnNames();

/// What the columns hold; empty where the message lacks it.
class Row {
public:
    std::string& operator[](Column column) { return m_Values[static_cast<std::size_t>(column)]; }
    const std::string& operator[](Column column) const { return m_Values[static_cast<std::size_t>(column)]; }

private:
    std::array<std::string, c_columnCount> m_Values;
};

Row RowOf(const Message& message);
Row RowOf(const JoinedMessage& joined);

/// The text of a warning without one is the name of its type.
Row RowOf(const Broadcast& broadcast);
Row RowOf(const JoinedBroadcast& joined);

/// "2012-02-13T12:34:56+02:00 from +4179123 [1/2] Hello"; what acts on a terminal is escaped, a line feed is
/// "\n".
std::string BriefLine(const Row& row);

/// A value of a table: a tab is "\t", a line feed "\n", a carriage return "\r", a backslash "\\", and what
/// else acts on a terminal "\u001B".
std::string TabEscaped(std::string_view value);

/// The values, escaped, with a tab between two.
std::string TabSeparated(const Row& row, const std::vector<Column>& columns);
std::string TabSeparatedNames(const std::vector<Column>& columns);

} // namespace show

#endif
