// The names of characters, which come when they are first wanted.
#ifndef WEB_MODULE_NAMES_H
#define WEB_MODULE_NAMES_H

#include <string>

namespace qxpdu {

/// The rows of the table: {0x0041, 0x0041, "LATIN CAPITAL LETTER A"}, a line each.
void SetNames(std::string rows);

/// Whether a name was wanted before there were any, since this was last asked.
bool WereNamesWanted();

} // namespace qxpdu

#endif
