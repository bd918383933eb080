// qxpdu encode: what the text is written in, where it is cut, and what each type of message holds
#include <gtest/gtest.h>

#include <set>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::LinesOf;
using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;

/// encode with these arguments; `to` where it has an SMS-SUBMIT.
Outcome Encode(std::vector<std::string> arguments, const std::string& input = "") {
    arguments.insert(arguments.begin(), "encode");
    return Qxpdu(arguments, input);
}

Outcome Submit(std::vector<std::string> arguments, const std::string& input = "") {
    arguments.insert(arguments.begin(), {"--to", "+4179123"});
    return Encode(std::move(arguments), input);
}

struct Row {
    std::vector<std::string> arguments;
    const char* pdu;
};

TEST(QxpduOutgoing, TextIsWrittenAsTheOptionsSay) {
    const Row rows[] = {
        // Six characters of the Turkish locking shift table after its element and three fill bits.
        {{"--language", "tr", "ğğğğğğ"}, "0041000791149721F300000B032501016030180C0603"},
        {{"--language", "pt,tr", "ğğğğğğ"}, "0041000791149721F300000B032501016030180C0603"},
        {{"--language", "all", "ğğğğğğ"}, "0041000791149721F300000B032501016030180C0603"},
        {{"--language", "pt", "ğğ"}, "0001000791149721F3000804011F011F"},
        {{"--language", "tr", "--alphabet", "ucs2", "ğğ"}, "0001000791149721F3000804011F011F"},
        {{"--language", "tr", "--alphabet", "gsm", "ğ"}, "0041000791149721F3000006032501016000"},
        {{"--alphabet", "gsm", "hello"}, "0001000791149721F3000005E8329BFD06"},
        {{"--alphabet", "ucs2", "hello"}, "0001000791149721F300080A00680065006C006C006F"},
        {{"--alphabet", "8bit", "hé"}, "0001000791149721F300040268E9"},
        {{"--alphabet", "8bit", "\u00FF"}, "0001000791149721F3000401FF"},
        {{"--alphabet", "8bit", "--class", "1", "h"}, "0001000791149721F300150168"},
        {{"--data", "00FF10"}, "0001000791149721F300040300FF10"},
        {{"--data", "00 ff 10", "--class", "3"}, "0001000791149721F300170300FF10"},
        {{"--pid", "65", "hello"}, "0001000791149721F3410005E8329BFD06"},
        {{"--pid", "0x7f", "hello"}, "0001000791149721F37F0005E8329BFD06"},
        {{"Ça"},
         "0001000791149721F300000289"
         "30"},
        {{"ça"}, "0001000791149721F300080400E70061"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pdu);
        EXPECT_EQ(Submit(row.arguments), (Outcome{0, std::string(row.pdu) + "\n", ""}));
    }
}

TEST(QxpduOutgoing, ForcedAlphabetNamesTheFirstCharacterThatItLacks) {
    EXPECT_EQ(Submit({"--alphabet", "gsm", "héllo中я"}),
              (Outcome{1, "",
                       "qxpdu: argument 1: character 6, U+4E2D, is in no table of GSM 7-bit that may be "
                       "used\n"}));
    EXPECT_EQ(Submit({"--alphabet", "8bit"}, "é€"),
              (Outcome{1, "", "qxpdu: standard input: character 2, U+20AC, is no octet of 8-bit data\n"}));
    EXPECT_EQ(Submit({"--alphabet", "8bit", "\u0100"}).status, 1);
    EXPECT_EQ(Submit({"--alphabet", "gsm", "--replace", "“а”"}).err,
              "qxpdu: argument 1: character 2, U+0430, is in no table of GSM 7-bit that may be used\n");
    EXPECT_EQ(Submit({"--alphabet", "gsm", "--replace", "’’"}),
              (Outcome{0, "0001000791149721F3000002A713\n",
                       "qxpdu: argument 1: warning: replaced: U+2019 by ''' (2 times)\n"}));
}

TEST(QxpduOutgoing, NearCharactersAreSentWhereThatIsCheaperAndTold) {
    const std::string dont = "0001000791149721F3000005E4B7FB4407\n";
    const std::string told = "qxpdu: argument 1: warning: replaced: U+2019 by '''\n";
    EXPECT_EQ(Submit({"--replace", "don’t"}), (Outcome{0, dont, told}));
    EXPECT_EQ(Submit({"--replace", "--strict", "don’t"}), (Outcome{0, dont, told})) << "it is wanted";
    EXPECT_EQ(Submit({"don’t"}), (Outcome{0, "0001000791149721F300080A0064006F006E20190074\n", ""}));
    EXPECT_EQ(Submit({"--replace", "’中"}), (Outcome{0,
                                                     "0001000791149721F3000804201"
                                                     "94E2D\n",
                                                     ""}))
        << "no cheaper";
    EXPECT_EQ(Submit({"--replace", "e\u0301"}),
              (Outcome{0, "0001000791149721F300000105\n",
                       "qxpdu: argument 1: warning: replaced: U+0065 U+0301 by 'é'\n"}));
    EXPECT_EQ(Submit({"--replace", "a\u200B’"}).err,
              "qxpdu: argument 1: warning: replaced: U+200B left out, U+2019 by '''\n");
    EXPECT_EQ(Submit({"--replace", "\u00A0ab"}),
              (Outcome{0, "0001000791149721F3000003A0B018\n",
                       "qxpdu: argument 1: warning: replaced: U+00A0 by ' '\n"}));
    EXPECT_EQ(Encode({"--replace", "--strict", "--to", "1-2", "don’t"}),
              (Outcome{1, "", "qxpdu: --to: '1-2' goes out as 12\n" + told}))
        << "but nothing else";
    const nlohmann::json object =
        nlohmann::json::parse(Submit({"--replace", "--strict", "--jsonl", "don’t"}).out);
    EXPECT_EQ(object["warnings"], nlohmann::json::array({"replaced: U+2019 by '''"}));
    EXPECT_EQ(object["pdus"][0]["octets"], dont.substr(0, dont.size() - 1));
}

TEST(QxpduOutgoing, DataMayComeFromTheInput) {
    EXPECT_EQ(Submit({"--data", "-"}, "00 ff 10\n"), (Outcome{0, "0001000791149721F300040300FF10\n", ""}));
    EXPECT_EQ(Encode({"--type", "command", "--to", "1", "--data", "-"}, "01\n"),
              (Outcome{0, "0002000000000181F10101\n", ""}));
    EXPECT_EQ(Submit({"--data", "-", "0x01"}), (Outcome{0, "0001000791149721F300040101\n", ""}));
    EXPECT_EQ(Submit({"--data", "-", "--lines"}, "01\n0G\n02\n"),
              (Outcome{1, "0001000791149721F300040101\n0001000791149721F300040102\n",
                       "qxpdu: line 2: character 2, 'G', is no hexadecimal digit\n"}));
    EXPECT_EQ(Submit({"--data", "01"}, "not read, or \xFF would be an error"),
              (Outcome{0, "0001000791149721F300040101\n", ""}));
    EXPECT_EQ(Submit({"--data", Repeated("5A", 255 * 134 + 1)}),
              (Outcome{1, "", "qxpdu: --data: the data needs 256 parts, 255 at most\n"}))
        << "it is named for where it comes from";
}

TEST(QxpduOutgoing, PortsStandInTheHeaderOfEachPart) {
    const Row rows[] = {
        {{"--port", "2948:9200", "hi"}, "0041000791149721F300000A0605040B8423F0E834"},
        {{"--port", "65535:65535", "hi"}, "0041000791149721F300000A060504FFFFFFFFE834"},
        {{"--port", "5", "hi"}, "0041000791149721F300000A06050400050000E834"},
        {{"--port", "5", "--port-bits", "16", "hi"}, "0041000791149721F300000A06050400050000E834"},
        {{"--port", "240:241", "--port-bits", "8", "hi"}, "0041000791149721F3000008040402F0F1A0D3"},
        {{"--port", "240", "--data", "AB"},
         "0041000791149721F30004080605040"
         "0F00000AB"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pdu);
        EXPECT_EQ(Submit(row.arguments), (Outcome{0, std::string(row.pdu) + "\n", ""}));
    }
    const std::vector<std::string> parts =
        LinesOf(Submit({"--port", "5", "--concat-reference", "1", Repeated("a", 153)}).out);
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].substr(22, 28), "A00B0003010201"
                                       "050400050000"
                                       "84");
    EXPECT_EQ(parts[1].substr(22, 26), "150B0003010202"
                                       "050400050000");
}

TEST(QxpduOutgoing, ReferenceIsThatWhichIsGiven) {
    const auto headers = [](std::vector<std::string> arguments) {
        arguments.push_back(Repeated("a", 161));
        std::vector<std::string> found;
        for (const std::string& pdu : LinesOf(Submit(arguments).out))
            found.push_back(pdu.substr(22, 16));
        return found;
    };
    EXPECT_EQ(LinesOf(Submit({"--concat-reference", "66"}, Repeated("a", 161)).out).at(0).substr(22, 16),
              "A0050003420201C2")
        << "of a text from the input";
    using Headers = std::vector<std::string>;
    EXPECT_EQ(headers({"--concat-reference", "66"}), (Headers{"A0050003420201C2", "0F050003420202C2"}));
    EXPECT_EQ(headers({"--concat-reference", "0"}), (Headers{"A0050003000201C2", "0F050003000202C2"}));
    EXPECT_EQ(headers({"--concat-reference", "4660", "--concat-bits", "16"}),
              (Headers{"A006080412340201", "1106080412340202"}));
    EXPECT_EQ(headers({"--concat-reference", "255", "--concat-bits", "8"}),
              (Headers{"A0050003FF0201C2", "0F050003FF0202C2"}));
}

TEST(QxpduOutgoing, ReferenceIsRandomAndThatOfTheNextTextIsTheNext) {
    std::set<int> references;
    for (int run = 0; run < 8; ++run) {
        const nlohmann::json parts = Submit({"--json", "--concat-bits", "16", Repeated("a", 161)}).Json();
        EXPECT_EQ(parts[0]["concatenation"]["reference_bits"], 16);
        references.insert(parts[0]["concatenation"]["reference"].get<int>());
    }
    EXPECT_GT(references.size(), 1U);
    EXPECT_GT(*references.rbegin(), 0xFF) << "all of their bits are random";
    const std::string lines = Repeated(Repeated("a", 161) + '\n', 3);
    const auto found = [&lines](const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"--lines"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        std::string all;
        for (const std::string& pdu : LinesOf(Submit(arguments, lines).out))
            all += pdu.substr(26, pdu.substr(26, 2) == "08" ? 8 : 6) + ' ';
        return all;
    };
    EXPECT_EQ(found({"--concat-reference", "254"}), "0003FE 0003FE 0003FF 0003FF 000300 000300 ");
    EXPECT_EQ(found({"--concat-reference", "65535", "--concat-bits", "16"}),
              "0804FFFF 0804FFFF 08040000 08040000 08040001 08040001 ");
}

/// TP-MR of each part.
std::string MessageReferencesOf(const std::string& pdus) {
    std::string references;
    for (const std::string& pdu : LinesOf(pdus))
        references += pdu.substr(4, 2) + ' ';
    return references;
}

TEST(QxpduOutgoing, MessageReferenceGoesUpFromPartToPart) {
    const std::string threeParts = Repeated("a", 2 * 153 + 1);
    EXPECT_EQ(MessageReferencesOf(Submit({"--reference", "7", threeParts}).out), "07 08 09 ");
    EXPECT_EQ(MessageReferencesOf(Submit({"--reference", "254", threeParts}).out), "FE FF 00 ");
    EXPECT_EQ(MessageReferencesOf(Submit({"--reference", "0", threeParts}).out), "00 01 02 ");
    EXPECT_EQ(MessageReferencesOf(Submit({threeParts}).out), "00 00 00 ") << "modems give their own";
    EXPECT_EQ(MessageReferencesOf(Submit({"--reference", "7", "--lines"}, threeParts + "\na\n").out),
              "07 08 09 07 ")
        << "each text begins anew";
    EXPECT_EQ(MessageReferencesOf(Submit({"--as", "libQX_Encoding", "--reference", "7", threeParts}).out),
              "07 07 07 ");
}

TEST(QxpduOutgoing, NeitherAnEscapeNorASurrogateIsTorn) {
    struct Text {
        std::string text;
        std::vector<std::string> lengths; ///< TP-UDL of the parts
    };
    const Text texts[] = {
        {Repeated("a", 152) + "€" + Repeated("a", 10), {"9F", "13"}},
        {Repeated("a", 151) + "€" + Repeated("a", 10), {"A0", "11"}},
        {Repeated("я", 66) + "😀яяя", {"8A", "10"}},
        {Repeated("я", 65) + "😀яяяя", {"8C", "0E"}},
    };
    for (const auto& [text, lengths] : texts) {
        const Outcome run = Submit({"--strict", text});
        EXPECT_EQ(run.err, "");
        std::vector<std::string> found;
        for (const std::string& pdu : LinesOf(run.out))
            found.push_back(pdu.substr(22, 2));
        EXPECT_EQ(found, lengths) << text;
        std::string whole;
        for (const nlohmann::json& message : Qxpdu({"decode", "--json"}, run.out).Json())
            whole += message["text"].get<std::string>();
        EXPECT_EQ(whole, text);
    }
}

TEST(QxpduOutgoing, DataIsCutIntoPartsToo) {
    const auto cut = [](std::size_t octets) {
        std::vector<std::string> found;
        for (const std::string& pdu :
             LinesOf(Submit({"--concat-reference", "1", "--data", Repeated("5A", octets)}).out))
            found.push_back(pdu.substr(18, 20));
        return found;
    };
    using Found = std::vector<std::string>;
    EXPECT_EQ(cut(140), (Found{"00048C5A5A5A5A5A5A5A"}));
    EXPECT_EQ(cut(141), (Found{"00048C0500030102015A", "00040D0500030102025A"}));
    EXPECT_EQ(Submit({"--data", "-"}, Repeated("5A", 255 * 134 + 1)),
              (Outcome{1, "", "qxpdu: standard input: the data needs 256 parts, 255 at most\n"}));
}

TEST(QxpduOutgoing, StatusReportIsAskedForOnTheFirstPartOrOnAll) {
    const auto firstOctets = [](std::vector<std::string> arguments) {
        arguments.push_back(Repeated("a", 161));
        std::string found;
        for (const std::string& pdu : LinesOf(Submit(arguments).out))
            found += pdu.substr(2, 2);
        return found;
    };
    EXPECT_EQ(firstOctets({"--status-report"}), "6141");
    EXPECT_EQ(firstOctets({"--status-report", "first"}), "6141");
    EXPECT_EQ(firstOctets({"--status-report=first"}), "6141");
    EXPECT_EQ(firstOctets({"--status-report", "all"}), "6161");
    EXPECT_EQ(firstOctets({"--status-report=all"}), "6161");
    EXPECT_EQ(Submit({"--status-report", "--", "all"}), (Outcome{0, "0021000791149721F300000361361B\n", ""}))
        << "a text";
    EXPECT_EQ(Submit({"--status-report=none", "a"}),
              (Outcome{2, "",
                       "qxpdu: --status-report: none is neither first nor all\n"
                       "Usage: qxpdu encode [OPTIONS] [TEXT]\n"}));
}

constexpr const char* c_time = "2026-11-22T13:00:05+01:00";

TEST(QxpduOutgoing, EveryTypeHasItsFields) {
    const Row rows[] = {
        {{"--type", "submit", "--to", "+4179123", "hello"}, "0001000791149721F3000005E8329BFD06"},
        {{"--type", "deliver", "--from", "+41790000001", "--time", c_time, "hi"},
         "00040B911497000000F100006211223100504002E834"},
        {{"--type", "deliver", "--from", "ACME", "--time", c_time, "--smsc", "+41", "hi"},
         "029114"
         "0407D0C161B30800006211223100504002E834"},
        {{"--type", "deliver", "--from", "1", "--time", c_time, "--more-messages", "--loop-prevention",
          "--status-report", "--reply-path", "--class", "0", "--pid", "64", "hi"},
         "00A80181F140106211223100504002E834"},
        {{"--type", "deliver", "--from", "1", "--time", c_time, "--loop-prevention", "hi"},
         "000C0181F100006211223100504002E834"},
        {{"--type", "status-report", "--to", "+4179123", "--time", c_time, "--reference", "7", "--status",
          "0x46", "--discharge-time", "2026-11-22 13:01+01"},
         "0006070791149721F3621122310050406211223110004046"},
        {{"--type", "status-report", "--from", "+4179123", "--time", c_time},
         "0006000791149721F3621122310050406211223100504000"},
        {{"--type", "status-report", "--to", "1", "--time", c_time, "--for-command", "--more-messages",
          "--loop-prevention", "hi"},
         "002A000181F162112231005040621122310050400004"
         "02E834"},
        {{"--type", "status-report", "--to", "1", "--time", c_time, "--class", "0", "hi"},
         "0006000181F162112231005040621122310050400006"
         "1002E834"},
        {{"--type", "status-report", "--to", "1", "--time", c_time, "я"},
         "0006000181F162112231005040621122310050400006"
         "0802044F"},
        {{"--type", "status-report", "--to", "1", "--time", c_time, "--pid", "1", "--class", "1"},
         "0006000181F1621122310050406211223100504000"
         "030111"},
        {{"--type", "status-report", "--to", "1", "--time", c_time, "--class", "0"},
         "0006000181F1621122310050406211223100504000"
         "0210"},
        {{"--type", "command", "--to", "+4179123", "--reference", "1", "--pid", "0x41", "--command-type", "2",
          "--message-number", "9", "--status-report"},
         "0022014102090791149721F300"},
        {{"--type", "command", "--to", "+4179123", "--data", "0102"}, "0002000000000791149721F3020102"},
        {{"--type", "command", "--to", "1", "--port", "5", "--data", "01"},
         "0042000000000181F1080605040005000001"},
        {{"--type", "command", "--to", "1", "--port", "5"}, "0042000000000181F10706050400050000"},
        {{"--type", "deliver-report", "--port", "5"},
         "00400600080605040005"
         "0000"},
        {{"--type", "deliver-report"}, "000000"},
        {{"--type", "deliver-report", "--pid", "64"}, "00000140"},
        {{"--type", "deliver-report", "--class", "2"}, "00000212"},
        {{"--type", "deliver-report", "--failure-cause", "0xD3"}, "0000D300"},
        {{"--type", "deliver-report", "hi"}, "0000060002E834"},
        {{"--type", "deliver-report", "--data", "AB", "--failure-cause", "128"}, "000080060401AB"},
        {{"--type", "submit-report", "--time", c_time}, "00010062112231005040"},
        {{"--type", "submit-report", "--time", c_time, "--failure-cause", "192", "--pid", "0"},
         "0001C0016211223100504000"},
        {{"--type", "submit-report", "--time", c_time, "--port", "5", "hi"},
         "0041066211223100504000"
         "0A06050400050000E834"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pdu);
        EXPECT_EQ(Encode(row.arguments, "not read"), (Outcome{0, std::string(row.pdu) + "\n", ""}));
    }
}

TEST(QxpduOutgoing, TimesAreNowUnlessGiven) {
    const auto message = [](const std::vector<std::string>& arguments) {
        return Qxpdu({"decode", "--json", "--direction", "to-mobile"}, Encode(arguments).out).Json()[0];
    };
    const nlohmann::json deliver = message({"--type", "deliver", "--from", "1", "hi"});
    EXPECT_GE(deliver["tp_scts"]["time"].get<std::string>(), "2026");
    const nlohmann::json report = message({"--type", "status-report", "--to", "1", "--time", c_time});
    EXPECT_EQ(report["tp_scts"]["time"], c_time);
    EXPECT_EQ(report["tp_dt"]["time"], c_time) << "as TP-SCTS";
    // POSIX has the zones' signs the other way round.
    const auto zone = [](const std::string& name) {
        return tests::Shell("TZ=" + name + " $QXPDU encode --type deliver --from 1 hi").out.substr(26, 2);
    };
    EXPECT_EQ(zone("XXX-5:30"), "22");
    EXPECT_EQ(zone("XXX3:30"), "49");
    EXPECT_EQ(zone("XXX-19:45"), "97") << "79 quarters of an hour";
    EXPECT_EQ(zone("XXX0"), "00");
}

TEST(QxpduOutgoing, ReportsReadTheInputWhereThatIsAskedFor) {
    EXPECT_EQ(Encode({"--type", "deliver-report"}, "hi"), (Outcome{0, "000000\n", ""}));
    EXPECT_EQ(Encode({"--type", "deliver-report", "-"}, "hi"), (Outcome{0, "0000060002E834\n", ""}));
    EXPECT_EQ(Encode({"--type", "deliver-report", "--lines"}, "hi\n\n"),
              (Outcome{0, "0000060002E834\n000000\n", ""}));
    EXPECT_EQ(Encode({"--type", "deliver-report", "--data", "-"}, "AB"), (Outcome{0, "0000060401AB\n", ""}));
    EXPECT_EQ(Encode({"--type", "deliver-report", "--jsonl"}, "{}\n").Json()["pdus"][0]["octets"], "000000");
}

TEST(QxpduOutgoing, ReportsAndCommandsAreOneMessage) {
    const auto encode = [](const char* type, std::vector<std::string> options, std::size_t octets) {
        options.insert(options.begin(), {"--type", type, "--data", Repeated("5A", octets)});
        return Encode(options);
    };
    struct Most {
        const char* type;
        std::vector<std::string> options;
        std::size_t octets;
    };
    const Most rows[] = {
        {"deliver-report", {}, 159},
        {"deliver-report", {"--failure-cause", "208"}, 158},
        {"submit-report", {}, 152},
        {"submit-report", {"--failure-cause", "208"}, 151},
        {"status-report", {"--to", "12345678901234567890", "--pid", "0"}, 131},
        {"status-report", {"--to", "12345678901234567890"}, 132},
        {"command", {"--to", "12345678901234567890"}, 146},
    };
    for (const Most& row : rows) {
        EXPECT_EQ(encode(row.type, row.options, row.octets).status, 0) << row.type;
        const Outcome run = encode(row.type, row.options, row.octets + 1);
        EXPECT_EQ(run.status, 1);
        EXPECT_NE(run.err.find(std::to_string(row.octets) + " octets of user data fit into an SMS-"),
                  std::string::npos)
            << run.err;
    }
    EXPECT_EQ(Encode({"--type", "deliver-report", Repeated("я", 80)}),
              (Outcome{1, "",
                       "qxpdu: argument 1: 159 octets of user data fit into an SMS-DELIVER-REPORT, and 2 "
                       "messages would be needed\n"}));
    EXPECT_EQ(Encode({"--type", "command", "--to", "1", "hi"}),
              (Outcome{1, "", "qxpdu: argument 1: an SMS-COMMAND has no text; --data gives it data\n"}));
}

TEST(QxpduOutgoing, StatusReportHasRoomForOneOctetMoreWithoutTpDcs) {
    const auto encode = [](std::vector<std::string> options, const std::string& text) {
        options.insert(options.begin(), {"--type", "status-report", "--to", "1"});
        options.push_back(text);
        return Encode(options);
    };
    const auto tooLong = [](int octets) {
        return "qxpdu: argument 1: " + std::to_string(octets) +
               " octets of user data fit into an SMS-STATUS-REPORT, and 2 messages would be needed\n";
    };
    // 22 octets are others, so that 142 are left: 162 septets.
    EXPECT_EQ(encode({}, Repeated("a", 162)).out.size(), 2 * (1 + 164U) + 1);
    EXPECT_EQ(encode({}, Repeated("a", 163)).err, tooLong(142));
    EXPECT_EQ(encode({"--class", "1"}, Repeated("a", 161)).status, 0);
    EXPECT_EQ(encode({"--class", "1"}, Repeated("a", 162)).err, tooLong(141));
    EXPECT_EQ(encode({}, Repeated("я", 70)).status, 0);
    EXPECT_EQ(encode({}, Repeated("я", 71)).err, tooLong(141)) << "they would be 142 octets";
    EXPECT_EQ(encode({"--alphabet", "8bit"}, Repeated("a", 142)).err, tooLong(141));
}

TEST(QxpduOutgoing, LongDeliverIsCut) {
    const Outcome run = Encode({"--type", "deliver", "--from", "1", "--time", c_time, "--status-report",
                                "--concat-reference", "9", Repeated("a", 161)});
    const std::vector<std::string> pdus = LinesOf(run.out);
    ASSERT_EQ(pdus.size(), 2U);
    EXPECT_EQ(pdus[0].substr(0, 42), "00640181F1000062112231005040A0050003090201");
    EXPECT_EQ(pdus[1].substr(0, 42), "00440181F10000621122310050400F050003090202");
}

TEST(QxpduOutgoing, AtWritesTheCommandOfTheType) {
    EXPECT_EQ(Encode({"--at", "--type", "command", "--to", "+4179123"}),
              (Outcome{0, "AT+CMGC=12\n0002000000000791149721F300\n", ""}));
    EXPECT_EQ(Encode({"--at", "--type", "deliver-report"}), (Outcome{0, "AT+CNMA=1,2\n0000\n", ""}));
    EXPECT_EQ(Encode({"--at", "--type", "deliver-report", "--failure-cause", "0xD3", "hi"}),
              (Outcome{0, "AT+CNMA=2,7\n00D3060002E834\n", ""}))
        << "without the octet for a service centre";
    EXPECT_EQ(Qxpdu({"decode", "--json"}, "AT+CNMA=2,7\n00D3060002E834\n").Json()[0]["text"], "hi");
    EXPECT_EQ(Encode({"--at", "--type", "deliver-report", "--smsc", "+41"}),
              (Outcome{2, "",
                       "qxpdu: --smsc: AT+CNMA takes no service centre\n"
                       "Usage: qxpdu encode [OPTIONS] [TEXT]\n"}));
    EXPECT_EQ(Encode({"--type", "deliver-report", "--smsc", "+41"}), (Outcome{0, "0291140000\n", ""}));
    EXPECT_EQ(Encode({"--at", "--type", "deliver", "--from", "1", "hi"}),
              (Outcome{2, "",
                       "qxpdu: --at: no command of a modem sends an SMS-DELIVER\n"
                       "Usage: qxpdu encode [OPTIONS] [TEXT]\n"}));
}

TEST(QxpduOutgoing, JsonTellsWhatEachPartReadsAs) {
    const auto part = [](std::vector<std::string> arguments) {
        arguments.emplace_back("--json");
        nlohmann::json object = Encode(arguments).Json()[0];
        object.erase("octets");
        object.erase("tpdu_length");
        object.erase("format");
        object.erase("argument");
        return object;
    };
    using nlohmann::json;
    EXPECT_EQ(part({"--to", "1", "--language", "tr", "--port", "5:6", "--port-bits", "8",
                    "--concat-reference", "258", "--concat-bits", "16", Repeated("ğ", 160)}),
              json::parse(R"({"alphabet": "GSM 7-bit", "septets": 144, "part": 1, "parts": 2,
                  "concatenation": {"reference": 258, "reference_bits": 16, "total": 2, "sequence": 1},
                  "ports": {"destination": 5, "originator": 6, "bits": 8}, "locking_shift": "Turkish"})"));
    EXPECT_EQ(part({"--to", "1", "--concat-reference", "3", Repeated("a", 161)}),
              json::parse(R"({"alphabet": "GSM 7-bit", "septets": 153, "part": 1, "parts": 2,
                  "concatenation": {"reference": 3, "reference_bits": 8, "total": 2, "sequence": 1}})"));
    EXPECT_EQ(part({"--to", "1", "--language", "es", Repeated("á", 3) + Repeated("a", 10)}),
              json::parse(R"({"alphabet": "GSM 7-bit", "septets": 16, "part": 1, "parts": 1,
                  "single_shift": "Spanish"})"));
    EXPECT_EQ(part({"--to", "1", "--data", "01FF", "--port", "5"}),
              json::parse(R"({"alphabet": "8-bit data", "data": "01FF", "part": 1, "parts": 1,
                  "ports": {"destination": 5, "originator": 0, "bits": 16}})"));
    EXPECT_EQ(part({"--type", "deliver", "--from", "1", "hi"}),
              json::parse(R"({"type": "SMS-DELIVER", "alphabet": "GSM 7-bit", "septets": 2, "part": 1,
                  "parts": 1})"));
    EXPECT_EQ(part({"--type", "command", "--to", "1", "--data", "01"}),
              json::parse(R"({"type": "SMS-COMMAND", "alphabet": "8-bit data", "data": "01", "part": 1,
                  "parts": 1})"));
    EXPECT_EQ(part({"--type", "status-report", "--to", "1", "hi"}),
              json::parse(R"({"type": "SMS-STATUS-REPORT", "alphabet": "GSM 7-bit", "septets": 2, "part": 1,
                  "parts": 1})"))
        << "without a data coding scheme";
    EXPECT_EQ(part({"--type", "status-report", "--to", "1", "я"}),
              json::parse(R"({"type": "SMS-STATUS-REPORT", "alphabet": "UCS2", "characters": 1, "part": 1,
                  "parts": 1})"));
    EXPECT_EQ(part({"--type", "deliver-report", "--failure-cause", "192", "--data", "01"}),
              json::parse(R"({"type": "SMS-DELIVER-REPORT", "alphabet": "8-bit data", "data": "01", "part": 1,
                  "parts": 1})"));
    // As an SMS-DELIVER it would be sound too, from 4001123, with DEADBEEF.
    EXPECT_EQ(
        part({"--type", "deliver-report", "--pid", "0x91", "--data", "21F300046211223100504004DEADBEEF"}),
        json::parse(R"({"type": "SMS-DELIVER-REPORT", "alphabet": "8-bit data",
                  "data": "21F300046211223100504004DEADBEEF", "part": 1, "parts": 1})"));
    EXPECT_EQ(part({"--type", "submit-report", "--failure-cause", "192"}),
              json::parse(R"({"type": "SMS-SUBMIT-REPORT", "part": 1, "parts": 1})"));
    EXPECT_EQ(Encode({"--type", "deliver-report", "--json"}).Json(),
              json::parse(R"([{"format": 2, "octets": "000000", "tpdu_length": 2,
                  "type": "SMS-DELIVER-REPORT", "part": 1, "parts": 1}])"));
}

} // namespace
