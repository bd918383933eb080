// Input that nobody meant: every truncation and bit flip of the samples, and noise. What counts is that
// nothing outside a PDU is read, which the address sanitizer watches.
#include <random>

#include <gtest/gtest.h>

#include "Encoding/CBMDecoder.h"
#include "Encoding/PduDecoder.h"
#include "decoder/Samples.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;

/// Decodes exactly these octets in both ways, and checks what holds for every PDU.
void DecodeAll(const Bytes& octets, PduDecoder& reused) {
    const Toolkit::smart_ptr<Pdu> pdu = tests::MakePdu(octets);
    for (const bool noSmsc : {false, true}) {
        PduDecoder fresh;
        const int result = fresh.Decode(pdu, noSmsc, false);
        ASSERT_TRUE(result == 0 || result == 1);
        ASSERT_EQ(reused.Decode(pdu, noSmsc, true), result);
        ASSERT_LE(fresh.m_Text.size(), 255U);
        if (result == 1 && (fresh.m_SmsType == 1 || fresh.m_SmsType == 2)) {
            ASSERT_EQ(reused.m_Text, fresh.m_Text);
            ASSERT_EQ(reused.m_DataCoding, fresh.m_DataCoding);
        }
    }
    ASSERT_EQ(tests::CountOf(pdu), 1);
}

TEST(Noise, EveryTruncationAndBitFlipOfEverySample) {
    PduDecoder reused;
    for (const char* sample : tests::c_samples) {
        const Bytes whole = tests::Octets(sample);
        for (std::size_t length = 0; length <= whole.size(); ++length)
            DecodeAll(Bytes(whole.begin(), whole.begin() + static_cast<long>(length)), reused);
        for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
            Bytes flipped = whole;
            flipped[bit / 8] = static_cast<unsigned char>(flipped[bit / 8] ^ 1 << (bit % 8));
            DecodeAll(flipped, reused);
        }
    }
}

TEST(Noise, RandomOctets) {
    constexpr unsigned int seed = 20261120;
    std::mt19937 random(seed);
    PduDecoder reused;
    for (int round = 0; round < 20000; ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
        Bytes octets(random() % 513);
        for (unsigned char& octet : octets)
            octet = static_cast<unsigned char>(random());
        if (!octets.empty() && round % 2 == 0)
            octets[0] = static_cast<unsigned char>(octets[0] % 12);
        DecodeAll(octets, reused);
    }
}

TEST(Noise, FieldReadersAtRandomOffsetsOfClaimedLengths) {
    constexpr unsigned int seed = 20261121;
    std::mt19937 random(seed);
    PduDecoder decoder;
    for (int round = 0; round < 20000; ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
        Bytes octets(random() % 513);
        for (unsigned char& octet : octets)
            octet = static_cast<unsigned char>(random());
        const Toolkit::smart_ptr<Pdu> pdu = tests::MakePdu(octets);
        pdu->m_Length = static_cast<unsigned int>(round % 3 == 0 ? random() : random() % 800);
        const auto offset = static_cast<unsigned int>(round % 5 == 0 ? random() : random() % 600);
        TString<wchar_t> number;
        NumberingPlan::NPI npi{};
        TypeOfNumber::TON ton{};
        Toolkit::smart_ptr<Toolkit::DateTime> time;
        const unsigned int next = decoder.ReadNumber(pdu, offset, round % 2 == 0, number, npi, ton);
        ASSERT_TRUE(next == 0xFFFFFFFF || (next > offset && next <= pdu->m_Length));
        ASSERT_LE(number.size(), 256U);
        const unsigned int after = decoder.ReadTimeStamp(pdu, offset, time, false);
        ASSERT_TRUE(after == 0xFFFFFFFF || (after == offset + 7 && after < pdu->m_Length));
    }
}

} // namespace
