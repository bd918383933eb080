// Lines of a log as programs print them.
#ifndef QXPDU_PRINTED_H
#define QXPDU_PRINTED_H

#include <string>
#include <string_view>

namespace qxpdu {

/// What ends a PDU that is typed.
inline constexpr char c_endOfTyping = '\x1A';

/// What the modem said in a printed line: line feeds stand for the line ends that are written out in it, as
/// `\r\n`, `<CR>` or `^M`, plain characters for quotation marks and blanks of other kinds; colours and NUL
/// characters are gone.
std::string Unprinted(std::string_view line);

} // namespace qxpdu

#endif
