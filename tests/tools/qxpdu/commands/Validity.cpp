// qxpdu encode --validity, --validity-format, --single-shot
#include <ctime>
#include <iomanip>
#include <sstream>

#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;

Outcome Encode(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"encode", "--to", "+4179123"});
    arguments.emplace_back("a");
    return Qxpdu(arguments);
}

/// The first octet, and TP-VP.
std::string ValidityOf(const std::vector<std::string>& arguments) {
    const std::string pdu = Encode(arguments).out;
    return pdu.size() < 26 ? pdu : pdu.substr(2, 2) + ' ' + pdu.substr(22, pdu.size() - 22 - 5);
}

TEST(QxpduValidity, PeriodIsRelativeUnlessTheFormatIsAnother) {
    struct Row {
        std::vector<std::string> arguments;
        const char* validity;
    };
    const Row rows[] = {
        {{}, "01 "},
        {{"--validity", "5m"}, "11 00"},
        {{"--validity", "10m"}, "11 01"},
        {{"--validity", "90m"}, "11 11"},
        {{"--validity", "1h30m"}, "11 11"},
        {{"--validity", "01:30:00"}, "11 11"},
        {{"--validity", "1h"}, "11 0B"},
        {{"--validity", "3h"}, "11 23"},
        {{"--validity", "3600s"}, "11 0B"},
        {{"--validity", "12h"}, "11 8F"},
        {{"--validity", "12h30m"}, "11 90"},
        {{"--validity", "24h"}, "11 A7"},
        {{"--validity", "1d"}, "11 A7"},
        {{"--validity", "2d"}, "11 A8"},
        {{"--validity", "1w"}, "11 AD"},
        {{"--validity", "30d"}, "11 C4"},
        {{"--validity", "5w"}, "11 C5"},
        {{"--validity", "63w"}, "11 FF"},
        {{"--validity", "max"}, "11 FF"},
        {{"--validity", "0"}, "11 00"},
        {{"--validity", "100"}, "11 64"},
        {{"--validity", "255"}, "11 FF"},
        {{"--validity", "255", "--validity-format", "relative"}, "11 FF"},
        {{"--validity", "2026-12-24T18:00:00+01:00"}, "19 62214281000040"},
        {{"--validity", "2026-12-24t18:00:00z"}, "19 62214281000000"},
        {{"--validity", "2026-12-24 18:00:59 -03:30"}, "19 62214281009549"},
        {{"--validity", "2026-12-24T18:05+0100", "--validity-format", "absolute"}, "19 62214281500040"},
        {{"--validity", "30s", "--validity-format", "enhanced"}, "09 021E0000000000"},
        {{"--validity", "255s", "--validity-format", "enhanced"}, "09 02FF0000000000"},
        {{"--validity", "256s", "--validity-format", "enhanced"}, "09 03004061000000"},
        {{"--validity", "99:59:59", "--validity-format", "enhanced"}, "09 03999595000000"},
        {{"--validity", "5d", "--validity-format", "enhanced"}, "09 01AB0000000000"},
        {{"--validity", "167", "--validity-format", "enhanced"}, "09 01A70000000000"},
        {{"--validity-format", "enhanced"}, "09 00000000000000"},
        {{"--validity-format", "enhanced", "--single-shot"}, "09 40000000000000"},
        {{"--validity", "30s", "--validity-format", "enhanced", "--single-shot"}, "09 421E0000000000"},
        {{"--validity", "167", "--validity-format", "enhanced", "--single-shot"}, "09 41A70000000000"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(ValidityOf(row.arguments), std::string(row.validity));
        EXPECT_EQ(Encode(row.arguments).err, "");
    }
}

TEST(QxpduValidity, AbsolutePeriodBeginsNow) {
    const nlohmann::json message =
        Qxpdu({"decode", "--json"}, Encode({"--validity", "1d", "--validity-format", "absolute"}).out)
            .Json()[0];
    EXPECT_EQ(message["tp_vpf"]["raw"], 3);
    const auto atTheNextDay = [](std::time_t time) {
        const std::time_t then = time + 24 * 60 * 60;
        std::ostringstream text;
        std::tm fields{};
        text << std::put_time(gmtime_r(&then, &fields), "%Y-%m-%dT%H:%M:%S+00:00");
        return text.str();
    };
    const std::time_t before = std::time(nullptr);
    const Outcome run =
        tests::Shell("TZ=UTC0 $QXPDU encode --to 1 --validity 1d --validity-format absolute a");
    const std::string until =
        Qxpdu({"decode", "--json"}, run.out).Json()[0]["tp_vp"]["time"].get<std::string>();
    EXPECT_GE(until, atTheNextDay(before));
    EXPECT_LE(until, atTheNextDay(std::time(nullptr)));
}

TEST(QxpduValidity, NearestPeriodThatIsNotShorterIsAWarningOrWithStrictAnError) {
    struct Row {
        std::vector<std::string> arguments;
        const char* octet;
        const char* period;
    };
    const Row rows[] = {
        {{"--validity", "25h"}, "11 A8", "25h goes out as 2 days"},
        {{"--validity", "30s"}, "11 00", "30s goes out as 5 minutes"},
        {{"--validity", "301s"}, "11 01", "301s goes out as 10 minutes"},
        {{"--validity", "31d"}, "11 C5", "31d goes out as 5 weeks"},
        {{"--validity", "12h1m"}, "11 90", "12h1m goes out as 12 hours 30 minutes"},
        {{"--validity", "100h", "--validity-format", "enhanced"},
         "09 01AB0000000000",
         "100h goes out as 5 days"},
        {{"--validity", "100h", "--validity-format", "enhanced", "--single-shot"},
         "09 41AB0000000000",
         "100h goes out as 5 days"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ValidityOf(row.arguments), row.octet);
        const std::string told =
            std::string(row.period) + ", the nearest relative period that is not shorter\n";
        EXPECT_EQ(Encode(row.arguments).err, "qxpdu: --validity: warning: " + told);
        std::vector<std::string> strict = row.arguments;
        strict.emplace_back("--strict");
        EXPECT_EQ(Encode(strict), (Outcome{1, "", "qxpdu: --validity: " + told}));
    }
    EXPECT_EQ(Encode({"--jsonl", "--validity", "25h"}).Json()["warnings"],
              nlohmann::json::array(
                  {"--validity: 25h goes out as 2 days, the nearest relative period that is not shorter"}));
}

TEST(QxpduValidity, WhatIsNoneIsAnError) {
    const std::string usage = "\nUsage: qxpdu encode [OPTIONS] [TEXT]\n";
    for (const char* period : {"",
                               "256",
                               "-1",
                               "1x",
                               "h",
                               "1h30",
                               "1hh",
                               "0m",
                               "64w",
                               "442d",
                               "635041m",
                               "99999999999d",
                               "1:30:00",
                               "00:00:00",
                               "00:60:00",
                               "00:00:60",
                               "0a:00:00",
                               "aa:00:00",
                               "01x30:00",
                               "01:30x00",
                               "01:30:000",
                               "1h 30m",
                               "100:00:00",
                               "2026-12-24T18:00:00",
                               "2026-13-24T18:00:00Z",
                               "2026-12-24T18:00:00+01:10",
                               "2026-12-24T18:00:00Zx",
                               "2026-12-24",
                               "1999-12-24T18:00:00Z",
                               "2026-12-24T18:00:00+20:00",
                               "2026-12-24T18:00:00+1:00",
                               "2026-2-24T18:00:00Z"}) {
        EXPECT_EQ(Encode({"--validity", period}),
                  (Outcome{2, "",
                           std::string("qxpdu: --validity: ") + period +
                               " is neither a period of at most 63 weeks, as 90m, 3h, 1d12h or max, nor an "
                               "octet, nor a time with its zone, as 2026-12-24T18:00:00+01:00" +
                               usage}));
    }
    struct Row {
        std::vector<std::string> arguments;
        const char* error;
    };
    const Row rows[] = {
        {{"--validity-format", "long"}, "--validity-format: long is neither relative, enhanced nor absolute"},
        {{"--validity-format", "relative"}, "--validity-format: --validity is required"},
        {{"--validity-format", "absolute"}, "--validity-format: --validity is required"},
        {{"--validity-format", "absolute", "--validity", "7"}, "--validity-format: an octet is relative"},
        {{"--validity-format", "relative", "--validity", "2026-12-24T18:00:00Z"},
         "--validity-format: a point in time is absolute"},
        {{"--validity-format", "enhanced", "--validity", "2026-12-24T18:00:00Z"},
         "--validity-format: a point in time is absolute"},
        {{"--single-shot"}, "--single-shot: the enhanced format alone has it"},
        {{"--single-shot", "--validity", "1h"}, "--single-shot: the enhanced format alone has it"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Encode(row.arguments), (Outcome{2, "", std::string("qxpdu: ") + row.error + usage}));
}

} // namespace
