// Rows of docs/departures.md: times.
#include <gtest/gtest.h>

#include "departures/Messages.h"

namespace {

using tests::Decoded;
using tests::DeliverAt;

/// TP-SCTS of a message.
std::string Time(const char* octets) {
    const Decoded message(DeliverAt(octets));
    EXPECT_EQ(message.m_Result, 1) << octets;
    EXPECT_EQ(message.m_Text, L"Hello") << octets;
    return message.m_ServiceCentreTime.get() != nullptr ? message.m_ServiceCentreTime->ToString() : "none";
}

TEST(Departures, ZoneZero) {
    EXPECT_EQ(Time("21 20 31 21 43 65 00"), "2012-02-13T12:34:56");
}

TEST(Departures, ZoneMinusQuarter) {
    EXPECT_EQ(Time("21 20 31 21 43 65 18"), "2012-02-13T12:34:56");
}

TEST(Departures, ZoneHours) {
    EXPECT_EQ(Time("21 20 31 21 43 65 22"), "2012-02-13T12:34:56+05:00"); // 22 quarters
    EXPECT_EQ(Time("21 20 31 21 43 65 8B"), "2012-02-13T12:34:56-09:00"); // 38 quarters west
    EXPECT_EQ(Time("21 20 31 21 43 65 30"), "2012-02-13T12:34:56+00:00"); // 3 quarters
}

TEST(Departures, TimeDigits) {
    EXPECT_EQ(Time("21 20 B1 21 43 65 80"), "2012-02-21T12:34:56+02:00"); // 1 and 11
}

TEST(Departures, TimeRange) {
    EXPECT_EQ(Time("21 00 00 42 43 65 80"), "2012-00-00T24:34:56+02:00");
}

TEST(Departures, TimeSkipped) {
    EXPECT_EQ(Time("21 31 31 21 43 65 80"), "none"); // month 13
}

} // namespace
