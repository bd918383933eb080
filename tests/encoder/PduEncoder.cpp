// Settings and address encoding.
#include <algorithm>
#include <ctime>
#include <optional>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "encoder/OpenEncoder.h"
#include "support/Allocations.h"
#include "support/Bits.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::Octets;
using tests::OpenEncoder;
using tests::operator+;

static_assert(!std::is_convertible_v<PduEncoder*, PduCommon*>, "the record is not public");
static_assert(!std::is_copy_constructible_v<PduEncoder> && std::has_virtual_destructor_v<PduEncoder>);

TEST(PduEncoder, ClassConstants) {
    EXPECT_EQ(PduEncoder::MAX_7BITDATA_LEN, 160);
    EXPECT_EQ(PduEncoder::MAX_GSM_LEN_WITH_HEADER, 153);
    EXPECT_EQ(PduEncoder::MAX_DATA_LEN, 140);
    EXPECT_EQ(PduEncoder::MAX_DATA_LEN_WITH_HEADER, 134);
    EXPECT_EQ(PduEncoder::USER_DATA_HEADER_SIZE, 6);
    EXPECT_EQ(PduEncoder::_7BITDATA_HEADER_SIZE, 7);
    const int* address = &PduEncoder::MAX_DATA_LEN; // exported objects, not only values
    EXPECT_EQ(*address, 140);
}

TEST(PduEncoder, StartsEmpty) {
    const auto before = static_cast<unsigned char>(std::time(nullptr));
    const OpenEncoder encoder(2);
    const auto after = static_cast<unsigned char>(std::time(nullptr));
    EXPECT_EQ(encoder.m_SmsType, 2);
    for (const auto* bytes : {&encoder.m_SmscBytes, &encoder.m_RecipientBytes, &encoder.m_OriginatorBytes,
                              &encoder.m_GsmBytes, &encoder.m_PartBytes})
        EXPECT_EQ(bytes->get(), nullptr);
    for (const unsigned int length : {encoder.m_SmscLength, encoder.m_RecipientLength,
                                      encoder.m_OriginatorLength, encoder.m_GsmLength, encoder.m_PartLength})
        EXPECT_EQ(length, 0U);
    EXPECT_EQ(encoder.m_SmscLenient, 0);
    EXPECT_EQ(encoder.m_UseConcatHeader, 1);
    EXPECT_LE(static_cast<unsigned char>(encoder.m_ReferenceCounter - before),
              static_cast<unsigned char>(after - before))
        << "the low 8 bits of the calendar time";
}

TEST(PduEncoder, OwnMembersLieInTheirBindingOrder) {
    const OpenEncoder e;
    const void* members[] = {&e.m_CharSet,          &e.m_SmscBytes,        &e.m_SmscLength,
                             &e.m_SmscLenient,      &e.m_RecipientBytes,   &e.m_RecipientLength,
                             &e.m_OriginatorBytes,  &e.m_OriginatorLength, &e.m_PartCapacity,
                             &e.m_UseConcatHeader,  &e.m_GsmLength,        &e.m_GsmBytes,
                             &e.m_ReferenceCounter, &e.m_PartBytes,        &e.m_PartLength};
    for (std::size_t i = 1; i < std::size(members); ++i)
        EXPECT_LT(reinterpret_cast<std::uintptr_t>(members[i - 1]),
                  reinterpret_cast<std::uintptr_t>(members[i]))
            << i;
}

TEST(PduEncoder, FreesItsOctetsInTheirOrderAndBeforeTheRecord) {
    std::optional<OpenEncoder> encoder(std::in_place);
    encoder->SetText(L"a text of more characters than a string holds inside");
    encoder->SetSmsc(L"+1", false);
    encoder->SetRecipient(L"+2");
    std::vector<Toolkit::smart_ptr<Encoding::Pdu>> pdus;
    encoder->Encode(pdus);
    encoder->m_Originator = L"+3";
    encoder->SetSmSType(MessageTypeIndicator::TP_MTI_SMS_DELIVER);
    encoder->Encode(pdus);
    const std::vector<const void*> expected = {encoder->m_SmscBytes.get(), encoder->m_RecipientBytes.get(),
                                               encoder->m_OriginatorBytes.get(), encoder->m_GsmBytes.get(),
                                               encoder->m_PartBytes.get()};
    ASSERT_EQ(std::count(expected.begin(), expected.end(), nullptr), 0);
    const tests::NoteDeallocations notes;
    encoder.reset();
    ASSERT_GT(notes.m_Count, expected.size());
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), notes.m_Memory.begin()));
}

TEST(PduEncoder, SettersStoreTheirArgument) {
    OpenEncoder encoder;
    encoder.SetClass(MessageClass::CLASS_2);
    EXPECT_EQ(encoder.m_Class, 2);
    encoder.SetClass(static_cast<MessageClass::Class>(-9));
    EXPECT_EQ(encoder.m_Class, -9);
    encoder.SetSmSType(MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT);
    EXPECT_EQ(encoder.m_SmsType, 3);
    encoder.SetRequireStatusReport(true);
    EXPECT_EQ(encoder.m_StatusReport, 1);
    encoder.SetRequireStatusReport(false);
    EXPECT_EQ(encoder.m_StatusReport, 0);
    encoder.SetReject_Duplicates(true);
    EXPECT_EQ(encoder.m_RejectDuplicates, 1);
    encoder.SetReject_Duplicates(false);
    EXPECT_EQ(encoder.m_RejectDuplicates, 0);
    encoder.SetReplyPath(true);
    EXPECT_EQ(encoder.m_ReplyPath, 1);
    encoder.SetReplyPath(false);
    EXPECT_EQ(encoder.m_ReplyPath, 0);
    encoder.SetMessageReference(0x12345);
    EXPECT_EQ(encoder.m_MessageReference, 0x12345);
    encoder.SetHeader(300, -2, 9);
    EXPECT_EQ(encoder.m_ConcatReference, 300);
    EXPECT_EQ(encoder.m_ConcatTotal, -2);
    EXPECT_EQ(encoder.m_ConcatSequence, 9);
    encoder.RemoveHeader();
    EXPECT_EQ(encoder.m_ConcatReference, 300);
    EXPECT_EQ(encoder.m_ConcatTotal, 0);
    EXPECT_EQ(encoder.m_ConcatSequence, 9);
}

TEST(SetValidityPeriod, TakesTheOctetAsItIs) {
    for (const int octet : {0, 11, 255, 256, -1}) {
        OpenEncoder encoder;
        encoder.SetValidityPeriod(octet);
        EXPECT_EQ(encoder.m_ValidityPeriod, octet);
        EXPECT_EQ(encoder.m_ValidityFormat, 1);
    }
}

TEST(SetValidityPeriod, KnowsTheOctetOfEveryNamedPeriod) {
    const struct {
        int period;
        int octet;
    } rows[] = {{0, 11},  {1, 23},  {2, 71}, {3, 143}, {4, 167},
                {5, 173}, {6, 255}, {7, 0},  {-1, 0},  {0x7FFFFFFF, 0}};
    for (const auto& row : rows) {
        OpenEncoder encoder;
        encoder.m_ValidityPeriod = 99;
        encoder.SetValidityPeriod(static_cast<ValidityPeriod::TP_VP_Period>(row.period));
        EXPECT_EQ(encoder.m_ValidityPeriod, row.octet) << row.period;
        EXPECT_EQ(encoder.m_ValidityFormat, 1);
    }
}

TEST(SetText, EmptyTextIsIgnored) {
    OpenEncoder encoder;
    encoder.SetText(L"one");
    encoder.SetText(L"");
    EXPECT_EQ(encoder.m_Text, L"one");
    encoder.SetText(L"two");
    EXPECT_EQ(encoder.m_Text, L"two");
}

TEST(SetText, WithAlphabetTestsTheMemberAndNotTheArgument) {
    OpenEncoder encoder;
    encoder.SetText(L"one", Alphabet::ALPHABET_UCS2);
    EXPECT_EQ(encoder.m_Text, L"");
    EXPECT_EQ(encoder.m_Alphabet, 0);
    encoder.SetText(L"one");
    encoder.SetText(L"two", Alphabet::ALPHABET_UCS2);
    EXPECT_EQ(encoder.m_Text, L"two");
    EXPECT_EQ(encoder.m_Alphabet, 2);
    encoder.SetText(L"", Alphabet::ALPHABET_8BIT);
    EXPECT_EQ(encoder.m_Text, L"");
    EXPECT_EQ(encoder.m_Alphabet, 1);
    encoder.SetText(L"three", Alphabet::ALPHABET_GSM7);
    EXPECT_EQ(encoder.m_Text, L"");
}

TEST(SetSmsc, EmptyNumberIsIgnoredTogetherWithTheFlag) {
    OpenEncoder encoder;
    encoder.SetSmsc(L"", true);
    EXPECT_EQ(encoder.m_SmscLenient, 0);
    encoder.SetSmsc(L"+12", false);
    encoder.SetSmsc(L"", true);
    EXPECT_EQ(encoder.m_Smsc, L"+12");
    EXPECT_EQ(encoder.m_SmscLenient, 0);
    encoder.SetSmsc(L"34", true);
    EXPECT_EQ(encoder.m_Smsc, L"34");
    EXPECT_EQ(encoder.m_SmscLenient, 1);
    encoder.SetSmsc(L"", false);
    EXPECT_EQ(encoder.m_SmscLenient, 1);
    encoder.SetSmsc(L"34", false);
    EXPECT_EQ(encoder.m_SmscLenient, 0);
}

TEST(SetRecipient, EmptyNumberIsIgnored) {
    OpenEncoder encoder;
    encoder.SetRecipient(L"1");
    encoder.SetRecipient(L"");
    EXPECT_EQ(encoder.m_Recipient, L"1");
}

TEST(TranslateTable, OperationsReachTheEncodersOwnCharacterSet) {
    OpenEncoder encoder;
    const OpenEncoder other;
    EXPECT_EQ(encoder.FindTable(TranslateTable::GREEK), 0);
    encoder.AddTranslateTable(TranslateTable::GREEK);
    EXPECT_NE(encoder.FindTable(TranslateTable::GREEK), 0);
    EXPECT_TRUE(encoder.m_CharSet->FindTable(TranslateTable::GREEK));
    EXPECT_FALSE(other.m_CharSet->FindTable(TranslateTable::GREEK));
    encoder.ClearTranslateTable();
    EXPECT_EQ(encoder.FindTable(TranslateTable::GREEK), 0);
    EXPECT_EQ(tests::CountOf(encoder.m_CharSet), 1) << "every share is given back";
}

TEST(TranslateTable, ShareIsGivenBackWhenTheCallThrows) {
    OpenEncoder encoder;
    {
        const tests::FailAllocation fail(1);
        EXPECT_THROW(encoder.AddTranslateTable(TranslateTable::GREEK), std::bad_alloc);
    }
    EXPECT_EQ(tests::CountOf(encoder.m_CharSet), 1);
    EXPECT_EQ(encoder.FindTable(TranslateTable::GREEK), 0);
}

TEST(EncodeNumber, WritesAddressOctets) {
    const struct {
        const wchar_t* number;
        bool lenient;
        const char* octets;
        int ton;
    } rows[] = {
        {L"+4179123", false, "91 14 97 21 F3", 2},
        {L"0049 171-5", false, "81 00 94 71 51", 1},
        {L"+12", true, "91 10 F2", 2},
        {L"+12", false, "91 21", 2},
        {L"abc", false, "81", 1},
        {L"+", false, "91", 2},
        {L"+", true, "91 F0", 2},
        {L"++12", false, "91 21", 2},
        {L"++12", true, "91 21", 2},
        {L"1+2", false, "81 21", 1},
        {L"1+2", true, "81 F2", 1},
        {L"12+3", true, "81 21 30", 1},
        {L"1+", true, "81", 1},
        {L" +12", false, "81 21", 1},
        {L" +12", true, "81 10 F2", 1},
        {L"1*#2", false, "81 21", 1},
        {L"/0:9", false, "81 90", 1},
        {L"5", false, "81 F5", 1},
        {L"９\x10031\x31", false, "81 F1", 1},
    };
    for (const auto& row : rows) {
        OpenEncoder encoder;
        EXPECT_EQ(tests::Hex(encoder.Number(row.number, row.lenient)), row.octets);
        EXPECT_EQ(encoder.m_NumberResult, 1);
        EXPECT_EQ(encoder.m_NumberTon, row.ton);
    }
}

TEST(EncodeNumber, FailsForAnEmptyNumber) {
    OpenEncoder encoder;
    unsigned int length = 7;
    unsigned char octet = 0;
    unsigned char* octets = &octet;
    auto ton = TypeOfNumber::TON_RESERVED;
    EXPECT_EQ(encoder.EncodeNumber(L"", true, &length, &octets, ton), 0);
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(octets, nullptr);
    EXPECT_EQ(ton, 1);
}

TEST(EncodeNumber, HoldsAtMost507Digits) {
    const struct {
        std::size_t digits;
        std::size_t octets;
        unsigned char last;
    } rows[] = {{505, 254, 0xF1}, {506, 254, 0x21}, {507, 255, 0xF1},
                {508, 255, 0xF1}, {509, 255, 0xF1}, {900, 255, 0xF1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.digits);
        TString<wchar_t> number;
        for (std::size_t i = 0; i < row.digits; ++i)
            number += i % 2 == 0 ? L'1' : L'2';
        OpenEncoder encoder;
        const Bytes octets = encoder.Number(number);
        ASSERT_EQ(octets.size(), row.octets);
        EXPECT_EQ(octets, Bytes{0x81} + Bytes(row.octets - 2, 0x21) + Bytes{row.last});
        EXPECT_EQ(encoder.m_NumberResult, 1);
    }
}

TEST(EncodeNumber, LenientPlusAtTheLimit) {
    // 507 digits fill everything; a plus sign takes the pending one back, and nothing is left to be written.
    const TString<wchar_t> number = TString<wchar_t>(506, L'1') + L"2+";
    OpenEncoder encoder;
    EXPECT_EQ(encoder.Number(number, true), Bytes{0x81} + Bytes(253, 0x11));
    EXPECT_EQ(encoder.Number(TString<wchar_t>(506, L'1') + L"+", true),
              Bytes{0x81} + Bytes(253, 0x11) + Bytes{0xF0});
    // The 508th digit ends the walk: what follows it takes nothing back.
    EXPECT_EQ(encoder.Number(TString<wchar_t>(508, L'1') + L"+", true),
              Bytes{0x81} + Bytes(253, 0x11) + Bytes{0xF1});
}

TEST(EncodeNumber, AllocatesOneArrayThatTheCallerOwns) {
    OpenEncoder encoder;
    const TString<wchar_t> number = L"+4179123";
    const unsigned long before = tests::Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    unsigned int length = 0;
    unsigned char* octets = nullptr;
    TypeOfNumber::TON ton{};
    encoder.EncodeNumber(number, false, &length, &octets, ton);
    EXPECT_EQ(tests::Allocations() - before, 1U);
    EXPECT_EQ(tests::AllocatedBytes() - bytes, 256U);
    for (unsigned int i = length; i < 256; ++i)
        EXPECT_EQ(octets[i], 0);
    delete[] octets;
}

} // namespace
