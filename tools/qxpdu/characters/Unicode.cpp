#include "characters/Unicode.h"

#include <fmt/format.h>
#include <utf8.h>

#include "characters/InputError.h"
#include "show/CodeUnits.h"

namespace qxpdu {

TString<wchar_t> FromUtf8(std::string_view text) {
    const char* const end = text.data() + text.size();
    const char* const invalid = utf8::find_invalid(text.data(), end);
    if (invalid != end) {
        throw InputError(fmt::format("byte {} (0x{:02X}) is not valid UTF-8", invalid - text.data() + 1,
                                     static_cast<unsigned char>(*invalid)));
    }
    std::u32string codePoints;
    codePoints.reserve(text.size());
    for (const char* position = text.data(); position != end;)
        codePoints += static_cast<char32_t>(utf8::unchecked::next(position));
    return show::Units(codePoints);
}

std::string FirstCharacter(std::string_view text) {
    std::string_view character;
    for (std::size_t length = 1; length <= 4 && length <= text.size() && character.empty(); ++length) {
        if (utf8::is_valid(text.begin(), text.begin() + length))
            character = text.substr(0, length);
    }
    const auto first = static_cast<unsigned char>(text.front());
    if (character.empty() || first < 0x20 || first == 0x7F)
        return fmt::format("0x{:02X}", first);
    const char quote = first == '\'' ? '"' : '\'';
    return fmt::format("{}{}{}", quote, show::Printable(character), quote);
}

std::string CodePointName(char32_t codePoint) {
    return fmt::format("U+{:04X}", static_cast<unsigned int>(codePoint));
}

} // namespace qxpdu
