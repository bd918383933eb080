// Packing of septets, beside a library that does it as well.
#include <gtest/gtest.h>

#include "Dissector.h"
#include "Encoding/GSMCharSet.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "reference/Random.h"

extern "C" {
#include <osmocom/gsm/gsm_utils.h>
}

namespace yardsticks {
namespace {

using namespace Encoding;
using reference::Random;
using tests::Bytes;

/// Any codes but the escape, which stands for no character by itself.
Bytes RandomSeptets(Random& random) {
    Bytes septets(random.Between(1, 153));
    for (unsigned char& septet : septets)
        do
            septet = static_cast<unsigned char>(random.Below(128));
        while (septet == 0x1B);
    return septets;
}

TString<wchar_t> TextOf(const Bytes& septets) {
    GSMCharSet charSet;
    return charSet.GsmToUnicode(septets.data(), static_cast<unsigned int>(septets.size()));
}

Bytes PackedByTheOther(const Bytes& septets, bool hasHeader) {
    Bytes octets(200);
    const int count = gsm_septet_pack(octets.data(), septets.data(), septets.size(), hasHeader ? 1 : 0);
    octets.resize(static_cast<std::size_t>(count));
    return octets;
}

TEST(Yardsticks, SeptetsArePackedAndUnpackedAlike) {
    Random random(Seed());
    for (unsigned int i = 0; i < 20 * MessageCount(); ++i) {
        const Bytes septets = RandomSeptets(random);
        const bool hasHeader = random.Chance(50);
        SCOPED_TRACE(tests::Hex(septets));
        const Bytes octets = PackedByTheOther(septets, hasHeader);

        PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
        encoder.SetText(TextOf(septets));
        if (hasHeader)
            encoder.SetHeader(1, 2, 1);
        std::vector<Toolkit::smart_ptr<Pdu>> pdus;
        encoder.Encode(pdus);
        ASSERT_EQ(pdus.size(), 1U);
        const std::size_t head = 8 + (hasHeader ? 6 : 0); // up to TP-UDL, and the user-data header
        ASSERT_EQ(tests::Hex(pdus[0]->m_Bytes + head, pdus[0]->m_Length - head), tests::Hex(octets));

        PduDecoder decoder;
        ASSERT_EQ(decoder.Decode(pdus[0], false, false), 1);
        ASSERT_EQ(decoder.m_Text, TextOf(septets));
    }
}

} // namespace
} // namespace yardsticks
