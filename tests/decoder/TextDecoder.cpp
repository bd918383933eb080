// The text decoder and its log line.
#include "Encoding/TextDecoder.h"

#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/CapturingLogger.h"
#include "support/Octets.h"

namespace {

using Encoding::TextDecoder;
using tests::Wide;
using Toolkit::ILogger;

static_assert(!std::is_polymorphic_v<TextDecoder> && !std::is_copy_constructible_v<TextDecoder>);

TEST(TextDecoder, HoldsItsCharacterSetBeforeTheText) {
    const TextDecoder decoder(L"", 0);
    EXPECT_EQ(reinterpret_cast<const char*>(&decoder.m_DecodedText) - reinterpret_cast<const char*>(&decoder),
              static_cast<std::ptrdiff_t>(sizeof(Encoding::GSMCharSet)));
}

TEST(TextDecoder, DecodesByAlphabet) {
    const struct {
        const char* what;
        TString<wchar_t> text;
        int alphabet;
        TString<wchar_t> decoded;
    } rows[] = {
        {"GSM codes", Wide({0x00, 0x41, 0x1B, 0x65}), 0, L"@A€"},
        {"alphabet 4 reads like 0", Wide({0x00, 0x41, 0x1B, 0x65}), 4, L"@A€"},
        {"low 8 bits count", Wide({0x0141, 0x10042, 0x7F000043}), 0, L"ABC"},
        {"codes of 0x80 and above are skipped", Wide({0x80, 0x41, 0xFF}), 0, L"A"},
        {"unknown extension pair", Wide({0x1B, 0x41}), 0, L"A"},
        {"escape at the end", Wide({0x41, 0x1B}), 4, L"A"},
        {"UCS2 hex", L"0041004220AC", 2, L"AB€"},
        {"alphabet 1 is hex", L"00410042", 1, L"AB"},
        {"alphabet 3 is hex", L"00410042", 3, L"AB"},
        {"alphabet 5 is hex", L"00410042", 5, L"AB"},
        {"negative alphabets are hex", L"00410042", -4, L"AB"},
        {"hex cut down", L"004100", 2, L"A"},
        {"hex too short", L"004", 2, L""},
        {"hex as GSM codes", L"0041", 0, L"0041"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(TextDecoder(row.text, row.alphabet).m_DecodedText, row.decoded);
    }
}

TEST(TextDecoder, EmptyTextGivesNothingAndLogsNothing) {
    const tests::InstalledLogger logger(2);
    for (int alphabet = -1; alphabet <= 5; ++alphabet)
        EXPECT_EQ(TextDecoder(TString<wchar_t>(), alphabet).m_DecodedText, L"");
    EXPECT_TRUE(logger->m_Pieces.empty());
    EXPECT_EQ(logger->m_Severity, 0) << "no line was begun";
}

TEST(TextDecoder, WritesOneLineInTheseExactPieces) {
    const tests::InstalledLogger logger(2);
    const TextDecoder decoder(L"AB", 0);
    ASSERT_EQ(logger->m_Pieces.size(), 14U);
    const TString<wchar_t>& separator = ILogger::c_strLogToken2;
    const std::vector<TString<wchar_t>> expected = {L"2",
                                                    ILogger::c_strLogToken1,
                                                    logger->m_Pieces[2],
                                                    separator,
                                                    L"49",
                                                    separator,
                                                    L"TextDecoder",
                                                    separator,
                                                    L"TextDecoder( ",
                                                    L"0",
                                                    L", ",
                                                    L"0000004100000042",
                                                    L" )",
                                                    ILogger::c_strLogToken3};
    EXPECT_EQ(logger->m_Pieces, expected);
    EXPECT_EQ(logger->m_Pieces[2].size(), ILogger::GetTime().size());
    EXPECT_EQ(logger->m_Severity, 2);
}

TEST(TextDecoder, LogsItsArgumentsAsTheyAre) {
    const struct {
        TString<wchar_t> text;
        int alphabet;
        const wchar_t* number;
        const wchar_t* dump;
    } rows[] = {{L"AB", 2, L"2", L"0000004100000042"},
                {Wide({0x1F600, 0xFEDC}), -17, L"-17", L"0001F6000000FEDC"},
                {Wide({0x89ABCDEF, 0x01234567}), 4, L"4", L"89ABCDEF01234567"}};
    for (const auto& row : rows) {
        const tests::InstalledLogger logger(2);
        const TextDecoder decoder(row.text, row.alphabet);
        ASSERT_EQ(logger->m_Pieces.size(), 14U);
        EXPECT_EQ(logger->m_Pieces[9], row.number);
        EXPECT_EQ(logger->m_Pieces[11], row.dump);
    }
}

TEST(TextDecoder, LineIsFilteredBelowLevelTwo) {
    const tests::InstalledLogger logger(1);
    EXPECT_EQ(TextDecoder(L"AB", 0).m_DecodedText, L"AB");
    EXPECT_TRUE(logger->m_Pieces.empty());
}

TEST(TextDecoder, EveryCodeReadsAsTheAlphabetHasIt) {
    const Encoding::GSMCharSet charSet;
    for (unsigned int unit = 0; unit <= 0xFFF; ++unit) {
        const unsigned int code = unit & 0xFF;
        TString<wchar_t> expected;
        if (code < 0x80 && code != 0x1B)
            expected = Wide({Encoding::GSMCharSet::m_GsmDefaultTable[code]});
        EXPECT_EQ(TextDecoder(Wide({unit}), 0).m_DecodedText, expected) << unit;
    }
}

/// Bytes that a piece of work asks the allocator for.
template <class Work>
unsigned long BytesOf(Work&& work) {
    const unsigned long before = tests::AllocatedBytes();
    work();
    return tests::AllocatedBytes() - before;
}

TEST(TextDecoder, AsksForItsDumpAtOnceAndForAnOctetACodeWithASpareOne) {
    const tests::InstalledLogger logger(1); // a line that is filtered out takes no memory
    const unsigned long charSet = BytesOf([] { const Encoding::GSMCharSet unused; });
    const unsigned long time = BytesOf([] { ILogger::GetTime(); });
    TString<wchar_t> text(100, L'A');
    const unsigned long all = BytesOf([&text] { const TextDecoder decoder(std::move(text), 0); });
    EXPECT_EQ(all - charSet - time, 801U + 101U + 404U) << "eight digits a character, the codes, the text";
}

/// A logger that refuses a piece of the line.
struct RefusingLogger : Toolkit::ILogger {
    explicit RefusingLogger(int piece) : ILogger(2), m_Left(piece) {}
    void Write(const TString<wchar_t>&) override {
        if (--m_Left == 0)
            throw std::runtime_error("refused");
    }
    int m_Left;
};

TEST(TextDecoder, PassesOnWhatTheLoggerThrowsAndLeaksNothing) {
    const Toolkit::smart_ptr<ILogger> before(*ILogger::s_pInstance);
    for (int piece = 1; piece <= 14; ++piece) {
        *ILogger::s_pInstance = new RefusingLogger(piece);
        const TString<wchar_t> text = L"long enough for memory of its own";
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool isRefused = false;
        try {
            const TextDecoder decoder(text, 0);
        } catch (const std::runtime_error&) {
            isRefused = true;
        }
        EXPECT_TRUE(isRefused) << piece;
        EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open) << piece;
    }
    *ILogger::s_pInstance = before;
}

TEST(TextDecoder, LeaksNothingWhereverAnAllocationFails) {
    const tests::InstalledLogger logger(1);
    for (const int alphabet : {0, 2}) {
        const TString<wchar_t> text = L"0041004200430044004500460047";
        for (unsigned long n = 1;; ++n) {
            const unsigned long open = tests::Allocations() - tests::Deallocations();
            bool failed = false;
            {
                const tests::FailAllocation fail(n);
                try {
                    const TextDecoder decoder(text, alphabet);
                } catch (const std::bad_alloc&) {
                    failed = true;
                }
            }
            // The allocation that failed was counted and never given back.
            EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open + (failed ? 1 : 0)) << n;
            if (!failed)
                break;
        }
    }
}

TEST(TextDecoder, WritesItsLineForEveryAlphabet) {
    const tests::InstalledLogger logger(2);
    for (const int alphabet : {-1, 0, 1, 2, 3, 4, 5}) {
        logger->m_Pieces.clear();
        EXPECT_EQ(TextDecoder(L"00410042", alphabet).m_DecodedText,
                  alphabet == 0 || alphabet == 4 ? L"00410042" : L"AB");
        ASSERT_EQ(logger->m_Pieces.size(), 14U) << "one line, whatever the alphabet";
        EXPECT_EQ(logger->m_Pieces[9], std::to_wstring(alphabet));
    }
}

} // namespace
