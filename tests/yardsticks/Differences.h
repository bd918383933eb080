// Where our rules require another result than the yardsticks give. Each difference is named by its row of
// docs/departures.md; whatever is not named must be the same.
#ifndef TESTS_YARDSTICKS_DIFFERENCES_H
#define TESTS_YARDSTICKS_DIFFERENCES_H

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "Encoding/Fields.h"
#include "Toolkit/DateTime.h"
#include "support/Octets.h"

namespace yardsticks {

/// A text by its code points.
inline std::string Shown(const std::u32string& text) {
    std::string shown;
    for (const char32_t character : text) {
        char number[16];
        std::snprintf(number, sizeof number, "%04X ", static_cast<unsigned int>(character));
        shown += number;
    }
    return shown;
}

/// small-cedilla: code 0x09 is the small letter here and the capital there.
inline std::u32string WithCapitalCedilla(std::u32string text) {
    std::replace(text.begin(), text.end(), U'\u00E7', U'\u00C7');
    return text;
}

/// split-pair: an escape at the end of a part is unknown there, and its code at the start of
/// the next part is a character by itself.
inline std::u32string Joined(const std::vector<std::u32string>& parts) {
    static const std::map<char32_t, char32_t> extension = {
        {U'\n', U'\f'}, {U'\u039B', U'^'}, {U'(', U'{'}, {U')', U'}'},      {U'/', U'\\'},
        {U'<', U'['},   {U'=', U'~'},      {U'>', U']'}, {U'\u00A1', U'|'}, {U'e', U'\u20AC'}};
    std::u32string text;
    for (const std::u32string& part : parts) {
        const bool isCut = !text.empty() && text.back() == U'\uFFFD';
        text += part;
        if (isCut) {
            const std::size_t cut = text.size() - part.size() - 1;
            text.replace(cut, 2, 1, extension.at(part.at(0)));
        }
    }
    return text;
}

inline bool IsSameSentText(const std::u32string& asked, const std::vector<std::u32string>& dissected) {
    return WithCapitalCedilla(asked) == WithCapitalCedilla(Joined(dissected));
}

inline bool IsSameReceivedText(const std::u32string& dissected, const std::u32string& ours) {
    return WithCapitalCedilla(dissected) == WithCapitalCedilla(ours);
}

/// address-letters: a code is the character of the same number here, so 0x24 the dollar. address-overrun: the
/// reader goes one octet past the field, so one or two characters more may follow. address-signs: digits 0x0A
/// to 0x0E are the characters after '9' here, and there those of TS 23.040. address-plus: an international
/// number is shown with it.
inline bool IsSameAddress(long type, const std::u32string& dissected, const std::u32string& ours) {
    if (type == 5) {
        std::u32string letters = dissected;
        std::replace(letters.begin(), letters.end(), U'\u00A4', U'$');
        return letters == ours.substr(0, letters.size()) && ours.size() <= letters.size() + 2;
    }
    static const std::map<char32_t, char32_t> digits = {
        {U':', U'*'}, {U';', U'#'}, {U'<', U'a'}, {U'=', U'b'}, {U'>', U'c'}};
    std::u32string number = type == 1 ? U"+" + dissected : dissected;
    std::u32string shown = ours;
    for (char32_t& digit : shown)
        if (const auto other = digits.find(digit); other != digits.end())
            digit = other->second;
    return number == shown;
}

/// address-type: those that the record has no value for are unknown.
inline bool IsSameTypeOfNumber(long type, int ours) {
    static const std::map<long, int> types = {{1, 2}, {5, 5}, {7, 7}};
    const auto known = types.find(type);
    return ours == (known == types.end() ? 1 : known->second);
}

/// address-plan: the same, and the rest have numbers of their own.
inline bool IsSameNumberingPlan(long plan, int ours) {
    static const std::map<long, int> plans = {{1, 1}, {3, 2}, {4, 3}, {8, 4}, {9, 5}, {10, 6}, {15, 7}};
    const auto known = plans.find(plan);
    return ours == (known == plans.end() ? 0 : known->second);
}

/// zone-hours, zone-zero, zone-minus-quarter: whole hours here, and quarters there, whose sign is in none of
/// the fields; none where the quarters are 0 or -1.
inline bool IsSameZone(long quarters, const Toolkit::DateTime& time) {
    if (quarters == 0 || (quarters == 1 && !time.HasOffset()))
        return !time.HasOffset();
    return time.HasOffset() && std::abs(time.GetOffset()) == quarters / 4;
}

/// page-characters: a page of 88 octets has 93 septets, of which the decoder reads as many as there
/// are octets after the header. page-padding: blanks, carriage returns and line feeds around the text are
/// taken off.
inline bool IsSamePage(const std::u32string& dissected, const std::u32string& ours) {
    const auto trimmed = [](const std::u32string& text) {
        const std::size_t first = text.find_first_not_of(U" \r\n");
        return first == std::u32string::npos
                   ? std::u32string()
                   : text.substr(first, text.find_last_not_of(U" \r\n") + 1 - first);
    };
    return WithCapitalCedilla(trimmed(dissected.substr(0, 82))) == WithCapitalCedilla(trimmed(ours));
}

} // namespace yardsticks

#endif
