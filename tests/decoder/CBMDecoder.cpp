// Cell broadcast pages.
#include "Encoding/CBMDecoder.h"

#include <new>
#include <random>

#include <gtest/gtest.h>

#include "decoder/Record.h"
#include "support/Allocations.h"
#include "support/Bits.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::MakePdu;
using tests::operator+;
using tests::Octets;

const Bytes c_header = Octets("12 34 11 12 48 21");

/// The text of a page whose content holds these septets from its beginning, in `octets` content octets.
TString<wchar_t> Decode(const Bytes& septets, std::size_t octets) {
    Bytes content = tests::LayBits(septets, 0);
    content.resize(octets);
    CBMDecoder decoder;
    EXPECT_TRUE(decoder.Decode(MakePdu(c_header + content)));
    return decoder.m_Text;
}

Bytes Septets(std::string_view text) {
    return Bytes(text.begin(), text.end());
}

TEST(CBMDecoder, MembersStartAtZero) {
    const CBMDecoder decoder;
    EXPECT_EQ(decoder.m_SerialNumber, 0);
    EXPECT_EQ(decoder.m_MessageIdentifier, 0);
    EXPECT_EQ(decoder.m_DataCodingScheme, 0);
    EXPECT_EQ(decoder.m_PageParameter, 0);
    EXPECT_LT(static_cast<const void*>(&decoder.m_CharSet),
              static_cast<const void*>(&decoder.m_SerialNumber));
    EXPECT_LT(&decoder.m_SerialNumber, &decoder.m_MessageIdentifier);
    EXPECT_LT(&decoder.m_DataCodingScheme, &decoder.m_PageParameter);
    EXPECT_LT(static_cast<const void*>(&decoder.m_MessageIdentifier),
              static_cast<const void*>(&decoder.m_DataCodingScheme));
}

TEST(CBMDecoder, KeepsTheHeaderRawAndReadsSeptetsWhateverTheSchemeSays) {
    CBMDecoder decoder;
    ASSERT_TRUE(decoder.Decode(MakePdu("12 34 AB CD 48 21 41 E1 10")));
    EXPECT_EQ(decoder.m_SerialNumber, 0x1234);
    EXPECT_EQ(decoder.m_MessageIdentifier, 0xABCD);
    EXPECT_EQ(decoder.m_DataCodingScheme, 0x48);
    EXPECT_EQ(decoder.m_PageParameter, 0x21);
    EXPECT_EQ(decoder.m_Text, L"ABC");
}

TEST(CBMDecoder, FullPagePaddedWithCarriageReturns) {
    EXPECT_EQ(Decode(Septets("ABC" + std::string(90, '\r')), 82), L"ABC");
}

TEST(CBMDecoder, ReadsAsManyCharactersAsContentOctets) {
    std::string visible;
    for (int i = 0; i < 93; ++i)
        visible += static_cast<char>('!' + i % 3);
    EXPECT_EQ(Decode(Septets(visible), 82), TString<wchar_t>(visible.begin(), visible.begin() + 82));
}

TEST(CBMDecoder, EightContentOctetsGiveTheTopOfTheSeventhAsEighthCharacter) {
    EXPECT_EQ(Decode(Septets("abcdefghi"), 8), L"abcdefgh");
    CBMDecoder decoder;
    ASSERT_TRUE(decoder.Decode(MakePdu("00 00 00 00 00 00 61 F1 98 5C 36 9F D1 FF")));
    EXPECT_EQ(decoder.m_Text, L"abcdefgh");
}

TEST(CBMDecoder, EveryContentLength) {
    for (std::size_t octets = 0; octets <= 82; ++octets) {
        std::string text;
        for (std::size_t i = 0; i < octets * 8 / 7; ++i)
            text += static_cast<char>('A' + i % 26);
        EXPECT_EQ(Decode(Septets(text), octets),
                  TString<wchar_t>(text.begin(), text.begin() + static_cast<long>(octets)))
            << octets;
    }
}

TEST(CBMDecoder, TrimsBlanksThenCarriageReturnsThenBlanksThenLineFeeds) {
    const struct {
        const char* page;
        const wchar_t* text;
    } rows[] = {
        {"abc", L"abc"},
        {" abc ", L"abc"},
        {"\r\rabc\r\r", L"abc"},
        {"\n\nabc\n\n", L"abc"},
        {"\n abc \n", L" abc "},
        {"abc \n", L"abc "},
        {"abc\r\n", L"abc\r"},
        {"\r\n abc \n\r", L" abc "},
        {"\r abc \r", L"abc"},
        {"a\rb\nc", L"a\rb\nc"},
        {"\r\r\r", L""},
        {"\n\n\n", L""},
        {"   ", L""},
        {" \r ", L""},
        {" \n ", L""},
        {"\r\n", L""},
        {"\n\r", L""},
        {"\n\rabc", L"\rabc"},
        {"\r \nabc", L"abc"},
        {"abc \r \n", L"abc \r "},
        {"\r \r abc", L"\r abc"},
        {"a", L"a"},
        {"\n", L""},
        {"", L""},
        {"abc\n\r", L"abc"},
        {"\r\nabc", L"abc"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.page);
        EXPECT_EQ(Decode(Septets(row.page), std::string_view(row.page).size()), row.text);
    }
}

/// Trimming as it is described, character by character.
std::string Trimmed(std::string text) {
    const auto isBlank = [](char c) { return c == ' '; };
    for (const char character : {'\r', '\n'}) {
        while (!text.empty() && isBlank(text.back()))
            text.pop_back();
        while (!text.empty() && isBlank(text.front()))
            text.erase(0, 1);
        while (!text.empty() && text.back() == character)
            text.pop_back();
        while (!text.empty() && text.front() == character)
            text.erase(0, 1);
    }
    return text;
}

TEST(CBMDecoder, TrimsRandomTextLikeAPlainReference) {
    std::mt19937 random(20261120);
    const std::string_view characters = "  \r\n\r\nab";
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (auto i = random() % 13; i != 0; --i)
            text += characters[random() % characters.size()];
        const std::string expected = Trimmed(text);
        ASSERT_EQ(Decode(Septets(text), text.size()), TString<wchar_t>(expected.begin(), expected.end()))
            << round;
    }
}

TEST(CBMDecoder, ExtensionPairsCountTwice) {
    EXPECT_EQ(Decode(Octets("41 1B 65 42"), 4), L"A€B");
    EXPECT_EQ(Decode(Octets("1B 65 1B 65 42"), 4), L"€€");
    EXPECT_EQ(Decode(Octets("41 1B 65"), 2), L"A") << "the escape is the last septet that is read";
    EXPECT_EQ(Decode(Octets("1B 0D 41 0D 1B 0A"), 6), L"A\r\f") << "an unknown pair loses its escape only";
}

TEST(CBMDecoder, WritesNoInheritedMemberButTheText) {
    CBMDecoder decoder;
    tests::MarkMembers(decoder);
    const std::vector<std::string> before = tests::Members(decoder);
    const GSMCharSet* const charSet = decoder.m_CharSet.get();
    ASSERT_TRUE(decoder.Decode(MakePdu("12 34 AB CD 48 21 41 E1 10")));
    EXPECT_EQ(tests::Changes(before, tests::Members(decoder)), "Text=ABC");
    EXPECT_EQ(decoder.m_CharSet.get(), charSet);
}

TEST(CBMDecoder, HeaderAloneGivesAnEmptyText) {
    CBMDecoder decoder;
    decoder.m_Text = L"before";
    EXPECT_TRUE(decoder.Decode(MakePdu(c_header)));
    EXPECT_EQ(decoder.m_Text, L"");
    EXPECT_EQ(decoder.m_PageParameter, 0x21);
}

TEST(CBMDecoder, NullChangesNothing) {
    CBMDecoder decoder;
    decoder.m_Text = L"before";
    decoder.m_SerialNumber = 7;
    EXPECT_FALSE(decoder.Decode(Toolkit::smart_ptr<Pdu>()));
    EXPECT_EQ(decoder.m_Text, L"before");
    EXPECT_EQ(decoder.m_SerialNumber, 7);
}

TEST(CBMDecoder, ShortAndEndlessPagesThrowWithTheHeaderWritten) {
    for (const unsigned int length : {0U, 1U, 5U, 0x80000006U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(length);
        const Toolkit::smart_ptr<Pdu> page = MakePdu(c_header);
        page->m_Length = length;
        CBMDecoder decoder;
        decoder.m_Text = L"before";
        const unsigned long bytes = tests::AllocatedBytes();
        EXPECT_THROW(decoder.Decode(page), std::bad_alloc);
        EXPECT_LT(tests::AllocatedBytes() - bytes, 4096U) << "the machine is not asked for gigabytes";
        EXPECT_EQ(decoder.m_SerialNumber, 0x1234);
        EXPECT_EQ(decoder.m_MessageIdentifier, 0x1112);
        EXPECT_EQ(decoder.m_DataCodingScheme, 0x48);
        EXPECT_EQ(decoder.m_PageParameter, 0x21);
        EXPECT_EQ(decoder.m_Text, L"before");
        EXPECT_EQ(tests::CountOf(page), 1);
    }
}

TEST(CBMDecoder, LongestContentIsAskedOfTheAllocator) {
    const Toolkit::smart_ptr<Pdu> page = MakePdu(c_header);
    page->m_Length = 6 + 0x7FFFFFFFU;
    CBMDecoder decoder;
    const unsigned long bytes = tests::AllocatedBytes();
    const tests::FailAllocation fail(1);
    EXPECT_THROW(decoder.Decode(page), std::bad_alloc);
    EXPECT_TRUE(fail.Happened());
    EXPECT_EQ(tests::AllocatedBytes() - bytes, 0x7FFFFFFFU);
}

/// One octet for each septet, and four for each character and for the zero after them.
TEST(CBMDecoder, AsksForFiveOctetsForEachThatTheLengthClaims) {
    const struct {
        unsigned int length;
        unsigned long bytes;
    } rows[] = {{88, 82 + 332}, {512, 506 + 2028}, {6 + 1000, 1000 + 4004}, {6 + 1000000, 1000000 + 4000004}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.length);
        const Toolkit::smart_ptr<Pdu> page = MakePdu(c_header + Bytes(506, 0x55));
        page->m_Length = row.length;
        CBMDecoder decoder;
        const unsigned long bytes = tests::AllocatedBytes();
        const unsigned long allocations = tests::Allocations();
        ASSERT_TRUE(decoder.Decode(page));
        EXPECT_EQ(tests::AllocatedBytes() - bytes, row.bytes);
        EXPECT_EQ(tests::Allocations() - allocations, 2U);
    }
}

TEST(CBMDecoder, OctetsOutsideTheArrayReadAsZero) {
    const Toolkit::smart_ptr<Pdu> page = MakePdu(c_header + Bytes(506, 0xFF));
    page->m_Length = 6 + 600;
    CBMDecoder decoder;
    ASSERT_TRUE(decoder.Decode(page));
    ASSERT_EQ(decoder.m_Text.size(), 600U);
    EXPECT_EQ(decoder.m_Text.substr(0, 578), TString<wchar_t>(578, L'à'))
        << "506 octets hold 578 septets and 2 bits";
    EXPECT_EQ(decoder.m_Text[578], L'$' - 0x24 + 0xA5) << "septet 3 is the yen sign";
    EXPECT_EQ(decoder.m_Text.substr(579), TString<wchar_t>(21, L'@'));
}

TEST(CBMDecoder, GivesBackSharesAndMemory) {
    const Toolkit::smart_ptr<Pdu> page = MakePdu(c_header + Bytes(82, 0x55));
    for (unsigned long n = 1;; ++n) {
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool failed = false;
        {
            CBMDecoder decoder;
            const tests::FailAllocation fail(n);
            try {
                EXPECT_TRUE(decoder.Decode(page));
            } catch (const std::bad_alloc&) {
                failed = true;
            }
            EXPECT_EQ(tests::CountOf(decoder.m_CharSet), 1);
        }
        EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open + (failed ? 1 : 0)) << n;
        EXPECT_EQ(tests::CountOf(page), 1);
        if (!failed)
            return;
    }
}

} // namespace
