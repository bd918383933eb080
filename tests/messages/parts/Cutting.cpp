// Texts and data cut into the user data of messages.
#include <set>

#include <gtest/gtest.h>

#include "Messages/Parts.h"
#include "messages/Readings.h"

namespace {

using namespace Messages;
using tests::Times;

CutOptions WithReference(std::uint16_t reference, bool isWide = false) {
    CutOptions options;
    options.reference = reference;
    options.choice.room.hasWideReference = isWide;
    return options;
}

/// The octets of a header and what comes next of each part, "TP-UDL HEADER".
std::string HeaderOf(const UserData& part) {
    return std::to_string(part.length) + ' ' + ToHex(OctetView(part.octets).Sub(0, part.textOffset));
}

TEST(CutText, IsWholeWhereItFits) {
    const CutText cut = CutIntoParts("Hello");
    EXPECT_FALSE(cut.fault);
    ASSERT_EQ(cut.parts.size(), 1U);
    EXPECT_EQ(ToHex(cut.parts[0].octets), "C8329BFD06");
    EXPECT_FALSE(cut.parts[0].hasHeader);
    EXPECT_EQ(cut.parts[0].text, "Hello");
    EXPECT_EQ(cut.coding.value, 0x00);
    EXPECT_EQ(cut.offsets, std::vector<std::size_t>{0});
    EXPECT_EQ(CutIntoParts("").parts.size(), 1U);
}

TEST(CutText, HasAConcatenationInEachOfSeveralParts) {
    const CutText narrow = CutIntoParts(Times(161, "a"), WithReference(0x2A));
    ASSERT_EQ(narrow.parts.size(), 2U);
    EXPECT_EQ(HeaderOf(narrow.parts[0]), "160 0500032A0201");
    EXPECT_EQ(HeaderOf(narrow.parts[1]), "15 0500032A0202");
    EXPECT_EQ(narrow.parts[0].text, Times(153, "a"));
    EXPECT_EQ(narrow.parts[1].text, Times(8, "a"));
    const CutText wide = CutIntoParts(Times(161, "a"), WithReference(0xABCD, true));
    EXPECT_EQ(HeaderOf(wide.parts[0]), "160 060804ABCD0201");
    EXPECT_EQ(HeaderOf(wide.parts[1]), "17 060804ABCD0202");
}

TEST(CutText, CutsNoPair) {
    const CutText septets = CutIntoParts(Times(152, "a") + "€" + Times(10, "a"), WithReference(1));
    ASSERT_EQ(septets.parts.size(), 2U);
    EXPECT_EQ(septets.parts[0].text, Times(152, "a"));
    EXPECT_EQ(septets.parts[1].text, "€" + Times(10, "a"));
    EXPECT_EQ(septets.offsets, (std::vector<std::size_t>{0, 152}));
    const CutText units = CutIntoParts(Times(66, "ş") + "😀" + Times(4, "ş"), WithReference(1));
    ASSERT_EQ(units.parts.size(), 2U);
    EXPECT_EQ(units.parts[1].text, "😀şşşş");
    EXPECT_EQ(units.coding.value, 0x08);
}

TEST(CutText, HasPortsElementsAndLanguagesInEachPart) {
    CutOptions options = WithReference(7);
    options.ports = Ports{true, 5000, 0x13AD};
    options.elements = {0x70, 0x01, 0xFF};
    options.choice.languages = {Language::Turkish, Language::Spanish};
    const CutText cut = CutIntoParts(Times(200, "ş") + "Á", options);
    ASSERT_EQ(cut.parts.size(), 2U);
    EXPECT_EQ(HeaderOf(cut.parts[0]).substr(4), "1400030702010504138813AD7001FF240102250101");
    EXPECT_EQ(HeaderOf(cut.parts[1]).substr(3, 12), "140003070202");
    EXPECT_EQ(cut.parts[0].text + cut.parts[1].text, Times(200, "ş") + "Á");
    EXPECT_EQ(cut.parts[1].ports, options.ports);
    options.ports = Ports{false, 240, 241};
    options.elements.clear();
    EXPECT_EQ(HeaderOf(CutIntoParts("a", options).parts[0]), "7 040402F0F1") << "8 bits";
}

/// Text that is its own septets in most tables.
TEST(CutText, OfPlainCharactersGoesEachWay) {
    CutOptions ucs2;
    ucs2.choice.alphabet = Alphabet::Ucs2;
    const CutText units = CutIntoParts("Hi", ucs2);
    ASSERT_EQ(units.parts.size(), 1U);
    EXPECT_EQ(ToHex(units.parts[0].octets), "00480069");
    EXPECT_EQ(units.parts[0].text, "Hi");
    EXPECT_EQ(units.coding.value, 0x08);

    CutOptions hindi; // which has no capitals
    hindi.choice.tables = SeptetTables{Language::Hindi, Language::Default};
    const CutText septets = CutIntoParts("abc", hindi);
    ASSERT_EQ(septets.parts.size(), 1U);
    EXPECT_EQ(ToHex(septets.parts[0].octets), "03250106088BC7");
    EXPECT_EQ(septets.parts[0].length, 8);
    EXPECT_EQ(septets.parts[0].text, "abc");
}

/// How the text is read decides what it is: elements of the caller's may turn it into another.
TEST(CutText, IsWhatTheElementsOfTheCallerMakeOfIt) {
    CutOptions options;
    options.elements = {0x25, 0x01, 0x01}; // septet 4 is a euro sign in Turkish
    const CutText cut = CutIntoParts("è", options);
    ASSERT_EQ(cut.parts.size(), 1U);
    EXPECT_EQ(ToHex(cut.parts[0].octets), "032501012000");
    EXPECT_EQ(cut.parts[0].text, "€");
    EXPECT_EQ(cut.parts[0].tables.locking, Language::Turkish);
}

TEST(CutText, HasTheClassThatIsAskedFor) {
    CutOptions options;
    options.messageClass = 0;
    EXPECT_EQ(CutIntoParts("a", options).coding.value, 0x10);
    EXPECT_EQ(CutIntoParts("中", options).coding.value, 0x18);
    options.messageClass = 3;
    EXPECT_EQ(CutIntoParts(OctetView(), options).coding.value, 0x17);
}

TEST(CutText, TakesARandomReferenceWhereNoneIsGiven) {
    std::set<int> references;
    CutOptions options;
    options.choice.room.hasWideReference = true;
    for (int i = 0; i < 20; ++i)
        references.insert(CutIntoParts(Times(161, "a"), options).parts[0].concatenation->reference);
    EXPECT_GT(references.size(), 10U);
    options.choice.room.hasWideReference = false;
    const CutText cut = CutIntoParts(Times(161, "a"), options);
    EXPECT_EQ(cut.parts[0].concatenation->reference, cut.parts[1].concatenation->reference);
    EXPECT_LE(cut.parts[0].concatenation->reference, 255);
}

std::string FaultOf(const CutText& cut) {
    EXPECT_TRUE(cut.parts.empty());
    if (!cut.fault)
        return "none";
    return std::to_string(static_cast<int>(cut.fault->code)) + ' ' + std::to_string(cut.fault->offset) + ' ' +
           std::to_string(static_cast<std::uint32_t>(cut.fault->character));
}

TEST(CutText, FaultsSayWhatAndWhere) {
    CutOptions options = WithReference(1);
    EXPECT_EQ(FaultOf(CutIntoParts("ab\xFF", options)), "0 2 0");
    options.choice.alphabet = Alphabet::Gsm7;
    EXPECT_EQ(FaultOf(CutIntoParts("aş", options)), "1 1 351");
    EXPECT_EQ(CutIntoParts(Times(153 * 255, "a"), options).parts.size(), 255U);
    EXPECT_EQ(FaultOf(CutIntoParts(Times(153 * 255 + 1, "a"), options)), "3 0 0");
    options.elements.resize(139);
    EXPECT_EQ(FaultOf(CutIntoParts("a", options)), "2 0 0");
    EXPECT_EQ(FaultOf(CutIntoParts(Times(161, "a"), WithReference(256))), "4 0 0");
    EXPECT_EQ(CutIntoParts("a", WithReference(256)).parts.size(), 1U) << "one part has no reference";
}

TEST(CutText, NearCharactersWhereTheyAreCheaper) {
    CutOptions options;
    options.replacesNear = true;
    const CutText cut = CutIntoParts("It’s…", options);
    EXPECT_EQ(cut.text, "It's...");
    EXPECT_EQ(cut.coding.value, 0x00);
    ASSERT_EQ(cut.replacements.size(), 2U);
    EXPECT_EQ(cut.replacements[1].offset, 6U);
    const CutText useless = CutIntoParts("It’s…😀", options);
    EXPECT_EQ(useless.text, "It’s…😀") << "UCS2 all the same, and no shorter";
    EXPECT_TRUE(useless.replacements.empty());
    const CutText shorter = CutIntoParts("“e\u0301…”\u200B😀e\u0301", options);
    EXPECT_EQ(shorter.text, "“é…”😀é") << "UCS2 all the same, but shorter";
    EXPECT_EQ(shorter.choice.units, 7U);
    ASSERT_EQ(shorter.replacements.size(), 3U);
    EXPECT_EQ(shorter.replacements[1].offset, 12U);
    EXPECT_EQ(shorter.replacements[2].replacement, "é");
    options.choice.alphabet = Alphabet::Gsm7;
    EXPECT_EQ(CutIntoParts("“a”", options).text, "\"a\"");
    EXPECT_EQ(FaultOf(CutIntoParts("“😀”", options)), "1 3 128512") << "the first that nothing is near";
    EXPECT_EQ(FaultOf(CutIntoParts("a“b”😀😀…", options)), "1 8 128512");
    EXPECT_EQ(FaultOf(CutIntoParts("e\u0301¼\u200Bж", options)), "1 8 1078")
        << "those before it are longer or shorter";
    EXPECT_EQ(FaultOf(CutIntoParts("“ж”\xFF", options)), "0 8 0");
}

TEST(CutData, OfEveryRoom) {
    const std::vector<std::uint8_t> octets(400, 0xA5);
    const auto partsOf = [&](std::size_t count, const CutOptions& options) {
        const CutText cut = CutIntoParts(OctetView(octets).Sub(0, count), options);
        std::string sizes;
        for (const UserData& part : cut.parts)
            sizes += std::to_string(part.Content().size()) + ' ';
        EXPECT_EQ(cut.coding.value, 0x04);
        return sizes;
    };
    CutOptions options = WithReference(1);
    EXPECT_EQ(partsOf(0, options), "0 ");
    EXPECT_EQ(partsOf(140, options), "140 ");
    EXPECT_EQ(partsOf(141, options), "134 7 ");
    EXPECT_EQ(partsOf(269, options), "134 134 1 ");
    options.choice.room.hasWideReference = true;
    EXPECT_EQ(partsOf(141, options), "133 8 ");
    options.ports = Ports{true, 1, 2};
    EXPECT_EQ(partsOf(133, options), "133 ");
    EXPECT_EQ(partsOf(134, options), "127 7 ");
    options.choice.room.hasWideReference = false;
    EXPECT_EQ(partsOf(134, options), "128 6 ");
}

TEST(CutText, NearCharactersInTablesThatAreForced) {
    CutOptions options;
    options.replacesNear = true;
    EXPECT_EQ(CutIntoParts("a", options).text, "a");
    options.choice.tables = {Language::Turkish, Language::Default};
    EXPECT_EQ(CutIntoParts("“ş”", options).text, "\"ş\"");
    options.choice.tables = {Language::Hindi, Language::Default};
    EXPECT_EQ(FaultOf(CutIntoParts("…№", options)), "1 3 8470") << "there is no N in the tables";
}

TEST(CutData, WithoutRoomIsAFault) {
    CutOptions options;
    options.elements.resize(139);
    EXPECT_EQ(FaultOf(CutIntoParts(OctetView(options.elements), options)), "2 0 0");
    EXPECT_EQ(CutIntoParts(OctetView(), options).parts.size(), 1U);
    options.elements.resize(140);
    EXPECT_EQ(FaultOf(CutIntoParts(OctetView(), options)), "2 0 0") << "not even for the header";
}

} // namespace
