#include "Messages/Read.h"

#include <gtest/gtest.h>

namespace {

using namespace Messages;

TEST(Read, Deliver) {
    const Reading reading = ReadHex("0791214365870921"
                                    "040B912143658709F1000021203121436580"
                                    "05C8329BFD06");
    EXPECT_TRUE(reading.IsSound());
    EXPECT_TRUE(reading.remarks.empty());
    EXPECT_EQ(reading.direction, Direction::ToMobile);
    EXPECT_TRUE(reading.isServiceCentreGuessed);
    ASSERT_TRUE(reading.serviceCentre);
    EXPECT_EQ(reading.serviceCentre->ToString(), "+123456789012");
    const Deliver& deliver = std::get<Deliver>(reading.tpdu);
    EXPECT_FALSE(deliver.moreMessages);
    EXPECT_EQ(deliver.originator.ToString(), "+12345678901");
    EXPECT_EQ(deliver.timestamp.ToString(), "2012-02-13T12:34:56+02:00");
    EXPECT_EQ(deliver.userData.text, "Hello");
}

TEST(Read, NoOctetsAreAFault) {
    const Reading reading = Read({});
    ASSERT_TRUE(reading.fault);
    EXPECT_EQ(reading.fault->code, FaultCode::Empty);
    EXPECT_EQ(reading.Type(), TpduType::None);
}

} // namespace
