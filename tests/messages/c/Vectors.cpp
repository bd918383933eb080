// The vectors through the C interface: the C++ one is held to their values elsewhere, and this one to that.
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "messages/c/Agreement.h"

namespace {

using namespace Messages;
using Json = nlohmann::json;

/// Calls `check(vector)` for each vector of a file; returns how many there are.
template <class Check>
std::size_t EachOf(const std::string& file, Check check) {
    std::ifstream in(std::string(QX_VECTORS) + "/" + file + ".jsonl");
    std::size_t count = 0;
    for (std::string line; std::getline(in, line); ++count)
        check(Json::parse(line));
    EXPECT_GT(count, 0U) << file;
    return count;
}

std::vector<std::uint8_t> OctetsOf(const Json& vector, const char* member) {
    std::vector<std::uint8_t> octets;
    EXPECT_TRUE(FromHex(vector.value(member, ""), octets));
    return octets;
}

Presence PresenceOf(const std::string& told) {
    return told == "yes" ? Presence::Yes : told == "no" ? Presence::No : Presence::Unknown;
}

ReadOptions OptionsOf(const Json& vector) {
    const std::string direction = vector.at("direction");
    ReadOptions options;
    options.serviceCentre = PresenceOf(vector.at("service-centre"));
    options.direction = direction == "to-mobile"     ? Direction::ToMobile
                        : direction == "from-mobile" ? Direction::FromMobile
                                                     : Direction::Unknown;
    options.failureCause = PresenceOf(vector.value("failure-cause", "unknown"));
    if (vector.contains("announced"))
        options.announcedLength = vector.at("announced").get<std::uint32_t>();
    return options;
}

CutOptions CutOptionsOf(const Json& vector) {
    CutOptions options;
    for (const int language : vector.at("languages"))
        options.choice.languages.Add(static_cast<Language>(language));
    if (vector.contains("alphabet"))
        options.choice.alphabet = vector.at("alphabet") == "ucs2" ? Alphabet::Ucs2 : Alphabet::Gsm7;
    options.choice.room.hasWideReference = vector.at("bits") == 16;
    options.reference = vector.at("reference").get<std::uint16_t>();
    if (vector.contains("ports")) {
        const Json& ports = vector.at("ports");
        options.ports = Ports{ports.at("bits") == 16, ports.at("destination").get<std::uint16_t>(),
                              ports.at("source").get<std::uint16_t>()};
    }
    options.elements = OctetsOf(vector, "elements");
    if (vector.contains("class"))
        options.messageClass = vector.at("class").get<std::uint8_t>();
    return options;
}

TEST(VectorsThroughC, OfMessages) {
    std::size_t count = 0;
    for (const char* file : {"addresses", "alphabets", "by-hand", "cuts", "data-coding", "headers", "times",
                             "types", "user-data", "validity", "values"})
        count += EachOf(file, [](const Json& vector) {
            tests::CheckCAgreement(OctetsOf(vector, "octets"), OptionsOf(vector));
        });
    EXPECT_GE(count, 400U);
}

TEST(VectorsThroughC, OfCellBroadcast) {
    for (const char* file : {"cell-by-hand", "cell"})
        EachOf(file, [](const Json& vector) {
            const std::string format = vector.value("format", "");
            tests::CheckCCellAgreement(OctetsOf(vector, "octets"),
                                       format == "gsm"    ? CellFormat::GsmPage
                                       : format == "umts" ? CellFormat::UmtsMessage
                                       : format == "etws" ? CellFormat::EtwsNotification
                                                          : CellFormat::Unknown);
        });
}

TEST(VectorsThroughC, OfTextsThatAreSent) {
    for (const char* file : {"outgoing-by-hand", "outgoing"})
        EachOf(file, [](const Json& vector) {
            tests::CheckCCutAgreement(vector.at("text").get<std::string>(), CutOptionsOf(vector));
        });
}

} // namespace
