// A list of named values, shown to a person as aligned lines and to a program as a JSON object.
#ifndef SHOW_RECORD_H
#define SHOW_RECORD_H

#include <string>
#include <string_view>
#include <vector>

#include "show/Json.h"

namespace show {

/// A value as it is on the wire: for a person and for a program.
struct Raw {
    std::string text;
    Json json;
};

Raw RawNumber(unsigned int value); ///< in decimal
Raw RawOctet(unsigned int value);  ///< "0x19"
Raw RawWord(unsigned int value);   ///< "0x1112"
Raw RawOctets(std::string_view hex);

/// "TP-DCS 0x19: UCS2, class 1"
struct Entry {
    std::string name;
    Raw raw;
    std::string meaning;           ///< may be empty
    Json details = Json::object(); ///< further members for a program
};

/// A line for each entry, the names right-aligned; what an entry lacks is left out.
std::string ToText(const std::vector<Entry>& entries);

/// The key of an entry: its name in lower case, words joined by underscores.
std::string KeyOf(std::string_view name);

/// {"raw": …, "meaning": …} and the details.
Json ToJson(const Entry& entry);

} // namespace show

#endif
