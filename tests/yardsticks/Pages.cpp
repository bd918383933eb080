// Cell broadcast pages: what libQX_Messages reads, beside what the dissector reads.
#include <iostream>
#include <map>

#include <gtest/gtest.h>

#include "Dissector.h"
#include "Messages/Cell.h"
#include "reference/Random.h"
#include "support/Bits.h"

namespace yardsticks {
namespace {

using reference::Random;
using tests::Bytes;
using tests::operator+;

constexpr unsigned char c_return = 0x0D;
constexpr unsigned char c_escape = 0x1B;

/// Where tshark 4.0 reads another text, and why.
enum class Named {
    Nothing,
    LanguageInSeptets,
    LanguageInUnits,
    Header,
    NoText,
    ReservedAsUcs2,
    ReservedUnread
};
const std::map<Named, const char*> c_reasons = {
    {Named::LanguageInSeptets,
     "the language and its return before septets: tshark 4.0 leaves them in the text"},
    {Named::LanguageInUnits, "the language before UCS2: tshark 4.0 reads a character of its two octets"},
    {Named::Header, "a user-data header in the page: tshark 4.0 reads it as text"},
    {Named::NoText, "octets, or a compressed text: tshark 4.0 reads them as text"},
    {Named::ReservedAsUcs2,
     "reserved codings 12 to 1F: tshark 4.0 reads UCS2; by TS 23.038 they are GSM 7-bit"},
    {Named::ReservedUnread,
     "another reserved coding: tshark 4.0 shows no text; by TS 23.038 it is GSM 7-bit"}};

Named DifferenceOf(const Messages::CellCoding& coding) {
    using Group = Messages::CellCodingGroup;
    const bool isUcs2 = coding.alphabet == Messages::Alphabet::Ucs2;
    if (coding.group == Group::LanguageInText)
        return isUcs2 ? Named::LanguageInUnits : Named::LanguageInSeptets;
    if (coding.hasHeader)
        return Named::Header;
    if (!coding.HasText())
        return Named::NoText;
    if (coding.value >= 0x12 && coding.value <= 0x1F)
        return Named::ReservedAsUcs2;
    const bool isReservedAlphabet = coding.group == Group::General && (coding.value & 0x0C) == 0x0C;
    const bool isReservedGroup = coding.group == Group::Reserved && coding.value >= 0x80;
    return isReservedAlphabet || isReservedGroup ? Named::ReservedUnread : Named::Nothing;
}

/// Septets of text, and padding up to so many.
Bytes RandomSeptets(Random& random, std::size_t count) {
    static const Bytes extension = {0x0A, 0x14, 0x28, 0x29, 0x2F, 0x3C, 0x3D, 0x3E, 0x40, 0x65};
    Bytes septets;
    const std::uint32_t length = random.Below(static_cast<std::uint32_t>(count) + 1);
    while (septets.size() < length) {
        const auto septet = static_cast<unsigned char>(random.Below(128));
        if (septet != c_escape && septet != c_return)
            septets.push_back(septet);
        else if (septets.size() + 2 <= length) {
            septets.push_back(c_escape);
            septets.push_back(random.Of(extension));
        }
    }
    if (length == count && septets.back() == 0)
        septets.back() = 'a'; // zeros that fill a page are text to tshark
    septets.resize(count, c_return);
    return septets;
}

/// UCS2 units of text, and padding up to so many.
Bytes RandomUnits(Random& random, std::size_t count) {
    const std::uint32_t length = random.Below(static_cast<std::uint32_t>(count) + 1);
    Bytes octets;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t letter =
            random.Chance(50) ? random.Between(0x20, 0x24F) : random.Between(0x4E00, 0x9FFF);
        const std::uint32_t unit = i < length ? letter : c_return;
        octets.push_back(static_cast<unsigned char>(unit >> 8));
        octets.push_back(static_cast<unsigned char>(unit & 0xFF));
    }
    return octets;
}

Bytes RandomContent(Random& random, const Messages::CellCoding& coding) {
    constexpr std::size_t pageSeptets = 93;
    constexpr std::size_t pageUnits = 41;
    const bool hasLanguage = coding.group == Messages::CellCodingGroup::LanguageInText;
    if (coding.alphabet == Messages::Alphabet::Ucs2)
        return hasLanguage ? tests::LayBits({'r', 'u'}, 0) + RandomUnits(random, pageUnits - 1)
                           : RandomUnits(random, pageUnits);
    if (hasLanguage)
        return tests::LayBits(Bytes{'e', 'n', c_return} + RandomSeptets(random, pageSeptets - 3), 0);
    return tests::LayBits(RandomSeptets(random, pageSeptets), 0);
}

/// A page of 88 octets, half of them in codings that say how their text is to be read.
Bytes RandomPage(Random& random) {
    static const Bytes usual = {0x00, 0x01, 0x0F, 0x22, 0x40, 0x48, 0x50, 0x5A, 0xF0, 0xF1};
    const std::uint32_t total = random.Between(1, 15);
    const auto parameter = static_cast<unsigned char>(random.Between(1, total) << 4 | total);
    const unsigned char dcs = random.Chance(50) ? random.Of(usual) : random.Octet();
    return Bytes{random.Octet(), random.Octet(), random.Octet(), random.Octet(), dcs, parameter} +
           RandomContent(random, Messages::CellCoding(dcs));
}

std::u32string Expected(Named difference, const std::u32string& theirs) {
    if (difference == Named::LanguageInSeptets) // of an empty text the return is padding to them
        return theirs == U"en" ? U"" : theirs.substr(theirs.rfind(U"en\r", 0) == 0 ? 3 : 0);
    return difference == Named::LanguageInUnits ? theirs.substr(theirs.empty() ? 0 : 1) : theirs;
}

TEST(Yardsticks, CellBroadcastPageIsReadAlikeByTheStandard) {
    Random random(Seed());
    std::vector<Bytes> pages(MessageCount());
    for (Bytes& page : pages)
        page = RandomPage(random);
    const std::vector<Fields> dissected = DissectCellBroadcast(pages);
    std::map<Named, unsigned int> counts;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        SCOPED_TRACE(tests::Hex(pages[i]));
        const Messages::CellReading reading = Messages::ReadCell(pages[i], Messages::CellFormat::GsmPage);
        const Fields& fields = dissected[i];
        EXPECT_EQ(Number(fields, "serial_number"), reading.serialNumber.value);
        EXPECT_EQ(Number(fields, "geographic_scope"), static_cast<long>(reading.serialNumber.Scope()));
        EXPECT_EQ(Number(fields, "message_code"), reading.serialNumber.MessageCode());
        EXPECT_EQ(Number(fields, "update_number"), reading.serialNumber.UpdateNumber());
        EXPECT_EQ(Number(fields, "message-identifier"), reading.messageIdentifier);
        EXPECT_EQ(Number(fields, "current_page"), reading.pages.at(0).number);
        EXPECT_EQ(Number(fields, "total_pages"), reading.total);
        const Named difference = DifferenceOf(reading.coding);
        ++counts[difference];
        if (difference == Named::NoText) {
            EXPECT_EQ(reading.text, "");
        } else if (difference == Named::ReservedUnread) {
            EXPECT_EQ(Text(fields, "page_content"), U"");
        } else if (difference != Named::Header && difference != Named::ReservedAsUcs2) {
            EXPECT_EQ(Expected(difference, Text(fields, "page_content")), CodePoints(reading.text));
        }
        ASSERT_FALSE(testing::Test::HasFailure());
    }
    for (const auto& [difference, reason] : c_reasons)
        std::cout << counts[difference] << " times " << reason << '\n';
}

} // namespace
} // namespace yardsticks
