// qxpdu decode --brief and --columns
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"
#include "tools/qxpdu/Samples.h"

namespace {

using tests::AsLines;
using tests::c_codePart;
using tests::c_escapePart;
using tests::c_hello;
using tests::c_report;
using tests::c_submit;
using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduRows, BriefIsALineForEachMessage) {
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, AsLines({c_hello, "00", c_escapePart, c_submit, c_report})).out,
              "2012-02-13T12:34:56+02:00 from +12345678901 Hello\n"
              "2012-02-13T12:34:56+02:00 from +12345678901 [1/2] a\n"
              "to +1234 a\n"
              "2012-02-13T12:34:56+02:00 to +1234 received by the recipient\n");
}

TEST(QxpduRows, JoinedMessageIsALineWithThePartsThatCameWhereSomeAreMissing) {
    EXPECT_EQ(
        Qxpdu({"decode", "--brief", "--join"}, AsLines({c_escapePart, c_codePart, c_codePart, c_hello})).out,
        "2012-02-13T12:34:56+02:00 from +12345678901 a€b\n"
        "2012-02-13T12:34:56+02:00 from +12345678901 Hello\n");
    EXPECT_EQ(Qxpdu({"decode", "--columns", "input,part", "--join"}, AsLines({c_escapePart})).out,
              "input\tpart\nline 1\t1/2\n");
}

TEST(QxpduRows, DataStandForTheTextWhereThereIsNone) {
    const std::string start = "0791214365870921440B912143658709F10004212031214365800805000305";
    const std::string parts = AsLines({start + "020161FF", start + "020262FE"});
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text,data", "--join"}, parts).out, "text\tdata\n\t61FF62FE\n");
    EXPECT_EQ(Qxpdu({"decode", "--brief", "--join"}, parts).out,
              "2012-02-13T12:34:56+02:00 from +12345678901 61FF62FE\n");
}

TEST(QxpduRows, CommandHasAReference) {
    EXPECT_EQ(Qxpdu({"decode", "--direction", "from-mobile", "--no-heading", "--columns",
                     "reference,type,address", "0002090000000491214300"})
                  .out,
              "9\tSMS-COMMAND\t+1234\n");
}

TEST(QxpduRows, PageOfALogIsARowFromItsIdentifier) {
    const std::string log = AsLines({"+CBM: 11", tests::c_cellPage});
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, log), (Outcome{0, "from 4370 Hello\n", ""}));
    const std::vector<std::string> columns = {"decode", "--no-heading", "--columns",
                                              "input,time,direction,type,address,part,text,data,octets"};
    EXPECT_EQ(Qxpdu(columns, log).out,
              "line 2\t\tto-mobile\tGSM page\t4370\t\tHello\t\t403211120111C8329BFD06\n");
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, "+CBM: 11\n403211120123C8329BFD06\n"),
              (Outcome{0, "from 4370 [2/3] Hello\n", ""}));
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, "+CBM: 10\n00100032481100480069\n").out, "from 50 Hi\n");
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, "+CBM: 5\n0010003248\n"),
              (Outcome{1, "",
                       "qxpdu: line 2: octet 5: the octets end in page parameter, which takes 1 "
                       "octet: 0 are there\n"}));
}

TEST(QxpduRows, ColumnsAreATableWithAHeading) {
    EXPECT_EQ(Qxpdu({"decode", "--columns", "address,time,text", c_hello}),
              (Outcome{0, "address\ttime\ttext\n+12345678901\t2012-02-13T12:34:56+02:00\tHello\n", ""}));
    EXPECT_EQ(Qxpdu({"decode", "--columns", "input", "--no-heading", c_hello}),
              (Outcome{0, "argument 1\n", ""}));
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text"}), (Outcome{0, "text\n", ""})) << "without a message";
}

TEST(QxpduRows, OtherColumnsPassThrough) {
    const std::string pdu = c_hello;
    EXPECT_EQ(
        Qxpdu({"decode", "--columns", "text,type", "--input-column", "2"},
              "id\tpdu\tnote\n1\t" + pdu + "\ta\\b\tc\r\n2\t" + pdu + "\n"),
        (Outcome{0, "id\ttext\ttype\tnote\n1\tHello\tSMS-DELIVER\ta\\b\tc\n2\tHello\tSMS-DELIVER\n", ""}));
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text", "--input-column", "1", "--no-heading"}, pdu + "\tx\n"),
              (Outcome{0, "Hello\tx\n", ""}));
}

TEST(QxpduRows, HeadingOfTheFirstFileIsThatOfAll) {
    const std::string table = "printf 'id\\tpdu\\n1\\t" + std::string(c_hello) + "\\n' >$d/";
    EXPECT_EQ(
        tests::Shell("d=$(mktemp -d) && " + table + "a && " + table +
                     "b && $QXPDU decode -j 2 --columns text --input-column 2 --file $d/a $d/b; rm -r $d")
            .out,
        "id\ttext\n1\tHello\n1\tHello\n");
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text", "--input-column", "2", "x\t" + std::string(c_hello)}).out,
              "x\tHello\n")
        << "an argument is no heading";
}

TEST(QxpduRows, RowOfWhatIsNoMessageSaysWhy) {
    EXPECT_EQ(
        Qxpdu({"decode", "--columns", "text,error", "--input-column", "2", "--no-heading"}, "1\t0\tx\n2\n"),
        (Outcome{1, "1\t\todd number of hexadecimal digits, 1\tx\n2\t\tthe line ends before its PDU\n",
                 "qxpdu: line 1: odd number of hexadecimal digits, 1\n"
                 "qxpdu: line 2: the line ends before its PDU\n"}));
    EXPECT_EQ(
        Qxpdu({"decode", "--columns", "text,error", "--input-column", "2", "--no-heading"}, "\n"),
        (Outcome{1, "\t\tthe line ends before its PDU\n", "qxpdu: line 1: the line ends before its PDU\n"}))
        << "an empty one too";
    EXPECT_EQ(
        Qxpdu({"decode", "--columns", "input,error", "--input-column", "1", "--no-heading"}, "00\n").out,
        "line 1\toctet 1: the octets end in TP-MTI, which takes 1 octet: 0 are there\n");
    EXPECT_EQ(Qxpdu({"decode", "--columns", "input,error", "--input-column", "3"}, "a\n").out,
              "a\t\tinput\terror\n");
}

TEST(QxpduRows, RowOfALineThatIsTooLongKeepsItsPlace) {
    const std::string tooLong(1048577, '0');
    EXPECT_EQ(Qxpdu({"decode", "--columns", "input,text,error", "--input-column", "2", "--no-heading"},
                    AsLines({"1\t" + tooLong + "\tx", "2\t" + std::string(c_hello)})),
              (Outcome{1, "\tline 1\t\tlonger than 1048576 bytes\n2\tline 2\tHello\t\n",
                       "qxpdu: line 1: longer than 1048576 bytes\n"}));
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text,error", "--each-line"}, AsLines({tooLong, "", c_hello})),
              (Outcome{0, "\tlonger than 1048576 bytes\n\nHello\t\n", ""}));
}

TEST(QxpduRows, EachLineIsALine) {
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text,error,type", "--each-line"},
                    AsLines({c_hello, "", "00", "\r", "no", "0", "+CMGL: 1,1,,22", c_hello}) + c_submit),
              (Outcome{0,
                       "Hello\t\tSMS-DELIVER\n"
                       "\n"
                       "\toctet 1: the octets end in TP-MTI, which takes 1 octet: 0 are there\t\n"
                       "\n"
                       "\tcharacter 1, 'n', is no hexadecimal digit\t\n"
                       "\todd number of hexadecimal digits, 1\t\n"
                       "\tcharacter 1, '+', is no hexadecimal digit\t\n"
                       "Hello\t\tSMS-DELIVER\n"
                       "a\t\tSMS-SUBMIT\n",
                       ""}))
        << "a broken one has failed nothing, and the last one needs no line feed";
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text", "--each-line"}), (Outcome{0, "", ""}));
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text", "--each-line", c_hello, "", "0"}).out,
              "Hello\t\n\n\todd number of hexadecimal digits, 1\n")
        << "an argument is a line";
}

TEST(QxpduRows, EachLineTellsItsErrorLastWhereNoColumnIsNamedForIt) {
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text,type", "--each-line"}, AsLines({c_hello, "0"})).out,
              "Hello\tSMS-DELIVER\t\n\t\todd number of hexadecimal digits, 1\n");
    EXPECT_EQ(Qxpdu({"decode", "--columns", "type", "--each-line"}, "00FFFFFFFF\n").out,
              "\ta free SIM record, without a message\n");
    EXPECT_EQ(Qxpdu({"decode", "--columns", "type", "--each-line", "--strict"}, // TP-UDL says 5 septets
                    "0791214365870921040B912143658709F100002120312143658005C832\n")
                  .out,
              "\tTP-UDL at octet 26: TP-UDL announces 5, and 2 are there\n");
}

TEST(QxpduRows, EachLineMayBeARow) {
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text", "--each-line"}, std::string(c_hello) + "\tx\ty\r\n").out,
              "Hello\t\tx\ty\n");
    EXPECT_EQ(
        Qxpdu({"decode", "--columns", "error,text", "--each-line", "--input-column", "2"},
              "pdu\n1\t" + std::string(c_hello) + "\tx\n\n2\t\n"),
        (Outcome{0, "pdu\tthe line ends before its PDU\t\n1\t\tHello\tx\n\n2\tno hexadecimal digits\t\n",
                 ""}))
        << "none of them is a heading";
}

/// Whatever stands before it, and however many work: a reader of all files has another first line, too.
TEST(QxpduRows, EachLineGoesByItself) {
    std::string lines;
    for (int i = 0; i < 300; ++i)
        lines += AsLines({c_hello, "", "0", c_escapePart, c_codePart, "AT+CMGS=22", c_report});
    const std::vector<std::string> arguments = {"decode", "--columns", "time,part,text", "--each-line"};
    const std::string whole = Qxpdu(arguments, lines).out;
    EXPECT_EQ(tests::LinesOf(whole).size(), 2100U);
    std::string pieces;
    for (std::size_t begin = 0, size = 1; begin < lines.size(); size = size * 3 + 1) {
        const std::size_t end = lines.find('\n', std::min(begin + size, lines.size() - 1)) + 1;
        pieces += Qxpdu(arguments, lines.substr(begin, end - begin)).out;
        begin = end;
    }
    EXPECT_EQ(pieces, whole);
    std::vector<std::string> threaded = arguments;
    threaded.insert(threaded.end(), {"-j", "4"});
    EXPECT_EQ(Qxpdu(threaded, lines).out, whole);
    const std::string table = std::string("printf '") + c_hello + "\\n' >$d/";
    EXPECT_EQ(tests::Shell("d=$(mktemp -d) && " + table + "a && " + table +
                           "b && $QXPDU decode --columns text --each-line --file $d/a $d/b; rm -r $d")
                  .out,
              "Hello\t\nHello\t\n");
}

TEST(QxpduRows, WrongOptionsAreRefused) {
    struct {
        std::vector<std::string> arguments;
        const char* message;
    } const rows[] = {
        {{"decode", "--brief", "--json"}, "qxpdu: --json excludes --brief"},
        {{"decode", "--brief", "--jsonl"}, "qxpdu: --jsonl excludes --brief"},
        {{"decode", "--columns", "text", "--json"}, "qxpdu: --json excludes --columns"},
        {{"decode", "--columns", "text", "--jsonl"}, "qxpdu: --jsonl excludes --columns"},
        {{"decode", "--columns", "text", "--input-column", "65536"},
         "qxpdu: --input-column: Value 65536 not in range 1 to 65535"},
        {{"decode", "--brief", "--as", "libQX_Encoding"}, "qxpdu: --as excludes --brief"},
        {{"decode", "--columns", "text", "--as", "libQX_Encoding"}, "qxpdu: --as excludes --columns"},
        {{"decode", "--input-column", "1", "--columns", "text", "--join"},
         "qxpdu: --join excludes --input-column"},
        {{"decode", "--input-column", "0", "--columns", "text"},
         "qxpdu: --input-column: Value 0 not in range 1 to 65535"},
        {{"decode", "--brief", "--columns", "text"}, "qxpdu: --brief excludes --columns"},
        {{"decode", "--input-column", "1"}, "qxpdu: --input-column requires --columns"},
        {{"decode", "--no-heading"}, "qxpdu: --no-heading requires --columns"},
        {{"decode", "--each-line"}, "qxpdu: --each-line requires --columns"},
        {{"decode", "--each-line", "--jsonl", "--columns", "text"}, "qxpdu: --jsonl excludes --columns"},
        {{"decode", "--each-line", "--columns", "text", "--join"}, "qxpdu: --join excludes --each-line"},
        {{"decode", "--each-line", "--columns", "text,input"},
         "qxpdu: --each-line: the column input counts lines, and a line goes by itself"},
        {{"decode", "--columns", "text,", c_hello},
         "qxpdu: --columns: '' is none of input, time, direction, type, address, service-centre, reference, "
         "part, "
         "status, alphabet, text, data, octets, error"},
    };
    for (const auto& row : rows) {
        const Outcome run = Qxpdu(row.arguments);
        EXPECT_EQ(run.status, 2) << row.message;
        EXPECT_TRUE(HasLine(run.err, row.message)) << run.err;
    }
}

TEST(QxpduRows, OctetsAfterThePduAreAWarning) {
    for (const std::vector<std::string>& form :
         {std::vector<std::string>{"--brief"}, {"--columns", "text"}}) {
        std::vector<std::string> arguments = {"decode", "00010704912143000001610001"};
        arguments.insert(arguments.end(), form.begin(), form.end());
        const Outcome outcome = Qxpdu(arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "qxpdu: argument 1: warning: surplus at octet 11: 2 octets after the TPDU\n")
            << form[0];
    }
}

} // namespace
