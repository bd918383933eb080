// What the data of elements says, and of which length it must be.
#include "Messages/Header.h"

#include <gtest/gtest.h>

namespace {

using namespace Messages;

using Octets = std::vector<std::uint8_t>;

TEST(Element, Concatenation) {
    EXPECT_EQ(ReadConcatenation(0x00, Octets{42, 3, 2}), (Concatenation{false, 42, 3, 2}));
    EXPECT_EQ(ReadConcatenation(0x08, Octets{1, 2, 3, 4}), (Concatenation{true, 0x0102, 3, 4}));
    EXPECT_EQ(ReadConcatenation(0x00, Octets{1, 2, 3, 4}), std::nullopt);
    EXPECT_EQ(ReadConcatenation(0x08, Octets{42, 3, 2}), std::nullopt);
    EXPECT_EQ(ReadConcatenation(0x01, Octets{42, 3, 2}), std::nullopt);
    EXPECT_NE((Concatenation{false, 42, 3, 2}), (Concatenation{true, 42, 3, 2}));
    EXPECT_NE((Concatenation{false, 42, 3, 2}), (Concatenation{false, 43, 3, 2}));
    EXPECT_NE((Concatenation{false, 42, 3, 2}), (Concatenation{false, 42, 2, 2}));
    EXPECT_NE((Concatenation{false, 42, 3, 2}), (Concatenation{false, 42, 3, 1}));
}

TEST(Element, Ports) {
    EXPECT_EQ(ReadPorts(0x04, Octets{240, 241}), (Ports{false, 240, 241}));
    EXPECT_EQ(ReadPorts(0x05, Octets{0x0B, 0x84, 0x23, 0xF0}), (Ports{true, 0x0B84, 0x23F0}));
    EXPECT_EQ(ReadPorts(0x04, Octets{1, 2, 3, 4}), std::nullopt);
    EXPECT_EQ(ReadPorts(0x05, Octets{1, 2}), std::nullopt);
    EXPECT_NE((Ports{false, 240, 241}), (Ports{true, 240, 241}));
    EXPECT_NE((Ports{false, 240, 241}), (Ports{false, 239, 241}));
    EXPECT_NE((Ports{false, 240, 241}), (Ports{false, 240, 240}));
}

TEST(Element, SpecialMessageIndication) {
    // Store, profile 2, video, the extended type; 5 messages.
    const auto indication = ReadSpecialMessageIndication(Octets{0xA7, 5});
    ASSERT_TRUE(indication);
    EXPECT_TRUE(indication->isStored);
    EXPECT_EQ(indication->profile, 1);
    EXPECT_EQ(indication->extendedType, 1);
    EXPECT_EQ(indication->type, 3);
    EXPECT_EQ(indication->count, 5);
    EXPECT_FALSE(ReadSpecialMessageIndication(Octets{0x7C, 0})->isStored);
    EXPECT_EQ(ReadSpecialMessageIndication(Octets{0x7C, 0})->profile, 3);
    EXPECT_EQ(ReadSpecialMessageIndication(Octets{0x7C, 0})->extendedType, 7);
    EXPECT_FALSE(ReadSpecialMessageIndication(Octets{0xA7}));
    EXPECT_FALSE(ReadSpecialMessageIndication(Octets{0xA7, 5, 0}));
}

TEST(Element, TextFormatting) {
    // Right-aligned, small, italic and struck.
    const auto formatting = ReadTextFormatting(Octets{3, 7, 0xAA});
    ASSERT_TRUE(formatting);
    EXPECT_EQ(formatting->start, 3);
    EXPECT_EQ(formatting->length, 7);
    EXPECT_EQ(formatting->alignment, 2);
    EXPECT_EQ(formatting->size, 2);
    EXPECT_FALSE(formatting->isBold);
    EXPECT_TRUE(formatting->isItalic);
    EXPECT_FALSE(formatting->isUnderlined);
    EXPECT_TRUE(formatting->isStruck);
    EXPECT_FALSE(formatting->colour);
    const auto coloured = ReadTextFormatting(Octets{0, 1, 0x51, 0x1F});
    EXPECT_EQ(coloured->alignment, 1);
    EXPECT_EQ(coloured->size, 0);
    EXPECT_TRUE(coloured->isBold);
    EXPECT_FALSE(coloured->isItalic);
    EXPECT_TRUE(coloured->isUnderlined);
    EXPECT_FALSE(coloured->isStruck);
    EXPECT_EQ(coloured->colour, 0x1F);
    EXPECT_FALSE(ReadTextFormatting(Octets{0, 1}));
    EXPECT_FALSE(ReadTextFormatting(Octets{0, 1, 2, 3, 4}));
}

TEST(Element, ObjectsAndLinks) {
    EXPECT_EQ(ReadPredefinedObject(Octets{9, 4})->position, 9);
    EXPECT_EQ(ReadPredefinedObject(Octets{9, 4})->number, 4);
    EXPECT_FALSE(ReadPredefinedObject(Octets{9}));
    EXPECT_EQ(ReadObjectDistribution(Octets{2, 0xFF})->count, 2);
    EXPECT_TRUE(ReadObjectDistribution(Octets{2, 0x01})->forbidsForwarding);
    EXPECT_FALSE(ReadObjectDistribution(Octets{2, 0xFE})->forbidsForwarding);
    EXPECT_FALSE(ReadObjectDistribution(Octets{2, 1, 0}));
    EXPECT_EQ(ReadHyperlink(Octets{1, 2, 3, 4})->position, 0x0102);
    EXPECT_EQ(ReadHyperlink(Octets{1, 2, 3, 4})->titleLength, 3);
    EXPECT_EQ(ReadHyperlink(Octets{1, 2, 3, 4})->urlLength, 4);
    EXPECT_FALSE(ReadHyperlink(Octets{1, 2, 3}));
}

TEST(Element, ReplyAddress) {
    EXPECT_EQ(ReadReplyAddress(Octets{0x03, 0x91, 0x21, 0xF3})->ToString(), "+123");
    EXPECT_EQ(ReadReplyAddress(Octets{0x07, 0xD0, 0xC2, 0xB0, 0x7B, 0x0D})->text, "Bank");
    EXPECT_EQ(ReadReplyAddress(Octets{0x00, 0x81})->text, "");
    EXPECT_FALSE(ReadReplyAddress(Octets{0x03, 0x91, 0x21}));
    EXPECT_FALSE(ReadReplyAddress(Octets{0x03, 0x91, 0x21, 0xF3, 0x00}));
    EXPECT_FALSE(ReadReplyAddress(Octets{0x00}));
}

TEST(Element, SingleOctet) {
    EXPECT_EQ(ReadSingleOctet(Octets{3}), 3);
    EXPECT_EQ(ReadSingleOctet(Octets{}), std::nullopt);
    EXPECT_EQ(ReadSingleOctet(Octets{3, 3}), std::nullopt);
}

} // namespace
