// The decoders beside a plain reading of the same octets: every member, message after message.
#include <random>

#include <gtest/gtest.h>

#include "Encoding/CBMDecoder.h"
#include "Encoding/PduDecoder.h"
#include "decoder/PlainReading.h"
#include "decoder/Record.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;

/// Octets that are mostly a message, so that decoding comes far.
class MessageMaker {
public:
    explicit MessageMaker(unsigned int seed) : m_Random(seed) {}

    Bytes Make(bool noSmsc) {
        m_Octets.clear();
        if (!noSmsc)
            PutServiceCentre();
        const auto first = static_cast<unsigned char>(m_Random());
        Put(first);
        if (first % 4 == 1 || first % 4 == 2)
            Put(m_Random());
        PutAddress();
        if (first % 4 < 2) {
            Put(m_Random());
            Put(OneIn(2) ? OneOf({0x00, 0x04, 0x08, 0x00}) : m_Random());
        }
        if (first % 4 != 3)
            for (unsigned int times = first % 4 == 2 ? 2 : first % 4 == 0 ? 1 : OneIn(2); times != 0; --times)
                PutTime();
        PutUserData((first & 0x40) != 0);
        if (OneIn(4))
            m_Octets.resize(m_Random() % (m_Octets.size() + 1));
        if (OneIn(8) && !m_Octets.empty())
            m_Octets[m_Random() % m_Octets.size()] ^= static_cast<unsigned char>(1 << m_Random() % 8);
        m_Octets.resize(std::min<std::size_t>(m_Octets.size(), 512));
        return m_Octets;
    }

    bool OneIn(unsigned int n) { return m_Random() % n == 0; }
    unsigned int Random() { return static_cast<unsigned int>(m_Random()); }

private:
    void Put(unsigned long octet) { m_Octets.push_back(static_cast<unsigned char>(octet)); }
    void PutRandom(unsigned long count) {
        for (; count != 0; --count)
            Put(m_Random());
    }
    unsigned int OneOf(std::initializer_list<unsigned int> values) {
        return values.begin()[m_Random() % values.size()];
    }

    void PutServiceCentre() {
        const unsigned long octets = OneIn(16) ? 200 + m_Random() % 56 : m_Random() % 9;
        Put(octets);
        PutRandom(octets);
    }

    void PutAddress() {
        const unsigned long digits = OneIn(16) ? m_Random() % 256 : m_Random() % 21;
        Put(digits);
        Put(OneIn(2) ? OneOf({0x81, 0x91, 0xD0}) : m_Random());
        PutRandom((digits + 1) / 2);
    }

    void PutTime() {
        for (const unsigned long most : {100U, 13U, 33U, 26U, 61U, 61U}) {
            const unsigned long value = m_Random() % most;
            Put(value / 10 | value % 10 << 4);
        }
        Put(OneIn(2) ? OneOf({0x00, 0x08, 0x10, 0x18, 0x80, 0x4A}) : m_Random());
    }

    void PutUserData(bool hasHeader) {
        const unsigned long length = OneIn(8) ? m_Random() % 256 : m_Random() % 40;
        Put(length);
        if (hasHeader)
            PutHeader();
        PutRandom(OneIn(2) ? length : m_Random() % (length + 1));
    }

    void PutHeader() {
        const std::size_t start = m_Octets.size();
        Put(0);
        for (unsigned long elements = m_Random() % 4; elements != 0; --elements) {
            const unsigned long length = m_Random() % 6;
            Put(OneOf({0x00, 0x00, 0x08, 0x08, 0x01, 0x70}));
            Put(length);
            PutRandom(length);
        }
        m_Octets[start] = static_cast<unsigned char>(OneIn(8) ? m_Random() : m_Octets.size() - start - 1);
    }

    std::mt19937 m_Random;
    Bytes m_Octets;
};

TEST(Differential, MessagesDecodeLikeAPlainReading) {
    constexpr unsigned int seed = 20261121;
    MessageMaker maker(seed);
    PduDecoder decoder;
    PduDecoder plain;
    tests::MarkMembers(decoder);
    tests::MarkMembers(plain);
    int decoded = 0;
    constexpr int rounds = 50000;
    for (int round = 0; round < rounds; ++round) {
        const bool noSmsc = maker.OneIn(2);
        const bool ignoreTimeZone = maker.OneIn(8);
        const Toolkit::smart_ptr<Pdu> pdu = tests::MakePdu(maker.Make(noSmsc));
        if (maker.OneIn(16))
            pdu->m_Length = maker.OneIn(2) ? maker.Random() : maker.Random() % 600;
        const int result = decoder.Decode(pdu, noSmsc, ignoreTimeZone);
        ASSERT_EQ(result, tests::PlainDecode(*pdu, noSmsc, ignoreTimeZone, plain))
            << "seed " << seed << ", round " << round << ": " << pdu->GetString();
        // Neither resets anything, so what differs once stays visible.
        ASSERT_TRUE(tests::AreEqual(decoder, plain))
            << tests::Changes(tests::Members(plain), tests::Members(decoder)) << "\n"
            << "seed " << seed << ", round " << round << ": " << pdu->GetString();
        decoded += result;
    }
    EXPECT_GT(decoded, rounds / 3) << "most messages are worth decoding";
    EXPECT_LT(decoded, rounds * 9 / 10) << "but not all";
}

TEST(Differential, PagesDecodeLikeAPlainReading) {
    constexpr unsigned int seed = 20261122;
    std::mt19937 random(seed);
    for (int round = 0; round < 5000; ++round) {
        Bytes octets(6 + random() % 507);
        for (unsigned char& octet : octets)
            octet = static_cast<unsigned char>(random());
        const Toolkit::smart_ptr<Pdu> page = tests::MakePdu(octets);
        page->m_Length += round % 4 == 0 ? static_cast<unsigned int>(random() % 200) : 0;
        CBMDecoder decoder;
        ASSERT_TRUE(decoder.Decode(page));
        ASSERT_EQ(decoder.m_Text, tests::PlainPageText(*page))
            << "seed " << seed << ", round " << round << ": " << page->GetString();
    }
}

} // namespace
