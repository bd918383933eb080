// Which options each type of message has.
#include <gtest/gtest.h>

#include "commands/OutgoingOptions.h"
#include "show/Json.h"

namespace {

using qxpdu::FaultOfCombination;
using qxpdu::OutgoingOptions;
using qxpdu::SetOption;

/// A type of message, or the other library, with the option that it cannot do without.
struct Type {
    const char* name;
    const char* shown;
    char letter; ///< that stands for it below
    const char* party;
};
constexpr Type c_types[] = {
    {"submit", "SMS-SUBMIT", 'S', "to"},
    {"deliver", "SMS-DELIVER", 'D', "from"},
    {"status-report", "SMS-STATUS-REPORT", 'R', "to"},
    {"command", "SMS-COMMAND", 'C', "to"},
    {"deliver-report", "SMS-DELIVER-REPORT", 'd', nullptr},
    {"submit-report", "SMS-SUBMIT-REPORT", 's', nullptr},
    {"submit", "libQX_Encoding", 'H', "to"},
};

struct Row {
    const char* option;
    const char* value;      ///< JSON
    const char* types;      ///< that have it
    const char* fault = ""; ///< that is left where they do
};
constexpr const char* c_time = "\"2026-11-22T13:00:05Z\"";
const Row c_rows[] = {
    {"smsc", "\"1\"", "SDRCdsH"},
    {"alphabet", "\"ucs2\"", "SDRds"},
    {"language", "\"tr\"", "SDRds"},
    {"replace", "true", "SDRds"},
    {"data", "\"00\"", "SDRCds"},
    {"class", "1", "SDRdsH"},
    {"port", "5", "SDRCds"},
    {"port-bits", "8", "SDRCds", "--port-bits: --port is required"},
    {"concat-reference", "0", "SDH"},
    {"concat-bits", "16", "SD"},
    {"pid", "0", "SDRCds"},
    {"validity", "\"1h\"", "SH"},
    {"validity-format", "\"enhanced\"", "S"},
    {"single-shot", "true", "S", "--single-shot: the enhanced format alone has it"},
    {"status-report", "true", "SDCH"},
    {"reject-duplicates", "true", "SH"},
    {"reply-path", "true", "SDH"},
    {"reference", "0", "SRCH"},
    {"time", c_time, "DRs"},
    {"discharge-time", c_time, "R"},
    {"status", "0", "R"},
    {"for-command", "true", "R"},
    {"more-messages", "true", "DR"},
    {"loop-prevention", "true", "DR"},
    {"failure-cause", "128", "ds"},
    {"command-type", "0", "C"},
    {"message-number", "0", "C"},
    {"strict", "true", "SDRCdsH"},
};

OutgoingOptions OptionsFor(const Type& type) {
    OutgoingOptions options;
    options.type = type.name;
    if (type.letter == 'H')
        options.as = "libQX_Encoding";
    if (type.party != nullptr)
        SetOption(type.party, "1", options);
    return options;
}

TEST(OptionsOfTypes, AreThoseThatHaveAPlaceInThem) {
    for (const Type& type : c_types) {
        EXPECT_EQ(FaultOfCombination(OptionsFor(type)), "") << type.shown;
        for (const Row& row : c_rows) {
            OutgoingOptions options = OptionsFor(type);
            ASSERT_TRUE(SetOption(row.option, show::Json::parse(row.value), options)) << row.option;
            const bool isTheirs = std::string_view(row.types).find(type.letter) != std::string_view::npos;
            EXPECT_EQ(FaultOfCombination(options),
                      isTheirs ? row.fault
                               : std::string("--") + row.option + ": " + type.shown + " has none");
        }
    }
}

TEST(OptionsOfTypes, PartiesAreThoseOfTheType) {
    struct Parties {
        char letter;
        const char* withTo;
        const char* withFrom;
        const char* withBoth;
        const char* withNone;
    };
    const Parties rows[] = {
        {'S', "", "--from: SMS-SUBMIT has none", "--from: SMS-SUBMIT has none", "--to is required"},
        {'D', "--to: SMS-DELIVER has none", "", "--to: SMS-DELIVER has none", "--from is required"},
        {'R', "", "", "--from excludes --to", "--to or --from is required"},
        {'C', "", "--from: SMS-COMMAND has none", "--from: SMS-COMMAND has none", "--to is required"},
        {'d', "--to: SMS-DELIVER-REPORT has none", "--from: SMS-DELIVER-REPORT has none",
         "--to: SMS-DELIVER-REPORT has none", ""},
        {'s', "--to: SMS-SUBMIT-REPORT has none", "--from: SMS-SUBMIT-REPORT has none",
         "--to: SMS-SUBMIT-REPORT has none", ""},
        {'H', "", "--from: libQX_Encoding has none", "--from: libQX_Encoding has none", "--to is required"},
    };
    for (const Type& type : c_types) {
        const Parties& row = rows[&type - c_types];
        ASSERT_EQ(row.letter, type.letter);
        OutgoingOptions options = OptionsFor(type);
        const auto fault = [&](const char* to, const char* from) {
            options.to = to;
            options.from = from;
            return FaultOfCombination(options);
        };
        EXPECT_EQ(fault("1", ""), row.withTo);
        EXPECT_EQ(fault("", "2"), row.withFrom);
        EXPECT_EQ(fault("1", "2"), row.withBoth);
        EXPECT_EQ(fault("", ""), row.withNone);
    }
}

TEST(OptionsOfTypes, ModemSendsWhatMobilesSend) {
    for (const Type& type : c_types) {
        OutgoingOptions options = OptionsFor(type);
        options.at = true;
        const bool isSent = std::string_view("SCdH").find(type.letter) != std::string_view::npos;
        EXPECT_EQ(FaultOfCombination(options),
                  isSent ? "" : std::string("--at: no command of a modem sends an ") + type.shown);
        options.smsc = "1";
        EXPECT_EQ(FaultOfCombination(options).starts_with("--smsc"), type.letter == 'd');
    }
}

TEST(OptionsOfTypes, MayBeEmptyWhereNoTextIsDelivered) {
    std::string letters;
    for (const Type& type : c_types)
        letters += OptionsFor(type).MayBeEmpty() ? std::string(1, type.letter) : "";
    EXPECT_EQ(letters, "RCds");
}

TEST(OptionsOfTypes, OtherLibraryHasLess) {
    struct Less {
        const char* option;
        const char* value;
        const char* fault;
    };
    const Less rows[] = {
        {"type", "\"deliver\"", "--type: libQX_Encoding makes no SMS-DELIVER"},
        {"concat-reference", "255", ""},
        {"concat-reference", "256", "--concat-reference: libQX_Encoding has references from 0 to 255"},
        {"to", "\"+12/3\"", ""},
        {"to", "\"12*\"", "--to: character 3, '*', which libQX_Encoding leaves out"},
        {"to", "\"#1\"", "--to: character 1, '#', which libQX_Encoding leaves out"},
        {"smsc", "\"1a\"", "--smsc: character 2, 'a', which libQX_Encoding leaves out"},
        {"smsc", "\"1c\"", "--smsc: character 2, 'c', which libQX_Encoding leaves out"},
        {"status-report", "\"first\"", ""},
        {"status-report", "\"all\"", "--status-report: libQX_Encoding asks for one on the first part alone"},
        {"validity", "\"3h\"", ""},
        {"validity", c_time, "--validity: libQX_Encoding has relative periods alone"},
        {"greek", "true", ""},
    };
    for (const Less& row : rows) {
        OutgoingOptions options = OptionsFor(c_types[6]);
        ASSERT_TRUE(SetOption(row.option, show::Json::parse(row.value), options));
        EXPECT_EQ(FaultOfCombination(options), row.fault) << row.option << ' ' << row.value;
    }
    OutgoingOptions options = OptionsFor(c_types[0]);
    options.greek = true;
    EXPECT_EQ(FaultOfCombination(options), "--greek: only with --as libQX_Encoding");
}

TEST(OptionsOfTypes, ContentIsTextOrData) {
    struct Content {
        std::vector<std::pair<const char*, const char*>> members;
        const char* fault;
    };
    const Content rows[] = {
        {{{"data", "\"00\""}, {"alphabet", "\"8bit\""}}, ""},
        {{{"data", "\"00\""}, {"alphabet", "\"gsm\""}}, "--data excludes --alphabet"},
        {{{"data", "\"-\""}, {"alphabet", "\"ucs2\""}}, "--data excludes --alphabet"},
        {{{"data", "\"00\""}, {"language", "\"tr\""}}, "--data excludes --language"},
        {{{"data", "\"00\""}, {"replace", "true"}}, "--data excludes --replace"},
        {{{"data", "\"00\""}, {"language", "\"tr\""}, {"replace", "true"}}, "--data excludes --replace"},
        {{{"alphabet", "\"8bit\""}, {"language", "\"tr\""}}, "--language: 8-bit data has no tables"},
        {{{"alphabet", "\"8bit\""}, {"replace", "true"}}, "--replace: 8-bit data has no tables"},
        {{{"alphabet", "\"ucs2\""}, {"language", "\"tr\""}, {"replace", "true"}}, ""},
        {{{"alphabet", "\"gsm\""}, {"language", "\"tr\""}, {"replace", "true"}}, ""},
        {{{"concat-reference", "255"}, {"concat-bits", "8"}}, ""},
        {{{"concat-reference", "256"}, {"concat-bits", "16"}}, ""},
        {{{"concat-reference", "65535"}, {"concat-bits", "16"}}, ""},
        {{{"concat-reference", "256"}, {"concat-bits", "8"}},
         "--concat-reference: 256 takes --concat-bits 16"},
        {{{"concat-reference", "256"}}, "--concat-reference: 256 takes --concat-bits 16"},
        {{{"port", "255"}, {"port-bits", "8"}}, ""},
        {{{"port", "\"255:255\""}, {"port-bits", "8"}}, ""},
        {{{"port", "256"}, {"port-bits", "8"}}, "--port: 256 takes --port-bits 16"},
        {{{"port", "\"1:256\""}, {"port-bits", "8"}}, "--port: 1:256 takes --port-bits 16"},
        {{{"port", "256"}, {"port-bits", "16"}}, ""},
        {{{"port", "256"}}, ""},
        {{{"validity-format", "\"relative\""}}, "--validity-format: --validity is required"},
        {{{"validity-format", "\"enhanced\""}, {"single-shot", "true"}}, ""},
    };
    for (const Content& row : rows) {
        OutgoingOptions options = OptionsFor(c_types[0]);
        for (const auto& [name, value] : row.members)
            ASSERT_TRUE(SetOption(name, show::Json::parse(value), options)) << name;
        EXPECT_EQ(FaultOfCombination(options), row.fault);
    }
}

TEST(OptionsOfTypes, MembersTakeTheirRangeAlone) {
    struct Range {
        const char* name;
        int least;
        int most;
        bool takesHexadecimal = false;
    };
    const Range rows[] = {
        {"class", 0, 3},
        {"concat-reference", 0, 65535},
        {"pid", 0, 255, true},
        {"reference", 0, 255},
        {"status", 0, 255, true},
        {"failure-cause", 128, 255, true},
        {"command-type", 0, 255, true},
        {"message-number", 0, 255},
    };
    for (const Range& row : rows) {
        SCOPED_TRACE(row.name);
        OutgoingOptions options;
        const auto fault = [&](const show::Json& value) -> std::string {
            try {
                SetOption(row.name, value, options);
                return "";
            } catch (const std::exception& error) {
                return error.what();
            }
        };
        const std::string refused = std::string(row.name) + ": no number from " + std::to_string(row.least) +
                                    " to " + std::to_string(row.most);
        EXPECT_EQ(fault(row.least), "");
        EXPECT_EQ(fault(row.most), "");
        EXPECT_EQ(fault(row.least - 1), refused);
        EXPECT_EQ(fault(row.most + 1), refused);
        EXPECT_EQ(fault(row.most - 0.5), refused);
        EXPECT_EQ(fault(nullptr), refused);
        EXPECT_EQ(fault(true), refused);
        EXPECT_EQ(fault("0x80"), row.takesHexadecimal ? "" : refused);
        EXPECT_EQ(fault("0x100"), refused);
    }
    OutgoingOptions options;
    EXPECT_FALSE(SetOption("at", true, options));
    EXPECT_FALSE(SetOption("--pid", 1, options));
}

} // namespace
