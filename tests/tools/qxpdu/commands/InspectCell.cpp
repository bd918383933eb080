// qxpdu inspect of cell broadcast
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using nlohmann::json;
using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduInspectCell, PageIsShownOctetByOctet) {
    EXPECT_EQ(
        Qxpdu({"inspect", "--cell", "0010003210116577039906"}),
        (Outcome{
            0,
            "     0  00 10                    serial number 0x0010: scope 0: cell wide, displayed at once, "
            "message code 1, update number 0\n"
            "        00.. .... .... ....        scope 0\n"
            "        ..00 0000 0001 ....        message code 1\n"
            "        .... .... .... 0000        update number 0\n"
            "     2  00 32                    message identifier 0x0032: assigned by the GSM Association\n"
            "     4  10                       data coding scheme 0x10: GSM 7-bit, language before the text\n"
            "        0001 ....                  group 1: language before the text\n"
            "        .... 0000                  alphabet 0: GSM 7-bit\n"
            "     5  11                       page parameter 0x11: page 1 of 1\n"
            "        0001 ....                  page 1\n"
            "        .... 0001                  pages 1\n"
            "     6  65 77                    language: en, English\n"
            "     8  03 99 06                 content \"Hi\"\n"
            "        000. ....                  septets 0\n"
            "        ...0 0011                  language 3\n"
            "                                 ~ libQX_Encoding m_Text \"en\\u000DHi\"\n",
            ""}));
}

TEST(QxpduInspectCell, HeaderAndPaddingHaveRows) {
    const Outcome run = Qxpdu({"inspect", "--cell", "00100032981105000307020100480069000D"});
    EXPECT_TRUE(HasLine(run.out, "6  05                       TP-UDH length 5: 5 octets")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "11  01                       TP-UDH part 1")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "12  00 48 00 69              content \"Hi\"")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "16  00 0D                    content padding")) << run.out;
}

TEST(QxpduInspectCell, MessageHasLengthAndFilling) {
    std::string page = "C8329BFD06";
    page.resize(2 * std::size_t{82}, '0');
    const Outcome run = Qxpdu({"inspect", "--cell", "01111243210101" + page + "05"});
    EXPECT_TRUE(HasLine(run.out, "0  01                       message type 1: CBS message")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "12  00 00 00 00 00 00 00 00  filling: octets of a page that are not used"));
    EXPECT_TRUE(HasLine(run.out, "89  05                       page length 5: page 1, 5 octets")) << run.out;
}

TEST(QxpduInspectCell, NotificationHasWarningAndTime) {
    const Outcome run =
        Qxpdu({"inspect", "--type", "etws", "30001100018062111280510300" + std::string(86, 'A')});
    EXPECT_TRUE(HasLine(run.out, "0000 000. .... ....        type 0: earthquake")) << run.out;
    EXPECT_TRUE(HasLine(run.out, ".... ...1 .... ....        emergency user alert 1: on"));
    EXPECT_TRUE(HasLine(run.out, ".... .... 1... ....        popup 1: on"));
    EXPECT_TRUE(HasLine(run.out, "8  12                       warning time day 21"));
    EXPECT_TRUE(HasLine(run.out, "13  AA AA AA AA AA AA AA AA  signature: signature of a warning"));
    EXPECT_TRUE(HasLine(Qxpdu({"inspect", "--type", "etws", "300011000000"}).out,
                        ".... ...0 .... ....        emergency user alert 0: off"));
}

TEST(QxpduInspectCell, BrokenPageIsShownAsFarAsItGoes) {
    const Outcome run = Qxpdu({"inspect", "--cell", "432111"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              "qxpdu: argument 1: octet 2: the octets end in message identifier, which takes 2 octets: 1 are "
              "there\n");
    EXPECT_TRUE(HasLine(run.out, "2  11                       message identifier: cut")) << run.out;
    const Outcome lines = Qxpdu({"inspect", "--cell", "--jsonl", "432111"});
    EXPECT_EQ(lines.status, 1);
    EXPECT_EQ(lines.err, "");
    EXPECT_EQ(json::parse(lines.out)["fault"]["field"], "message identifier");
}

TEST(QxpduInspectCell, JsonHasBitsOfNumbersOfTwoOctets) {
    const json object = Qxpdu({"inspect", "--cell", "--json", "432111120111C8329BFD06"}).Json()[0];
    EXPECT_EQ(object["type"], "GSM page");
    EXPECT_EQ(object["map"][0]["value"], 0x4321);
    EXPECT_EQ(object["map"][0]["bits"][1],
              json::parse(R"({"bits": "..00 0011 0010 ....", "name": "message code", "value": 50})"));
    EXPECT_EQ(object["map"][4]["value"], "Hello");
}

TEST(QxpduInspectCell, OtherReadingIsThatOfCell) {
    const char* const page = "432111120111C8329BFD06";
    EXPECT_EQ(Qxpdu({"inspect", "--cell", "--as", "libQX_Encoding", page}),
              Qxpdu({"cell", "--as", "libQX_Encoding", page}));
}

TEST(QxpduInspectCell, TextIsWarnedOf) {
    EXPECT_EQ(Qxpdu({"inspect", "--cell", "0010003201111B"}).err,
              "qxpdu: argument 1: warning: content at octet 6: a lone escape ends the text\n");
    EXPECT_EQ(Qxpdu({"inspect", "--cell", "--strict", "0010003201111B"}).status, 1);
}

} // namespace
