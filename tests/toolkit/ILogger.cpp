#include "Toolkit/ILogger.h"

#include <chrono>
#include <climits>
#include <cstdlib>
#include <ctime>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/CapturingLogger.h"
#include "support/Layout.h"
#include "support/Octets.h"

namespace {

using tests::CapturingLogger;
using tests::InstalledLogger;
using Toolkit::ILogger;
using Toolkit::LogSeverity;
using Toolkit::SetSeverity;

using Pieces = std::vector<TString<wchar_t>>;

ILogger& ProcessLogger() {
    return **ILogger::s_pInstance;
}

TEST(ILogger, ProcessWideLoggerIsThereAtLevelOne) {
    ASSERT_NE(ILogger::s_pInstance, nullptr);
    ASSERT_NE(ILogger::s_pInstance->get(), nullptr);
    EXPECT_EQ(ProcessLogger().GetLevel(), 1);
}

TEST(ILogger, HostsLoggerTakesThePlaceOfTheDefaultOne) {
    ILogger* const pBefore = ILogger::s_pInstance->get();
    {
        const InstalledLogger logger(1);
        EXPECT_EQ(&ProcessLogger(), &*logger);
    }
    EXPECT_EQ(ILogger::s_pInstance->get(), pBefore);
}

TEST(ILogger, LevelThenSeverityFollowTheDispatchPointer) {
    CapturingLogger logger(7);
    EXPECT_EQ(tests::Offset(&logger.m_Level, static_cast<ILogger*>(&logger)), std::ptrdiff_t{sizeof(void*)});
    EXPECT_EQ(tests::Offset(&logger.m_Severity, static_cast<ILogger*>(&logger)),
              std::ptrdiff_t{sizeof(void*) + 4});
    EXPECT_EQ(sizeof(ILogger), sizeof(void*) + 8);
    EXPECT_EQ(logger.m_Level, 7);
}

TEST(ILogger, WriteIsTheThirdVirtualOperation) {
    InstalledLogger logger(1);
    using Write = void (*)(ILogger*, const TString<wchar_t>&);
    ILogger* const pLogger = &*logger;
    const Write* const slots = *reinterpret_cast<Write* const*>(pLogger);
    slots[2](pLogger, L"text");
    EXPECT_EQ(logger->m_Pieces, Pieces{L"text"});
}

TEST(ILogger, TokensKeepTheFieldsApart) {
    const TString<wchar_t>* const tokens[] = {&ILogger::c_strLogToken1, &ILogger::c_strLogToken2,
                                              &ILogger::c_strLogToken3};
    for (const auto* token : tokens) {
        EXPECT_FALSE(token->empty());
        EXPECT_EQ(token->find_first_of(L"0123456789"), TString<wchar_t>::npos);
    }
    EXPECT_EQ(ILogger::c_strLogToken1, L" ");
    EXPECT_EQ(ILogger::c_strLogToken2, L" | ");
    EXPECT_EQ(ILogger::c_strLogToken3, L"\n");
}

TEST(ILogger, WholeLineReachesTheLoggerPieceByPiece) {
    InstalledLogger logger(2);
    const TString<wchar_t> time(L"now");
    ProcessLogger() << SetSeverity(2) << LogSeverity(2) << ILogger::c_strLogToken1 << time.c_str()
                    << ILogger::c_strLogToken2 << 49 << ILogger::c_strLogToken2 << "TextDecoder"
                    << ILogger::c_strLogToken2 << "TextDecoder( " << 0 << ", " << TString<char>("00000041")
                    << " )" << ILogger::c_strLogToken3;
    EXPECT_EQ(logger->m_Pieces, (Pieces{L"2", L" ", L"now", L" | ", L"49", L" | ", L"TextDecoder", L" | ",
                                        L"TextDecoder( ", L"0", L", ", L"00000041", L" )", L"\n"}));
}

TEST(ILogger, SetSeverityWritesNothing) {
    InstalledLogger logger(5);
    EXPECT_EQ(&(ProcessLogger() << SetSeverity(3)), &ProcessLogger());
    EXPECT_EQ(logger->m_Severity, 3);
    EXPECT_EQ(logger->m_Pieces, Pieces{});
    ProcessLogger() << ILogger::c_strLogToken3;
    EXPECT_EQ(SetSeverity(-4).Get(), -4);
}

TEST(ILogger, ValuesAreInsertedAsAWideStreamDoes) {
    InstalledLogger logger(0);
    const char characters[14] = "TextDecoder( ";
    const wchar_t* const wide = L"wide\x20AC";
    static_assert(std::is_same_v<std::underlying_type_t<LogSeverity>, int>);
    ProcessLogger() << wide << characters << LogSeverity(2) << LogSeverity(-7) << 'c' << 4000000000U << true
                    << 1.5;
    EXPECT_EQ(logger->m_Pieces,
              (Pieces{L"wide\x20AC", L"TextDecoder( ", L"2", L"-7", L"c", L"4000000000", L"1", L"1.5"}));
}

TEST(ILogger, IntegersAreWrittenInDecimal) {
    InstalledLogger logger(0);
    const struct {
        int value;
        const wchar_t* text;
    } rows[] = {{0, L"0"},   {9, L"9"},       {10, L"10"},
                {-1, L"-1"}, {-10, L"-10"},   {INT_MAX, L"2147483647"},
                {49, L"49"}, {1000, L"1000"}, {INT_MIN, L"-2147483648"}};
    for (const auto& row : rows) {
        ProcessLogger() << row.value;
        EXPECT_EQ(logger->m_Pieces.back(), row.text);
    }
}

TEST(ILogger, NarrowStringIsReadAsUtf8) {
    InstalledLogger logger(0);
    ProcessLogger() << TString<char>("h\xC3\xA9\xE2\x82\xAC\xFF");
    EXPECT_EQ(logger->m_Pieces, Pieces{tests::Wide({0x68, 0xE9, 0x20AC, 0xFFFD})});
}

TEST(ILogger, WideStringIsWrittenUnchanged) {
    InstalledLogger logger(0);
    TString<wchar_t> text(L"a");
    text += L'\0';
    text += L'b';
    ProcessLogger() << text << TString<wchar_t>();
    EXPECT_EQ(logger->m_Pieces, (Pieces{text, L""}));
}

TEST(ILogger, SeverityUpToTheLevelIsWritten) {
    const struct {
        int level;
        int severity;
        bool written;
    } rows[] = {{2, 1, true}, {2, 2, true}, {2, 3, false}, {0, 0, true}, {-1, 0, false}, {-1, -1, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "level " << row.level << ", severity " << row.severity);
        InstalledLogger logger(row.level);
        ProcessLogger() << SetSeverity(row.severity) << LogSeverity(row.severity) << 1 << TString<char>("n")
                        << TString<wchar_t>(L"w") << "array" << ILogger::c_strLogToken3;
        EXPECT_EQ(logger->m_Pieces.size(), row.written ? 6U : 0U);
    }
}

TEST(ILogger, FilteredLineCallsNoWriteAndAllocatesNothingYetReturnsTheProcessWideLogger) {
    InstalledLogger logger(1);
    const TString<char> narrow(100, 'n');
    const TString<wchar_t> wide(100, L'w');
    const wchar_t* const characters = L"characters that would not fit into a string object";
    ILogger* const pExpected = &ProcessLogger();
    const unsigned long allocations = tests::Allocations();

    EXPECT_EQ(&(ProcessLogger() << SetSeverity(2)), pExpected);
    EXPECT_EQ(&(ProcessLogger() << LogSeverity(2)), pExpected);
    EXPECT_EQ(&(ProcessLogger() << ILogger::c_strLogToken1), pExpected);
    EXPECT_EQ(&(ProcessLogger() << characters), pExpected);
    EXPECT_EQ(&(ProcessLogger() << 49), pExpected);
    EXPECT_EQ(&(ProcessLogger() << "TextDecoder"), pExpected);
    EXPECT_EQ(&(ProcessLogger() << narrow), pExpected);
    EXPECT_EQ(&(ProcessLogger() << wide), pExpected);
    EXPECT_EQ(&(ProcessLogger() << ILogger::c_strLogToken3), pExpected);

    EXPECT_EQ(tests::Allocations(), allocations);
    EXPECT_EQ(logger->m_Pieces, Pieces{});
}

TEST(ILogger, InsertionIntoAnotherLoggerContinuesOnTheProcessWideOne) {
    InstalledLogger logger(1);
    CapturingLogger other(1);
    EXPECT_EQ(&(other << "value"), &ProcessLogger());
    EXPECT_EQ(&(other << 1), &ProcessLogger());
    EXPECT_EQ(&(other << TString<char>("narrow")), &ProcessLogger());
    EXPECT_EQ(&(other << TString<wchar_t>(L"wide")), &ProcessLogger());
    EXPECT_EQ(other.m_Pieces, (Pieces{L"value", L"1", L"narrow", L"wide"}));
    EXPECT_EQ(logger->m_Pieces, Pieces{});

    other << "first"
          << "second" << 3;
    EXPECT_EQ(other.m_Pieces.back(), L"first");
    EXPECT_EQ(logger->m_Pieces, (Pieces{L"second", L"3"}));
}

TEST(ILogger, SeverityIsSetOnTheLoggerThatItIsInsertedInto) {
    InstalledLogger logger(1);
    CapturingLogger other(1);
    EXPECT_EQ(&(other << SetSeverity(9)), &ProcessLogger());
    EXPECT_EQ(other.m_Severity, 9);
    EXPECT_EQ(logger->m_Severity, 0);
    EXPECT_EQ(&(other << "filtered here"), &ProcessLogger());
    EXPECT_EQ(other.m_Pieces, Pieces{});
    ProcessLogger() << "written there" << ILogger::c_strLogToken3;
    EXPECT_EQ(logger->m_Pieces.front(), L"written there");
}

TEST(ILogger, InsertionsTakeNoShareOfTheProcessWideLogger) {
    struct Counting : CapturingLogger {
        using CapturingLogger::CapturingLogger;
        void Write(const TString<wchar_t>&) override { m_Count = tests::CountOf(*s_pInstance); }
        int m_Count = 0;
    };
    const Toolkit::smart_ptr<ILogger> before(*ILogger::s_pInstance);
    auto* const pLogger = new Counting(0);
    *ILogger::s_pInstance = pLogger;
    ProcessLogger() << "text";
    EXPECT_EQ(pLogger->m_Count, 1);
    *ILogger::s_pInstance = before;
}

TEST(ILogger, LevelCanBeChanged) {
    InstalledLogger logger(1);
    logger->SetLevel(2);
    EXPECT_EQ(logger->GetLevel(), 2);
    EXPECT_EQ(logger->m_Level, 2);
    ProcessLogger() << SetSeverity(2) << "written" << ILogger::c_strLogToken3;
    logger->SetLevel(-1);
    EXPECT_EQ(logger->GetLevel(), -1);
    ProcessLogger() << SetSeverity(0) << "filtered" << ILogger::c_strLogToken3;
    EXPECT_EQ(logger->m_Pieces, (Pieces{L"written", L"\n"}));
}

// GetTime

std::time_t SecondsOf(const std::string& text) {
    std::tm fields{};
    fields.tm_year = std::stoi(text.substr(0, 4)) - 1900;
    fields.tm_mon = std::stoi(text.substr(5, 2)) - 1;
    fields.tm_mday = std::stoi(text.substr(8, 2));
    fields.tm_hour = std::stoi(text.substr(11, 2));
    fields.tm_min = std::stoi(text.substr(14, 2));
    fields.tm_sec = std::stoi(text.substr(17, 2));
    return timegm(&fields);
}

TEST(ILogger, TimeIsThePresentUtcInIso8601WithMilliseconds) {
    const char* const pZone = std::getenv("TZ");
    const std::string zone = pZone == nullptr ? "" : pZone;
    setenv("TZ", "Asia/Tokyo", 1);
    tzset();
    const std::time_t before = std::time(nullptr);
    const TString<wchar_t> wide = ILogger::GetTime();
    const std::time_t after = std::time(nullptr);
    if (pZone == nullptr)
        unsetenv("TZ");
    else
        setenv("TZ", zone.c_str(), 1);
    tzset();

    std::string text, form;
    for (const wchar_t character : wide) {
        text += static_cast<char>(character);
        form += character >= L'0' && character <= L'9' ? 'd' : static_cast<char>(character);
    }
    ASSERT_EQ(form, "dddd-dd-ddTdd:dd:dd.dddZ") << text;
    EXPECT_GE(SecondsOf(text), before - 1); // time() may lag behind the clock by some milliseconds
    EXPECT_LE(SecondsOf(text), after + 1);
}

TEST(ILogger, MillisecondsOfTheTimeAlwaysHaveThreeDigits) {
    for (int round = 0; round < 25; ++round) { // a whole second, the first tenth of one included
        ASSERT_EQ(ILogger::GetTime().size(), 24U);
        std::this_thread::sleep_for(std::chrono::milliseconds(45));
    }
}

} // namespace
