#include "Toolkit/SystemInfo.h"

#include <cstring>

#include <gtest/gtest.h>

namespace {

TEST(SystemInfo, ProcessWideInstanceIsThere) {
    ASSERT_NE(Toolkit::SystemInfo::s_pInstance, nullptr);
    EXPECT_NE(Toolkit::SystemInfo::s_pInstance->get(), nullptr);
}

TEST(SystemInfo, GetEndianTellsTheByteOrderOfThisHost) {
    const unsigned int number = 0x01020304;
    unsigned char first = 0;
    std::memcpy(&first, &number, 1);
    EXPECT_EQ(Toolkit::SystemInfo::GetEndian(), first == 0x01 ? 1 : 0);
}

} // namespace
