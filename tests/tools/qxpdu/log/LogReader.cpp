#include "log/LogReader.h"

#include <gtest/gtest.h>

#include "Found.h"

namespace {

using qxpdu::LogReader;
using tests::LogOutcome;
using tests::ReadLog;

constexpr const char* c_hello = "0791214365870921040B912143658709F100002120312143658005C8329BFD06";

TEST(LogReader, MessageIsThereWithItsLastLine) {
    LogReader reader;
    reader.Take("+CMT: ,24", 1);
    EXPECT_FALSE(reader.Next());
    reader.Take(std::string(c_hello).substr(0, 40), 2);
    EXPECT_FALSE(reader.Next());
    reader.Take(std::string(c_hello).substr(40), 3);
    const auto entry = reader.Next();
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->line, 2U);
    EXPECT_EQ(entry->text, c_hello);
    EXPECT_FALSE(reader.Next());
}

TEST(LogReader, ListWaitsForALineOfAModemUntilItIsReleased) {
    LogReader reader;
    reader.Take(c_hello, 1);
    EXPECT_FALSE(reader.Next());
    reader.Release();
    ASSERT_TRUE(reader.Next());
    reader.Take(c_hello, 2);
    ASSERT_TRUE(reader.Next()) << "a list by now";
    reader.Take("OK", 3);
    reader.Take(c_hello, 4);
    reader.Release();
    EXPECT_FALSE(reader.Next()) << "a log by now";
    EXPECT_TRUE(reader.IsLog());
}

TEST(LogReader, NoMoreThanTheLookAheadIsKept) {
    LogReader reader;
    std::size_t number = 0;
    for (std::size_t bytes = 0; bytes < LogReader::LOOK_AHEAD; bytes += std::string(c_hello).size())
        reader.Take(c_hello, ++number);
    const auto first = reader.Next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->line, 1U);
}

TEST(LogReader, WrongLengthIsGivenOnReleaseWhereThePduIsSound) {
    LogReader reader;
    reader.Take("+CMT: ,30", 1);
    reader.Take(c_hello, 2);
    EXPECT_FALSE(reader.Next());
    reader.Release();
    EXPECT_TRUE(reader.Next());
    reader.Take("+CMT: ,30", 3);
    reader.Take(std::string(c_hello).substr(0, 40), 4);
    reader.Release();
    EXPECT_FALSE(reader.Next()) << "half a PDU waits for the rest";
}

TEST(LogReader, ReferenceNamesTheLineOfTheMessageThatWasTyped) {
    const LogOutcome outcome =
        ReadLog("AT+CMGS=10\n> 0001070491214300000161\n+CMGS: 77\nOK\n+CMGS: 78\nAT+CMGW=10\n> "
                "0001070491214300000162\n+CMGS: 79\n");
    ASSERT_EQ(outcome.entries.size(), 5U);
    const auto& entries = outcome.entries;
    EXPECT_EQ(entries[1].heading->kind, qxpdu::Heading::Kind::Reference);
    EXPECT_EQ(entries[1].heading->reference, 77U);
    EXPECT_EQ(entries[1].heading->sentLine, 2U);
    EXPECT_EQ(entries[2].heading->sentLine, 0U) << "of a message that was given its reference";
    EXPECT_EQ(entries[4].heading->sentLine, 0U) << "stored, not sent";
}

TEST(LogReader, StrayDigitsAreCounted) {
    const LogOutcome outcome = ReadLog("EC25\nOK\nDEADBEEF\n+CSQ: 1\n");
    EXPECT_TRUE(outcome.entries.empty());
    EXPECT_EQ(outcome.counts.lines, 4U);
    EXPECT_EQ(outcome.counts.passedOver, 4U);
    EXPECT_EQ(outcome.counts.strayDigits, 2U);
}

TEST(LogReader, LinesThatAreNoneOfAModemLeaveAList) {
    for (const char* line :
         {"OKAY", "ERRORS", "RINGS", "ATTACHED", "at ten", "bat+ball", "hello: 1", "0791", "+", "+1"}) {
        LogReader reader;
        reader.Take(line, 1);
        EXPECT_FALSE(reader.IsLog()) << line;
    }
}

TEST(LogReader, LinesOfAModemMakeALog) {
    for (const char* line : {"OK",
                             "ERROR",
                             "RING",
                             "ok",
                             "AT",
                             "at",
                             "ATZ",
                             "ATE0",
                             "ATS0=1",
                             "AT+CSQ",
                             "at^sysinfo",
                             "10:00 -> AT+CSQ",
                             "+CSQ: 1",
                             "^RSSI: 1",
                             "%CSQ: 1",
                             "*PSUTTZ: 1",
                             "$QCSQ: 1",
                             "_OSIGQ: 1",
                             "#CREG: 1",
                             "!GSTATUS: 1",
                             "NO CARRIER",
                             "NO DIALTONE",
                             "NO ANSWER",
                             "BUSY",
                             "CONNECT 9600",
                             "+CME ERROR: 3",
                             "+CMS ERROR: 3",
                             "RDY",
                             "SMS Ready",
                             "Call Ready",
                             "NORMAL POWER DOWN",
                             "x +CMTI: \"SM\",3",
                             "x +CDSI: \"SM\",3",
                             "x +CBMI: \"BM\",3",
                             "x +CMGW: 3",
                             "\"+CMT: ,24\""}) {
        LogReader reader;
        reader.Take(line, 1);
        EXPECT_TRUE(reader.IsLog()) << line;
    }
}

} // namespace
