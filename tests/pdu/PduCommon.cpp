// The record of fields, its enumerations, and the two number conversions.
#include "Encoding/PduCommon.h"

#include <cstdint>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;

static_assert(std::has_virtual_destructor_v<PduCommon>);
static_assert(sizeof(MessageClass::Class) == 4 && sizeof(TypeOfNumber::TON) == 4);

TEST(Fields, ValuesAreBinding) {
    EXPECT_EQ(MessageTypeIndicator::TP_MTI_UNKNOWN, 0);
    EXPECT_EQ(MessageTypeIndicator::TP_MTI_SMS_SUBMIT, 1);
    EXPECT_EQ(MessageTypeIndicator::TP_MTI_SMS_DELIVER, 2);
    EXPECT_EQ(MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT, 3);
    EXPECT_EQ(TypeOfNumber::TON_UNKNOWN, 1);
    EXPECT_EQ(TypeOfNumber::TON_INTERNATIONAL, 2);
    EXPECT_EQ(TypeOfNumber::TON_ALPHANUMERIC, 5);
    EXPECT_EQ(TypeOfNumber::TON_RESERVED, 7);
    EXPECT_EQ(NumberingPlan::NPI_UNKNOWN, 0);
    EXPECT_EQ(NumberingPlan::NPI_ISDN, 1);
    EXPECT_EQ(NumberingPlan::NPI_DATA, 2);
    EXPECT_EQ(NumberingPlan::NPI_TELEX, 3);
    EXPECT_EQ(NumberingPlan::NPI_NATIONAL, 4);
    EXPECT_EQ(NumberingPlan::NPI_PRIVATE, 5);
    EXPECT_EQ(NumberingPlan::NPI_ERMES, 6);
    EXPECT_EQ(NumberingPlan::NPI_RESERVED, 7);
    EXPECT_EQ(Alphabet::ALPHABET_GSM7, 0);
    EXPECT_EQ(Alphabet::ALPHABET_8BIT, 1);
    EXPECT_EQ(Alphabet::ALPHABET_UCS2, 2);
    EXPECT_EQ(Alphabet::ALPHABET_RESERVED, 3);
    EXPECT_EQ(MessageClass::CLASS_0, 0);
    EXPECT_EQ(MessageClass::CLASS_1, 1);
    EXPECT_EQ(MessageClass::CLASS_2, 2);
    EXPECT_EQ(MessageClass::CLASS_3, 3);
    EXPECT_EQ(MessageClass::CLASS_NONE, 4);
    EXPECT_EQ(ValidityPeriod::TP_VP_1_HOUR, 0);
    EXPECT_EQ(ValidityPeriod::TP_VP_2_HOURS, 1);
    EXPECT_EQ(ValidityPeriod::TP_VP_6_HOURS, 2);
    EXPECT_EQ(ValidityPeriod::TP_VP_12_HOURS, 3);
    EXPECT_EQ(ValidityPeriod::TP_VP_1_DAY, 4);
    EXPECT_EQ(ValidityPeriod::TP_VP_1_WEEK, 5);
    EXPECT_EQ(ValidityPeriod::TP_VP_MAXIMUM, 6);
    EXPECT_EQ(TranslateTable::GREEK, 1);
}

TEST(PduCommon, StartsWithItsDefaults) {
    const PduCommon record;
    for (const TString<wchar_t>* text :
         {&record.m_Smsc, &record.m_Originator, &record.m_Recipient, &record.m_Text, &record.m_WorkText})
        EXPECT_TRUE(text->empty());
    EXPECT_EQ(record.m_SmscNpi, 0);
    EXPECT_EQ(record.m_SmscTon, 1);
    EXPECT_EQ(record.m_NumberNpi, 0);
    EXPECT_EQ(record.m_NumberTon, 1);
    EXPECT_EQ(record.m_SmsType, 0);
    for (const int value :
         {record.m_ReplyPath, record.m_HasUserDataHeader, record.m_StatusReport, record.m_ValidityFormat,
          record.m_RejectDuplicates, record.m_MessageReference, record.m_ProtocolId, record.m_DataCoding,
          record.m_ValidityPeriod, record.m_UserDataLength, static_cast<int>(record.m_Status),
          record.m_CodingGroup, static_cast<int>(record.m_Alphabet), record.m_ConcatReference,
          record.m_ConcatTotal, record.m_ConcatSequence})
        EXPECT_EQ(value, 0);
    EXPECT_EQ(record.m_Class, 4);
    for (const auto* time : {&record.m_ValidityTime, &record.m_DischargeTime, &record.m_ServiceCentreTime}) {
        EXPECT_EQ(time->get(), nullptr);
        EXPECT_EQ(tests::CountOf(*time), 1);
    }
    ASSERT_NE(record.m_CharSet.get(), nullptr);
    EXPECT_EQ(tests::CountOf(record.m_CharSet), 1);
}

TEST(PduCommon, MembersLieInTheirBindingOrder) {
    const PduCommon r;
    const std::vector<const void*> members = {&r.m_Smsc,
                                              &r.m_Originator,
                                              &r.m_Recipient,
                                              &r.m_SmscNpi,
                                              &r.m_SmscTon,
                                              &r.m_NumberNpi,
                                              &r.m_NumberTon,
                                              &r.m_SmsType,
                                              &r.m_ReplyPath,
                                              &r.m_HasUserDataHeader,
                                              &r.m_StatusReport,
                                              &r.m_ValidityFormat,
                                              &r.m_RejectDuplicates,
                                              &r.m_MessageReference,
                                              &r.m_ProtocolId,
                                              &r.m_DataCoding,
                                              &r.m_ValidityPeriod,
                                              &r.m_ValidityTime,
                                              &r.m_DischargeTime,
                                              &r.m_ServiceCentreTime,
                                              &r.m_UserDataLength,
                                              &r.m_Status,
                                              &r.m_CodingGroup,
                                              &r.m_Class,
                                              &r.m_Alphabet,
                                              &r.m_Text,
                                              &r.m_WorkText,
                                              &r.m_ConcatReference,
                                              &r.m_ConcatTotal,
                                              &r.m_ConcatSequence,
                                              &r.m_CharSet};
    for (std::size_t i = 1; i < members.size(); ++i)
        EXPECT_LT(reinterpret_cast<std::uintptr_t>(members[i - 1]),
                  reinterpret_cast<std::uintptr_t>(members[i]))
            << "member " << i;
}

TEST(PduCommon, EveryObjectHasACharacterSetOfItsOwn) {
    const PduCommon one;
    const PduCommon other;
    EXPECT_NE(one.m_CharSet.get(), other.m_CharSet.get());
    one.m_CharSet->AddTranslateTable(TranslateTable::GREEK);
    EXPECT_FALSE(other.m_CharSet->FindTable(TranslateTable::GREEK));
}

TEST(PduCommon, GivesBackEverythingWhenConstructionFailsAtAnyAllocation) {
    for (unsigned long n = 1;; ++n) {
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool failed = false;
        {
            const tests::FailAllocation fail(n);
            try {
                const PduCommon record;
            } catch (const std::bad_alloc&) {
                failed = true;
            }
        }
        EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open + (failed ? 1 : 0))
            << "allocation " << n;
        if (!failed) {
            EXPECT_GT(n, 10U);
            return;
        }
    }
}

TEST(HexaToInt, ReadsTwoDigitsAndStopsAtNul) {
    const struct {
        const char* digits;
        unsigned int value;
    } rows[] = {{"ff", 255},  {"FF", 255},  {"Ff", 255},  {"", 0},      {"1", 0x10},  {"A", 0xA0},
                {"G1", 0x01}, {"1G", 0x10}, {"09", 9},    {"90", 0x90}, {"a0", 0xA0}, {"0F", 0x0F},
                {"/0", 0},    {":9", 9},    {"@A", 0x0A}, {"`f", 0x0F}, {"g7", 7},    {"123", 0x12}};
    for (const auto& row : rows)
        EXPECT_EQ(PduCommon::HexaToInt(reinterpret_cast<const unsigned char*>(row.digits)), row.value)
            << row.digits;
    const unsigned char behindNul[] = {0, 'A'};
    EXPECT_EQ(PduCommon::HexaToInt(behindNul), 0U);
}

TEST(SwapNumber, TakesTheLowSemiOctetAsTens) {
    const struct {
        unsigned char octet;
        int value;
    } rows[] = {{0x00, 0},   {0x99, 99},  {0x10, 1}, {0x01, 10},  {0x21, 12}, {0xF1, 25},
                {0x1F, 151}, {0xFF, 165}, {0x80, 8}, {0x0F, 150}, {0xF0, 15}, {0x59, 95}};
    for (const auto& row : rows)
        EXPECT_EQ(PduCommon::SwapNumber(row.octet), row.value) << static_cast<int>(row.octet);
}

} // namespace
