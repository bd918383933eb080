// Rows of docs/departures.md: what is sent.
#include <gtest/gtest.h>

#include "encoder/OpenEncoder.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::OpenEncoder;
using tests::Wide;

/// Octets of a PDU to no destination and without service centre.
enum Place : std::size_t {
    FIRST_OCTET = 1,
    MESSAGE_REFERENCE = 2,
    LENGTH = 7,
    HEADER = 8,
    AFTER_HEADER = 14
};

TString<wchar_t> Letters(std::size_t count) {
    return TString<wchar_t>(count, L'a');
}

std::string From(const Bytes& pdu, std::size_t begin, std::size_t count) {
    return tests::Hex(pdu.data() + begin, count);
}

TEST(Departures, EmptyText) {
    EXPECT_EQ(OpenEncoder().Pdu(), "00 01 00 00 80 00 08 00");
}

/// The 153rd septet is the escape of U+20AC, whose code begins the second part.
TEST(Departures, SplitPair) {
    OpenEncoder encoder;
    encoder.SetText(Letters(152) + Wide({0x20AC}) + Letters(10));
    const std::vector<Bytes> parts = encoder.Pdus();
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0].back(), 0x1B << 1 | 0x61 >> 6);
    EXPECT_EQ(parts[1][AFTER_HEADER], 0x65 << 1);
}

TEST(Departures, SplitSurrogates) {
    OpenEncoder encoder;
    encoder.SetText(Letters(66) + Wide({0xD83D, 0xDE00}) + Letters(10));
    const std::vector<Bytes> parts = encoder.Pdus();
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(From(parts[0], parts[0].size() - 2, 2), "D8 3D");
    EXPECT_EQ(From(parts[1], AFTER_HEADER, 2), "DE 00");
}

TEST(Departures, LowUnits) {
    OpenEncoder encoder;
    encoder.SetText(Wide({0x1F600}));
    EXPECT_EQ(encoder.Pdu(), "00 01 00 00 80 00 08 02 F6 00");
}

TEST(Departures, HeaderKept) {
    OpenEncoder encoder;
    encoder.m_ReferenceCounter = 0x29;
    encoder.SetText(Letters(161));
    encoder.Pdus();
    encoder.SetText(L"a");
    EXPECT_EQ(encoder.Pdu(), "00 41 00 00 80 00 00 08 05 00 03 2A 02 02 C2");
}

/// 160 septets and the header are 147 octets of user data.
TEST(Departures, HeaderRoom) {
    OpenEncoder encoder;
    encoder.SetHeader(1, 2, 1);
    encoder.SetText(Letters(160));
    const std::vector<Bytes> parts = encoder.Pdus();
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_EQ(parts[0][LENGTH], 167);
    EXPECT_EQ(parts[0].size() - HEADER, 147U);
}

TEST(Departures, ManyParts) {
    OpenEncoder encoder;
    encoder.m_ReferenceCounter = 0x29;
    encoder.SetText(Letters(std::size_t{255} * 153 + 1));
    const std::vector<Bytes> parts = encoder.Pdus();
    ASSERT_EQ(parts.size(), 256U);
    EXPECT_EQ(From(parts[0], HEADER, 6), "05 00 03 2A 00 01");
    EXPECT_EQ(From(parts[255], HEADER, 6), "05 00 03 2A 00 00");
}

TEST(Departures, ConcatenationReference) {
    for (int encoders = 0; encoders < 2; ++encoders) {
        OpenEncoder encoder;
        encoder.m_ReferenceCounter = 0x29;
        encoder.SetText(Letters(161));
        EXPECT_EQ(From(encoder.Pdus().at(0), HEADER, 6), "05 00 03 2A 02 01");
    }
}

TEST(Departures, MessageReference) {
    OpenEncoder encoder;
    encoder.SetMessageReference(7);
    encoder.SetText(Letters(161));
    for (int messages = 0; messages < 2; ++messages)
        for (const Bytes& part : encoder.Pdus())
            EXPECT_EQ(part[MESSAGE_REFERENCE], 7);
}

TEST(Departures, PartsByReference) {
    OpenEncoder encoder;
    encoder.m_UseConcatHeader = 0;
    encoder.m_ReferenceCounter = 0x29;
    encoder.SetText(Letters(161));
    const std::vector<Bytes> parts = encoder.Pdus();
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(From(parts[0], FIRST_OCTET, 2), "01 2A");
    EXPECT_EQ(From(parts[1], FIRST_OCTET, 2), "01 2B");
    EXPECT_EQ(parts[0][LENGTH], 153);
}

TEST(Departures, ReportRequest) {
    OpenEncoder encoder;
    encoder.SetRequireStatusReport(true);
    encoder.SetText(Letters(161));
    const std::vector<Bytes> parts = encoder.Pdus();
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[0][FIRST_OCTET], 0x61);
    EXPECT_EQ(parts[1][FIRST_OCTET], 0x41);
}

TEST(Departures, ValidityWritten) {
    OpenEncoder encoder;
    encoder.SetText(L"hello");
    encoder.m_ValidityFormat = 2;
    EXPECT_EQ(encoder.Pdu(), "00 09 00 00 80 00 00 FF 05 E8 32 9B FD 06");
    encoder.m_ValidityFormat = 3;
    EXPECT_EQ(encoder.Pdu(), "00 19 00 00 80 00 00 FF 05 E8 32 9B FD 06");
}

TEST(Departures, DeliverWritten) {
    OpenEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_DELIVER);
    encoder.SetText(L"hello");
    EXPECT_EQ(encoder.Pdu(), "00 00 00 80 00 00 05 E8 32 9B FD 06");
}

TEST(Departures, OtherTypesWritten) {
    for (const int type : {0, 3}) {
        OpenEncoder encoder(type);
        encoder.SetText(L"hello");
        EXPECT_EQ(encoder.Pdu(), "00 00");
    }
}

} // namespace
