// Decoding of whole short messages.
#include "Encoding/PduDecoder.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "decoder/Samples.h"
#include "support/Allocations.h"
#include "support/Bits.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::MakePdu;
using tests::operator+;
using tests::Octets;
using tests::Wide;

static_assert(std::is_base_of_v<PduCommon, PduDecoder> && sizeof(PduDecoder) == sizeof(PduCommon));

int Decode(PduDecoder& decoder, std::string_view hex, bool noSmsc = false) {
    return decoder.Decode(MakePdu(hex), noSmsc, false);
}

/// An SMS-DELIVER without service centre from 1234, without time zone: first octet, TP-DCS, and from TP-UDL
/// on.
std::string Deliver(const char* first, const char* dcs, const std::string& userData) {
    return std::string(first) + "04 81 21 43 00" + dcs + "21 20 31 21 43 65 00" + userData;
}

TEST(Decode, SmsDeliver) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, tests::c_deliver), 1);
    EXPECT_EQ(decoder.m_Smsc, L"+123456789012");
    EXPECT_EQ(decoder.m_SmscTon, 2);
    EXPECT_EQ(decoder.m_SmscNpi, 1);
    EXPECT_EQ(decoder.m_Originator, L"+12345678901");
    EXPECT_EQ(decoder.m_NumberTon, 2);
    EXPECT_EQ(decoder.m_NumberNpi, 1);
    EXPECT_EQ(decoder.m_Recipient, L"");
    EXPECT_EQ(decoder.m_SmsType, MessageTypeIndicator::TP_MTI_SMS_DELIVER);
    EXPECT_EQ(decoder.m_ReplyPath, 0);
    EXPECT_EQ(decoder.m_HasUserDataHeader, 0);
    EXPECT_EQ(decoder.m_ProtocolId, 0);
    EXPECT_EQ(decoder.m_DataCoding, 0);
    EXPECT_EQ(decoder.m_CodingGroup, 0);
    EXPECT_EQ(decoder.m_Class, 4);
    EXPECT_EQ(decoder.m_Alphabet, 0);
    EXPECT_EQ(decoder.m_ServiceCentreTime->ToString(), "2012-02-13T12:34:56+02:00");
    EXPECT_EQ(decoder.m_UserDataLength, 5);
    EXPECT_EQ(decoder.m_Text, L"Hello");
}

TEST(Decode, WithoutServiceCentre) {
    PduDecoder decoder;
    const std::string tpdu = std::string(tests::c_deliver).substr(23);
    ASSERT_EQ(Decode(decoder, tpdu, true), 1);
    EXPECT_EQ(decoder.m_Smsc, L"");
    EXPECT_EQ(decoder.m_Originator, L"+12345678901");
    EXPECT_EQ(decoder.m_ServiceCentreTime->ToString(), "2012-02-13T12:34:56+02:00");
    EXPECT_EQ(decoder.m_Text, L"Hello");
}

TEST(Decode, IgnoredTimeZoneReachesEveryTime) {
    PduDecoder decoder;
    ASSERT_EQ(decoder.Decode(MakePdu(tests::c_deliver), false, true), 1);
    EXPECT_FALSE(decoder.m_ServiceCentreTime->HasOffset());
    ASSERT_EQ(decoder.Decode(MakePdu(tests::c_report), false, true), 1);
    EXPECT_FALSE(decoder.m_DischargeTime->HasOffset());
    ASSERT_EQ(decoder.Decode(MakePdu(tests::c_submitAbsolute), false, true), 1);
    EXPECT_FALSE(decoder.m_ValidityTime->HasOffset());
}

TEST(Decode, SmsSubmitWithRelativeValidityPeriod) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, tests::c_submit), 1);
    EXPECT_EQ(decoder.m_Smsc, L"");
    EXPECT_EQ(decoder.m_SmsType, MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    EXPECT_EQ(decoder.m_ReplyPath, 1);
    EXPECT_EQ(decoder.m_HasUserDataHeader, 0);
    EXPECT_EQ(decoder.m_StatusReport, 1);
    EXPECT_EQ(decoder.m_ValidityFormat, 1);
    EXPECT_EQ(decoder.m_RejectDuplicates, 1);
    EXPECT_EQ(decoder.m_MessageReference, 0x2A);
    EXPECT_EQ(decoder.m_Recipient, L"+4179123");
    EXPECT_EQ(decoder.m_Originator, L"");
    EXPECT_EQ(decoder.m_ProtocolId, 0x7F);
    EXPECT_EQ(decoder.m_DataCoding, 0x19);
    EXPECT_EQ(decoder.m_Class, 1);
    EXPECT_EQ(decoder.m_Alphabet, 2);
    EXPECT_EQ(decoder.m_ValidityPeriod, 0xA7);
    EXPECT_EQ(decoder.m_ValidityTime.get(), nullptr);
    EXPECT_EQ(decoder.m_UserDataLength, 4);
    EXPECT_EQ(decoder.m_Text, L"Hi");
}

TEST(Decode, SmsSubmitWithAbsoluteValidityPeriod) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, tests::c_submitAbsolute), 1);
    EXPECT_EQ(decoder.m_ValidityFormat, 3);
    EXPECT_EQ(decoder.m_ValidityTime->ToString(), "2012-02-13T12:34:56+02:00");
    EXPECT_EQ(decoder.m_ValidityPeriod, 0);
    EXPECT_EQ(decoder.m_ServiceCentreTime.get(), nullptr);
    EXPECT_EQ(decoder.m_Alphabet, 1);
    EXPECT_EQ(decoder.m_Text, L"Hi");
}

TEST(Decode, EnhancedValidityPeriodIsNotSkipped) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, "00 09 00 04 81 21 43 00 04 02 48 69 00 00 00 00 00"), 1);
    EXPECT_EQ(decoder.m_ValidityFormat, 2);
    EXPECT_EQ(decoder.m_UserDataLength, 2) << "the first octet of the validity period";
    EXPECT_EQ(decoder.m_Text, L"Hi");
}

TEST(Decode, SubmitWithoutValidityPeriod) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, "00 01 00 04 81 21 43 00 04 02 48 69"), 1);
    EXPECT_EQ(decoder.m_ValidityFormat, 0);
    EXPECT_EQ(decoder.m_Text, L"Hi");
}

TEST(Decode, SmsStatusReportEndsWithItsStatus) {
    for (const char* after : {"", " 00", " FF FF FF FF FF FF"}) {
        PduDecoder decoder;
        ASSERT_EQ(Decode(decoder, std::string(tests::c_report) + after), 1);
        EXPECT_EQ(decoder.m_SmsType, MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT);
        EXPECT_EQ(decoder.m_MessageReference, 0x2A);
        EXPECT_EQ(decoder.m_Recipient, L"+4179123");
        EXPECT_EQ(decoder.m_ServiceCentreTime->ToString(), "2012-02-13T12:34:56+02:00");
        EXPECT_EQ(decoder.m_DischargeTime->ToString(), "2012-02-13T12:44:00+02:00");
        EXPECT_EQ(decoder.m_Status, DeliveryStatus::ST_NOT_OBTAINABLE);
        EXPECT_EQ(decoder.m_UserDataLength, 0);
    }
}

TEST(Decode, ReservedTypeEndsAfterItsAddress) {
    PduDecoder decoder;
    decoder.m_Text = L"before";
    ASSERT_EQ(Decode(decoder, "00 FF 04 81 21 43 00"), 1);
    EXPECT_EQ(decoder.m_SmsType, MessageTypeIndicator::TP_MTI_UNKNOWN);
    EXPECT_EQ(decoder.m_Originator, L"1234");
    EXPECT_EQ(decoder.m_Recipient, L"");
    EXPECT_EQ(decoder.m_ReplyPath, 0);
    EXPECT_EQ(decoder.m_HasUserDataHeader, 0);
    EXPECT_EQ(decoder.m_Text, L"before");
}

TEST(Decode, FlagsOfEveryFirstOctet) {
    for (unsigned int first = 0; first <= 0xFF; ++first) {
        SCOPED_TRACE(first);
        PduDecoder decoder;
        decoder.m_ReplyPath = decoder.m_HasUserDataHeader = decoder.m_StatusReport = 7;
        decoder.m_ValidityFormat = decoder.m_RejectDuplicates = 7;
        decoder.Decode(MakePdu(Bytes{static_cast<unsigned char>(first)}), true, false);
        const int types[] = {2, 1, 3, 0};
        const int formats[] = {0, 2, 1, 3};
        EXPECT_EQ(decoder.m_SmsType, types[first & 3]);
        const bool isSubmit = (first & 3) == 1;
        const bool isDeliver = (first & 3) == 0;
        EXPECT_EQ(decoder.m_ReplyPath, isSubmit || isDeliver ? static_cast<int>(first >> 7) : 7);
        EXPECT_EQ(decoder.m_HasUserDataHeader, isSubmit || isDeliver ? static_cast<int>(first >> 6 & 1) : 7);
        EXPECT_EQ(decoder.m_StatusReport, isSubmit ? static_cast<int>(first >> 5 & 1) : 7);
        EXPECT_EQ(decoder.m_RejectDuplicates, isSubmit ? static_cast<int>(first >> 2 & 1) : 7);
        EXPECT_EQ(decoder.m_ValidityFormat, isSubmit ? formats[first >> 3 & 3] : 7);
    }
}

TEST(Decode, NoPduFailsAndTouchesNothing) {
    PduDecoder decoder;
    decoder.m_Text = L"before";
    EXPECT_EQ(decoder.Decode(Toolkit::smart_ptr<Pdu>(), false, false), 0);
    EXPECT_EQ(decoder.Decode(Toolkit::smart_ptr<Pdu>(), true, false), 0);
    EXPECT_EQ(decoder.m_Text, L"before");
    EXPECT_EQ(decoder.m_SmsType, 0);
}

TEST(Decode, PduThatEndsBehindTpUdlGivesAnEmptyText) {
    for (const char* dcs : {"00", "04", "08", "0C"}) {
        for (const char* udl : {"00", "0A", "FF"}) {
            for (const char* first : {"00 00", "00 40"}) {
                PduDecoder decoder;
                decoder.m_Text = L"before";
                EXPECT_EQ(Decode(decoder, Deliver(first, dcs, udl)), 1) << dcs << udl;
                EXPECT_EQ(decoder.m_Text, L"");
                EXPECT_EQ(decoder.m_UserDataLength, std::stoi(udl, nullptr, 16));
            }
        }
    }
}

TEST(Decode, ReservedAlphabetFailsAfterClearingTheText) {
    PduDecoder decoder;
    decoder.m_Text = L"before";
    EXPECT_EQ(Decode(decoder, Deliver("00 00", "0C", "01 41")), 0);
    EXPECT_EQ(decoder.m_Alphabet, 3);
    EXPECT_EQ(decoder.m_Text, L"");
}

TEST(Decode, Texts) {
    const struct {
        const char* what;
        const char* dcs;
        const char* userData;
        TString<wchar_t> text;
    } rows[] = {
        {"7-bit", "00", "05 C8 32 9B FD 06", L"Hello"},
        {"7-bit, fewer than there are", "00", "02 C8 32 9B FD 06", L"He"},
        {"7-bit, eight septets in seven octets", "00", "08 61 F1 98 5C 36 9F D1", L"abcdefgh"},
        {"7-bit, seven septets in seven octets", "00", "07 61 F1 98 5C 36 9F D1", L"abcdefg"},
        {"7-bit, nine septets", "00", "09 61 F1 98 5C 36 9F D1 69", L"abcdefghi"},
        {"7-bit, empty", "00", "00 FF", L""},
        {"7-bit, extension", "00", "02 9B 32", L"€"},
        {"7-bit, unknown extension", "00", "02 9B 20", L"A"},
        {"7-bit, escape at the end", "00", "01 1B", L""},
        {"7-bit, septet 0 does not end it", "00", "03 41 80 10", L"A@B"},
        {"7-bit, compressed, which is not looked at", "20", "05 C8 32 9B FD 06", L"Hello"},
        {"8-bit", "04", "03 00 7F FF", Wide({0x00, 0x7F, 0xFF})},
        {"8-bit, empty", "04", "00 FF", L""},
        {"8-bit, fewer than there are", "04", "01 48 69", L"H"},
        {"UCS2", "08", "04 00 48 00 69", L"Hi"},
        {"UCS2, odd count takes one octet more", "08", "03 00 48 00 69", L"Hi"},
        {"UCS2, one octet", "08", "01 20 AC", L"€"},
        {"UCS2, fewer than there are", "08", "02 00 48 00 69", L"H"},
        {"UCS2, empty", "08", "00 FF", L""},
        {"UCS2, surrogates stay apart", "08", "04 D8 3D DE 00", Wide({0xD83D, 0xDE00})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        PduDecoder decoder;
        decoder.m_Text = L"before";
        EXPECT_EQ(Decode(decoder, Deliver("00 00", row.dcs, row.userData)), 1);
        EXPECT_EQ(decoder.m_Text, row.text);
        EXPECT_EQ(decoder.m_Text.c_str()[row.text.size()], L'\0') << "nothing is written after the text";
    }
}

TEST(Decode, SeptetsOfEveryCount) {
    for (unsigned int count = 0; count <= 255; ++count) {
        Bytes septets;
        TString<wchar_t> expected;
        for (unsigned int i = 0; i < count; ++i) {
            septets.push_back(static_cast<unsigned char>('A' + i % 26));
            expected += static_cast<wchar_t>('A' + i % 26);
        }
        const Bytes head = Octets(Deliver("00 00", "00", "")) + Bytes{static_cast<unsigned char>(count)};
        PduDecoder decoder;
        EXPECT_EQ(decoder.Decode(MakePdu(head + tests::LayBits(septets, 0) + Bytes{0xFF}), false, false), 1);
        EXPECT_EQ(decoder.m_Text, expected) << count;
    }
}

TEST(Decode, SeptetsOfEveryCountBehindAConcatenationHeader) {
    const struct {
        Bytes header;
        unsigned int startBit;
    } rows[] = {{Octets("05 00 03 2A 03 02"), 1}, {Octets("06 08 04 12 34 03 01"), 0}};
    for (const auto& row : rows) {
        for (unsigned int count = 0; count + row.header.size() + 1 <= 255; ++count) {
            Bytes septets;
            TString<wchar_t> expected;
            for (unsigned int i = 0; i < count; ++i) {
                septets.push_back(static_cast<unsigned char>('A' + i % 26));
                expected += static_cast<wchar_t>('A' + i % 26);
            }
            const auto udl = static_cast<unsigned char>(count + row.header.size() + 1);
            PduDecoder decoder;
            ASSERT_EQ(decoder.Decode(MakePdu(Octets(Deliver("00 40", "00", "")) + Bytes{udl} + row.header +
                                             tests::LayBits(septets, row.startBit) + Bytes{0xFF}),
                                     false, false),
                      1);
            EXPECT_EQ(decoder.m_Text, expected) << count;
        }
    }
}

TEST(Decode, ConcatenationWith8BitReference) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, tests::c_part), 1);
    EXPECT_EQ(decoder.m_HasUserDataHeader, 1);
    EXPECT_EQ(decoder.m_ConcatReference, 0x2A);
    EXPECT_EQ(decoder.m_ConcatTotal, 3);
    EXPECT_EQ(decoder.m_ConcatSequence, 2);
    EXPECT_EQ(decoder.m_Text, L"ello");
}

TEST(Decode, ConcatenationWith16BitReference) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, tests::c_part16), 1);
    EXPECT_EQ(decoder.m_ConcatReference, 0x1234);
    EXPECT_EQ(decoder.m_ConcatTotal, 3);
    EXPECT_EQ(decoder.m_ConcatSequence, 1);
    EXPECT_EQ(decoder.m_Text, L"Hello");
}

TEST(Decode, UserDataHeaders) {
    const struct {
        const char* what;
        const char* userData; // 8-bit data
        int result;
        int reference;
        int total;
        int sequence;
        const wchar_t* text;
    } rows[] = {
        {"length 0", "03 00 48 69", 0, 7, 7, 7, L"before"},
        {"length 1", "04 01 00 48 69", 0, 7, 7, 7, L"before"},
        {"an empty unknown element", "05 02 70 00 48 69", 1, 7, 7, 7, L"Hi"},
        {"8-bit concatenation", "08 05 00 03 01 02 03 48 69", 1, 1, 2, 3, L"Hi"},
        {"16-bit concatenation", "09 06 08 04 FF FE 02 03 48 69", 1, 0xFFFE, 2, 3, L"Hi"},
        {"special message indication", "07 04 01 02 80 05 48 69", 1, 7, 5, 7, L"Hi"},
        {"concatenation, then message count", "0C 09 00 03 01 02 03 01 02 80 05 48 69", 1, 1, 5, 3, L"Hi"},
        {"message count, then concatenation", "0C 09 01 02 80 05 00 03 01 02 03 48 69", 1, 1, 2, 3, L"Hi"},
        {"unknown elements around", "0E 0B 70 01 FF 00 03 01 02 03 25 01 00 48 69", 1, 1, 2, 3, L"Hi"},
        {"element past the header", "08 05 00 04 01 02 03 48 69", 0, 7, 7, 7, L"before"},
        {"second element past the header", "0A 07 00 03 01 02 03 70 01 48 69", 0, 1, 2, 3, L"before"},
        {"one octet left for an element", "09 06 00 03 01 02 03 70 48 69", 0, 1, 2, 3, L"before"},
        {"element's own length too short", "05 02 00 00 48 69", 1, 0x48, 0x69, 0, L"Hi"},
        {"TP-UDL is the header alone", "06 05 00 03 01 02 03 48 69", 1, 1, 2, 3, L""},
        {"TP-UDL smaller than the header", "05 05 00 03 01 02 03 48 69", 0, 1, 2, 3, L"before"},
        {"TP-UDL 0 with a header", "00 05 00 03 01 02 03 48 69", 0, 1, 2, 3, L"before"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        PduDecoder decoder;
        decoder.m_ConcatReference = decoder.m_ConcatTotal = decoder.m_ConcatSequence = 7;
        decoder.m_Text = L"before";
        EXPECT_EQ(Decode(decoder, Deliver("00 40", "04", row.userData)), row.result);
        EXPECT_EQ(decoder.m_ConcatReference, row.reference);
        EXPECT_EQ(decoder.m_ConcatTotal, row.total);
        EXPECT_EQ(decoder.m_ConcatSequence, row.sequence);
        EXPECT_EQ(decoder.m_Text, row.text);
    }
}

TEST(Decode, SeptetsBehindOtherHeadersFollowTheSameRule) {
    const struct {
        const char* what;
        const char* userData;
        TString<wchar_t> text;
    } rows[] = {
        // Count 6, 5 characters: fill is 0 without element 0x00.
        {"unknown element", "09 02 70 00 C8 32 9B FD 06", L"Hello"},
        // The fill bit of element 0x00 stays with an element 0x08 after it.
        {"8-bit, then 16-bit concatenation", "12 0B 00 03 01 02 03 08 04 01 02 03 04 90 65 36 FB 0D",
         L"Hello"},
        {"16-bit, then 8-bit concatenation", "12 0B 08 04 01 02 03 04 00 03 01 02 03 90 65 36 FB 0D",
         L"Hello"},
        {"characters would be -1", "06 05 00 03 01 02 03 FF", L""},
        {"no characters", "07 05 00 03 01 02 03 FF", L""},
        {"one character", "08 05 00 03 01 02 03 90 FF", L"H"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        PduDecoder decoder;
        decoder.m_Text = L"before";
        EXPECT_EQ(Decode(decoder, Deliver("00 40", "00", row.userData)), 1);
        EXPECT_EQ(decoder.m_Text, row.text);
    }
}

TEST(Decode, CharactersOfFullParts) {
    const struct {
        const char* first;
        Bytes header;
        std::size_t characters;
    } rows[] = {{"00 00", {}, 160},
                {"00 40", Octets("05 00 03 2A 03 02"), 153},
                {"00 40", Octets("06 08 04 12 34 03 01"), 152}};
    for (const auto& row : rows) {
        const Bytes head = Octets(Deliver(row.first, "00", "A0"));
        PduDecoder decoder;
        ASSERT_EQ(
            decoder.Decode(MakePdu(head + row.header + Bytes(140 - row.header.size(), 0xFF)), false, false),
            1);
        EXPECT_EQ(decoder.m_Text, TString<wchar_t>(row.characters, L'à'));
    }
}

/// The data coding of every TP-DCS, by the rows of the standard's table.
TEST(Decode, EveryDataCoding) {
    for (int dcs = 0; dcs <= 0xFF; ++dcs) {
        SCOPED_TRACE(dcs);
        const int high = dcs / 16;
        const int group = high < 0xC ? 0 : high - 0xB;
        const int bits23 = dcs / 4 % 4;
        const int alphabet = group == 0 ? bits23 : group == 3 ? 2 : group == 4 ? bits23 % 2 : 0;
        const bool hasClass = group == 4 || (group == 0 && high % 2 == 1);
        const int messageClass = hasClass ? dcs % 4 : 4;

        PduDecoder decoder;
        Bytes octets = Octets(Deliver("00 00", "00", "00 00"));
        octets[7] = static_cast<unsigned char>(dcs);
        EXPECT_EQ(decoder.Decode(MakePdu(octets), false, false), alphabet == 3 ? 0 : 1);
        EXPECT_EQ(decoder.m_DataCoding, dcs);
        EXPECT_EQ(decoder.m_CodingGroup, group);
        EXPECT_EQ(decoder.m_Class, messageClass);
        EXPECT_EQ(decoder.m_Alphabet, alphabet);

        PduDecoder mapping;
        EXPECT_EQ(mapping.ReadDCS(dcs), group);
        mapping.m_CodingGroup = group;
        EXPECT_EQ(mapping.ReadClass(dcs), messageClass);
        EXPECT_EQ(mapping.ReadAlphabet(dcs), alphabet);
    }
}

TEST(Decode, LiteralDataCodings) {
    const struct {
        int dcs;
        int group;
        int messageClass;
        int alphabet;
    } rows[] = {{0xF4, 4, 0, 1}, {0x10, 0, 0, 0}, {0x00, 0, 4, 0}, {0x0C, 0, 4, 3},
                {0xC0, 1, 4, 0}, {0xE0, 3, 4, 2}, {0xD4, 2, 4, 0}, {0x19, 0, 1, 2},
                {0xBF, 0, 3, 3}, {0xFB, 4, 3, 0}, {0x20, 0, 4, 0}};
    for (const auto& row : rows) {
        PduDecoder decoder;
        decoder.m_CodingGroup = decoder.ReadDCS(row.dcs);
        EXPECT_EQ(decoder.m_CodingGroup, row.group) << row.dcs;
        EXPECT_EQ(decoder.ReadClass(row.dcs), row.messageClass) << row.dcs;
        EXPECT_EQ(decoder.ReadAlphabet(row.dcs), row.alphabet) << row.dcs;
    }
}

TEST(ReadClass, UsesTheCodingGroupThatIsSetAlready) {
    PduDecoder decoder;
    decoder.m_CodingGroup = 4;
    EXPECT_EQ(decoder.ReadClass(0x02), 2);
    EXPECT_EQ(decoder.ReadAlphabet(0x04), 1);
    decoder.m_CodingGroup = 2;
    EXPECT_EQ(decoder.ReadClass(0x12), 4);
    EXPECT_EQ(decoder.ReadAlphabet(0x08), 0);
}

TEST(ReadSmsType, LooksAtTheLowTwoBits) {
    PduDecoder decoder;
    for (int first = 0; first <= 0xFF; ++first) {
        const int types[] = {2, 1, 3, 0};
        EXPECT_EQ(decoder.ReadSmsType(first), types[first % 4]);
    }
}

TEST(ReadStatus, EveryOctet) {
    PduDecoder decoder;
    const struct {
        int octet;
        int status;
    } rows[] = {{0x00, 0},  {0x01, 1},  {0x02, 2},  {0x20, 3},  {0x21, 4},  {0x22, 5},  {0x23, 6},
                {0x24, 7},  {0x25, 8},  {0x40, 9},  {0x41, 10}, {0x42, 11}, {0x43, 12}, {0x44, 7},
                {0x45, 13}, {0x46, 14}, {0x47, 15}, {0x48, 16}, {0x49, 17}};
    for (int octet = 0; octet <= 0xFF; ++octet) {
        int expected = 18;
        for (const auto& row : rows)
            if (row.octet == octet)
                expected = row.status;
        EXPECT_EQ(decoder.ReadStatus(static_cast<unsigned char>(octet)), expected) << octet;
    }
}

TEST(Decode, ResetsNothing) {
    PduDecoder decoder;
    ASSERT_EQ(Decode(decoder, tests::c_part), 1);
    ASSERT_EQ(Decode(decoder, tests::c_submit), 1);
    EXPECT_EQ(decoder.m_Originator, L"1234");
    EXPECT_EQ(decoder.m_ConcatReference, 0x2A);
    EXPECT_EQ(decoder.m_ConcatTotal, 3);
    EXPECT_EQ(decoder.m_ConcatSequence, 2);
    EXPECT_EQ(decoder.m_ServiceCentreTime->ToString(), "2012-02-13T12:34:56");

    ASSERT_EQ(Decode(decoder, tests::c_report), 1);
    EXPECT_EQ(decoder.m_ReplyPath, 1) << "a status report has none";
    EXPECT_EQ(decoder.m_StatusReport, 1);
    EXPECT_EQ(decoder.m_Text, L"Hi");
    EXPECT_EQ(decoder.m_ValidityPeriod, 0xA7);

    ASSERT_EQ(Decode(decoder, "00 00 04 81 21 43 00 00 21 31 31 21 43 65 00 00"), 1);
    EXPECT_EQ(decoder.m_ServiceCentreTime->ToString(), "2012-02-13T12:34:56+02:00")
        << "month 13 keeps the old time";
    EXPECT_EQ(decoder.m_Text, L"");
}

TEST(Decode, OctetsOutsideTheArrayReadAsZero) {
    Bytes octets = Octets(Deliver("00 00", "04", "FF"));
    octets.insert(octets.begin() + 8, 0, 0);
    Toolkit::smart_ptr<Pdu> pdu = MakePdu(octets + Bytes(512 - octets.size(), 0x41));
    pdu->m_Length = 600;
    PduDecoder decoder;
    ASSERT_EQ(decoder.Decode(pdu, false, false), 1);
    EXPECT_EQ(decoder.m_Text, TString<wchar_t>(255, L'A'));

    // A service-centre address of 255 octets and a recipient of 255 digits push the user data to the array's
    // end.
    Bytes far = Bytes{0xFF, 0x81} + Bytes(254, 0x21) + Bytes{0x00, 0xFF, 0x81} + Bytes(128, 0x21) +
                Octets("00 04 21 20 31 21 43 65 00 FF");
    far = far + Bytes(512 - far.size(), 0x42);
    pdu = MakePdu(far);
    pdu->m_Length = 0xFFFFFFF0;
    ASSERT_EQ(decoder.Decode(pdu, false, false), 1);
    const std::size_t start = 2 + 254 + 3 + 128 + 10;
    EXPECT_EQ(decoder.m_Text,
              TString<wchar_t>(512 - start, L'B') + TString<wchar_t>(255 - (512 - start), L'\0'));
    pdu->m_Bytes[388] = 0x08;
    ASSERT_EQ(decoder.Decode(pdu, false, false), 1);
    EXPECT_EQ(decoder.m_Text,
              TString<wchar_t>(57, L'\x4242') + TString<wchar_t>(1, L'\x4200') + TString<wchar_t>(70, L'\0'))
        << "115 octets";
    pdu->m_Bytes[388] = 0x00;
    ASSERT_EQ(decoder.Decode(pdu, false, false), 1);
    EXPECT_EQ(decoder.m_Text.size(), 255U);
    EXPECT_EQ(decoder.m_Text.back(), L'@');
}

TEST(Decode, GivesBackTheSharesItTakes) {
    const Toolkit::smart_ptr<Pdu> pdu = MakePdu(tests::c_deliver);
    PduDecoder decoder;
    ASSERT_EQ(decoder.Decode(pdu, false, false), 1);
    EXPECT_EQ(tests::CountOf(pdu), 1);
    EXPECT_EQ(tests::CountOf(decoder.m_CharSet), 1);
    EXPECT_EQ(tests::CountOf(decoder.m_ServiceCentreTime), 1);
}

TEST(Decode, LeaksNothingWhereverAnAllocationFails) {
    for (const char* sample : tests::c_samples) {
        const Toolkit::smart_ptr<Pdu> pdu = MakePdu(sample);
        for (unsigned long n = 1;; ++n) {
            const unsigned long open = tests::Allocations() - tests::Deallocations();
            bool failed = false;
            {
                PduDecoder decoder;
                const tests::FailAllocation fail(n);
                try {
                    EXPECT_EQ(decoder.Decode(pdu, false, false), 1);
                } catch (const std::bad_alloc&) {
                    failed = true;
                }
            }
            EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open + (failed ? 1 : 0)) << sample << n;
            EXPECT_EQ(tests::CountOf(pdu), 1);
            if (!failed)
                break;
        }
    }
}

} // namespace
