#include "Messages/Alphabet.h"

#include <algorithm>

#include "alphabet/Packing.h"
#include "alphabet/Text.h"
#include "tables/Values.h"
#include "wire/SeptetGroups.h"

namespace Messages {
namespace {

/// Units of text that are written before they are appended.
constexpr std::size_t c_unitsAtOnce = 512;
using TextBuffer = std::array<char, c_unitsAtOnce * c_mostUtf8OfUnit + c_utf8Slack>;

constexpr auto c_pass = [](RemarkCode, unsigned int, std::size_t) {};

const Tables::LanguageRow* Find(Language language) noexcept {
    const auto* const row =
        std::find_if(std::begin(Tables::c_languages), std::end(Tables::c_languages),
                     [&](const auto& one) { return one.value == static_cast<int>(language); });
    return row == std::end(Tables::c_languages) ? nullptr : row;
}

/// Septets from `at` on whose text is made at once: no pair is cut.
OctetView NextRun(OctetView septets, std::size_t at) {
    const OctetView run = septets.Sub(at, c_unitsAtOnce - 1);
    if (at + run.size() == septets.size())
        return run;
    return septets.Sub(at, run.size() + (EndsInEscape(run) ? 1 : 0));
}

} // namespace

bool HasLockingTable(Language language) noexcept {
    const Tables::LanguageRow* const row = Find(language);
    return language == Language::Default || (row != nullptr && row->hasLocking);
}

bool HasSingleShiftTable(Language language) noexcept {
    const Tables::LanguageRow* const row = Find(language);
    return language == Language::Default || (row != nullptr && row->hasSingle);
}

char16_t LockingCharacter(Language language, std::uint8_t septet) noexcept {
    return LockingTable(language).characters[septet];
}

char16_t SingleShiftCharacter(Language language, std::uint8_t septet) noexcept {
    const char16_t character = SingleShiftTable(language).characters[septet];
    return character == Tables::Character::c_control ? u'\0' : character;
}

std::size_t UnpackSeptets(OctetView packed, unsigned int firstBit, std::size_t count,
                          std::uint8_t* septets) noexcept {
    if (packed.empty())
        return 0;
    count = std::min(count, SeptetsIn(packed.size(), firstBit));
    std::size_t groups = count / Wire::c_groupSeptets;
    if (packed.size() < Wire::c_groupReach)
        groups = 0;
    else
        groups = std::min(groups, (packed.size() - Wire::c_groupReach) / Wire::c_groupOctets + 1);
    const Wire::SeptetGroups& ways = Wire::FastestGroups();
    ways.unpack(packed.data(), firstBit, groups, septets);

    // What is left is one group, which stands too near to the end to be read as one.
    const std::size_t done = groups * Wire::c_groupSeptets;
    const OctetView rest = packed.Sub(groups * Wire::c_groupOctets, Wire::c_groupReach);
    std::array<std::uint8_t, Wire::c_groupReach> octets{};
    std::array<std::uint8_t, Wire::c_groupSeptets> last{};
    std::copy(rest.begin(), rest.end(), octets.begin());
    ways.unpack(octets.data(), firstBit, 1, last.data());
    std::copy_n(last.begin(), count - done, septets + done);
    return count;
}

void AppendSeptetText(OctetView septets, SeptetTables tables, std::string& text) {
    TextBuffer buffer;
    for (std::size_t at = 0; at < septets.size();) {
        const OctetView run = NextRun(septets, at);
        text.append(buffer.data(), WriteSeptetText(run, tables, buffer.data(), c_pass));
        at += run.size();
    }
}

void AppendUcs2Text(OctetView octets, std::string& text) {
    constexpr std::size_t unitOctets = 2;
    TextBuffer buffer;
    for (std::size_t at = 0; at + 1 < octets.size();) {
        OctetView run = octets.Sub(at, c_unitsAtOnce * unitOctets);
        // The first half of a pair is left to the next run.
        if (run.size() == c_unitsAtOnce * unitOctets && (run[run.size() - unitOctets] & 0xFC) == 0xD8)
            run = run.Sub(0, run.size() - unitOctets);
        text.append(buffer.data(), WriteUcs2Text(run, buffer.data(), c_pass));
        at += run.size();
    }
}

} // namespace Messages
