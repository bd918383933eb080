// Messages of all six types as libQX_Messages writes them: what was asked for, beside what the dissector
// reads.
#include <iostream>
#include <map>
#include <optional>

#include <gtest/gtest.h>

#include "Differences.h"
#include "Dissector.h"
#include "Messages/Parts.h"
#include "Messages/Write.h"
#include "Toolkit/UTF8.h"
#include "reference/Random.h"

namespace yardsticks {
namespace {

using namespace Messages;
using reference::Random;
using tests::Bytes;

/// One message, and what a dissector has to find in it.
struct Sent {
    Bytes packet;
    std::vector<std::pair<std::string, long>> numbers;
    std::vector<long> elements; ///< identifiers of the header, in their order
    std::vector<Timestamp> times;
    const char* addressField = nullptr;
    Address address;
    std::optional<std::u32string> text;
    const char* difference = nullptr; ///< why the text, or nothing after a field, is read
};

constexpr const char* c_national =
    "texts in the tables of a national language, which tshark 4.0 reads by the default alphabet";
constexpr const char* c_enhanced =
    "enhanced validity periods, whose octet tshark 4.0 takes for TP-UDL as well";
constexpr const char* c_uncoded = "texts without TP-DCS, which tshark 4.0 does not show";

std::u32string RandomText(Random& random, std::uint32_t most) {
    static const std::u32string gsm = U"@£$¥èéùìò\nØøÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
                                      U"¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüàÇ";
    static const std::vector<std::u32string> others = {U"\f^{}\\[~]|€", U"ğışçİĞ",  U"ãâõôêúíó",
                                                       U"आपकापार्सल",    U"ж中あ한", U"😀🎉"};
    const std::u32string& other = random.Of(others);
    const std::uint32_t percent = random.Below(3) * 15;
    std::u32string text;
    for (std::uint32_t length = random.Below(most); text.size() < length;) {
        const std::u32string& from = random.Chance(percent) ? other : gsm;
        text += from[random.Below(static_cast<std::uint32_t>(from.size()))];
    }
    return text;
}

Address RandomAddress(Random& random) {
    Address address;
    std::string text;
    if (random.Chance(20)) {
        for (std::uint32_t length = random.Between(1, 11); text.size() < length;)
            text += static_cast<char>(random.Between('A', 'Z'));
        EXPECT_FALSE(ToName(text, address));
        return address;
    }
    for (std::uint32_t length = random.Between(1, 20); text.size() < length;)
        text += "0123456789*#abc"[random.Below(random.Chance(90) ? 10 : 15)];
    EXPECT_FALSE(ToNumber((random.Chance(50) ? "+" : "") + text, address));
    return address;
}

Timestamp RandomTime(Random& random) {
    const auto part = [&](std::uint32_t low, std::uint32_t high) {
        return static_cast<int>(random.Between(low, high));
    };
    return MakeTimestamp(part(2000, 2099), part(1, 12), part(1, 28), part(0, 23), part(0, 59), part(0, 59),
                         part(0, 158) - 79)
        .value();
}

Validity RandomValidity(Random& random) {
    constexpr std::uint32_t longest = 63 * 7 * 86400;
    switch (random.Below(4)) {
    case 0:
        return {};
    case 1:
        return MakeRelativeValidity(random.Below(longest)).value();
    case 2:
        return MakeEnhancedValidity(random.Between(1, longest), random.Chance(50)).value();
    default:
        return MakeAbsoluteValidity(RandomTime(random));
    }
}

/// Elements of all but those that are worked out.
std::vector<std::uint8_t> RandomElements(Random& random) {
    std::vector<std::uint8_t> elements;
    while (random.Chance(30) && elements.size() < 12)
        elements.insert(elements.end(), {static_cast<std::uint8_t>(random.Between(0x70, 0x7F)), 2,
                                         random.Octet(), random.Octet()});
    return elements;
}

std::u32string Slice(const std::string& text, std::size_t begin, std::size_t end) {
    return CodePoints(text.substr(begin, end - begin));
}

std::string Utf8(const std::u32string& text) {
    return Toolkit::UTF8::ToUTF8(TString<wchar_t>(std::wstring(text.begin(), text.end())));
}

/// What the user data of a message are, and what is to be found in them.
struct Body {
    DataCoding coding;
    UserData userData;
    std::optional<std::u32string> text;
    bool isNational = false;
};

/// A text, cut into parts where there are to be several.
std::vector<Body> RandomBodies(Random& random, std::uint32_t most, std::size_t octets) {
    CutOptions options;
    options.choice.languages = random.Chance(50) ? Languages::All() : Languages();
    options.choice.room.octets = octets;
    options.choice.room.hasWideReference = random.Chance(50);
    options.elements = RandomElements(random);
    if (random.Chance(15))
        options.messageClass = static_cast<std::uint8_t>(random.Below(4));
    if (random.Chance(15)) {
        const bool areWide = random.Chance(50);
        const std::uint32_t last = areWide ? 0xFFFF : 0xFF;
        options.ports = Ports{areWide, static_cast<std::uint16_t>(random.Between(0, last)),
                              static_cast<std::uint16_t>(random.Between(0, last))};
    }
    const std::string text = Utf8(RandomText(random, most));
    const CutText cut = CutIntoParts(text, options);
    EXPECT_FALSE(cut.fault);
    std::vector<Body> bodies;
    for (std::size_t part = 0; part < cut.parts.size(); ++part) {
        const std::size_t end = part + 1 < cut.offsets.size() ? cut.offsets[part + 1] : text.size();
        bodies.push_back({cut.coding, cut.parts[part], Slice(text, cut.offsets[part], end),
                          !(cut.choice.tables == SeptetTables{})});
    }
    return bodies;
}

/// One part, with 8-bit data at times.
Body RandomBody(Random& random) {
    if (random.Chance(80))
        return RandomBodies(random, 40, 100).front();
    const DataCoding coding(4);
    std::vector<std::uint8_t> data(random.Below(60));
    for (std::uint8_t& octet : data)
        octet = random.Octet();
    return {coding, MakeUserData(coding, RandomElements(random), data).value(), std::nullopt};
}

void ExpectUserData(const Body& body, Sent& sent) {
    sent.numbers.emplace_back("tp_user_data_length", body.userData.length);
    if (body.userData.concatenation) {
        sent.numbers.emplace_back("udh_mm_msg_id", body.userData.concatenation->reference);
        sent.numbers.emplace_back("udh_mm_msg_parts", body.userData.concatenation->total);
        sent.numbers.emplace_back("udh_mm_msg_part", body.userData.concatenation->part);
    }
    if (body.userData.ports) {
        sent.numbers.emplace_back("destination_port", body.userData.ports->destination);
        sent.numbers.emplace_back("originator_port", body.userData.ports->originator);
    }
    if (body.userData.tables.locking != Language::Default)
        sent.numbers.emplace_back("dis_iei_lang_locking_shift",
                                  static_cast<long>(body.userData.tables.locking));
    if (body.userData.tables.single != Language::Default)
        sent.numbers.emplace_back("dis_iei_lang_single_shift",
                                  static_cast<long>(body.userData.tables.single));
    for (const HeaderElement& element : body.userData.elements)
        sent.elements.push_back(element.identifier);
    sent.text = body.text;
    if (body.isNational)
        sent.difference = c_national;
}

Bytes Octets(const Tpdu& tpdu) {
    const Written written = Write(tpdu);
    EXPECT_FALSE(written.fault);
    EXPECT_EQ(written.octets.size(), written.tpduOctets);
    return {written.octets.begin(), written.octets.end()};
}

void ExpectAddress(const char* field, const Address& address, Sent& sent) {
    sent.addressField = field;
    sent.address = address;
}

/// The same text in parts, each a message.
template <class Make>
void AddParts(Random& random, std::vector<Sent>& all, Make make) {
    for (const Body& body : RandomBodies(random, random.Chance(70) ? 150 : 500, 140))
        all.push_back(make(body));
}

Sent MakeDeliver(Random& random, const Body& body) {
    const Deliver deliver{random.Chance(50), random.Chance(50),     random.Chance(50),
                          random.Chance(50), RandomAddress(random), random.Octet(),
                          body.coding,       RandomTime(random),    body.userData};
    Sent sent;
    sent.packet = ToMobile(Octets(deliver));
    sent.numbers = {{"tp-mti", 0},
                    {"tp-mms", !deliver.moreMessages},
                    {"tp-lp", deliver.loopPrevention},
                    {"tp-sri", deliver.statusReportIndication},
                    {"tp-rp", deliver.replyPath},
                    {"tp-udhi", body.userData.hasHeader},
                    {"tp-pid", deliver.protocol},
                    {"tp-dcs", body.coding.value}};
    sent.times = {deliver.timestamp};
    ExpectAddress("tp-oa", deliver.originator, sent);
    ExpectUserData(body, sent);
    return sent;
}

Sent MakeSubmit(Random& random, const Body& body) {
    const Submit submit{random.Chance(50), random.Chance(50),      random.Chance(50),
                        random.Octet(),    RandomAddress(random),  random.Octet(),
                        body.coding,       RandomValidity(random), body.userData};
    Sent sent;
    sent.packet = FromMobile(Octets(submit));
    sent.numbers = {{"tp-mti", 1},
                    {"tp-rd", submit.rejectDuplicates},
                    {"tp-srr", submit.statusReportRequest},
                    {"tp-rp", submit.replyPath},
                    {"tp-udhi", body.userData.hasHeader},
                    {"tp-mr", submit.reference},
                    {"tp-vpf", static_cast<long>(submit.validity.format)},
                    {"tp-pid", submit.protocol},
                    {"tp-dcs", body.coding.value}};
    ExpectAddress("tp-da", submit.destination, sent);
    if (submit.validity.format == ValidityFormat::Relative)
        sent.numbers.emplace_back("vp_validity_period", submit.validity.octets[0]);
    if (submit.validity.format == ValidityFormat::Absolute)
        sent.times = {submit.validity.Absolute()};
    if (submit.validity.format == ValidityFormat::Enhanced &&
        submit.validity.Enhanced() == EnhancedValidity::Relative) {
        sent.difference = c_enhanced;
        return sent;
    }
    ExpectUserData(body, sent);
    return sent;
}

/// TP-PI and what it announces, in the order of the fields.
template <class Message>
void ExpectOptional(Random& random, Message& report, Sent& sent) {
    if (random.Chance(50))
        sent.numbers.emplace_back("tp-pid", *(report.protocol = random.Octet()));
    if (random.Chance(30))
        return;
    const Body body = RandomBody(random);
    report.userData = body.userData;
    const bool isCoded = body.coding.value != 0 || random.Chance(70);
    if (isCoded)
        sent.numbers.emplace_back("tp-dcs", (report.coding = body.coding)->value);
    ExpectUserData(body, sent);
    if (!isCoded && sent.difference == nullptr)
        sent.difference = c_uncoded;
    const unsigned int indicator = (report.protocol ? 1U : 0U) | (report.coding ? 2U : 0U) | 4U;
    sent.numbers.emplace_back("tp_parameter_indicator", indicator);
    sent.numbers.emplace_back("tp-udhi", body.userData.hasHeader);
}

template <class Message>
void ExpectCause(Random& random, Message& report, Sent& sent) {
    if (random.Chance(50))
        sent.numbers.emplace_back(
            "tp-fcs", *(report.failureCause = static_cast<std::uint8_t>(random.Between(0x80, 0xFF))));
}

Sent MakeStatusReport(Random& random) {
    StatusReport report{random.Chance(50),
                        random.Chance(50),
                        random.Chance(50),
                        random.Octet(),
                        RandomAddress(random),
                        RandomTime(random),
                        RandomTime(random),
                        random.Octet(),
                        {},
                        {},
                        {},
                        {}};
    Sent sent;
    sent.numbers = {{"tp-mti", 2},
                    {"tp-mms", !report.moreMessages},
                    {"tp-lp", report.loopPrevention},
                    {"tp-srq", report.isForCommand},
                    {"tp-mr", report.reference},
                    {"dis_field_st_error", report.status >> 5 & 3},
                    {"dis_field_st_reason", report.status & 0x1F}};
    sent.times = {report.timestamp, report.discharge};
    ExpectAddress("tp-ra", report.recipient, sent);
    ExpectOptional(random, report, sent);
    sent.packet = ToMobile(Octets(report));
    return sent;
}

Sent MakeCommand(Random& random) {
    std::vector<std::uint8_t> data(random.Below(100));
    for (std::uint8_t& octet : data)
        octet = random.Octet();
    const Command command{random.Chance(50),
                          random.Octet(),
                          random.Octet(),
                          random.Octet(),
                          random.Octet(),
                          RandomAddress(random),
                          MakeUserData(DataCoding(4), {}, data).value()};
    Sent sent;
    sent.packet = FromMobile(Octets(command));
    sent.numbers = {{"tp-mti", 2},
                    {"tp-srr", command.statusReportRequest},
                    {"tp-mr", command.reference},
                    {"tp-pid", command.protocol},
                    {"tp_command_type", command.commandType},
                    {"tp_message_number", command.messageNumber},
                    {"tp_command_data_length", static_cast<long>(data.size())}};
    ExpectAddress("tp-da", command.destination, sent);
    return sent;
}

Sent MakeDeliverReport(Random& random) {
    DeliverReport report;
    Sent sent;
    sent.numbers = {{"tp-mti", 0}};
    ExpectCause(random, report, sent);
    ExpectOptional(random, report, sent);
    sent.packet = Report(Octets(report), false, report.failureCause.has_value());
    return sent;
}

Sent MakeSubmitReport(Random& random) {
    SubmitReport report;
    report.timestamp = RandomTime(random);
    Sent sent;
    sent.numbers = {{"tp-mti", 1}};
    sent.times = {report.timestamp};
    ExpectCause(random, report, sent);
    ExpectOptional(random, report, sent);
    sent.packet = Report(Octets(report), true, report.failureCause.has_value());
    return sent;
}

void AddRandom(Random& random, std::vector<Sent>& all) {
    switch (random.Below(6)) {
    case 0:
        return AddParts(random, all, [&](const Body& body) { return MakeDeliver(random, body); });
    case 1:
        return AddParts(random, all, [&](const Body& body) { return MakeSubmit(random, body); });
    case 2:
        return all.push_back(MakeStatusReport(random));
    case 3:
        return all.push_back(MakeCommand(random));
    case 4:
        return all.push_back(MakeDeliverReport(random));
    default:
        return all.push_back(MakeSubmitReport(random));
    }
}

void ExpectTime(const Timestamp& time, const Fields& fields, std::size_t n) {
    EXPECT_EQ(Number(fields, "scts_year", n), time.year - 2000);
    EXPECT_EQ(Number(fields, "scts_month", n), time.month);
    EXPECT_EQ(Number(fields, "scts_day", n), time.day);
    EXPECT_EQ(Number(fields, "scts_hour", n), time.hour);
    EXPECT_EQ(Number(fields, "scts_minutes", n), time.minute);
    EXPECT_EQ(Number(fields, "scts_seconds", n), time.second);
    EXPECT_EQ(Number(fields, "scts_timezone", n), std::abs(time.quarters)) << "no field has its sign";
}

void ExpectRead(const Sent& sent, const Fields& fields) {
    for (const auto& [name, value] : sent.numbers)
        EXPECT_EQ(Number(fields, name), value) << name;
    for (std::size_t i = 0; i < sent.elements.size(); ++i)
        EXPECT_EQ(Number(fields, "ie_identifier", i), sent.elements[i]);
    for (std::size_t i = 0; i < sent.times.size(); ++i)
        ExpectTime(sent.times[i], fields, i);
    if (sent.addressField != nullptr) {
        EXPECT_EQ(Text(fields, sent.addressField), CodePoints(sent.address.text));
        EXPECT_EQ(Number(fields, "dis_field_addr_num_type"), static_cast<long>(sent.address.Type()));
        EXPECT_EQ(Number(fields, "dis_field_addr_num_plan"), static_cast<long>(sent.address.Plan()));
    }
    if (sent.text && sent.difference == nullptr) {
        EXPECT_EQ(Shown(Text(fields, "sms_text")), Shown(*sent.text));
    }
}

TEST(Yardsticks, WhatIsWrittenReadsAsItWasAskedFor) {
    Random random(Seed());
    std::vector<Sent> all;
    while (all.size() < MessageCount())
        AddRandom(random, all);
    std::vector<Bytes> packets;
    std::map<std::string, std::size_t> differences;
    for (const Sent& sent : all) {
        packets.push_back(sent.packet);
        if (sent.difference != nullptr && (sent.text || sent.difference == c_enhanced))
            ++differences[sent.difference];
    }
    const std::vector<Fields> dissected = DissectSms(packets);
    for (std::size_t i = 0; i < all.size(); ++i) {
        SCOPED_TRACE(tests::Hex(all[i].packet));
        ExpectRead(all[i], dissected[i]);
        ASSERT_FALSE(testing::Test::HasFailure()) << dissected[i].dump();
    }
    for (const auto& [words, count] : differences)
        std::cout << count << ' ' << words << '\n';
}

} // namespace
} // namespace yardsticks
