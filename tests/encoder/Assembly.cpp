// The PDUs, octet by octet.
#include <gtest/gtest.h>

#include "encoder/OpenEncoder.h"
#include "support/Allocations.h"
#include "support/Bits.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::Octets;
using tests::OpenEncoder;
using tests::Wide;
using tests::operator+;

/// "hello" to +4179123.
OpenEncoder& Hello(OpenEncoder& encoder) {
    encoder.SetRecipient(L"+4179123");
    encoder.SetText(L"hello");
    return encoder;
}

TString<wchar_t> Repeat(std::size_t count, unsigned int unit) {
    return TString<wchar_t>(count, static_cast<wchar_t>(unit));
}

TEST(Encode, PlainSubmit) {
    OpenEncoder encoder;
    EXPECT_EQ(Hello(encoder).Pdu(), "00 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06");
}

TEST(Encode, EveryOptionOfASubmit) {
    const struct {
        const char* what;
        void (*set)(OpenEncoder&);
        const char* pdu;
    } rows[] = {
        {"class 0", [](OpenEncoder& e) { e.SetClass(MessageClass::CLASS_0); },
         "00 01 00 07 91 14 97 21 F3 00 10 05 E8 32 9B FD 06"},
        {"class 3", [](OpenEncoder& e) { e.SetClass(MessageClass::CLASS_3); },
         "00 01 00 07 91 14 97 21 F3 00 13 05 E8 32 9B FD 06"},
        {"class 5 is none", [](OpenEncoder& e) { e.SetClass(static_cast<MessageClass::Class>(5)); },
         "00 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"class -1 is none", [](OpenEncoder& e) { e.SetClass(static_cast<MessageClass::Class>(-1)); },
         "00 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"one day", [](OpenEncoder& e) { e.SetValidityPeriod(ValidityPeriod::TP_VP_1_DAY); },
         "00 11 00 07 91 14 97 21 F3 00 00 A7 05 E8 32 9B FD 06"},
        {"validity octet, low 8 bits", [](OpenEncoder& e) { e.SetValidityPeriod(0x1AB); },
         "00 11 00 07 91 14 97 21 F3 00 00 AB 05 E8 32 9B FD 06"},
        {"enhanced format takes one octet", [](OpenEncoder& e) { e.m_ValidityFormat = 2; },
         "00 09 00 07 91 14 97 21 F3 00 00 FF 05 E8 32 9B FD 06"},
        {"absolute format takes one octet", [](OpenEncoder& e) { e.m_ValidityFormat = 3; },
         "00 19 00 07 91 14 97 21 F3 00 00 FF 05 E8 32 9B FD 06"},
        {"unknown format is none", [](OpenEncoder& e) { e.m_ValidityFormat = 4; },
         "00 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"status report", [](OpenEncoder& e) { e.SetRequireStatusReport(true); },
         "00 21 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"reject duplicates", [](OpenEncoder& e) { e.SetReject_Duplicates(true); },
         "00 05 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"reply path", [](OpenEncoder& e) { e.SetReplyPath(true); },
         "00 81 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"message reference, low 8 bits", [](OpenEncoder& e) { e.SetMessageReference(0x1FE); },
         "00 01 FE 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"protocol identifier, low 8 bits", [](OpenEncoder& e) { e.m_ProtocolId = 0x27F; },
         "00 01 00 07 91 14 97 21 F3 7F 00 05 E8 32 9B FD 06"},
        {"service centre", [](OpenEncoder& e) { e.SetSmsc(L"+123456789012", false); },
         "07 91 21 43 65 87 09 21 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"lenient service centre", [](OpenEncoder& e) { e.SetSmsc(L"+12", true); },
         "03 91 10 F2 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"service centre of letters", [](OpenEncoder& e) { e.SetSmsc(L"abc", false); },
         "01 81 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"even number of digits", [](OpenEncoder& e) { e.SetRecipient(L"1234"); },
         "00 01 00 04 81 21 43 00 00 05 E8 32 9B FD 06"},
        {"recipient's plus is never lenient",
         [](OpenEncoder& e) { e.SetSmsc(L"1", true), e.SetRecipient(L"+12"); },
         "02 81 F1 01 00 02 91 21 00 00 05 E8 32 9B FD 06"},
        {"recipient of letters", [](OpenEncoder& e) { e.SetRecipient(L"abc"); },
         "00 01 00 00 81 00 00 05 E8 32 9B FD 06"},
        {"header of the host's", [](OpenEncoder& e) { e.SetHeader(0x12A, 0x103, 0x202); },
         "00 41 00 07 91 14 97 21 F3 00 00 0C 05 00 03 2A 03 02 D0 65 36 FB 0D"},
        {"header of one part", [](OpenEncoder& e) { e.SetHeader(5, 1, 1); },
         "00 41 00 07 91 14 97 21 F3 00 00 0C 05 00 03 05 01 01 D0 65 36 FB 0D"},
        {"header of negative values", [](OpenEncoder& e) { e.SetHeader(-1, -256, -3); },
         "00 41 00 07 91 14 97 21 F3 00 00 0C 05 00 03 FF 00 FD D0 65 36 FB 0D"},
        {"header removed", [](OpenEncoder& e) { e.SetHeader(1, 2, 3), e.RemoveHeader(); },
         "00 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06"},
        {"UCS2", [](OpenEncoder& e) { e.SetText(Wide({0x4E2D})); },
         "00 01 00 07 91 14 97 21 F3 00 08 02 4E 2D"},
        {"UCS2, class 1",
         [](OpenEncoder& e) { e.SetText(Wide({0x4E2D})), e.SetClass(MessageClass::CLASS_1); },
         "00 01 00 07 91 14 97 21 F3 00 19 02 4E 2D"},
        {"UCS2 after a header", [](OpenEncoder& e) { e.SetText(Wide({0x4E2D})), e.SetHeader(1, 2, 3); },
         "00 41 00 07 91 14 97 21 F3 00 08 08 05 00 03 01 02 03 4E 2D"},
        {"everything",
         [](OpenEncoder& e) {
             e.SetReplyPath(true), e.SetReject_Duplicates(true), e.SetRequireStatusReport(true);
             e.SetValidityPeriod(ValidityPeriod::TP_VP_MAXIMUM), e.SetHeader(1, 2, 3);
         },
         "00 F5 00 07 91 14 97 21 F3 00 00 FF 0C 05 00 03 01 02 03 D0 65 36 FB 0D"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        OpenEncoder encoder;
        row.set(Hello(encoder));
        EXPECT_EQ(encoder.Pdu(), row.pdu);
    }
}

TEST(Encode, NothingSet) {
    OpenEncoder encoder;
    EXPECT_EQ(encoder.Pdu(), "00 01 00 00 80 00 08 00");
    encoder.SetClass(MessageClass::CLASS_1);
    EXPECT_EQ(encoder.Pdu(), "00 01 00 00 80 00 19 00");
    encoder.SetHeader(1, 2, 3);
    EXPECT_EQ(encoder.Pdu(), "00 41 00 00 80 00 19 06 05 00 03 01 02 03");
}

TEST(Encode, ReducedDeliver) {
    OpenEncoder encoder(2);
    Hello(encoder);
    encoder.SetSmsc(L"12", false);
    encoder.SetReplyPath(true);
    encoder.SetRequireStatusReport(true);
    encoder.SetReject_Duplicates(true);
    encoder.SetValidityPeriod(11);
    encoder.SetMessageReference(9);
    EXPECT_EQ(encoder.Pdu(), "02 81 21 80 00 80 00 00 05 E8 32 9B FD 06");
    encoder.m_Originator = L"+4179123";
    encoder.SetHeader(1, 2, 3);
    EXPECT_EQ(encoder.Pdu(), "02 81 21 C0 07 91 14 97 21 F3 00 00 0C 05 00 03 01 02 03 D0 65 36 FB 0D");
}

TEST(Encode, OtherTypesAreTheServiceCentreAndOneOctet) {
    for (const int type : {0, 3, 4, -1}) {
        OpenEncoder encoder(type);
        Hello(encoder);
        encoder.SetReplyPath(true);
        encoder.SetHeader(1, 2, 3);
        EXPECT_EQ(encoder.Pdu(), "00 00") << type;
        encoder.SetSmsc(L"+12", false);
        EXPECT_EQ(encoder.Pdu(), "02 91 21 00") << type;
        encoder.SetText(Repeat(161, 'a'));
        EXPECT_EQ(encoder.Pdus(), (std::vector<Bytes>{Octets("02 91 21 00"), Octets("02 91 21 00")}));
    }
}

TEST(Encode, EmptiesTheVectorFirst) {
    OpenEncoder encoder;
    Hello(encoder);
    tests::Pdus pdus(3, tests::MakePdu("01"));
    const Toolkit::smart_ptr<Pdu> old = pdus.front();
    encoder.Encode(pdus);
    ASSERT_EQ(pdus.size(), 1U);
    EXPECT_EQ(tests::CountOf(old), 1);
    EXPECT_EQ(tests::CountOf(pdus.front()), 1);
}

TEST(Encode, TwoPartsOf161Septets) {
    OpenEncoder encoder;
    encoder.m_ReferenceCounter = 0x41;
    encoder.SetText(Repeat(161, 'a'));
    const std::vector<Bytes> pdus = encoder.Pdus();
    ASSERT_EQ(pdus.size(), 2U);
    EXPECT_EQ(pdus[0],
              Octets("00 41 00 00 80 00 00 A0 05 00 03 42 02 01") + tests::LayBits(Bytes(153, 0x61), 1));
    EXPECT_EQ(pdus[1],
              Octets("00 41 00 00 80 00 00 0F 05 00 03 42 02 02") + tests::LayBits(Bytes(8, 0x61), 1));
    EXPECT_EQ(tests::Hex(tests::LayBits(Bytes(8, 0x61), 1)), "C2 E1 70 38 1C 0E 87 01") << "hand-made";
    EXPECT_EQ(encoder.m_ReferenceCounter, 0x42);
}

TEST(Encode, ThreePartsOfUcs2) {
    OpenEncoder encoder;
    encoder.m_ReferenceCounter = 0xFF;
    encoder.SetRequireStatusReport(true);
    encoder.SetText(Repeat(135, 0x4E2D));
    const std::vector<Bytes> pdus = encoder.Pdus();
    ASSERT_EQ(pdus.size(), 3U);
    Bytes full;
    for (int i = 0; i < 67; ++i)
        full = full + Octets("4E 2D");
    EXPECT_EQ(pdus[0], Octets("00 61 00 00 80 00 08 8C 05 00 03 00 03 01") + full) << "the reference wraps";
    EXPECT_EQ(pdus[1], Octets("00 41 00 00 80 00 08 8C 05 00 03 00 03 02") + full);
    EXPECT_EQ(pdus[2], Octets("00 41 00 00 80 00 08 08 05 00 03 00 03 03 4E 2D"));
    EXPECT_EQ(encoder.m_ReferenceCounter, 0);
}

/// More parts than an octet counts: all of them go out, and the low 8 bits of the values stand in their
/// headers.
TEST(Encode, TotalAndSequenceWrapAbove255Parts) {
    const struct {
        std::size_t septets;
        std::size_t parts;
        const char* first; // up to the header, whose reference is 07
        const char* part255;
        const char* last;
    } rows[] = {
        {39015, 255, "00 61 00 00 80 00 00 A0 05 00 03 07 FF 01", "00 41 00 00 80 00 00 A0 05 00 03 07 FF FF",
         "00 41 00 00 80 00 00 A0 05 00 03 07 FF FF"},
        {39016, 256, "00 61 00 00 80 00 00 A0 05 00 03 07 00 01", "00 41 00 00 80 00 00 A0 05 00 03 07 00 FF",
         "00 41 00 00 80 00 00 08 05 00 03 07 00 00"},
        {39169, 257, "00 61 00 00 80 00 00 A0 05 00 03 07 01 01", "00 41 00 00 80 00 00 A0 05 00 03 07 01 FF",
         "00 41 00 00 80 00 00 08 05 00 03 07 01 01"},
    };
    const auto head = [](const Bytes& pdu) { return tests::Hex(pdu.data(), 14); };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.parts);
        OpenEncoder encoder;
        encoder.m_ReferenceCounter = 6;
        encoder.SetRequireStatusReport(true);
        encoder.SetText(Repeat(row.septets, 'a'));
        const std::vector<Bytes> pdus = encoder.Pdus();
        ASSERT_EQ(pdus.size(), row.parts);
        EXPECT_EQ(head(pdus[0]), row.first);
        EXPECT_EQ(head(pdus[254]), row.part255);
        EXPECT_EQ(head(pdus.back()), row.last);
        EXPECT_EQ(encoder.m_ConcatTotal, static_cast<int>(row.parts));
        EXPECT_EQ(encoder.m_ConcatSequence, static_cast<int>(row.parts));
        EXPECT_EQ(encoder.m_ReferenceCounter, 7) << "one reference for all parts";
    }
}

TEST(Encode, HeaderWithATotalOf256StaysOn) {
    OpenEncoder encoder;
    encoder.m_ReferenceCounter = 6;
    encoder.SetText(Repeat(17086, 0x4E2D));
    const std::vector<Bytes> pdus = encoder.Pdus();
    ASSERT_EQ(pdus.size(), 256U);
    EXPECT_EQ(tests::Hex(pdus.back()), "00 41 00 00 80 00 08 08 05 00 03 07 00 00 4E 2D");
    encoder.SetText(L"hello");
    EXPECT_EQ(encoder.Pdu(), "00 41 00 00 80 00 00 0C 05 00 03 07 00 00 D0 65 36 FB 0D");
}

TEST(Encode, SeptetsOfEveryLengthInOnePart) {
    for (std::size_t length = 1; length <= 160; ++length) {
        TString<wchar_t> text;
        Bytes septets;
        for (std::size_t i = 0; i < length; ++i) {
            text += static_cast<wchar_t>('A' + i % 26);
            septets.push_back(static_cast<unsigned char>('A' + i % 26));
        }
        OpenEncoder encoder;
        encoder.SetText(text);
        const Bytes head = Octets("00 01 00 00 80 00 00") + Bytes{static_cast<unsigned char>(length)};
        EXPECT_EQ(encoder.Pdus(), std::vector<Bytes>{head + tests::LayBits(septets, 0)}) << length;
        encoder.SetHeader(1, 2, 3);
        const Bytes headed = Octets("00 41 00 00 80 00 00") + Bytes{static_cast<unsigned char>(length + 7)} +
                             Octets("05 00 03 01 02 03");
        EXPECT_EQ(encoder.Pdus(), std::vector<Bytes>{headed + tests::LayBits(septets, 1)}) << length;
    }
}

TEST(Encode, CutFallsBetweenAnEscapeAndItsCode) {
    OpenEncoder encoder;
    encoder.m_ReferenceCounter = 0;
    encoder.SetText(Repeat(152, 'a') + L"€" + Repeat(10, 'b'));
    const std::vector<Bytes> pdus = encoder.Pdus();
    ASSERT_EQ(pdus.size(), 2U);
    EXPECT_EQ(pdus[0], Octets("00 41 00 00 80 00 00 A0 05 00 03 01 02 01") +
                           tests::LayBits(Bytes(152, 0x61) + Bytes{0x1B}, 1));
    EXPECT_EQ(pdus[1], Octets("00 41 00 00 80 00 00 12 05 00 03 01 02 02") +
                           tests::LayBits(Bytes{0x65} + Bytes(10, 0x62), 1));
}

TEST(Encode, HeaderStaysOnAfterAMessageOfSeveralParts) {
    OpenEncoder encoder;
    Hello(encoder);
    encoder.m_ReferenceCounter = 0x29;
    encoder.SetText(Repeat(161, 'a'));
    EXPECT_EQ(encoder.Pdus().size(), 2U);
    EXPECT_EQ(encoder.m_ConcatTotal, 2);
    encoder.SetText(L"hello");
    EXPECT_EQ(encoder.Pdu(), "00 41 00 07 91 14 97 21 F3 00 00 0C 05 00 03 2A 02 02 D0 65 36 FB 0D");
    encoder.RemoveHeader();
    EXPECT_EQ(encoder.Pdu(), "00 01 00 07 91 14 97 21 F3 00 00 05 E8 32 9B FD 06");
}

TEST(Encode, ReferenceRisesOnceForEachMessageOfSeveralParts) {
    OpenEncoder encoder;
    encoder.m_ReferenceCounter = 7;
    encoder.SetText(Repeat(307, 'a'));
    encoder.Pdus();
    EXPECT_EQ(encoder.m_ReferenceCounter, 8);
    EXPECT_EQ(encoder.m_ConcatReference, 8);
    EXPECT_EQ(encoder.m_ConcatSequence, 3);
    encoder.Pdus();
    EXPECT_EQ(encoder.m_ReferenceCounter, 9);
    encoder.SetText(L"a");
    encoder.Pdus();
    EXPECT_EQ(encoder.m_ReferenceCounter, 9);
}

TEST(Encode, WithoutHeadersPartsAreToldApartByMessageReference) {
    OpenEncoder encoder;
    encoder.m_UseConcatHeader = 0;
    encoder.m_ReferenceCounter = 0xFD;
    encoder.SetText(Repeat(307, 'a'));
    const std::vector<Bytes> pdus = encoder.Pdus();
    ASSERT_EQ(pdus.size(), 3U);
    EXPECT_EQ(pdus[0], Octets("00 01 FE 00 80 00 00 99") + tests::LayBits(Bytes(153, 0x61), 0));
    EXPECT_EQ(pdus[1], Octets("00 01 FF 00 80 00 00 99") + tests::LayBits(Bytes(153, 0x61), 0));
    EXPECT_EQ(pdus[2], Octets("00 01 00 00 80 00 00 01 61"));
    EXPECT_EQ(encoder.m_MessageReference, 0x100);
    EXPECT_EQ(encoder.m_ConcatTotal, 0);
}

TEST(Encode, LeavesItsWorkingState) {
    OpenEncoder encoder;
    Hello(encoder);
    encoder.SetSmsc(L"12", false);
    encoder.Pdus();
    EXPECT_EQ(tests::Hex(encoder.m_SmscBytes.get(), encoder.m_SmscLength), "81 21");
    EXPECT_EQ(tests::Hex(encoder.m_RecipientBytes.get(), encoder.m_RecipientLength), "91 14 97 21 F3");
    EXPECT_EQ(tests::Hex(encoder.m_PartBytes.get(), encoder.m_PartLength), "68 65 6C 6C 6F");
    EXPECT_EQ(encoder.m_PartBytes[5], 0);
    EXPECT_EQ(encoder.m_SmscTon, 1);
    EXPECT_EQ(encoder.m_NumberTon, 2);
    EXPECT_EQ(encoder.m_OriginatorBytes.get(), nullptr);
}

TEST(Encode, TypesOfNumberAreKeptApart) {
    OpenEncoder encoder;
    encoder.SetSmsc(L"+12", false);
    encoder.SetRecipient(L"34");
    encoder.Pdus();
    EXPECT_EQ(encoder.m_SmscTon, 2);
    EXPECT_EQ(encoder.m_NumberTon, 1);
}

TEST(Encode, EncodesEveryAddressAnew) {
    OpenEncoder encoder;
    Hello(encoder);
    encoder.SetSmsc(L"+123456789012", false);
    encoder.Pdus();
    encoder.SetSmsc(L"1", false);
    encoder.SetRecipient(L"12");
    EXPECT_EQ(encoder.Pdu(), "02 81 F1 01 00 02 81 21 00 00 05 E8 32 9B FD 06");
    encoder.m_Smsc.clear();
    encoder.m_Recipient.clear();
    EXPECT_EQ(encoder.Pdu(), "00 01 00 00 80 00 00 05 E8 32 9B FD 06");
    EXPECT_EQ(encoder.m_SmscBytes.get(), nullptr);
    EXPECT_EQ(encoder.m_SmscLength, 0U);
    EXPECT_EQ(encoder.m_RecipientBytes.get(), nullptr);
    EXPECT_EQ(encoder.m_RecipientLength, 0U);
}

TEST(Encode, AnyValueButZeroAsksForHeaders) {
    OpenEncoder encoder;
    encoder.m_UseConcatHeader = -1;
    encoder.SetText(Repeat(161, 'a'));
    encoder.Pdus();
    EXPECT_EQ(encoder.m_ConcatTotal, 2);
    EXPECT_EQ(encoder.m_MessageReference, 0);
}

TEST(Encode, AllocatesNothingBeyondWhatItKeeps) {
    OpenEncoder encoder;
    Hello(encoder);
    tests::Pdus pdus;
    pdus.reserve(1);
    encoder.Encode(pdus);

    unsigned long bytes = tests::AllocatedBytes();
    const Toolkit::smart_ptr<Pdu> empty(new Pdu);
    const unsigned long onePdu = tests::AllocatedBytes() - bytes;
    bytes = tests::AllocatedBytes();
    encoder.GetPduCount(encoder.m_Text);
    const unsigned long counting = tests::AllocatedBytes() - bytes;

    bytes = tests::AllocatedBytes();
    encoder.Encode(pdus);
    EXPECT_EQ(tests::AllocatedBytes() - bytes - counting - onePdu, 6U + 256U)
        << "the septets with a spare octet, the recipient";
}

TEST(Encode, PduStopsAt511Octets) {
    // 256 octets of service centre, 2 octets, 256 of recipient: the recipient's run does not fit and is
    // dropped whole, single octets still go in.
    OpenEncoder encoder;
    const TString<wchar_t> number = Repeat(507, '1');
    encoder.SetSmsc(number, false);
    encoder.SetRecipient(number);
    encoder.SetText(L"hello");
    const Bytes address = Bytes{0x81} + Bytes(253, 0x11) + Bytes{0xF1};
    const Bytes smsc = Bytes{0xFF} + address;
    // 2 * 255 - 3 digits, low 8 bits
    EXPECT_EQ(encoder.Pdus(), std::vector<Bytes>{smsc + Octets("01 00 FB 00 00 05 E8 32 9B FD 06")});

    encoder.SetRecipient(Repeat(480, '1'));
    const Bytes recipient = Bytes{0x81} + Bytes(240, 0x11);
    EXPECT_EQ(encoder.Pdus(),
              std::vector<Bytes>{smsc + Octets("01 00 E0") + recipient + Octets("00 00 05 E8 32 9B FD 06")})
        << "508 octets";
    encoder.SetText(L"hellohello");
    Bytes octets = smsc + Octets("01 00 E0") + recipient + Octets("00 00 0A") +
                   tests::LayBits(Octets("68 65 6C 6C 6F 68 65 6C 6C 6F"), 0);
    ASSERT_EQ(octets.size(), 512U);
    octets.pop_back();
    EXPECT_EQ(encoder.Pdus(), std::vector<Bytes>{octets}) << "septets are appended octet by octet";
    encoder.SetText(Repeat(4, 0x4E2D));
    octets = smsc + Octets("01 00 E0") + recipient + Octets("00 08 08 4E 2D 4E 2D 4E 2D 4E 2D");
    ASSERT_EQ(octets.size(), 511U);
    EXPECT_EQ(encoder.Pdus(), std::vector<Bytes>{octets});
    encoder.SetText(Repeat(5, 0x4E2D));
    EXPECT_EQ(encoder.Pdus(), std::vector<Bytes>{smsc + Octets("01 00 E0") + recipient + Octets("00 08 0A")})
        << "UCS2 user data are one run";
}

TEST(Encode, SeptetsUpToTheLastOctetOfTheBuffer) {
    // Every room from none to more than the 140 octets of a full part.
    for (std::size_t digits = 220; digits <= 507; ++digits) {
        OpenEncoder encoder;
        encoder.SetSmsc(Repeat(507, '1'), false);
        encoder.SetRecipient(Repeat(digits, '1'));
        encoder.SetText(Repeat(160, 'u'));
        encoder.SetHeader(1, 2, 3);
        const std::size_t addressSize = 1 + (digits + 1) / 2;
        Bytes expected = Bytes{0xFF, 0x81} + Bytes(253, 0x11) + Bytes{0xF1} + Octets("41 00") +
                         Bytes{static_cast<unsigned char>(digits)};
        if (expected.size() + addressSize <= 511)
            expected = expected + Bytes{0x81} + Bytes(digits / 2, 0x11) + Bytes(digits % 2, 0xF1);
        expected = expected + Octets("00 00 A7 05 00 03 01 02 03") + tests::LayBits(Bytes(160, 0x75), 1);
        if (expected.size() > 511)
            expected.resize(511);
        ASSERT_EQ(encoder.Pdus(), std::vector<Bytes>{expected}) << digits;
        tests::Pdus pdus;
        encoder.Encode(pdus);
        for (std::size_t i = pdus.front()->m_Length; i < 512; ++i)
            ASSERT_EQ(pdus.front()->m_Bytes[i], 0) << "after the contents";
    }
}

TEST(Encode, OldArraysAreGoneWhenAnAllocationFails) {
    for (const bool isGsm : {true, false}) {
        for (unsigned long n = 1, failures = 1; failures != 0; ++n) {
            failures = 0;
            for (const int type : {1, 2}) {
                OpenEncoder encoder(type);
                encoder.SetSmsc(L"+12", false);
                encoder.SetRecipient(L"+4179123");
                encoder.m_Originator = L"+4179123";
                encoder.SetText(isGsm ? L"hello" : Wide({0x4E2D}));
                encoder.Pdus();
                tests::Pdus pdus;
                {
                    const tests::FailAllocation fail(n);
                    try {
                        encoder.Encode(pdus);
                    } catch (const std::bad_alloc&) {
                        ++failures;
                    }
                }
                EXPECT_EQ(encoder.m_PartBytes == nullptr, encoder.m_PartLength == 0) << n;
                EXPECT_EQ(encoder.m_SmscBytes == nullptr, encoder.m_SmscLength == 0) << n;
                EXPECT_EQ(encoder.m_RecipientBytes == nullptr, encoder.m_RecipientLength == 0) << n;
                EXPECT_EQ(encoder.m_OriginatorBytes == nullptr, encoder.m_OriginatorLength == 0) << n;
            }
        }
    }
}

TEST(Encode, KeepsThePartsAppendedWhenAnAllocationFails) {
    std::size_t most = 0;
    for (unsigned long n = 1;; ++n) {
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool failed = false;
        {
            OpenEncoder encoder;
            encoder.m_ReferenceCounter = 0;
            encoder.SetSmsc(L"+12", false);
            encoder.SetRecipient(L"+4179123");
            encoder.SetText(Repeat(307, 'a'));
            tests::Pdus pdus;
            {
                const tests::FailAllocation fail(n);
                try {
                    encoder.Encode(pdus);
                } catch (const std::bad_alloc&) {
                    failed = true;
                }
            }
            if (failed) {
                EXPECT_LT(pdus.size(), 3U);
                EXPECT_GE(pdus.size(), most) << "later failures leave no fewer parts";
                most = pdus.size();
                for (std::size_t i = 0; i < pdus.size(); ++i) {
                    EXPECT_EQ(tests::CountOf(pdus[i]), 1);
                    EXPECT_EQ(pdus[i]->m_Bytes[19], i + 1) << "the sequence number";
                }
            }
            EXPECT_EQ(tests::CountOf(encoder.m_CharSet), 1);
            EXPECT_EQ(encoder.Pdus().size(), 3U) << "the encoder stays usable";
        }
        EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open + (failed ? 1 : 0)) << n;
        if (!failed)
            break;
    }
    EXPECT_EQ(most, 2U);
}

} // namespace
