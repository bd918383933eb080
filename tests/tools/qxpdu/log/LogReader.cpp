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
    EXPECT_EQ(LogReader::LOOK_AHEAD, 65536U) << "as the manual says";
    LogReader reader;
    std::size_t number = 0;
    for (std::size_t bytes = 0; bytes < LogReader::LOOK_AHEAD; bytes += std::string(c_hello).size())
        reader.Take(c_hello, ++number);
    const auto first = reader.Next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->line, 1U);
}

/// What a line takes beside its characters.
constexpr std::size_t c_beside = sizeof(std::pair<std::string, std::size_t>);

TEST(LogReader, LinesAreKeptUpToTheLookAhead) {
    LogReader reader;
    reader.Take(std::string(LogReader::LOOK_AHEAD - c_beside, '0'), 1);
    EXPECT_FALSE(reader.Next());
    reader.Take("", 2);
    EXPECT_TRUE(reader.Next());
    LogReader longer;
    longer.Take(std::string(LogReader::LOOK_AHEAD - c_beside + 1, '0'), 1);
    EXPECT_TRUE(longer.Next());
}

TEST(LogReader, TalkIsForgottenByTheLookAhead) {
    LogReader reader;
    for (std::size_t number = 1; number <= 20000; ++number)
        reader.Take(std::string(64 - c_beside, 'g'), number); // 1024 of them are just kept
    EXPECT_EQ(reader.Counts().forgotten, 19U * 1025);
    EXPECT_EQ(reader.Counts().passedOver, 19U * 1025);
    reader.Finish();
    EXPECT_EQ(reader.Counts().entries, 20000U - 19 * 1025);
}

TEST(LogReader, StrangersBeforeAPduAreFewAndCountFromItsLastDigits) {
    const auto log = [](int before, int between) {
        std::string text = "+CMT: ,24\n";
        while (before-- > 0)
            text += "hello there\n";
        text += std::string(c_hello).substr(0, 40) + '\n';
        while (between-- > 0)
            text += "hello there\n";
        return ReadLog(text + std::string(c_hello).substr(40) + '\n').entries.at(0).text;
    };
    EXPECT_EQ(log(0, 0), c_hello);
    EXPECT_EQ(log(16, 16), c_hello);
    EXPECT_EQ(log(17, 0), "");
    EXPECT_EQ(log(0, 17), std::string(c_hello).substr(0, 40));
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

TEST(LogReader, PduEndsWhereItsTypingEndsWhateverWasAnnounced) {
    const LogOutcome outcome = ReadLog("AT+CMGS=12\n> 00010704912143000002\x1A\n616263\nOK\n");
    ASSERT_EQ(outcome.entries.size(), 1U);
    EXPECT_EQ(outcome.entries[0].text, "00010704912143000002");
}

TEST(LogReader, ReferenceIsOfNoMessageThatFailed) {
    const std::string sent = "AT+CMGS=10\n> 0001070491214300000161\n";
    for (const char* between : {"+CMS ERROR: 38\n", "ERROR\n", "+CME ERROR: 1\n", "10:00:01 <- ERROR\n",
                                "AT+CMGS=\"+1234\"\n> hi\x1a\n"}) {
        const LogOutcome outcome = ReadLog(sent + between + "+CMGS: 9\nOK\n");
        ASSERT_EQ(outcome.entries.size(), 2U) << between;
        EXPECT_EQ(outcome.entries[1].heading->sentLine, 0U) << between;
    }
    const LogOutcome other = ReadLog(sent + "OK\n+CMGS: 9\n");
    ASSERT_EQ(other.entries.size(), 2U);
    EXPECT_EQ(other.entries[1].heading->sentLine, 2U) << "no error";
}

TEST(LogReader, PdusThatNoHeadingAnnouncesAreCounted) {
    const std::string hello = c_hello;
    const struct {
        std::string log;
        std::uint64_t strays;
    } rows[] = {
        {"+CMT: ,24\n" + hello + '\n', 0},
        {"+CMT: ,24\n" + hello + '\n' + hello + '\n', 1},
        {"'+CMGL: 1,1,,24\\r\\n" + hello + "\\r\\n+CMG'\n'L: 2,1,,24\\r\\n" + hello + "\\r\\nOK'\n", 1},
        {"AT+CMGS=10\n> 0001070491214300000161\n0001070491214300000161\n+CMGS: 1\nOK\n", 0}, // its echo
        {"GSM1: +CMT: ,24\nGSM2: +CMT: ,24\nGSM1: " + hello.substr(0, 40) + "\nGSM2: " + hello + '\n', 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ReadLog(row.log).counts.strayPdus, row.strays) << row.log;
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
         {"#Sent: today", "#TODO: x", "*PDU1:* 07", "$Id: x$", "# CREG: 1", "#CREG: x", "#creg: 1", "OKAY",
          "ERRORS", "RINGS", "ATTACHED", "at ten", "bat+ball", "hello: 1", "0791", "+", "+1", "+C: 1"}) {
        LogReader reader;
        reader.Take(line, 1);
        EXPECT_FALSE(reader.IsLog()) << line;
    }
}

TEST(LogReader, PrintedLinesAreOneLine) {
    const LogOutcome outcome = ReadLog("'+CMT: ,24\\r\\n" + std::string(c_hello) + "\\r\\nOK\\r\\n'\n");
    ASSERT_EQ(outcome.entries.size(), 1U);
    EXPECT_EQ(outcome.counts.entries, 1U);
    EXPECT_EQ(outcome.counts.passedOver, 0U);
}

TEST(LogReader, LineOfAReferenceIsAnEntry) {
    const LogOutcome outcome = ReadLog("AT+CMGS=10\n0001070491214300000161\n+CMGS: 77\nOK\n");
    EXPECT_EQ(outcome.counts.entries, 2U);
    EXPECT_EQ(outcome.counts.passedOver, 2U);
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
                             "+CC: 1",
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

std::vector<std::string> TextsIn(const std::string& log) {
    std::vector<std::string> texts;
    for (const qxpdu::LogEntry& entry : ReadLog(log).entries)
        texts.push_back(entry.text);
    return texts;
}

TEST(LogReader, LineOfOctetsIsTakenWholeHoweverItIsParted) {
    const std::string good = "0791214365870921040B912143658709F10008423010214365000800"
                             "47006F006F0064";
    EXPECT_EQ(TextsIn("+CMT: ,27\n07 91 21 43\n65 87 09 21\n04 0B 91 21\n43 65 87 09\nF1 00 08 42\n"
                      "30 10 21 43\n65 00 08 00\n47 00 6F 00\n6F 00 64\n"),
              std::vector<std::string>{good});
    EXPECT_EQ(TextsIn("+CMT: ,27\n079 121 436 587\n092 104 0B9 121\n436 587 09F 100\n084 230 102 143\n"
                      "650 008 004 700\n6F0 06F 006 4\n"),
              std::vector<std::string>{good});
    EXPECT_EQ(TextsIn("+CMT: ,27\n07:91:21:43:65:87:09:21\n04:0B:91:21:43:65:87:09\nF1:00:08:42:30:10:21:43\n"
                      "65:00:08:00:47:00:6F:00\n6F:00:64\n"),
              std::vector<std::string>{good});
}

TEST(LogReader, WordsAreLeftOutOnlyWhereThereAreTooManyAndTheRestIsSound) {
    EXPECT_EQ(TextsIn("+CMT: ,24\n12 07 91 2143658709 21040B912143658709F100002120312143658005C8329BFD06\n"),
              std::vector<std::string>{c_hello});
    EXPECT_EQ(
        TextsIn("+CMT: ,24\n2026 rx 07 912143658709 21040B912143658709F100002120312143658005C8329BFD06 64\n"),
        std::vector<std::string>{c_hello});
    EXPECT_EQ(TextsIn("+CMT: ,4\nFF 00 11 22 33 44 55 66 77\n"),
              std::vector<std::string>{"FF0011223344556677"});
}

TEST(LogReader, WhatStandsAfterAPieceIsNoneOfIt) {
    const std::string first = std::string(c_hello).substr(0, 40);
    const std::string rest = std::string(c_hello).substr(40);
    for (const auto& [before, after] : {std::pair("rx: ", " (40)"), std::pair("rx ('", "', 40)"),
                                        std::pair("{\"rx\": \"", "\", \"d\": 3}"), std::pair("[", "] 40")}) {
        EXPECT_EQ(TextsIn(before + std::string("+CMT: ,24") + after + '\n' + before + first + after + '\n' +
                          before + rest + after + '\n'),
                  std::vector<std::string>{c_hello})
            << before;
    }
}

TEST(LogReader, BlanksThatPadANumberOfThePrefixMayChange) {
    const std::string hello = c_hello;
    EXPECT_EQ(TextsIn("[ 9999.9] +CMT: ,24\n[ 9999.9] " + hello.substr(0, 56) + "\n[10000.0] " +
                      hello.substr(56) + '\n'),
              std::vector<std::string>{c_hello});
    EXPECT_EQ(TextsIn("D/AT (12345): +CMT: ,24\nD/AT ( 1234): " + hello.substr(0, 10) +
                      "\nD/AT (12345): " + hello.substr(10) + '\n'),
              std::vector<std::string>{c_hello});
}

TEST(LogReader, WrappedPduOfATooSmallLengthIsReadUntilItIsSound) {
    const std::string hello = c_hello;
    EXPECT_EQ(TextsIn("+CMGL: 1,1,,8\n" + hello.substr(0, 20) + '\n' + hello.substr(20, 20) + '\n' +
                      hello.substr(40, 20) + '\n' + hello.substr(60) + "\nOK\n"),
              std::vector<std::string>{c_hello});
}

TEST(LogReader, WhatAModemSaysUnaskedInTheSameLineIsNoneOfThePdu) {
    const std::string hello = c_hello;
    EXPECT_EQ(TextsIn("10:00:00.000 modem one: +CMT: ,24 " + hello.substr(0, 40) + " +CMTI: \"SM\",1\n" +
                      hello.substr(40) + "\n"),
              std::vector<std::string>{c_hello});
    EXPECT_EQ(
        TextsIn("+CMT: ,24\n" + hello.substr(0, 40) + "\n12 +CMTI: \"SM\",1\n" + hello.substr(40) + "\n"),
        std::vector<std::string>{c_hello})
        << "nor is what a program wrote before it";
}

TEST(LogReader, PrefixMayEndAsACommandBegins) {
    EXPECT_EQ(TextsIn("RXDAT+CMT: ,24\nRXDAT" + std::string(c_hello) + "\n"),
              std::vector<std::string>{c_hello});
}

TEST(LogReader, LengthThatNoPduHasCostsNoMoreThanItsLine) {
    std::string digits;
    for (int i = 0; i < 1 << 19; ++i)
        digits += "A ";
    EXPECT_EQ(TextsIn("+CMT: ,9999\n" + digits + '\n'), std::vector<std::string>{std::string(1U << 19, 'A')});
}

TEST(LogReader, CommentsAndWordsLeaveAList) {
    for (const char* line :
         {"# ring", "# busy line", "# Connect message", "# output of AT+CMGL=4", "# +CMT: from the modem",
          "// OK", " # OK", "error: the next one is cut", "busy line", "ring the bell"}) {
        LogReader reader;
        reader.Take(line, 1);
        EXPECT_FALSE(reader.IsLog()) << line;
    }
    EXPECT_EQ(TextsIn("# error cases\n" + std::string(c_hello) + "\n// OK\n"),
              std::vector<std::string>{c_hello});
}

TEST(LogReader, LinesInOneStringAreCountedAsOne) {
    const LogOutcome text = ReadLog("'+CMGL: 1,\"REC READ\",\"+1234\"\\r\\n616263\\r\\nOK'\n");
    EXPECT_EQ(text.counts.textModes, 1U);
    EXPECT_EQ(text.counts.strayDigits, 0U) << "the digits are a text";
    const LogOutcome both = ReadLog("'+CMGL: 1,\"REC READ\",\"+1234\"\\r\\nhi\\r\\n+CMT: ,24\\r\\n'\n" +
                                    std::string(c_hello) + '\n');
    EXPECT_EQ(both.counts.textModes, 1U);
    EXPECT_EQ(both.counts.entries, 1U);
    EXPECT_EQ(both.counts.passedOver, 0U);
    const LogOutcome pdu = ReadLog("'+CMT: ,24\\r\\n" + std::string(c_hello) + "\\r\\n'\n");
    EXPECT_EQ(pdu.counts.strayDigits, 0U);
    EXPECT_EQ(pdu.counts.entries, 1U);
}

TEST(LogReader, WhatStandsBeforeAStringIsNoneOfThePieces) {
    for (const std::string before : {"RX: '", "10 b'"}) { // the mark of the string, b, is a digit too
        std::string log = before + " \\r\\n+CMT: ,24\\r\\n'\n";
        for (std::size_t at = 0; at < 64; at += 8)
            log += before + std::string(c_hello).substr(at, 8) + "'\n";
        EXPECT_EQ(TextsIn(log), std::vector<std::string>{c_hello}) << before;
    }
}

TEST(LogReader, CommandThatTheModemRepeatsIsOne) {
    const std::string typed = "> 0001070491214300000161\n";
    EXPECT_EQ(ReadLog("AT+CMGS=10\nAT+CMGS=10\n" + typed + "OK\n").entries.size(), 1U);
    const LogOutcome two = ReadLog("AT+CMGS=12\nAT+CMGS=10\n" + typed + "OK\n");
    ASSERT_EQ(two.entries.size(), 1U) << "nothing was typed after the first";
    EXPECT_EQ(two.entries[0].heading->length, 10U);
    EXPECT_EQ(two.entries[0].heading->line, 2U);
    EXPECT_EQ(ReadLog("AT+CMGS=10\n" + typed + "AT+CMGS=10\n> \x1B\nOK\n").entries.size(), 1U)
        << "nothing was typed after the second";
}

TEST(LogReader, PiecesWithoutDigitsLeaveTheirLineAnEntry) {
    EXPECT_EQ(ReadLog(std::string(c_hello) + "\r--\r--\n").counts.entries, 1U);
    EXPECT_EQ(ReadLog("--\r" + std::string(c_hello) + "\r--\n").counts.entries, 1U);
    EXPECT_EQ(ReadLog("--\r--\r--\n").counts.passedOver, 1U);
    const LogOutcome nul = ReadLog(std::string("07\0"
                                               "91\n",
                                               6));
    EXPECT_EQ(nul.entries.at(0).text, "0791");
}

TEST(LogReader, SoundPdusThatStandInNoMessageAreCounted) {
    const LogOutcome outcome = ReadLog(std::string(c_hello) + "\nOK\nEC25\n" + c_hello + "\n");
    EXPECT_EQ(outcome.counts.strayDigits, 3U);
    EXPECT_EQ(outcome.counts.strayPdus, 2U);
}

TEST(LogReader, AnswerAfterAPrefixEndsWhatWasTyped) {
    const std::string submit = "0001070491214300000161";
    for (const std::string prefix : {"", "10:00:00 ", "RX ", "gw smsd[12]: ", "[10:00] <- ", "GSM1: <- ",
                                     "2026-11-22T10:00:00.000000000Z stdout F "}) {
        for (const char* answer : {"+CMS ERROR: 38", "ERROR", "OK", "+CMGW: 3 OK"}) {
            std::string log;
            for (int i = 0; i < 2; ++i)
                log += prefix + "AT+CMGW=10\n" + prefix + "> " + submit + '\n' + prefix + answer + '\n';
            EXPECT_EQ(TextsIn(log), (std::vector<std::string>{submit, submit})) << prefix << answer;
        }
    }
}

TEST(LogReader, CarriageReturnsAloneEndTheLinesOfAList) {
    const LogOutcome outcome = ReadLog(std::string(c_hello) + "\r0001070491214300000161\r\n");
    ASSERT_EQ(outcome.entries.size(), 2U);
    EXPECT_EQ(outcome.entries[0].text, c_hello);
    EXPECT_EQ(outcome.entries[1].text, "0001070491214300000161");
    EXPECT_EQ(outcome.counts.entries, 1U) << "the lines are those of line feeds";
}

TEST(LogReader, MarkOfUtf16BeginsNoDigits) {
    for (const char* mark : {"\xFF\xFE", "\xFE\xFF"})
        EXPECT_EQ(TextsIn(mark + std::string(c_hello) + '\n'), std::vector<std::string>{c_hello});
}

std::string Lines(const std::string& line, int count) {
    std::string lines;
    while (count-- > 0)
        lines += line + '\n';
    return lines;
}

TEST(LogReader, TalkDecidesNothingWhileItWaits) {
    for (const char* line : {"2026-11-22 gatewayd: started", "hello", "Linux version 6.1.0", "PDU: 079",
                             "tpdu 079121436587092", "# 0791", "", "ab gh"}) {
        LogReader reader;
        reader.Take(line, 1);
        reader.Release();
        EXPECT_FALSE(reader.Next()) << line;
        reader.Take("+CMT: ,24", 2);
        reader.Take(c_hello, 3);
        const auto entry = reader.Next();
        ASSERT_TRUE(entry) << line;
        EXPECT_EQ(entry->line, 3U);
        EXPECT_EQ(reader.Counts().lines, 3U);
        EXPECT_EQ(reader.Counts().passedOver, 2U) << "the heading too";
    }
}

TEST(LogReader, WhatMayBeAPduIsGivenOnRelease) {
    for (const char* line : {"0", "0G", "07 91", "PDU: 0791", "pdu=07 91", "tpdu 0791214365870921", "b'07'",
                             "X'07'", "0x07", "079121 x 43", "dead beef"}) {
        LogReader reader;
        reader.Take("gatewayd: started", 1);
        reader.Take(line, 2);
        reader.Take("gatewayd: sent", 3);
        reader.Release();
        for (const std::size_t number : {1U, 2U, 3U}) {
            const auto entry = reader.Next();
            ASSERT_TRUE(entry) << line;
            EXPECT_EQ(entry->line, number) << line;
        }
    }
}

TEST(LogReader, CommentsDecideNothingWhileTheyWait) {
    LogReader reader;
    reader.Take("# 0791", 1);
    reader.Take("gatewayd: started", 2);
    reader.Release();
    EXPECT_FALSE(reader.Next());
}

TEST(LogReader, TalkIsAListInTheEnd) {
    EXPECT_EQ(TextsIn("hello\nagain\n"), (std::vector<std::string>{"hello", "again"}));
}

TEST(LogReader, LogMayBeginWithTalkOfAnyLength) {
    const LogOutcome log =
        ReadLog(Lines("2026-11-22 10:00:00 gatewayd: started", 5000) + "+CMT: ,24\n" + c_hello + '\n');
    ASSERT_EQ(log.entries.size(), 1U);
    EXPECT_EQ(log.entries[0].line, 5002U);
    EXPECT_EQ(log.counts.passedOver, 5001U);
}

TEST(LogReader, TalkThatWasForgottenIsCounted) {
    const LogOutcome list = ReadLog(Lines("gatewayd: started", 20000) + c_hello + '\n');
    EXPECT_EQ(list.entries.back().text, c_hello);
    EXPECT_GT(list.counts.forgotten, 0U);
    EXPECT_EQ(list.counts.forgotten, list.counts.passedOver);
    EXPECT_EQ(list.counts.passedOver + list.counts.entries, 20001U);
    EXPECT_EQ(ReadLog(Lines("gatewayd: started", 20)).counts.forgotten, 0U);
}

TEST(LogReader, DumpWithoutCharactersIsKnownByItsSecondLine) {
    const std::string digits = "0791214365870921040b912143658709f100002120312143658005c8329bfd06";
    const std::string first = "0000  07 91 21 43 65 87 09 21 04 0b 91 21 43 65 87 09\n";
    const std::string second = "0010  f1 00 00 21 20 31 21 43 65 80 05 c8 32 9b fd 06\n";
    EXPECT_EQ(TextsIn(first + second), std::vector<std::string>{digits});
    EXPECT_EQ(TextsIn(first + second + first + second + "0020\n"),
              (std::vector<std::string>{digits, digits}));
    EXPECT_EQ(TextsIn("0000  07 91\n0002\n"), std::vector<std::string>{"0791"});
    EXPECT_EQ(TextsIn("0000  07 91\n"), std::vector<std::string>{"0000  07 91"});
    EXPECT_EQ(TextsIn(first + c_hello + '\n'),
              (std::vector<std::string>{first.substr(0, first.size() - 1), c_hello}));
}

TEST(LogReader, DumpInAListIsOnePdu) {
    const std::string first =
        "00000000  07 91 21 43 65 87 09 21  04 0b 91 21 43 65 87 09  |..!Ce..!...!Ce..|\n";
    const std::string rest =
        "00000010  f1 00 00 21 20 31 21 43  65 80 05 c8 32 9b fd 06  |...! 1!Ce...2...|\n";
    const std::string digits = "0791214365870921040b912143658709f100002120312143658005c8329bfd06";
    EXPECT_EQ(TextsIn(first + rest), std::vector<std::string>{digits});
    EXPECT_EQ(TextsIn(first + rest + "00000020\n" + first + rest + "00000020\n"),
              (std::vector<std::string>{digits, digits}));
    EXPECT_EQ(TextsIn(first + rest + first + rest), (std::vector<std::string>{digits, digits}));
    EXPECT_EQ(TextsIn(first + c_hello + '\n' + rest),
              (std::vector<std::string>{digits.substr(0, 32), c_hello, rest.substr(0, rest.size() - 1)}))
        << "the second line stands alone";
    EXPECT_EQ(TextsIn("+CMT: ,24\n" + first + rest), std::vector<std::string>{digits}) << "in a log";
    LogReader reader;
    reader.Take(first.substr(0, first.size() - 1), 1);
    reader.Release();
    EXPECT_FALSE(reader.Next()) << "half a PDU waits for the rest";
    reader.Take(rest.substr(0, rest.size() - 1), 2);
    EXPECT_FALSE(reader.Next());
    reader.Release();
    const auto entry = reader.Next();
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->line, 1U);
    EXPECT_EQ(reader.Counts().entries, 2U);
}

TEST(LogReader, LinesOfDigitsAloneComeAtOnceOnceItIsAList) {
    const std::string dumped =
        "00000000  07 91 21 43 65 87 09 21  04 0b 91 21 43 65 87 09  |..!Ce..!...!Ce..|";
    const std::string digits = "0791214365870921040b912143658709";
    const struct {
        std::string line;
        std::vector<std::string> texts; ///< that are there with it
    } cases[] = {
        {"00000010", {digits}}, // the offset that ends the dump
        {"00000011", {digits, "00000011"}},
        {"000000010", {digits, "000000010"}},
        {c_hello, {digits, c_hello}},
        {c_hello + std::string("\r"), {digits, c_hello}},
    };
    for (const auto& [line, texts] : cases) {
        LogReader reader;
        reader.Take(c_hello, 1);
        reader.Release();
        ASSERT_TRUE(reader.Next());
        reader.Take(dumped, 2);
        EXPECT_FALSE(reader.Next()) << "which may go on";
        reader.Take(line, 3);
        std::vector<std::string> found;
        std::size_t number = 2;
        while (const auto entry = reader.Next()) {
            EXPECT_EQ(entry->line, number++);
            found.push_back(entry->text);
        }
        EXPECT_EQ(found, texts) << line;
        EXPECT_EQ(reader.Counts().entries, 3U) << line;
        EXPECT_EQ(reader.Counts().lines, 3U) << line;
    }
}

TEST(LogReader, PiecesInALogAreDumpedWithOffsetsOfTheirOwn) {
    EXPECT_EQ(TextsIn("+CMT: ,24\n0000  07 91 21 43 65 87 09 21 04 0B 91 21 43 65 87 09  ..!Ce..!...!Ce..\n"
                      "0000  F1 00 00 21 20 31 21 43 65 80 05 C8 32 9B FD 06  ...! 1!Ce...2...\n"),
              std::vector<std::string>{c_hello});
}

TEST(LogReader, WordsThatAreNotSoundAreLeftForOthersOfTheirLength) {
    EXPECT_EQ(TextsIn("+CMT: ,24\n07" + std::string(62, 'F') + ' ' + c_hello + '\n'),
              std::vector<std::string>{c_hello});
}

TEST(LogReader, PiecesInQuotationMarksMayBeShort) {
    const std::string hello = c_hello;
    std::string log = "+CMT: ,24\n";
    for (std::size_t at = 0; at < hello.size(); at += 8)
        log += '"' + hello.substr(at, 8) + "\"\n";
    EXPECT_EQ(TextsIn(log), std::vector<std::string>{c_hello});
}

TEST(LogReader, DumpBeforeALineOfAModemIsGiven) {
    LogReader reader;
    reader.Take("00000000  07 91  ..", 1);
    reader.Release();
    reader.Take("OK", 2);
    ASSERT_TRUE(reader.Next());
}

TEST(LogReader, LinesOfADumpAreKeptUpToABound) {
    LogReader reader;
    reader.Take("0", 1);
    reader.Release();
    const std::string octets = "00000000  41 41 41 41 41 41 41 41 41 41 41 41 41 41 41 41  AAAAAAAAAAAAAAAA";
    std::size_t number = 1;
    for (std::size_t offset = 0; offset <= LogReader::LOOK_AHEAD / 2; offset += 16) {
        std::string line = octets;
        for (std::size_t digit = 0, left = offset; digit < 8; ++digit, left /= 16)
            line[7 - digit] = "0123456789abcdef"[left % 16];
        reader.Take(line, ++number);
    }
    ASSERT_TRUE(reader.Next());
    const auto dump = reader.Next();
    ASSERT_TRUE(dump);
    EXPECT_EQ(dump->text.size(), LogReader::LOOK_AHEAD + 32) << "up to the line that goes beyond it";
    EXPECT_FALSE(reader.Next());
}

TEST(LogReader, TimeBeforeThePiecesOfAPduIsNoneOfIt) {
    const std::string hello = c_hello;
    for (const std::string time : {"10:00:0", "2026-11-22 10:00:01.12", "[10:00:0", "1732269600.12345"}) {
        const std::string end = time[0] == '[' ? "] " : " ";
        for (const std::size_t size : {58U, 60U, 62U, 20U}) {
            std::string log = "+CMT: ,24\n";
            for (std::size_t at = 0; at < hello.size(); at += size)
                log += time + "1" + end + hello.substr(at, size) + '\n';
            EXPECT_EQ(TextsIn(log), std::vector<std::string>{c_hello}) << log;
        }
    }
    EXPECT_EQ(
        TextsIn("+CMT: ,25\n10:00:01 " + hello.substr(0, 58) + "\n10:00:02 " + hello.substr(58) + "\nOK\n"),
        std::vector<std::string>{c_hello})
        << "whatever length was announced";
    EXPECT_EQ(TextsIn("rx: +CMT: ,24\nrx: " + hello.substr(0, 58) + "\n10:00:02 " + hello.substr(58) + '\n'),
              std::vector<std::string>{c_hello})
        << "of the fewest words";
}

TEST(LogReader, CallsThatReadAndWriteAreNoDigits) {
    const std::string hello = c_hello;
    EXPECT_EQ(TextsIn("read(5, \"\\r\\n+CMT: ,24\\r\\n\", 4096) = 14\nread(5, \"" + hello +
                      "\\r\\n\", 4096) = 66\n"),
              std::vector<std::string>{c_hello});
    EXPECT_EQ(TextsIn("read(5, \"\\r\\n+CMT: ,24\\r\\n\", 4096) = 14\nread(5, \"" + hello.substr(0, 40) +
                      "\"..., 4096) = 40\nread(5, \"" + hello.substr(40) + "\\r\\n\", 4096) = 26\n"),
              std::vector<std::string>{c_hello});
    EXPECT_EQ(
        TextsIn("read(5, '\\r\\n+CMT: ,24\\r\\n', 4096) = 14\nread(5, '" + hello + "\\r\\n', 4096) = 66\n"),
        std::vector<std::string>{c_hello});
    EXPECT_EQ(TextsIn("read(5, \"\\r\\n+CMT: ,24\\r\\n\", 4096) = 14\nread(5, \"" + hello.substr(0, 40) +
                      "\\r\\n\", 4096) = 42\nread(5, \"" + hello.substr(40) + "\\r\\n\", 4096) = 26\n"),
              std::vector<std::string>{c_hello});
    const LogOutcome sent = ReadLog("write(5, \"AT+CMGS=10\\r\", 11) = 11\nread(5, \"> \", 4096) = 2\n"
                                    "write(5, \"0001070491214300000161\\32\", 23) = 23\n"
                                    "read(5, \"\\r\\n+CMGS: 7\\r\\n\\r\\nOK\\r\\n\", 4096) = 20\n");
    ASSERT_EQ(sent.entries.size(), 2U);
    EXPECT_EQ(sent.entries[0].text, "0001070491214300000161");
    EXPECT_EQ(sent.entries[1].heading->sentLine, 3U);
}

} // namespace
