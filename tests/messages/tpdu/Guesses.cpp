// What a PDU is taken for when nobody says it.
#include <gtest/gtest.h>

#include "messages/Readings.h"

namespace {

using namespace Messages;
using tests::DeliverOctets;
using tests::RemarksOf;

const std::string c_centre = "0791214365870921";
const std::string c_command = "022A00020004811032"
                              "00";
const std::string c_statusReport = "062A04811032212031214365802120313143658000";

TEST(Guesses, TheFirstSoundTypeOfDeliverSubmitAndStatusReport) {
    const struct {
        std::string octets; ///< after a service centre
        TpduType type;
        Direction direction;
        const char* remarks;
    } cases[] = {
        {DeliverOctets().Hex(), TpduType::Deliver, Direction::ToMobile, ""},
        {"00D300", TpduType::DeliverReport, Direction::FromMobile, "type-guessed at 8"},
        {"112A0481103200000B00", TpduType::Submit, Direction::FromMobile, ""},
        {"010021203121436580", TpduType::SubmitReport, Direction::ToMobile, "type-guessed at 8"},
        {c_statusReport, TpduType::StatusReport, Direction::ToMobile, ""},
        {c_command, TpduType::Command, Direction::FromMobile, "type-guessed at 8"},
        {"070B912143658709F100002120312143658005C8329BFD06", TpduType::Deliver, Direction::ToMobile,
         "reserved-type at 8"},
    };
    for (const auto& one : cases) {
        const Reading reading = ReadHex(c_centre + one.octets);
        EXPECT_TRUE(reading.IsSound()) << one.octets;
        EXPECT_EQ(reading.Type(), one.type) << one.octets;
        EXPECT_EQ(reading.direction, one.direction) << one.octets;
        EXPECT_EQ(RemarksOf(reading), one.remarks) << one.octets;
        ASSERT_TRUE(reading.serviceCentre) << one.octets;
        EXPECT_EQ(reading.serviceCentre->ToString(), "+123456789012");
        EXPECT_TRUE(reading.isServiceCentreGuessed);
    }
}

TEST(Guesses, WhereNoneIsSoundTheLikelyTypes) {
    const struct {
        const char* octets;
        TpduType type;
    } cases[] = {{"04", TpduType::Deliver}, {"11", TpduType::Submit}, {"06", TpduType::StatusReport}};
    for (const auto& one : cases) {
        const Reading reading = ReadHex(c_centre + one.octets);
        EXPECT_EQ(reading.Type(), one.type);
        EXPECT_FALSE(reading.IsSound());
        EXPECT_TRUE(reading.serviceCentre);
    }
}

TEST(Guesses, AGivenDirectionHolds) {
    const ReadOptions toMobile{Presence::Unknown, Direction::ToMobile, Presence::Unknown, std::nullopt};
    const Reading reading = ReadHex(c_centre + c_command, toMobile);
    EXPECT_EQ(reading.Type(), TpduType::StatusReport) << "though it is not sound";
    EXPECT_EQ(reading.direction, Direction::ToMobile);
    const ReadOptions fromMobile{Presence::Yes, Direction::FromMobile, Presence::Unknown, std::nullopt};
    EXPECT_EQ(RemarksOf(ReadHex(c_centre + c_command, fromMobile)), "") << "nothing is guessed";
}

TEST(Guesses, NoDirectionWhereNoTypeIsThere) {
    for (const char* const octets : {"", "0791"}) {
        EXPECT_EQ(ReadHex(octets).direction, Direction::Unknown) << octets;
        const ReadOptions fromMobile{Presence::Yes, Direction::FromMobile, Presence::Unknown, std::nullopt};
        EXPECT_EQ(ReadHex(octets, fromMobile).direction, Direction::FromMobile) << octets;
    }
}

TEST(Guesses, TheSoundOneOfWithAndWithoutAServiceCentre) {
    const Reading without = ReadHex(DeliverOctets().Hex());
    EXPECT_FALSE(without.serviceCentre);
    EXPECT_TRUE(without.isServiceCentreGuessed);
    EXPECT_EQ(std::get<Deliver>(without.tpdu).userData.text, "Hello");
    const Reading empty = ReadHex("00" + DeliverOctets().Hex());
    ASSERT_TRUE(empty.serviceCentre);
    EXPECT_EQ(empty.serviceCentre->length, 0);
    EXPECT_EQ(empty.serviceCentre->text, "");
}

TEST(Guesses, AnAnnouncedLengthDecides) {
    const std::string tpdu = DeliverOctets().Hex(); // 24 octets
    ReadOptions options;
    options.announcedLength = 24;
    const Reading without = ReadHex(tpdu, options);
    EXPECT_FALSE(without.serviceCentre);
    EXPECT_FALSE(without.isServiceCentreGuessed);
    EXPECT_EQ(RemarksOf(without), "");
    const Reading with = ReadHex(c_centre + tpdu, options);
    EXPECT_TRUE(with.serviceCentre);
    EXPECT_FALSE(with.isServiceCentreGuessed);
    EXPECT_EQ(RemarksOf(with), "");
    // Neither is sound, and the length speaks against a service centre, which would be taken otherwise.
    options.announcedLength = 2;
    EXPECT_FALSE(ReadHex("0411", options).serviceCentre);
    EXPECT_TRUE(ReadHex("0411").fault);
    options.announcedLength = 25;
    const Reading other = ReadHex(c_centre + tpdu, options);
    EXPECT_EQ(RemarksOf(other), "length-disagrees 25 24 at 8");
    EXPECT_TRUE(other.isServiceCentreGuessed);
}

TEST(Guesses, AnAnnouncedLengthBeyondAllOctetsTellsNothing) {
    // In 32 bits, the service centre's eight octets and the announced ones make the seven that are there.
    ReadOptions options;
    options.announcedLength = 0xFFFFFFFF;
    EXPECT_TRUE(ReadHex("07912143658709", options).isServiceCentreGuessed);
}

TEST(Guesses, WhatTheCallerSaysOfAServiceCentreHolds) {
    const std::string tpdu = DeliverOctets().Hex();
    ReadOptions options;
    options.serviceCentre = Presence::Yes;
    EXPECT_FALSE(ReadHex(tpdu, options).IsSound());
    EXPECT_TRUE(ReadHex(tpdu, options).serviceCentre);
    EXPECT_FALSE(ReadHex(tpdu, options).isServiceCentreGuessed);
    options.serviceCentre = Presence::No;
    EXPECT_FALSE(ReadHex(c_centre + tpdu, options).serviceCentre);
}

TEST(IsSound, SaysNothingIsMissingLeftOverOrOutOfRange) {
    const auto isSound = [](const DeliverOctets& octets) { return tests::ReadDeliver(octets).IsSound(); };
    EXPECT_TRUE(isSound({}));
    EXPECT_TRUE(isSound({.coding = "0C"})) << "reserved values are sound";
    EXPECT_TRUE(isSound({.timestamp = "00000000000000"})) << "no time is not one out of range";
    EXPECT_FALSE(isSound({.userData = "06C8329BFD06"})) << "missing";
    EXPECT_FALSE(isSound({.userData = "05C8329BFD0600"})) << "left over";
    EXPECT_FALSE(isSound({.originator = "0B112143658709F1"})) << "bit 7";
    EXPECT_FALSE(isSound({.originator = "159121436587092143658709F1"})) << "21 digits";
    EXPECT_TRUE(isSound({.timestamp = "21213121436580"})) << "month 12";
    EXPECT_FALSE(isSound({.timestamp = "21313121436580"})) << "month 13";
    EXPECT_FALSE(isSound({.userData = "00", .first = "44"})) << "no header";
    EXPECT_FALSE(isSound({.userData = "060A0000000000", .first = "44"})) << "beyond the user data";
    EXPECT_FALSE(isSound({.userData = "06032502010802", .first = "44"})) << "an element too long";
    EXPECT_FALSE(isSound({.userData = "06037000110802", .first = "44"})) << "an octet left over";
}

} // namespace
