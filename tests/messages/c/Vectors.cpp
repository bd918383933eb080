// The vectors through the C interface: the C++ one is held to their values elsewhere, and this one to that.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "messages/c/Agreement.h"
#include "messages/c/Changes.h"

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

const std::set<std::string> c_messages = {"addresses",   "alphabets", "by-hand", "cuts",
                                          "data-coding", "headers",   "times",   "types",
                                          "user-data",   "validity",  "values"};
const std::set<std::string> c_cell = {"cell", "cell-by-hand"};
const std::set<std::string> c_texts = {"outgoing", "outgoing-by-hand"};

TEST(VectorsThroughC, AreAllThatThereAre) {
    std::set<std::string> taken = c_messages;
    taken.insert(c_cell.begin(), c_cell.end());
    taken.insert(c_texts.begin(), c_texts.end());
    std::set<std::string> found;
    for (const auto& file : std::filesystem::directory_iterator(QX_VECTORS))
        if (file.path().extension() == ".jsonl")
            found.insert(file.path().stem());
    EXPECT_EQ(taken, found);
}

TEST(VectorsThroughC, OfMessages) {
    std::size_t count = 0;
    for (const std::string& file : c_messages)
        count += EachOf(file, [](const Json& vector) {
            tests::CheckCAgreement(OctetsOf(vector, "octets"), OptionsOf(vector));
        });
    EXPECT_GE(count, 400U);
}

TEST(VectorsThroughC, OfCellBroadcast) {
    for (const std::string& file : c_cell)
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
    for (const std::string& file : c_texts)
        EachOf(file, [](const Json& vector) {
            tests::CheckCCutAgreement(vector.at("text").get<std::string>(), CutOptionsOf(vector));
        });
}

TEST(VectorsThroughC, AreWrittenWithEachMemberChanged) {
    for (const std::string& file : c_messages)
        EachOf(file, [even = 0U](const Json& vector) mutable {
            const std::vector<std::uint8_t> octets = OctetsOf(vector, "octets");
            for (std::uint8_t member = 0; member < tests::c_changes; ++member)
                for (const unsigned int value : {even, even + 1})
                    tests::CheckCWritesWithChanges(
                        octets, std::vector<std::uint8_t>{member, static_cast<std::uint8_t>(value)});
            even += 2;
        });
}

TEST(VectorsThroughC, AreWrittenWithSeveralMembersChanged) {
    std::mt19937 random(1);
    for (const std::string& file : c_messages)
        EachOf(file, [&](const Json& vector) {
            std::vector<std::uint8_t> changes(2 * (1 + random() % 4));
            std::generate(changes.begin(), changes.end(),
                          [&] { return static_cast<std::uint8_t>(random() % 256); });
            tests::CheckCWritesWithChanges(OctetsOf(vector, "octets"), changes);
        });
}

TEST(DraftsThroughC, AreWrittenTheSame) {
    CellDraft draft;
    draft.serialNumber.value = 0x4020;
    draft.messageIdentifier = 50;
    for (const CellFormat format : {CellFormat::Unknown, CellFormat::GsmPage, CellFormat::UmtsMessage})
        for (const char* const language : {"", "de", "xx", "X"})
            for (const std::string& text : {std::string("Hi"), std::string(94, 'a'), std::string("\xD0\x96"),
                                            std::string("a\xFF"), std::string(1396, 'a')})
                for (const auto alphabet : {std::optional<Alphabet>(), std::optional(Alphabet::Gsm7),
                                            std::optional(Alphabet::Data), std::optional(Alphabet::Ucs2)})
                    for (const auto messageClass :
                         {std::optional<std::uint8_t>(), std::optional<std::uint8_t>(3),
                          std::optional<std::uint8_t>(4)}) {
                        draft.format = format;
                        draft.language = language;
                        draft.text = text;
                        draft.alphabet = alphabet;
                        draft.messageClass = messageClass;
                        tests::CheckCDraftAgreement(draft);
                    }
}

TEST(WhatIsMadeThroughC, IsTheSame) {
    for (const char* const text : {"+44 7700 900123", "112", "*#abc", "Bank", "", "\xD0\x96", "a\xFF"})
        tests::CheckCAddressAgreement(text);
    const std::vector<std::uint8_t> port = {0x05, 0x04, 0x0B, 0x84, 0x23, 0xF0};
    const std::vector<std::uint8_t> content = {0x48, 0x69};
    const std::vector<std::uint8_t> wide = {0x80};
    for (unsigned int coding = 0; coding < 256; ++coding) {
        const auto value = static_cast<std::uint8_t>(coding);
        tests::CheckCUserDataAgreement(value, port, content);
        tests::CheckCUserDataAgreement(value, {}, wide);
        tests::CheckCTimeAgreement(coding, static_cast<int>(coding) - 128);
        tests::CheckCTimeAgreement(std::int64_t{coding} * 100'000'000, 4);
    }
    tests::CheckCUserDataAgreement(4, {}, std::vector<std::uint8_t>(256));
    for (const int part : {-1, 0, 1, 2, 30, 31, 60, 80, 2026})
        tests::CheckCTimeAgreement(2026, part, part, part, part, part, part);
    tests::CheckCTimeAgreement(2026, 11, 22, 9, 14, 0, 4);
}

} // namespace
