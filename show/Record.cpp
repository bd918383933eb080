#include "show/Record.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "show/CodeUnits.h"

namespace show {

namespace {

/// The text for a person; a line of it after the first begins below the first.
std::string Continued(std::string_view text, std::size_t indent) {
    const std::size_t feed = text.find('\n');
    if (feed == std::string_view::npos)
        return Printable(text);
    return fmt::format("{}\n{:{}}{}", Printable(text.substr(0, feed)), "", indent,
                       Continued(text.substr(feed + 1), indent));
}

} // namespace

Raw RawNumber(unsigned int value) {
    return {fmt::format("{}", value), value};
}

Raw RawOctet(unsigned int value) {
    return {fmt::format("0x{:02X}", value), value};
}

Raw RawWord(unsigned int value) {
    return {fmt::format("0x{:04X}", value), value};
}

Raw RawOctets(std::string_view hex) {
    return {std::string(hex), hex};
}

std::string ToText(const std::vector<Entry>& entries) {
    std::size_t width = 0;
    for (const Entry& entry : entries)
        width = std::max(width, entry.name.size());
    std::string lines;
    for (const Entry& entry : entries) {
        fmt::format_to(std::back_inserter(lines), "{:>{}}{}{}{}{}{}\n", entry.name, width,
                       entry.raw.text.empty() ? "" : " ", entry.raw.text,
                       entry.raw.text.empty() || entry.meaning.empty() ? "" : ":",
                       entry.meaning.empty() ? "" : " ", Continued(entry.meaning, width + 1));
    }
    return lines;
}

std::string KeyOf(std::string_view name) {
    std::string key(name);
    for (char& character : key) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
        else if (character == '-' || character == ' ')
            character = '_';
    }
    return key;
}

Json ToJson(const Entry& entry) {
    Json object = {{"raw", entry.raw.json}, {"meaning", entry.meaning}};
    object.update(entry.details);
    return object;
}

} // namespace show
