// Cell broadcast pages: what the decoder reads, beside what the dissector reads.
#include <gtest/gtest.h>

#include "Differences.h"
#include "Dissector.h"
#include "Encoding/CBMDecoder.h"
#include "reference/Random.h"
#include "support/Bits.h"

namespace yardsticks {
namespace {

using reference::Random;
using tests::Bytes;
using tests::operator+;

constexpr std::size_t c_pageSeptets = 93;

/// A page of 88 octets: a text, then padding.
Bytes RandomPage(Random& random) {
    Bytes septets(c_pageSeptets, 0x0D);
    const std::uint32_t length = random.Below(c_pageSeptets + 1);
    for (std::uint32_t i = 0; i < length; ++i) {
        const auto septet = static_cast<unsigned char>(random.Below(128));
        septets[i] = septet == 0x1B ? std::uint8_t{0x20} : septet;
    }
    const auto pages = static_cast<unsigned char>(random.Between(1, 15) << 4 | random.Between(1, 15));
    return Bytes{random.Octet(),
                 random.Octet(),
                 random.Octet(),
                 random.Octet(),
                 static_cast<unsigned char>(random.Below(16)),
                 pages} +
           tests::LayBits(septets, 0);
}

TEST(Yardsticks, CellBroadcastPageIsReadAlike) {
    Random random(Seed());
    std::vector<Bytes> pages(MessageCount());
    for (Bytes& page : pages)
        page = RandomPage(random);
    const std::vector<Fields> dissected = DissectCellBroadcast(pages);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        SCOPED_TRACE(tests::Hex(pages[i]));
        Encoding::CBMDecoder decoder;
        ASSERT_TRUE(decoder.Decode(tests::MakePdu(pages[i])));
        EXPECT_EQ(Number(dissected[i], "serial_number"), decoder.m_SerialNumber);
        EXPECT_EQ(Number(dissected[i], "message-identifier"), decoder.m_MessageIdentifier);
        EXPECT_EQ(Number(dissected[i], "current_page"), decoder.m_PageParameter >> 4);
        EXPECT_EQ(Number(dissected[i], "total_pages"), decoder.m_PageParameter & 0x0F);
        const std::u32string text(decoder.m_Text.begin(), decoder.m_Text.end());
        EXPECT_TRUE(IsSamePage(Text(dissected[i], "page_content"), text))
            << "theirs " << Shown(Text(dissected[i], "page_content")) << "\nours   " << Shown(text);
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

} // namespace
} // namespace yardsticks
