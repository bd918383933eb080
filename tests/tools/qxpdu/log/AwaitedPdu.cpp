// When the PDU that a heading announces has come.
#include "log/AwaitedPdu.h"

#include <gtest/gtest.h>

namespace {

using qxpdu::AwaitedPdu;
using qxpdu::Heading;
using Lacking = std::array<std::size_t, 2>;

const std::string c_centre = "0791214365870921";
const std::string c_hello = "040B912143658709F100002120312143658005C8329BFD06"; // 24 octets

AwaitedPdu Awaited(const std::string& digits, Heading::Kind kind = Heading::Kind::Tpdu,
                   unsigned int length = 24) {
    Heading heading;
    heading.kind = kind;
    heading.length = length;
    AwaitedPdu pdu(heading);
    pdu.Add(digits);
    return pdu;
}

TEST(AwaitedPdu, LacksTheServiceCentreThatItsFirstOctetTells) {
    EXPECT_EQ(Awaited("").Lacking(""), (Lacking{48, 48}));
    EXPECT_EQ(Awaited("").Lacking("07"), (Lacking{64, 48}));
    EXPECT_EQ(Awaited("07").Lacking(""), (Lacking{62, 46}));
    EXPECT_EQ(Awaited("0").Lacking("79"), (Lacking{63, 47}));
    EXPECT_EQ(Awaited("00").Lacking(""), (Lacking{48, 46}));
    EXPECT_EQ(Awaited("0C").Lacking(""), (Lacking{72, 46}));
    EXPECT_EQ(Awaited("0D").Lacking(""), (Lacking{46, 46})) << "no service centre is that long";
    EXPECT_EQ(Awaited(c_centre + c_hello + "00").Lacking(""), (Lacking{0, 0}));
    EXPECT_EQ(Awaited("07", Heading::Kind::Page, 88).Lacking(""), (Lacking{174, 174}));
    EXPECT_EQ(Awaited("07", Heading::Kind::Acknowledgement).Lacking(""), (Lacking{46, 46}));
}

TEST(AwaitedPdu, IsCompleteAtTheAnnouncedLength) {
    EXPECT_TRUE(Awaited(c_centre + c_hello).IsComplete());
    EXPECT_TRUE(Awaited(c_hello).IsComplete());
    EXPECT_FALSE(Awaited("").IsComplete());
    EXPECT_FALSE(Awaited(c_centre + c_hello.substr(1)).IsComplete());
    EXPECT_FALSE(Awaited(c_centre + c_hello + "0").IsComplete());
    EXPECT_TRUE(Awaited("").IsComplete(c_centre + c_hello));
    EXPECT_TRUE(Awaited("0").IsComplete((c_centre + c_hello).substr(1)));
    EXPECT_FALSE(Awaited((c_centre + c_hello).substr(0, 48)).IsComplete()) << "the beginning of a longer one";
}

TEST(AwaitedPdu, IsTooLongBeyondTheServiceCentre) {
    EXPECT_FALSE(Awaited(c_centre + c_hello).IsTooLong());
    EXPECT_TRUE(Awaited(c_centre + c_hello + "0").IsTooLong());
    EXPECT_TRUE(Awaited(c_centre + c_hello).IsTooLong("0"));
}

TEST(AwaitedPdu, IsFullOfMoreThanAnyPduHas) {
    EXPECT_FALSE(Awaited(std::string(2047, '0'), Heading::Kind::Tpdu, 9999).IsFull());
    EXPECT_TRUE(Awaited(std::string(2048, '0'), Heading::Kind::Tpdu, 9999).IsFull());
}

TEST(AwaitedPdu, IsWholeWhereItIsSoundToo) {
    EXPECT_TRUE(Awaited("").IsWhole(c_centre + c_hello));
    EXPECT_FALSE(Awaited("").IsWhole(c_centre));
    EXPECT_FALSE(Awaited("", Heading::Kind::Tpdu, 2).IsWhole("00FFFF")) << "no message";
    EXPECT_TRUE(Awaited("", Heading::Kind::Page, 2).IsWhole("FFFF")) << "of pages nothing tells";
    EXPECT_FALSE(Awaited("", Heading::Kind::Page, 2).IsWhole("FFFFFF"));
}

} // namespace
