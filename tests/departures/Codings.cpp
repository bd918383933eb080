// Rows of docs/departures.md: data coding.
#include <gtest/gtest.h>

#include "departures/Messages.h"

namespace {

using namespace Encoding;
using tests::Decoded;
using tests::Deliver;

TEST(Departures, AlphabetReserved) {
    for (const char* coding : {"0C", "2C", "4C", "8C"})
        EXPECT_EQ(Decoded(Deliver("04", coding, "05 C8 32 9B FD 06")).m_Result, 0) << coding;
}

TEST(Departures, Compressed) {
    const Decoded message(Deliver("04", "20", "05 C8 32 9B FD 06"));
    EXPECT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_Text, L"Hello");
}

TEST(Departures, CodingDelete) {
    const Decoded message(Deliver("04", "50", "05 C8 32 9B FD 06"));
    EXPECT_EQ(message.m_CodingGroup, 0);
    EXPECT_EQ(message.m_Class, MessageClass::CLASS_0);
    EXPECT_EQ(message.m_Text, L"Hello");
}

TEST(Departures, CodingReserved) {
    EXPECT_EQ(Decoded(Deliver("04", "84", "02 48 69")).m_Text, L"Hi");
    EXPECT_EQ(Decoded(Deliver("04", "88", "04 00 48 00 69")).m_Text, L"Hi");
    EXPECT_EQ(Decoded(Deliver("04", "92", "05 C8 32 9B FD 06")).m_Class, MessageClass::CLASS_2);
}

TEST(Departures, CodingWaiting) {
    const Decoded voice(Deliver("04", "C8", "05 C8 32 9B FD 06"));
    const Decoded fax(Deliver("04", "C1", "05 C8 32 9B FD 06"));
    EXPECT_EQ(voice.m_CodingGroup, 1);
    EXPECT_EQ(fax.m_CodingGroup, 1);
    EXPECT_EQ(voice.m_Class, MessageClass::CLASS_NONE);
    EXPECT_EQ(voice.m_DataCoding, 0xC8);
}

} // namespace
