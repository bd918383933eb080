// What is found in lines, and what is said of a source as a whole.
#include "stream/InputReader.h"

#include <sstream>

#include <gtest/gtest.h>

#include "tools/qxpdu/stream/Trickle.h"

namespace {

using qxpdu::Input;
using qxpdu::InputReader;
using qxpdu::Inputs;
using qxpdu::LineKind;
using qxpdu::WhenDry;
using tests::Trickle;
using Texts = std::vector<std::string>;

constexpr const char* c_hello = "0791214365870921040B912143658709F100002120312143658005C8329BFD06\n";
constexpr const char* c_textMode = "+CMGL: 1,\"REC READ\",\"+1234\"\nhi\n";

const Texts c_none;

struct Found {
    Texts inputs; ///< "line 1: a"
    Texts notes;  ///< "standard input: …", after "error: " where it is one
};

Found Read(const std::string& text, LineKind kind = LineKind::Transcript) {
    std::istringstream in(text);
    InputReader reader(Inputs({c_none, c_none, in}, Inputs::Cut::LogLines), kind);
    Found found;
    for (Input input; reader.Next(input, WhenDry::Wait);)
        found.inputs.push_back(NameOf(input) + ": " + input.text);
    EXPECT_TRUE(reader.HasEnded());
    for (const qxpdu::SourceNote& note : reader.Notes())
        found.notes.push_back((note.isError ? "error: " : "") + note.source + ": " + note.text);
    return found;
}

TEST(InputReader, LinesAreInputsByTheirKind) {
    const std::string text = " a\r\n\n \r\nb";
    EXPECT_EQ(Read(text, LineKind::Hex).inputs, (Texts{"line 1:  a\r", "line 4: b"}));
    EXPECT_EQ(Read(text, LineKind::Text).inputs,
              (Texts{"line 1:  a\r", "line 2: ", "line 3:  \r", "line 4: b"}));
    EXPECT_EQ(Read(text, LineKind::Message).inputs,
              (Texts{"line 1:  a", "line 2: ", "line 3:  ", "line 4: b"}));
    EXPECT_EQ(Read("a\r\r\n", LineKind::Message).inputs, Texts{"line 1: a\r"}) << "one alone";
}

TEST(InputReader, LineOfALogMayHaveAMebibyte) {
    const std::string heading = "+CMT: ,24\n";
    const std::string hello(c_hello);
    const std::string blanks(1048577 - heading.size(), ' ');
    EXPECT_EQ(Read(blanks + heading + hello).inputs, Texts{"line 2: " + hello.substr(0, hello.size() - 1)});
    EXPECT_EQ(Read(blanks + ' ' + heading + hello).inputs.size(), 2U) << "the longer line by itself";
    // After 256 characters that were read with the line before, the pieces that follow end at a mebibyte.
    const std::string line = std::string(69358, ' ') + '\r';
    EXPECT_EQ(Read(line + std::string(1048576, 'g') + '\n').inputs, Texts{}) << "talk";
    EXPECT_EQ(Read(line + std::string(1048577, 'g') + '\n').inputs.size(), 1U) << "a longer line";
}

TEST(InputReader, NotesTellWhatALogLacks) {
    const std::string hello = c_hello;
    const std::string textMode = c_textMode;
    const std::string passed = "in text mode passed over; PDU mode is AT+CMGF=0";
    const std::string none = "of hexadecimal digits stand in none";
    std::string talk;
    for (int i = 0; i < 5000; ++i)
        talk += "gatewayd: started\n";
    const struct {
        std::string text;
        Texts notes;
    } rows[] = {
        {"", {}},
        {"OK\n", {}},
        {hello, {}},
        {"+CMT: ,24\n" + hello, {}},
        {textMode + "OK\n", {"standard input: 1 message " + passed}},
        {textMode + textMode + "OK\n", {"standard input: 2 messages " + passed}},
        {textMode + "OK\n" + hello, {"standard input: 1 message " + passed}},
        {textMode + "OK\nEC25\n", {"standard input: 1 message " + passed}},
        {"OK\nEC25\n", {"standard input: the log of a modem without a message; 1 line " + none}},
        {"OK\nEC25\nDEAD\n", {"standard input: the log of a modem without a message; 2 lines " + none}},
        {"OK\n" + hello, {"error: standard input: the log of a modem without a message; 1 line " + none}},
        {"+CMT: ,24\n" + hello + "EC25\n", {}},
        {"+CMT: ,24\n" + hello + hello, {"standard input: 1 PDU that no heading announces passed over"}},
        {"+CMT: ,24\n" + hello + hello + hello,
         {"standard input: 2 PDUs that no heading announces passed over"}},
        {std::string(70000, 'g') + '\n',
         {"error: standard input: 1 line passed over, before anything like a PDU or the line of a modem"}},
        {std::string(70000, 'g') + '\n' + std::string(70000, 'g') + '\n' + hello,
         {"error: standard input: 2 lines passed over, before anything like a PDU or the line of a modem"}},
        {talk + "+CMT: ,24\n" + hello, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Read(row.text).notes, row.notes) << row.text.substr(0, 100);
}

TEST(InputReader, SourcesAreTheirOwn) {
    std::istringstream in(c_textMode);
    const Texts arguments = {std::string("+CMT: ,24\n") + c_hello, "-", "0G"};
    InputReader reader(Inputs({arguments, c_none, in}, Inputs::Cut::LogLines), LineKind::Transcript);
    Texts inputs;
    for (Input input; reader.Next(input, WhenDry::Wait);)
        inputs.push_back(NameOf(input) + ": " + input.text);
    const std::string hello(c_hello);
    EXPECT_EQ(inputs, (Texts{"argument 1: " + hello.substr(0, hello.size() - 1), "argument 3: 0G"}));
    ASSERT_EQ(reader.Notes().size(), 1U);
    EXPECT_EQ(reader.Notes()[0].source, "standard input");
}

TEST(InputReader, ReferenceInAnArgumentIsOfTheMessageThere) {
    std::istringstream in;
    const Texts arguments = {"0791", "AT+CMGS=10\n> 0001000491214300000161\x1A\n+CMGS: 7\nOK\n"};
    InputReader reader(Inputs({arguments, c_none, in}, Inputs::Cut::LogLines), LineKind::Transcript);
    Input input;
    ASSERT_TRUE(reader.Next(input, WhenDry::Wait));
    ASSERT_TRUE(reader.Next(input, WhenDry::Wait));
    EXPECT_EQ(input.number, 2U);
    ASSERT_TRUE(reader.Next(input, WhenDry::Wait));
    ASSERT_TRUE(input.heading);
    EXPECT_EQ(input.heading->reference, 7U);
    EXPECT_EQ(input.heading->sentLine, 2U) << "as the message is numbered";
}

TEST(InputReader, ArgumentsAreInputsAsTheyStand) {
    std::istringstream in;
    const Texts arguments = {" ", "a\r"};
    for (const LineKind kind : {LineKind::Hex, LineKind::Text, LineKind::Message, LineKind::Transcript}) {
        InputReader reader(Inputs({arguments, c_none, in}, Inputs::Cut::Lines), kind);
        Input input;
        ASSERT_TRUE(reader.Next(input, WhenDry::Wait));
        EXPECT_EQ(input.text, " ");
        ASSERT_TRUE(reader.Next(input, WhenDry::Wait));
        EXPECT_EQ(input.text, "a\r");
        EXPECT_FALSE(reader.HasEnded());
        EXPECT_FALSE(reader.Next(input, WhenDry::Wait));
        EXPECT_TRUE(reader.HasEnded());
    }
}

/// Reads what trickles in.
struct Dripping {
    explicit Dripping(Texts pieces, LineKind kind)
        : buffer(std::move(pieces)),
          in(&buffer),
          reader(Inputs({c_none, c_none, in}, Inputs::Cut::LogLines), kind) {}

    /// The next input; "-" where there is none.
    std::string Next(WhenDry whenDry) {
        Input input;
        return reader.Next(input, whenDry) ? input.text : "-";
    }

    Trickle buffer;
    std::istream in;
    InputReader reader;
};

TEST(InputReader, LinesAreWaitedForWhereThatIsAllowed) {
    Dripping lines({"0\n", "1\n"}, LineKind::Hex);
    EXPECT_EQ(lines.Next(WhenDry::Return), "-");
    EXPECT_EQ(lines.Next(WhenDry::Stop), "-");
    EXPECT_FALSE(lines.reader.IsReady());
    EXPECT_EQ(lines.Next(WhenDry::Wait), "0");
    lines.buffer.hasCome = true;
    EXPECT_TRUE(lines.reader.IsReady());
    EXPECT_EQ(lines.Next(WhenDry::Return), "1");
    EXPECT_EQ(lines.Next(WhenDry::Return), "-");
    EXPECT_FALSE(lines.reader.HasEnded()) << "more may come";
    lines.buffer.hasCome = true;
    EXPECT_EQ(lines.Next(WhenDry::Stop), "-");
    EXPECT_TRUE(lines.reader.HasEnded());
    EXPECT_TRUE(lines.reader.IsReady());
}

TEST(InputReader, WhatWaitsInALogIsGivenBeforeMoreIsWaitedFor) {
    const std::string hello(c_hello);
    const std::string pdu = hello.substr(0, hello.size() - 1);
    for (const std::string& heading :
         {std::string(), std::string("+CMT: ,30\n")}) { // a list, and a length too large
        for (const WhenDry whenDry : {WhenDry::Return, WhenDry::Wait}) {
            Dripping log({heading + hello}, LineKind::Transcript);
            log.buffer.hasCome = true;
            EXPECT_EQ(log.Next(WhenDry::Stop), "-") << "a piece of something";
            EXPECT_EQ(log.Next(whenDry), pdu);
            EXPECT_EQ(log.Next(WhenDry::Return), "-");
            EXPECT_FALSE(log.reader.HasEnded());
            log.buffer.hasCome = true;
            EXPECT_EQ(log.Next(WhenDry::Return), "-");
            EXPECT_TRUE(log.reader.HasEnded());
        }
    }
    Dripping half({"+CMT: ,24\n" + hello.substr(0, 40) + "\n", hello.substr(40)}, LineKind::Transcript);
    half.buffer.hasCome = true;
    EXPECT_EQ(half.Next(WhenDry::Return), "-");
    EXPECT_EQ(half.Next(WhenDry::Wait), pdu) << "half a PDU waits for the rest";
}

} // namespace
