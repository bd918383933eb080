// What cutting a UCS2 part asks of the support library.
#include <gtest/gtest.h>

#include "Encoding/PduEncoder.h"
#include "Toolkit/SystemInfo.h"
#include "support/Octets.h"

namespace {

int s_endian = 0;
int s_asked = 0;
int s_shares = 0; ///< of the instance while it was asked

} // namespace

int Toolkit::SystemInfo::GetEndian() {
    ++s_asked;
    s_shares = tests::CountOf(*s_pInstance);
    return s_endian;
}

namespace {

using namespace Encoding;

TEST(GetSubString, AsksForTheByteOrderOfEveryCharacterWithAShareHeld) {
    const int before = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    // The octets 11 22 33 44 in memory, whatever this host's byte order.
    TString<wchar_t> text(3, L'\0');
    auto* memory = reinterpret_cast<unsigned char*>(text.data());
    for (unsigned char i = 0; i < 12; ++i)
        memory[i] = static_cast<unsigned char>(0x11 * (i % 4 + 1));
    const struct {
        int endian;
        const char* octets;
    } rows[] = {{1, "33 44 33 44 33 44"}, {0, "22 11 22 11 22 11"}, {2, "22 11 22 11 22 11"}};
    for (const auto& row : rows) {
        s_endian = row.endian;
        s_asked = 0;
        unsigned int length = 0;
        unsigned char* octets = nullptr;
        ASSERT_EQ(encoder.GetSubString(text, 0, 3, &length, &octets), 1);
        EXPECT_EQ(tests::Hex(octets, length), row.octets);
        EXPECT_EQ(s_asked, 3);
        EXPECT_EQ(s_shares, before + 1);
        EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), before);
        delete[] octets;
    }
    s_endian = 0;
}

} // namespace
