// How help is laid out.
#ifndef QXPDU_HELP_H
#define QXPDU_HELP_H

#include <string>
#include <string_view>
#include <vector>

namespace qxpdu {

/// The text in lines of 80 columns at most, where it has blanks to break at. Lines of a paragraph that begin
/// at the margin are filled anew; what stands in a right column stays there.
std::string Wrapped(std::string_view text);

/// The known name that differs least from the one given, by two letters at most; empty where none does.
std::string Nearest(std::string_view given, const std::vector<std::string>& known);

} // namespace qxpdu

#endif
