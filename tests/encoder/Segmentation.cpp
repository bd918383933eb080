// The choice of the alphabet, and the cutting of texts.
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "encoder/OpenEncoder.h"
#include "support/Allocations.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::OpenEncoder;
using tests::Wide;

TString<wchar_t> Repeat(std::size_t count, unsigned int unit) {
    return TString<wchar_t>(count, static_cast<wchar_t>(unit));
}

TEST(GetPduCount, AlphabetCapacityAndParts) {
    const struct {
        const char* what;
        TString<wchar_t> text;
        unsigned int parts;
        int alphabet;
        unsigned int capacity;
        unsigned int septets;
    } rows[] = {
        {"empty", L"", 1, 2, 140, 0},
        {"1 septet", L"a", 1, 0, 160, 1},
        {"160 septets", Repeat(160, 'a'), 1, 0, 160, 160},
        {"161 septets", Repeat(161, 'a'), 2, 0, 153, 161},
        {"306 septets", Repeat(306, 'a'), 2, 0, 153, 306},
        {"307 septets", Repeat(307, 'a'), 3, 0, 153, 307},
        {"255 parts", Repeat(39015, 'a'), 255, 0, 153, 39015},
        {"256 parts", Repeat(39016, 'a'), 256, 0, 153, 39016},
        {"80 extension characters", Repeat(80, 0x20AC), 1, 0, 160, 160},
        {"81 extension characters", Repeat(81, 0x20AC), 2, 0, 153, 162},
        {"70 characters", Repeat(70, 0x4E2D), 1, 2, 70, 0},
        {"71 characters", Repeat(71, 0x4E2D), 2, 2, 67, 0},
        {"134 characters", Repeat(134, 0x4E2D), 2, 2, 67, 0},
        {"135 characters", Repeat(135, 0x4E2D), 3, 2, 67, 0},
        {"255 parts of UCS2", Repeat(17085, 0x4E2D), 255, 2, 67, 0},
        {"256 parts of UCS2", Repeat(17086, 0x4E2D), 256, 2, 67, 0},
        {"one character without a code", Repeat(10, 'a') + Wide({0x4E2D}), 1, 2, 70, 10},
        {"diaeresis would come back as a space", Wide({'a', 0xA8}), 1, 2, 70, 2},
        {"U+0000 would not come back", Wide({'a', 0}), 1, 2, 70, 2},
        {"above U+FFFF", Wide({0x10041}), 1, 2, 70, 1},
        {"small c with cedilla", Wide({0xE7}), 1, 0, 160, 1},
        {"capital C with cedilla", Wide({0xC7}), 1, 2, 70, 0},
        {"Greek capitals of the alphabet", Wide({0x394, 0x3A9}), 1, 0, 160, 2},
        {"Greek small letters", Wide({0x3B1, 0x3B2}), 1, 2, 70, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        OpenEncoder encoder;
        EXPECT_EQ(encoder.GetPduCount(row.text), row.parts);
        EXPECT_EQ(encoder.m_Alphabet, row.alphabet);
        EXPECT_EQ(encoder.m_PartCapacity, row.capacity);
        EXPECT_EQ(encoder.m_GsmLength, row.septets);
        EXPECT_EQ(encoder.m_WorkText, row.text);
        EXPECT_EQ(tests::CountOf(encoder.m_CharSet), 1);
    }
}

/// One character decides, wherever it stands.
TEST(GetPduCount, EveryCharacterAtEveryPlaceChoosesTheAlphabet) {
    const struct {
        unsigned int character;
        int alphabet;
    } rows[] = {{0x61, 0}, {0x40, 0},  {0x7B, 0},   {0x20AC, 0},  {0x3A9, 0},
                {0xE7, 0}, {0x00, 2},  {0x1B, 2},   {0xA8, 2},    {0xC7, 2},
                {0x60, 2}, {0x3B1, 2}, {0x4E2D, 2}, {0x10061, 2}, {0x80000061, 2}};
    for (const unsigned int filler : {0x61U, 0x65U, 0x24U, 0x7EU}) { // 0x65 after an escape is the euro sign
        OpenEncoder encoder;
        for (const auto& row : rows) {
            for (const std::size_t length : {1U, 2U, 15U, 16U, 17U, 31U, 33U, 40U}) {
                for (std::size_t place = 0; place < length; ++place) {
                    TString<wchar_t> text = Repeat(length, filler);
                    text[place] = static_cast<wchar_t>(row.character);
                    EXPECT_EQ(encoder.GetPduCount(text), 1U);
                    ASSERT_EQ(encoder.m_Alphabet, row.alphabet)
                        << row.character << " at " << place << " of " << length;
                }
            }
        }
    }
}

TEST(GetPduCount, LeavesTheTextAsGsmCodes) {
    OpenEncoder encoder;
    encoder.GetPduCount(Wide({'a', 0x20AC, '@'}));
    ASSERT_EQ(encoder.m_GsmLength, 4U);
    EXPECT_EQ(tests::Hex(encoder.m_GsmBytes.get(), 5), "61 1B 65 00 00") << "and a spare zero";
    encoder.GetPduCount(Wide({0x4E2D}));
    EXPECT_EQ(encoder.m_GsmLength, 0U);
    EXPECT_EQ(encoder.m_GsmBytes.get(), nullptr);
}

TEST(GetPduCount, EmptyTextKeepsTheOldCodes) {
    OpenEncoder encoder;
    encoder.GetPduCount(L"abc");
    EXPECT_EQ(encoder.GetPduCount(L""), 1U);
    EXPECT_EQ(encoder.m_PartCapacity, 140U);
    EXPECT_EQ(encoder.m_Alphabet, 2);
    EXPECT_EQ(encoder.m_GsmLength, 3U);
    EXPECT_EQ(encoder.m_WorkText, L"");
}

TEST(GetPduCount, TransliteratedTextGoesOutAsGsm) {
    OpenEncoder encoder;
    encoder.AddTranslateTable(TranslateTable::GREEK);
    EXPECT_EQ(encoder.GetPduCount(Wide({0x3B1, 0x3C3, 'x'})), 1U);
    EXPECT_EQ(encoder.m_Alphabet, 0);
    EXPECT_EQ(encoder.m_WorkText, Wide({'A', 0x3A3, 'x'}));
    EXPECT_EQ(encoder.GetPduCount(Repeat(161, 0x3B1)), 2U);
    EXPECT_EQ(encoder.m_PartCapacity, 153U);
}

TEST(GetPduCount, TransliterationTakesUnmappableCharactersWithIt) {
    OpenEncoder encoder;
    encoder.AddTranslateTable(TranslateTable::GREEK);
    encoder.GetPduCount(Wide({0x3B1, 0x4E2D, 'x'}));
    EXPECT_EQ(encoder.m_Alphabet, 0);
    EXPECT_EQ(encoder.m_WorkText, L"Ax");
    encoder.GetPduCount(Wide({0x4E2D, 'x'}));
    EXPECT_EQ(encoder.m_Alphabet, 2) << "nothing was transliterated";
    EXPECT_EQ(encoder.m_WorkText, Wide({0x4E2D, 'x'}));
}

TEST(GetPduCount, TableOfValueZeroSendsTextWithoutTransliterationAsItSurvives) {
    OpenEncoder encoder;
    encoder.AddTranslateTable(static_cast<TranslateTable::TT>(0));
    EXPECT_EQ(encoder.GetPduCount(Wide({'a', 0x4E2D, 'b'})), 1U);
    EXPECT_EQ(encoder.m_Alphabet, 0);
    EXPECT_EQ(encoder.m_WorkText, L"ab");
    encoder.GetPduCount(Wide({0x4E2D}));
    EXPECT_EQ(encoder.m_Alphabet, 2) << "nothing is left to be sent as GSM";
    encoder.AddTranslateTable(TranslateTable::GREEK);
    encoder.GetPduCount(Wide({0x3B1, 0x4E2D}));
    EXPECT_EQ(encoder.m_WorkText, L"A");
    encoder.ClearTranslateTable();
    encoder.AddTranslateTable(static_cast<TranslateTable::TT>(2));
    encoder.GetPduCount(Wide({'a', 0x4E2D}));
    EXPECT_EQ(encoder.m_Alphabet, 2) << "no other table does";
}

TEST(GetPduCount, AllocatesOneBufferForTheCodes) {
    OpenEncoder encoder;
    const TString<wchar_t> text = Repeat(160, 'a');
    encoder.GetPduCount(text);
    const unsigned long before = tests::Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    encoder.GetPduCount(text);
    const unsigned long all = tests::AllocatedBytes() - bytes;
    EXPECT_EQ(tests::Allocations() - before, 2U) << "the codes, and the text that comes back";
    const unsigned long back = tests::AllocatedBytes();
    encoder.m_CharSet->GsmToUnicode(encoder.m_GsmBytes.get(), encoder.m_GsmLength);
    EXPECT_EQ(all - (tests::AllocatedBytes() - back), 161U) << "one octet a septet, and a spare one";
}

/// Octets that programs can have, those that only cache files among them; where the system does not tell,
/// those that nothing uses.
long long AvailableMemory() {
    std::ifstream info("/proc/meminfo");
    for (std::string name, unit; info >> name; std::getline(info, unit)) {
        long long kibibytes = 0;
        if (name == "MemAvailable:" && info >> kibibytes)
            return kibibytes << 10;
    }
    return static_cast<long long>(sysconf(_SC_AVPHYS_PAGES)) * sysconf(_SC_PAGESIZE);
}

TEST(GetPduCount, TextTooLongForASigned32BitSizeGivesZero) {
    if (sizeof(void*) == 4)
        GTEST_SKIP() << "no text of 2^29 characters fits a 32-bit address space";
    constexpr long long needed = 6LL << 30; // the text, its copy in the encoder, and room for others
    if (AvailableMemory() < needed)
        GTEST_SKIP() << "6 GiB of memory are not free here";
    const TString<wchar_t> text(std::size_t{1} << 29, L'a');
    OpenEncoder encoder;
    EXPECT_EQ(encoder.GetPduCount(text), 0U);
    EXPECT_EQ(encoder.m_PartCapacity, 140U);
    EXPECT_EQ(encoder.m_Alphabet, 2);
    EXPECT_EQ(encoder.m_GsmBytes.get(), nullptr);
}

struct Cut {
    int result;
    unsigned int length = 99;
    std::unique_ptr<unsigned char[]> octets;

    Cut(const TString<wchar_t>& text, unsigned int start, unsigned int count) {
        OpenEncoder encoder;
        unsigned char seven = 7;
        unsigned char* bytes = &seven;
        result = encoder.GetSubString(text, start, count, &length, &bytes);
        octets.reset(bytes);
    }
};

TEST(GetSubString, WritesTwoOctetsACharacterHighOneFirst) {
    const struct {
        TString<wchar_t> text;
        unsigned int start;
        unsigned int count;
        const char* octets; // with the two spare ones
    } rows[] = {
        {L"AB", 0, 2, "00 41 00 42 00 00"},
        {L"AB", 1, 1, "00 42 00 00"},
        {L"AB", 0, 1, "00 41 00 00"},
        {Wide({0x20AC, 0x12345, 0xFFFF}), 0, 3, "20 AC 23 45 FF FF 00 00"},
        {Wide({0xD83D, 0xDE00}), 0, 2, "D8 3D DE 00 00 00"},
        {L"AB", 1, 3, "00 42 00 00 00 00 00 00"}, // past the end
    };
    for (const auto& row : rows) {
        const Cut cut(row.text, row.start, row.count);
        EXPECT_EQ(cut.result, 1);
        EXPECT_EQ(cut.length, 2 * row.count);
        EXPECT_EQ(tests::Hex(cut.octets.get(), cut.length + 2), row.octets);
    }
}

TEST(GetSubString, FailsForNothingToCut) {
    const struct {
        const wchar_t* text;
        unsigned int start;
        unsigned int count;
    } rows[] = {{L"", 0, 1},  {L"", 0, 0}, {L"AB", 2, 1}, {L"AB", 3, 1}, {L"AB", 0xFFFFFFFF, 1},
                {L"AB", 0, 0}};
    for (const auto& row : rows) {
        const Cut cut(row.text, row.start, row.count);
        EXPECT_EQ(cut.result, 0);
        EXPECT_EQ(cut.length, 0U);
        EXPECT_EQ(cut.octets.get(), nullptr);
    }
}

TEST(GetSubString, AllocatesTheOctetsAndTwoSpareOnes) {
    OpenEncoder encoder;
    const TString<wchar_t> text = L"AB";
    const unsigned long before = tests::Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    unsigned int length = 0;
    unsigned char* octets = nullptr;
    encoder.GetSubString(text, 0, 2, &length, &octets);
    EXPECT_EQ(tests::Allocations() - before, 1U);
    EXPECT_EQ(tests::AllocatedBytes() - bytes, 6U);
    delete[] octets;
}

TEST(GetSubString, CountThatNoMemoryHoldsThrows) {
    OpenEncoder encoder;
    unsigned int length = 99;
    unsigned char* octets = nullptr;
    EXPECT_THROW(encoder.GetSubString(L"AB", 0, 0xFFFFFFFF, &length, &octets), std::bad_alloc);
    EXPECT_EQ(octets, nullptr);
    EXPECT_EQ(length, 0U);
}

} // namespace
