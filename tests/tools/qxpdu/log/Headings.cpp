// What a line says about a PDU beside it, and which lines are of a modem.
#include "log/Headings.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace {

using Messages::Direction;
using qxpdu::FindMark;
using qxpdu::Heading;
using qxpdu::Mark;

const std::string c_pdu = "0791214365870921040B912143658709F100002120312143658005C8329BFD06"; // of 24 octets

std::string WordsOf(const Heading& heading) {
    constexpr std::array<const char*, 4> c_kinds = {"TPDU", "page", "acknowledgement", "reference"};
    std::string words = c_kinds.at(static_cast<std::size_t>(heading.kind));
    if (heading.length)
        words += fmt::format(" of {}", *heading.length);
    if (heading.direction != Direction::Unknown)
        words += heading.direction == Direction::ToMobile ? " to" : " from";
    for (const auto& [is, word] :
         {std::pair(heading.isStored, " stored"), std::pair(heading.isTyped, " typed"),
          std::pair(heading.isUnasked, " unasked"), std::pair(heading.isSent, " sent")})
        words += is ? word : "";
    if (heading.reference != 0)
        words += fmt::format(" {}", heading.reference);
    return words + (heading.digits.empty() ? "" : " in " + heading.digits);
}

/// "0-14 +CMGL: TPDU of 24 to stored": where it stands, its name, and what follows.
std::string Told(std::string_view line, std::size_t from = 0) {
    const std::optional<Mark> mark = FindMark(line, from);
    if (!mark)
        return "nothing";
    constexpr std::array<const char*, 4> c_kinds = {"", "text", "empty", "notice"};
    const std::string follows = mark->kind == Mark::Kind::Heading
                                    ? WordsOf(mark->heading)
                                    : c_kinds.at(static_cast<std::size_t>(mark->kind));
    return fmt::format("{}-{} {}: {}", mark->begin, mark->end, mark->heading.name, follows);
}

struct Row {
    std::string line;
    const char* told;
};

template <std::size_t Count>
void Expect(const Row (&rows)[Count]) {
    for (const Row& row : rows)
        EXPECT_EQ(Told(row.line), row.told) << row.line;
}

TEST(FindMark, StoredMessageHasItsStatusBeforeTheNameAndItsLengthAtTheEnd) {
    const Row rows[] = {
        {"+CMGL: 1,0,,24", "0-14 +CMGL: TPDU of 24 to stored"},
        {"+CMGL: 1,1,,24", "0-14 +CMGL: TPDU of 24 to stored"},
        {"+CMGL: 1,2,,24", "0-14 +CMGL: TPDU of 24 from stored"},
        {"+CMGL: 1,3,,24", "0-14 +CMGL: TPDU of 24 from stored"},
        {"+CMGL: 1,4,,24", "0-14 +CMGL: TPDU of 24 stored"},
        {"+CMGL: 1,2,\"Bob\",24", "0-19 +CMGL: TPDU of 24 from stored"},
        {"+CMGL: 1,2,\"Bo\"\"b,\",24", "0-22 +CMGL: TPDU of 24 from stored"},
        {"+CMGL: 1,2,,7,24", "0-16 +CMGL: TPDU of 24 from stored"},
        {"+CMGL: 1,2,,7,8,24", "0-18 +CMGL: text"},
        {"+CMGL: 2,24", "0-11 +CMGL: TPDU of 24 stored"},
        {"+CMGL: 24", "0-9 +CMGL: empty"},
        {"+CMGL: 1,0,,0", "0-13 +CMGL: empty"},
        {"+CMGL: 1,0,,", "0-12 +CMGL: empty"},
        {"+CMGL: 1,0,\"Bob\",", "0-17 +CMGL: text"},
        {"+CMGL: 1,\"REC READ\",\"+4179\",24", "0-30 +CMGL: text"},
        {"+CMGL: ", "0-7 +CMGL: empty"},
        {"^SMGL: 1,2,,24", "0-14 ^SMGL: TPDU of 24 from stored"},
        {"+CMGR: 0,,24", "0-12 +CMGR: TPDU of 24 to stored"},
        {"+CMGR: 2,\"Bob\",24", "0-17 +CMGR: TPDU of 24 from stored"},
        {"+CMGR: 4,1,,151", "0-15 +CMGR: TPDU of 151 to stored"},
        {"+CMGR: ,24", "0-10 +CMGR: empty"},
        {"+CMGR: \"REC READ\",24", "0-20 +CMGR: text"},
        {"+CMGR: \"\",24", "0-12 +CMGR: empty"},
        {"^SMGR: 3,,24", "0-12 ^SMGR: TPDU of 24 from stored"},
    };
    Expect(rows);
}

TEST(FindMark, DeliveredMessageHasItsLengthAfterAName) {
    const Row rows[] = {
        {"+CMT: ,24", "0-9 +CMT: TPDU of 24 to unasked"},
        {"+CMT: 24", "0-8 +CMT: TPDU of 24 to unasked"},
        {"+CMT: \"\",24", "0-11 +CMT: TPDU of 24 to unasked"},
        {"+CMT: \"Bob\",,24", "0-15 +CMT: TPDU of 24 to unasked"},
        {"+CMT: \"Bob\",,,24", "0-16 +CMT: text"},
        {"+CMT: 5,24", "0-10 +CMT: text"},
        {"+CMT: \"+4179\",,\"26/12/24,18:00:00+04\"", "0-37 +CMT: text"},
        {"+CMT: ,0", "0-8 +CMT: empty"},
        {"+CMT: \"Bob,24", "0-5 +CMT: empty"},
        {"+CDS: 24", "0-8 +CDS: TPDU of 24 to unasked"},
        {"+CBM: 88", "0-8 +CBM: page of 88 to unasked"},
    };
    Expect(rows);
}

TEST(FindMark, CommandsBeginWithAt) {
    const Row rows[] = {
        {"AT+CMGS=24", "0-10 +CMGS: TPDU of 24 from typed sent"},
        {"at+cmgs=24", "0-10 +CMGS: TPDU of 24 from typed sent"},
        {"+CMGS=24", "0-8 +CMGS: TPDU of 24 from typed sent"},
        {"> AT+CMGS=24", "2-12 +CMGS: TPDU of 24 from typed sent"},
        {"AT+CMGS=\"24\"", "0-12 +CMGS: text"},
        {"AT+CMGS=24,145", "0-14 +CMGS: text"},
        {"AT+CMGS=?", "0-8 +CMGS: empty"},
        {"AT+CMGC=24", "0-10 +CMGC: TPDU of 24 from typed sent"},
        {"AT+CMGW=24", "0-10 +CMGW: TPDU of 24 from typed"},
        {"AT+CMGW=24,0", "0-12 +CMGW: TPDU of 24 to typed"},
        {"AT+CMGW=24,3", "0-12 +CMGW: TPDU of 24 from typed"},
        {"AT+CMGW=24,4", "0-12 +CMGW: TPDU of 24 typed"},
        {"AT+CMGW=24,\"0\"", "0-14 +CMGW: TPDU of 24 from typed"},
        {"AT+CMGW=24,0,1", "0-14 +CMGW: text"},
        {"AT+CMGW=\"24\"", "0-12 +CMGW: text"},
        {"AT+CNMA=1,24", "0-12 +CNMA: acknowledgement of 24 from typed"},
        {"AT+CNMA=1,\"24\"", "0-14 +CNMA: empty"},
        {"AT+CNMA=24", "0-10 +CNMA: empty"},
        {"AT+CNMA=1,24,3", "0-14 +CNMA: empty"},
        {"AT+CMGL=4", "nothing"},
        {"AT+CMT=24", "nothing"},
    };
    Expect(rows);
}

TEST(FindMark, ReferenceIsThatOfTheMessageSentBefore) {
    const Row rows[] = {
        {"+CMGS: 77", "0-9 +CMGS: reference to 77"},
        {"+CMGC: 77", "0-9 +CMGC: reference to 77"},
        {"+CMGS: 77,\"00AB\"", "0-16 +CMGS: reference to 77 in 00AB"},
        {"+CMGS: 77,0001", "0-14 +CMGS: reference to 77 in 0001"},
        {"+CMGS: 77,\"00A\"", "0-15 +CMGS: reference to 77"},
        {"+CMGS: 77,\"00AG\"", "0-16 +CMGS: reference to 77"},
        {"+CMGS: \"77\"", "0-11 +CMGS: empty"},
        {"+CMGW: 77", "0-9 +CMGW: notice"},
        {"+CMTI: \"SM\",3", "0-13 +CMTI: notice"},
        {"+CDSI: \"SM\",3", "0-13 +CDSI: notice"},
        {"+CBMI: \"BM\",3", "0-13 +CBMI: notice"},
        {"+CMTI: ", "0-7 +CMTI: empty"},
    };
    Expect(rows);
}

TEST(FindMark, StandsAnywhereWithBlanksAroundItsMarks) {
    const Row rows[] = {
        {"12:00 [x] +CMT: ,24", "10-19 +CMT: TPDU of 24 to unasked"},
        {"+CSQ: 1 ^SMGR: 1,,24", "8-20 ^SMGR: TPDU of 24 to stored"},
        {"+CMT \t:\t, \t24 ", "0-13 +CMT: TPDU of 24 to unasked"},
        {"+CMT", "nothing"},
        {"+CMTX: ,24", "nothing"},
        {"CMT: ,24", "nothing"},
        {"", "nothing"},
    };
    Expect(rows);
    EXPECT_EQ(Told("+CMT: ,24 +CDS: 25", 1), "10-18 +CDS: TPDU of 25 to unasked");
    EXPECT_EQ(Told("+CMT: ,24", 9), "nothing");
}

TEST(FindMark, LengthIsTheDigitsBeforeAWholePduWhereNoLineEndIsPrinted) {
    EXPECT_EQ(Told("+CMT: ,24" + c_pdu), "0-9 +CMT: TPDU of 24 to unasked");
    EXPECT_EQ(Told("+CMT: ,024" + c_pdu), "0-10 +CMT: TPDU of 24 to unasked");
    EXPECT_EQ(Told("+CMT: ,24" + c_pdu + "OK"), "0-9 +CMT: TPDU of 24 to unasked");
    EXPECT_EQ(Told("+CMGL: 1,2,,900010704912143000000"), "0-13 +CMGL: TPDU of 9 from stored");
    EXPECT_EQ(Told("+CMT: ,24A4" + c_pdu.substr(18)), "0-9 +CMT: TPDU of 24 to unasked")
        << "without a service centre, and a letter first";
    EXPECT_EQ(Told("+CMT: ,0024" + c_pdu), "0-6 +CMT: empty") << "no length has four digits";
    EXPECT_EQ(Told("+CMT: ,23" + c_pdu), "0-6 +CMT: empty");
    EXPECT_EQ(Told("+CMT: ,12345"), "0-12 +CMT: TPDU of 12345 to unasked");
    EXPECT_EQ(Told("+CMT: ,123456"), "0-6 +CMT: empty");
}

struct SaidRow {
    const char* line;
    bool isSo;
};

TEST(EndsAnswer, AtItsWordsAndAtCommands) {
    const SaidRow rows[] = {
        {"OK", true},
        {"ok", true},
        {" \"OK\" ", true},
        {"OK then", true},
        {"OK: 1", true},
        {"OKAY", false},
        {"ERROR", true},
        {"+CME ERROR: 10", true},
        {"+CMS ERROR", true},
        {"+CMX ERROR", false},
        {"NO CARRIER", true},
        {"NO ANSWER", true},
        {"NO DIALTONE", true},
        {"BUSY", true},
        {"CONNECT 9600", true},
        {"AT", true},
        {"at", true},
        {"ATI", true},
        {"ATE0", true},
        {"ATD+4179", true},
        {"ATS0=1", true},
        {"AT+CSQ", true},
        {"AT^X", true},
        {"AT&F", true},
        {"AT/10", false},
        {"ATTACHED", false},
        {"AT ease", false},
        {"12:00:01 <- OK", true},
        {"12:00 | ERROR", true},
        {"12:00 |\t OK", true},
        {"12:00 OK", false},
        {"12:00 | OKAY", false},
        {"12:00 | BUSY", false},
        {"Not OK", false},
        {"", false},
        {"--", false},
    };
    for (const SaidRow& row : rows)
        EXPECT_EQ(qxpdu::EndsAnswer(row.line), row.isSo) << row.line;
}

TEST(EndsInError, WhereTheAnswerIsOne) {
    const SaidRow rows[] = {
        {"ERROR", true},          {"+CME ERROR: 10", true}, {"+CMS ERROR: 500", true},
        {"12:00 <- ERROR", true}, {"12:00 <- OK", false},   {"OK", false},
        {"NO CARRIER", false},    {"no ERROR", false},      {"the last ERROR", false},
        {"ERRORS", false},
    };
    for (const SaidRow& row : rows)
        EXPECT_EQ(qxpdu::EndsInError(row.line), row.isSo) << row.line;
}

TEST(IsUnasked, NamesWithAColonAndKnownWords) {
    const SaidRow rows[] = {
        {"+CREG: 1", true},
        {"<- +CREG: 1", true},
        {"^BOOT: x", true},
        {"+creg: x", true},
        {"+CR: 1", true},
        {"+C: 1", false},
        {"+CREG", false},
        {"+CREG 1", false},
        {"+CREG:", false},
        {"+1CR: 1", false},
        {"CREG: 1", false},
        {"#QSS: 1", true},
        {"#QSS:1", true},
        {"#QSS: \"1\"", true},
        {"#QSS: x", false},
        {"#QSS:", false},
        {"#Qss: 1", false},
        {"#QaS: 1", false},
        {"#QzS: 1", false},
        {"%QSS: 1", true},
        {"RING", true},
        {"ring", true},
        {"RINGING", false},
        {"RDY", true},
        {"SMS Ready", true},
        {"SIM READY", true},
        {"PB DONE", true},
        {"Call Ready", true},
        {"SMS DONE", true},
        {"POWER DOWN", true},
        {"NORMAL POWER DOWN", true},
        {"POWER UP", false},
        {"OK", false},
        {"", false},
    };
    for (const SaidRow& row : rows)
        EXPECT_EQ(qxpdu::IsUnasked(row.line), row.isSo) << row.line;
}

TEST(IsComment, ButNotWhatAModemNamesSo) {
    const SaidRow rows[] = {
        {"# of mine", true}, {" \t# AB: 1", true}, {"#", true},     {"//", true},     {"/ x", false},
        {"#QSS: 1", false},  {"#Sent: 1", true},   {"#AB 1", true}, {"x # y", false}, {"", false},
    };
    for (const SaidRow& row : rows)
        EXPECT_EQ(qxpdu::IsComment(row.line), row.isSo) << row.line;
}

TEST(IsOfModem, WhatNobodyElseWrites) {
    const SaidRow rows[] = {
        {"+CMT: ,24", true},    {"# +CMT: ,24", false},   {"say AT+CSQ", true}, {"at+csq", true},
        {"BAT+CSQ", false},     {"1AT+CSQ", false},       {"AT+", true},        {"5+AT^X", true},
        {"CONNECT 9600", true}, {"CONNECT to it", false}, {"OK", true},         {"OK 2", true},
        {"OK then", false},     {"RING", true},           {"RING me", false},   {"ATE0", true},
        {"ATTACHED", false},    {"+CREG: 1", true},       {"hello", false},     {"", false},
    };
    for (const SaidRow& row : rows)
        EXPECT_EQ(qxpdu::IsOfModem(row.line), row.isSo) << row.line;
}

TEST(Core, IsFromTheFirstLetterOrDigitToTheLast) {
    EXPECT_EQ(qxpdu::Core(" <a - 1> "), "a - 1");
    EXPECT_EQ(qxpdu::Core("a"), "a");
    EXPECT_EQ(qxpdu::Core("--"), "");
    EXPECT_EQ(qxpdu::Core(""), "");
}

} // namespace
