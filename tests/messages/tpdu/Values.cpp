// What values say of themselves.
#include <gtest/gtest.h>

#include "Messages/Address.h"
#include "Messages/DataCoding.h"
#include "Messages/Octets.h"
#include "Messages/Time.h"

namespace {

using namespace Messages;

TEST(Octets, HexadecimalBothWays) {
    std::vector<std::uint8_t> octets = {1};
    EXPECT_TRUE(FromHex("00aAfF19", octets));
    EXPECT_EQ(octets, (std::vector<std::uint8_t>{0x00, 0xAA, 0xFF, 0x19}));
    EXPECT_EQ(ToHex(octets), "00AAFF19");
    EXPECT_TRUE(FromHex("", octets));
    EXPECT_TRUE(octets.empty());
    for (const char* const none : {"0", "0g", "/0", ":0", "@0", "G0", "`0", "g0", "00 "}) {
        octets = {1};
        EXPECT_FALSE(FromHex(none, octets)) << none;
        EXPECT_TRUE(octets.empty()) << none;
    }
}

TEST(OctetView, Sub) {
    const std::vector<std::uint8_t> octets = {1, 2, 3};
    const OctetView view(octets);
    EXPECT_EQ(ToHex(view.Sub(1)), "0203");
    EXPECT_EQ(ToHex(view.Sub(1, 1)), "02");
    EXPECT_EQ(ToHex(view.Sub(1, 9)), "0203");
    EXPECT_TRUE(view.Sub(3).empty());
    EXPECT_TRUE(view.Sub(9, 1).empty());
    EXPECT_TRUE(OctetView().Sub(0).empty());
}

TEST(DataCoding, Groups) {
    const struct {
        std::uint8_t dcs;
        CodingGroup group;
        Alphabet alphabet;
        std::optional<std::uint8_t> messageClass;
        bool isCompressed;
        bool isReserved;
    } cases[] = {
        {0x00, CodingGroup::General, Alphabet::Gsm7, std::nullopt, false, false},
        {0x08, CodingGroup::General, Alphabet::Ucs2, std::nullopt, false, false},
        {0x0C, CodingGroup::General, Alphabet::Gsm7, std::nullopt, false, true},
        {0x15, CodingGroup::General, Alphabet::Data, 1, false, false},
        {0x2F, CodingGroup::General, Alphabet::Gsm7, std::nullopt, false, true},
        {0x3A, CodingGroup::General, Alphabet::Ucs2, 2, true, false},
        {0x53, CodingGroup::AutomaticDeletion, Alphabet::Gsm7, 3, false, false},
        {0x80, CodingGroup::Reserved, Alphabet::Gsm7, std::nullopt, false, true},
        {0xBF, CodingGroup::Reserved, Alphabet::Gsm7, std::nullopt, false, true},
        {0xC0, CodingGroup::WaitingDiscard, Alphabet::Gsm7, std::nullopt, false, false},
        {0xD9, CodingGroup::WaitingStore, Alphabet::Gsm7, std::nullopt, false, false},
        {0xE2, CodingGroup::WaitingStoreUcs2, Alphabet::Ucs2, std::nullopt, false, false},
        {0xF0, CodingGroup::DataCodingAndClass, Alphabet::Gsm7, 0, false, false},
        {0xF7, CodingGroup::DataCodingAndClass, Alphabet::Data, 3, false, false},
        {0xF8, CodingGroup::DataCodingAndClass, Alphabet::Gsm7, 0, false, true},
    };
    for (const auto& one : cases) {
        const DataCoding coding(one.dcs);
        const int dcs = one.dcs;
        EXPECT_EQ(coding.value, one.dcs);
        EXPECT_EQ(coding.group, one.group) << dcs;
        EXPECT_EQ(coding.alphabet, one.alphabet) << dcs;
        EXPECT_EQ(coding.messageClass, one.messageClass) << dcs;
        EXPECT_EQ(coding.isCompressed, one.isCompressed) << dcs;
        EXPECT_EQ(coding.isReserved, one.isReserved) << dcs;
        EXPECT_EQ(coding.waiting.has_value(), one.dcs >= 0xC0 && one.dcs < 0xF0) << dcs;
    }
    EXPECT_TRUE(DataCoding(0x40).IsAutomaticDeletion());
    EXPECT_FALSE(DataCoding(0x3F).IsAutomaticDeletion());
    EXPECT_TRUE(DataCoding(0x00).CountsSeptets());
    EXPECT_FALSE(DataCoding(0x20).CountsSeptets());
    EXPECT_FALSE(DataCoding(0x04).CountsSeptets());
    EXPECT_EQ(DataCoding(), DataCoding(0));
    EXPECT_NE(DataCoding(0), DataCoding(1));
}

TEST(DataCoding, WhatWaits) {
    const DataCoding discard(0xC9);
    EXPECT_FALSE(discard.waiting->isStored);
    EXPECT_TRUE(discard.waiting->isActive);
    EXPECT_EQ(discard.waiting->type, WaitingType::Fax);
    const DataCoding store(0xD2);
    EXPECT_TRUE(store.waiting->isStored);
    EXPECT_FALSE(store.waiting->isActive);
    EXPECT_EQ(store.waiting->type, WaitingType::Email);
    EXPECT_EQ(DataCoding(0xE8).waiting->type, WaitingType::Voice);
    EXPECT_EQ(DataCoding(0xE3).waiting->type, WaitingType::Other);
}

TEST(Timestamp, UnixSeconds) {
    const auto seconds = [](std::uint16_t year, std::uint8_t month, std::uint8_t day, std::int8_t quarters) {
        Timestamp time;
        time.isValid = true;
        time.year = year;
        time.month = month;
        time.day = day;
        time.hour = 12;
        time.minute = 34;
        time.second = 56;
        time.quarters = quarters;
        return time.UnixSeconds();
    };
    EXPECT_EQ(seconds(2000, 1, 1, 0), 946730096);
    EXPECT_EQ(seconds(2000, 3, 1, 0), 951914096);   // after a leap day
    EXPECT_EQ(seconds(2001, 1, 1, 0), 978352496);   // after a leap year
    EXPECT_EQ(seconds(2012, 2, 13, 8), 1329129296); // 10:34:56 UTC
    EXPECT_EQ(seconds(2012, 2, 13, -8), 1329143696);
    EXPECT_EQ(seconds(2099, 12, 31, 0), 4102403696);
    EXPECT_EQ(Timestamp().UnixSeconds(), 0);
    EXPECT_EQ(Timestamp().ToString(), "");
}

TEST(RelativeValidity, BeginsAndEndsOfItsSteps) {
    constexpr std::uint32_t minute = 60;
    constexpr std::uint32_t hour = 60 * minute;
    constexpr std::uint32_t day = 24 * hour;
    constexpr std::uint32_t week = 7 * day;
    EXPECT_EQ(RelativeValiditySeconds(0x00), 5 * minute);
    EXPECT_EQ(RelativeValiditySeconds(0x01), 10 * minute);
    EXPECT_EQ(RelativeValiditySeconds(0x8F), 12 * hour);
    EXPECT_EQ(RelativeValiditySeconds(0x90), 12 * hour + 30 * minute);
    EXPECT_EQ(RelativeValiditySeconds(0xA7), day);
    EXPECT_EQ(RelativeValiditySeconds(0xA8), 2 * day);
    EXPECT_EQ(RelativeValiditySeconds(0xC4), 30 * day);
    EXPECT_EQ(RelativeValiditySeconds(0xC5), 5 * week);
    EXPECT_EQ(RelativeValiditySeconds(0xFF), 63 * week);
}

TEST(Equality, OfValues) {
    Address address;
    EXPECT_EQ(address, Address());
    address.text = "1";
    EXPECT_NE(address, Address());
    EXPECT_NE((Address{0x81, 0, ""}), Address());
    EXPECT_NE((Address{0x80, 1, ""}), Address());
    Timestamp time;
    EXPECT_EQ(time, Timestamp());
    time.octets[6] = 1;
    EXPECT_NE(time, Timestamp());
    Validity validity;
    EXPECT_EQ(validity, Validity());
    validity.octets[0] = 1;
    EXPECT_NE(validity, Validity());
    EXPECT_NE((Validity{ValidityFormat::Relative, {}}), Validity());
}

TEST(Address, TypeAndPlan) {
    const Address address{0xD8, 0, ""};
    EXPECT_EQ(address.Type(), TypeOfNumber::Alphanumeric);
    EXPECT_EQ(address.Plan(), NumberingPlan::National);
    EXPECT_TRUE(address.IsAlphanumeric());
    EXPECT_FALSE(Address().IsAlphanumeric());
}

} // namespace
