// Numbers as the user writes them, and ports.
#include "commands/Numbers.h"

#include <gtest/gtest.h>

namespace {

using qxpdu::FaultOfBits;
using qxpdu::FaultOfPorts;
using qxpdu::NumberOf;
using qxpdu::PortsIn;

TEST(Numbers, AreDecimalOrHexadecimal) {
    struct Row {
        const char* text;
        int most;
        int number;
    };
    const Row rows[] = {
        {"0", 0, 0},      {"1", 1, 1},          {"9", 255, 9},
        {"10", 10, 10},   {"255", 255, 255},    {"65535", 0xFFFF, 0xFFFF},
        {"0x0", 0, 0},    {"0xff", 255, 255},   {"0xFF", 255, 255},
        {"0x10", 16, 16}, {"0x00FF", 255, 255},
    };
    for (const Row& row : rows)
        EXPECT_EQ(NumberOf(row.text, row.most), row.number) << row.text;
}

TEST(Numbers, AreNoneWithOtherCharactersOrAboveTheMost) {
    struct Row {
        const char* text;
        int most;
    };
    const Row rows[] = {
        {"", 255},    {"1", 0},      {"256", 255},  {"0x100", 255}, {"4294967296", 255}, {"00", 255},
        {"01", 255},  {"0x", 255},   {"0X1", 255},  {"x1", 255},    {"1x", 255},         {"a", 255},
        {"-1", 255},  {"+1", 255},   {" 1", 255},   {"1 ", 255},    {"0xg", 255},        {"0x1g", 255},
        {"1.0", 255}, {"00x1", 255}, {"0x-1", 255},
    };
    for (const Row& row : rows)
        EXPECT_EQ(NumberOf(row.text, row.most), std::nullopt) << row.text;
}

TEST(Numbers, BitsAre8Or16) {
    EXPECT_EQ(FaultOfBits("8"), "");
    EXPECT_EQ(FaultOfBits("16"), "");
    for (const std::string bits : {"", "7", "9", "15", "17", "08", "0x8", "8 "})
        EXPECT_EQ(FaultOfBits(bits), bits + " is neither 8 nor 16");
}

TEST(Numbers, PortsAreOneOrTwo) {
    struct Row {
        const char* ports;
        const char* bits;
        bool areWide;
        int destination;
        int originator;
    };
    const Row rows[] = {
        {"0", "", true, 0, 0},
        {"5", "16", true, 5, 0},
        {"5:6", "", true, 5, 6},
        {"65535:65535", "", true, 65535, 65535},
        {"240:241", "8", false, 240, 241},
        {"0xF0:0xf1", "8", false, 240, 241},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.ports);
        EXPECT_EQ(FaultOfPorts(row.ports), "");
        const auto ports = PortsIn(row.ports, row.bits);
        ASSERT_TRUE(ports);
        EXPECT_EQ(ports->areWide, row.areWide);
        EXPECT_EQ(ports->destination, row.destination);
        EXPECT_EQ(ports->originator, row.originator);
    }
    EXPECT_FALSE(PortsIn("", ""));
    for (const std::string ports : {"", ":", "5:", ":5", "65536", "0:65536", "65536:0", "1:2:3", "1;2", "a"})
        EXPECT_EQ(FaultOfPorts(ports),
                  ports + " is neither a port from 0 to 65535 nor two with a colon between");
}

} // namespace
