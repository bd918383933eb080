// What the text decoder asks of the support library: the byte order, for each character and with a share
// each.
#include <gtest/gtest.h>

#include "Encoding/TextDecoder.h"
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

using Encoding::TextDecoder;

TEST(TextDecoder, AsksForTheByteOrderOncePerCharacter) {
    const int before = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    for (const int alphabet : {0, 4}) {
        s_asked = 0;
        const TextDecoder decoder(L"ABCDE", alphabet);
        EXPECT_EQ(s_asked, 1 + 5) << "the character set's own question comes first";
        EXPECT_EQ(s_shares, before + 1);
        EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), before);
    }
    s_asked = 0;
    const TextDecoder hex(L"00410042", 2);
    EXPECT_EQ(s_asked, 1);
    const TextDecoder empty(L"", 0);
    EXPECT_EQ(s_asked, 2);
}

TEST(TextDecoder, TakesTheLastByteOnABigEndianHost) {
    // The octets 0x41 and 0x42 at the two ends of one character, whatever this host's byte order.
    TString<wchar_t> text(1, L'\0');
    auto* memory = reinterpret_cast<unsigned char*>(text.data());
    memory[0] = 0x41;
    memory[3] = 0x42;
    const struct {
        int endian;
        const wchar_t* decoded;
    } rows[] = {{1, L"B"}, {0, L"A"}, {2, L"A"}, {-1, L"A"}};
    for (const auto& row : rows) {
        s_endian = row.endian;
        EXPECT_EQ(TextDecoder(text, 0).m_DecodedText, row.decoded) << row.endian;
    }
    s_endian = 0;
}

} // namespace
