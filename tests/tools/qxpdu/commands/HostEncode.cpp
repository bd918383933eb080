// qxpdu encode --as libQX_Encoding
#include <gtest/gtest.h>

#include <ctime>
#include <random>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;

Outcome EncodeAsHost(std::vector<std::string> arguments, const std::string& input = "") {
    arguments.insert(arguments.begin(), {"encode", "--as", "libQX_Encoding", "--to", "+4179123"});
    return Qxpdu(arguments, input);
}

TEST(QxpduHostEncode, SendsWhatThatLibraryMakes) {
    struct Row {
        std::vector<std::string> arguments;
        const char* pdu;
    };
    const Row rows[] = {
        {{"hello"}, "0001000791149721F3000005E8329BFD06"},
        {{"ça"},
         "0001000791149721F300000289"
         "30"}, // code 09 is the small letter there
        {{"Ça"}, "0001000791149721F300080400C70061"},
        {{"--smsc", "+123456789012", "--class", "1", "--validity", "1d", "--status-report",
          "--reject-duplicates", "--reply-path", "--reference", "42", "hello"},
         "0791214365870921"
         "B52A0791149721F30011A705E8329BFD06"},
        {{"--validity", "3h", "hello"}, "0011000791149721F300002305E8329BFD06"},
        {{"--validity", "max", "hello"}, "0011000791149721F30000FF05E8329BFD06"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(EncodeAsHost(row.arguments), (Outcome{0, std::string(row.pdu) + "\n", ""}));
    }
    EXPECT_EQ(EncodeAsHost({""}).out, "0001000791149721F3000800\n");
}

/// TP-UDL of each part.
std::string LengthsOf(const std::string& pdus) {
    std::string lengths;
    for (std::size_t begin = 0; begin < pdus.size(); begin = pdus.find('\n', begin) + 1)
        lengths += pdus.substr(begin + 22, 2) + ' ';
    return lengths;
}

TEST(QxpduHostEncode, CutsAtTheCapacity) {
    EXPECT_EQ(LengthsOf(EncodeAsHost({Repeated("a", 152) + "€" + Repeated("a", 10)}).out), "A0 12 ");
    EXPECT_EQ(LengthsOf(EncodeAsHost({Repeated("я", 66) + "😀яяя"}).out), "8C 0E ");
}

TEST(QxpduHostEncode, ReferenceIsThatWhichIsGiven) {
    for (const auto& [reference, digits] :
         {std::pair("0", "00"), std::pair("66", "42"), std::pair("255", "FF")}) {
        const Outcome run = EncodeAsHost({"--concat-reference", reference, Repeated("a", 161)});
        EXPECT_EQ(run.out.substr(22, 12), std::string("A0050003") + digits + "02");
    }
}

TEST(QxpduHostEncode, ReferenceIsThatOfAnEncoderThatIsMadeNow) {
    const std::time_t before = std::time(nullptr);
    const Outcome run = EncodeAsHost({Repeated("a", 161)});
    const std::time_t after = std::time(nullptr);
    const auto reference = static_cast<unsigned int>(std::stoi(run.out.substr(30, 2), nullptr, 16));
    const auto later = static_cast<std::uint8_t>(reference - static_cast<unsigned int>(before));
    EXPECT_GE(later, 1) << "one more than the time in seconds";
    EXPECT_LE(later, after - before + 1);
}

TEST(QxpduHostEncode, WhatItDoesNotHaveIsAnError) {
    struct Row {
        std::vector<std::string> options;
        const char* error;
    };
    const Row rows[] = {
        {{"--language", "tr"}, "--language: libQX_Encoding has none"},
        {{"--alphabet", "gsm"}, "--alphabet: libQX_Encoding has none"},
        {{"--replace"}, "--replace: libQX_Encoding has none"},
        {{"--port", "5"}, "--port: libQX_Encoding has none"},
        {{"--pid", "5"}, "--pid: libQX_Encoding has none"},
        {{"--concat-bits", "16"}, "--concat-bits: libQX_Encoding has none"},
        {{"--concat-reference", "256"}, "--concat-reference: libQX_Encoding has references from 0 to 255"},
        {{"--validity-format", "enhanced"}, "--validity-format: libQX_Encoding has none"},
        {{"--validity", "2026-12-24T18:00:00Z"}, "--validity: libQX_Encoding has relative periods alone"},
        {{"--status-report=all"}, "--status-report: libQX_Encoding asks for one on the first part alone"},
        {{"--type", "deliver-report"}, "--type: libQX_Encoding makes no SMS-DELIVER-REPORT"},
        {{"--to", "1*2"}, "--to: character 2, '*', which libQX_Encoding leaves out"},
        {{"--smsc", "+4c"}, "--smsc: character 3, 'c', which libQX_Encoding leaves out"},
        {{"--to", "1x2"}, "--to: character 2, 'x', is no digit of a number"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = {"encode", "--as", "libQX_Encoding"};
        if (row.options.front() != "--to")
            arguments.insert(arguments.end(), {"--to", "1"});
        arguments.insert(arguments.end(), row.options.begin(), row.options.end());
        arguments.emplace_back("text");
        EXPECT_EQ(Qxpdu(arguments),
                  (Outcome{2, "",
                           std::string("qxpdu: ") + row.error + "\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"}));
    }
    const std::string usage = "Usage: qxpdu encode [OPTIONS] [TEXT]\n";
    EXPECT_EQ(Qxpdu({"encode", "--to", "1", "--as", "other", "a"}),
              (Outcome{2, "", "qxpdu: --as: other is not libQX_Encoding\n" + usage}));
    EXPECT_EQ(Qxpdu({"encode", "--to", "1", "--greek", "α"}),
              (Outcome{2, "", "qxpdu: --greek: only with --as libQX_Encoding\n" + usage}));
}

/// Of characters that both libraries have the same codes for, and in which no boundary can fall into a pair.
class SoundText {
public:
    explicit SoundText(std::uint32_t seed) : m_Random(seed) {}

    /// One unit a character, but now and then a pair that begins at an even place of a part.
    std::string Make() {
        const std::vector<std::string> septets = {"a", "Z", "0", "@", "£", "è", "Ø",
                                                  "Δ", "Ω", "ß", "¿", "à", " "};
        const std::vector<std::string> pairs = {"€", "[", "]", "{", "}", "^", "|", "~", "\\"};
        const bool isUcs2 = m_Random() % 3 == 0;
        const std::size_t capacity = isUcs2 ? 67 : 153;
        const std::vector<std::string> units =
            isUcs2 ? std::vector<std::string>{"я", "中", "ç", "a"} : septets;
        const std::vector<std::string> wide = isUcs2 ? std::vector<std::string>{"😀", "𝄞"} : pairs;
        std::string text = isUcs2 ? "ж" : "b";
        const std::size_t length = m_Random() % 400;
        for (std::size_t place = 1; place < length;) {
            const bool isPair = m_Random() % 4 == 0 && place % capacity != capacity - 1;
            text += isPair ? wide[m_Random() % wide.size()] : units[m_Random() % units.size()];
            place += isPair ? 2 : 1;
        }
        return text;
    }

private:
    std::mt19937 m_Random;
};

TEST(QxpduHostEncode, SoundTextsAreTheSameOctetsByTheStandard) {
    SoundText texts(1);
    std::string lines;
    for (int i = 0; i < 1000; ++i)
        lines += texts.Make() + '\n';
    const std::vector<std::string> options = {
        "--lines", "--to", "+4179123",           "--smsc", "41", "--status-report", "--validity", "2d",
        "--class", "2",    "--concat-reference", "200"};
    std::vector<std::string> standard = {"encode"};
    standard.insert(standard.end(), options.begin(), options.end());
    std::vector<std::string> host = standard;
    host.insert(host.end(), {"--as", "libQX_Encoding"});
    const Outcome byStandard = Qxpdu(standard, lines);
    EXPECT_EQ(byStandard.status, 0);
    EXPECT_GT(std::count(byStandard.out.begin(), byStandard.out.end(), '\n'), 1000) << "some are cut";
    EXPECT_TRUE(byStandard == Qxpdu(host, lines));
}

} // namespace
