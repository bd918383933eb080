// What the receiver makes of what it is given.
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/CapturedStderr.h"

#define main MainOfReceive
#include "../../examples/receive.cpp"
#undef main

namespace {

using Lines = std::vector<std::string>;

const std::string c_time = "62115042000040";
const std::string c_later = "62115042100040";

std::string Octet(std::size_t value) {
    const char* const digits = "0123456789ABCDEF";
    return {digits[value / 16 % 16], digits[value % 16]};
}

/// An SMS-DELIVER from +12345678901; `text` is UCS2 in hexadecimal.
std::string Whole(const std::string& text) {
    return "00040B912143658709F10008" + c_time + Octet(text.size() / 2) + text;
}

std::string PartOf(std::size_t reference, const std::string& totalAndNumber, const std::string& text,
                   const std::string& time = c_time) {
    const std::string userData = "050003" + Octet(reference) + totalAndNumber + text;
    return "00440B912143658709F10008" + time + Octet(userData.size() / 2) + userData;
}

/// Puts a stream on another buffer for as long as it lives.
class Redirected {
public:
    Redirected(std::ios& stream, std::streambuf* buffer) : m_Stream(stream), m_Before(stream.rdbuf(buffer)) {}
    Redirected(const Redirected&) = delete;
    Redirected& operator=(const Redirected&) = delete;
    ~Redirected() { m_Stream.rdbuf(m_Before); } // and clears its state

private:
    std::ios& m_Stream;
    std::streambuf* m_Before;
};

int RunReceiver(const Lines& lines, std::streambuf* output) {
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    std::istringstream input(text);
    const Redirected in(std::cin, input.rdbuf());
    const Redirected out(std::cout, output);
    return MainOfReceive();
}

std::string Receive(const Lines& lines) {
    std::ostringstream output;
    EXPECT_EQ(RunReceiver(lines, output.rdbuf()), EXIT_SUCCESS);
    return output.str();
}

TEST(ReceiveExample, SaysWhatAStatusReportSays) {
    const std::string report = "00062A0B912143658709F16211504200004062115042000040";
    EXPECT_EQ(Receive({report + "00", report + "46"}),
              "to +12345678901: message 42 has arrived\n"
              "to +12345678901: message 42 has not arrived, status 14\n");
}

TEST(ReceiveExample, ReservedTypeIsNoShortMessage) {
    const std::string reserved = "00030B912143658709F10008621150420000400400480069";
    EXPECT_EQ(Receive({reserved}), "no short message: " + reserved + "\n");
}

TEST(ReceiveExample, NamesWhomAMessageGoesTo) {
    const std::string before = "0041000181F10008";
    EXPECT_EQ(
        Receive({"0001000181F10008020048", before + "080500030702010048", before + "080500030702020069"}),
        "to 1: H\nto 1: Hi\n");
}

TEST(ReceiveExample, SurrogatePairsAreCharacters) {
    const struct {
        const char* units;
        const char* text;
    } rows[] = {
        {"00480069D83DDE00", "Hi\xF0\x9F\x98\x80"},
        {"D800DC00", "\xF0\x90\x80\x80"},
        {"DBFFDFFF", "\xF4\x8F\xBF\xBF"},
        {"D83DDE000021", "\xF0\x9F\x98\x80!"},
        {"D7FFDC00", "\xED\x9F\xBF\xEF\xBF\xBD"},
        {"D800DBFF", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"D800E000", "\xEF\xBF\xBD\xEE\x80\x80"},
        {"DC00DC00", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"DC00D800", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"DC00", "\xEF\xBF\xBD"},
        {"D83DD83DDE00", "\xEF\xBF\xBD\xF0\x9F\x98\x80"},
        {"D83DDE00DE00", "\xF0\x9F\x98\x80\xEF\xBF\xBD"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Receive({Whole(row.units)}), "+12345678901: " + std::string(row.text) + "\n") << row.units;
}

TEST(ReceiveExample, SurrogatePairMayStandInTwoParts) {
    EXPECT_EQ(Receive({PartOf(1, "0202", "DE000021"), PartOf(1, "0201", "D83D")}),
              "+12345678901: \xF0\x9F\x98\x80!\n");
}

TEST(ReceiveExample, PartsOfOneMessageHaveSideReferenceAndTotalInCommon) {
    EXPECT_EQ(Receive({PartOf(7, "0201", "0048"), "0041000181F10008080500030702020069",
                       PartOf(8, "0202", "0069"), PartOf(7, "0302", "0069")}),
              "+12345678901: 1 of 2 parts\nto 1: 1 of 2 parts\n"
              "+12345678901: 1 of 2 parts\n+12345678901: 1 of 3 parts\n");
}

TEST(ReceiveExample, PartThatComesAgainIsNoNewMessage) {
    const std::string first = PartOf(1, "0201", "0048");
    const std::string second = PartOf(1, "0202", "0069");
    EXPECT_EQ(Receive({first, first, second, first, second}), "+12345678901: Hi\n");
}

TEST(ReceiveExample, ReferenceThatComesRoundIsANewMessage) {
    const Lines before = {PartOf(1, "0201", "0048"), PartOf(1, "0202", "0069")};
    Lines lines = before;
    lines.push_back(PartOf(1, "0201", "0048", c_later));
    EXPECT_EQ(Receive(lines), "+12345678901: Hi\n+12345678901: 1 of 2 parts\n");
    lines.push_back(PartOf(1, "0202", "006F", c_later));
    EXPECT_EQ(Receive(lines), "+12345678901: Hi\n+12345678901: Ho\n");
}

TEST(ReceiveExample, HundredMessagesMayWaitForTheirParts) {
    Lines lines;
    std::string expected;
    for (std::size_t reference = 0; reference < 100; ++reference)
        lines.push_back(PartOf(reference, "0201", "0048"));
    for (std::size_t reference = 0; reference < 100; ++reference) {
        lines.push_back(PartOf(reference, "0202", "0069"));
        expected += "+12345678901: Hi\n";
    }
    EXPECT_EQ(Receive(lines), expected);
}

TEST(ReceiveExample, OldestMessageGoesForTheHundredAndFirst) {
    Lines lines = {PartOf(0, "0401", "0048"), PartOf(1, "0501", "0048")};
    for (std::size_t reference = 2; reference < 101; ++reference)
        lines.push_back(PartOf(reference, "0301", "0048"));
    lines.push_back(Whole("0021"));
    std::string expected = "+12345678901: 1 of 4 parts\n+12345678901: !\n+12345678901: 1 of 5 parts\n";
    for (std::size_t reference = 2; reference < 101; ++reference)
        expected += "+12345678901: 1 of 3 parts\n";
    EXPECT_EQ(Receive(lines), expected);
}

TEST(ReceiveExample, CompleteMessageGoesSilently) {
    Lines lines = {PartOf(0, "0201", "0048"), PartOf(0, "0202", "0069")};
    std::string expected = "+12345678901: Hi\n";
    for (std::size_t reference = 1; reference < 101; ++reference) {
        lines.push_back(PartOf(reference, "0301", "0048"));
        expected += "+12345678901: 1 of 3 parts\n";
    }
    EXPECT_EQ(Receive(lines), expected);
}

TEST(ReceiveExample, FailsWhenStandardOutputCannotBeWritten) {
    std::ofstream full("/dev/full");
    ASSERT_TRUE(full);
    const tests::CapturedStderr captured;
    // Written after the last line read, since reading flushes what was written before.
    EXPECT_EQ(RunReceiver({PartOf(1, "0201", "0021")}, full.rdbuf()), EXIT_FAILURE);
    EXPECT_EQ(captured.Text(), "standard output cannot be written\n");
}

} // namespace
