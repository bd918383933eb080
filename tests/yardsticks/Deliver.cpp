// SMS-DELIVER and SMS-STATUS-REPORT: what the decoder reads, beside what the dissector reads.
#include <gtest/gtest.h>

#include "Differences.h"
#include "Dissector.h"
#include "Encoding/PduDecoder.h"
#include "reference/Random.h"
#include "support/Bits.h"

namespace yardsticks {
namespace {

using namespace Encoding;
using reference::Random;
using tests::Bytes;
using tests::operator+;

unsigned char Digits(std::uint32_t number) {
    return static_cast<unsigned char>(number % 10 * 16 + number / 10);
}

/// Digits of any kind, or letters.
Bytes RandomAddress(Random& random) {
    static const std::vector<unsigned char> types = {0x91, 0x81, 0xA1, 0xB1, 0xC1, 0x83,
                                                     0x84, 0x88, 0x89, 0x8A, 0x8F};
    if (random.Chance(20)) {
        Bytes letters(random.Between(1, 10));
        for (unsigned char& letter : letters)
            letter = static_cast<unsigned char>(random.Chance(70) ? random.Between('A', 'Z')
                                                                  : random.Between(0x20, 0x3F));
        const Bytes packed = tests::LayBits(letters, 0);
        const auto semiOctets = static_cast<unsigned char>((letters.size() * 7 + 3) / 4);
        return Bytes{semiOctets, 0xD0} + packed;
    }
    const std::uint32_t count = random.Between(1, 20);
    Bytes address = {static_cast<unsigned char>(count), random.Of(types)};
    for (std::uint32_t i = 0; i < count; i += 2) {
        const std::uint32_t low = random.Chance(95) ? random.Below(10) : random.Below(15);
        const std::uint32_t high = i + 1 == count ? 15 : random.Below(10);
        address.push_back(static_cast<unsigned char>(high << 4 | low));
    }
    return address;
}

Bytes RandomTime(Random& random) {
    Bytes time = {Digits(random.Below(100)), Digits(random.Between(1, 12)), Digits(random.Between(1, 28)),
                  Digits(random.Below(24)),  Digits(random.Below(60)),      Digits(random.Below(60))};
    time.push_back(static_cast<unsigned char>(Digits(random.Below(56)) | (random.Chance(40) ? 0x08 : 0)));
    return time;
}

Bytes RandomSeptets(Random& random, std::uint32_t most) {
    static const Bytes extension = {0x0A, 0x14, 0x28, 0x29, 0x2F, 0x3C, 0x3D, 0x3E, 0x40, 0x65};
    Bytes septets;
    const std::uint32_t count = random.Below(most);
    while (septets.size() < count) {
        if (random.Chance(8)) {
            septets.push_back(0x1B);
            septets.push_back(random.Of(extension));
        } else {
            const auto septet = static_cast<unsigned char>(random.Below(128));
            septets.push_back(septet == 0x1B ? std::uint8_t{0x20} : septet);
        }
    }
    return septets;
}

/// TP-DCS, TP-SCTS before TP-UDL and the user data, with a header or without.
Bytes RandomBody(Random& random, bool hasHeader, const Bytes& time) {
    static const std::vector<unsigned char> gsm = {0x00, 0x10, 0x11, 0x12, 0x13, 0xF0, 0xF1, 0xF2, 0xF3};
    static const std::vector<unsigned char> ucs2 = {0x08, 0x18, 0x19, 0x1A, 0x1B};
    const auto part = static_cast<unsigned char>(random.Between(1, 3));
    Bytes header;
    if (hasHeader && random.Chance(50))
        header = {5, 0x00, 3, random.Octet(), 3, part};
    else if (hasHeader)
        header = {6, 0x08, 4, random.Octet(), random.Octet(), 3, part};
    if (random.Chance(40)) {
        Bytes text;
        for (std::uint32_t units = random.Between(1, 60); units > 0; --units) {
            text.push_back(static_cast<unsigned char>(random.Between(0x03, 0x4F)));
            text.push_back(random.Octet());
        }
        return Bytes{random.Of(ucs2)} + time +
               Bytes{static_cast<unsigned char>(header.size() + text.size())} + header + text;
    }
    const Bytes septets = RandomSeptets(random, 140);
    const auto fill = static_cast<unsigned int>((7 - header.size() * 8 % 7) % 7);
    const std::size_t headerSeptets = (header.size() * 8 + 6) / 7;
    return Bytes{random.Of(gsm)} + time + Bytes{static_cast<unsigned char>(headerSeptets + septets.size())} +
           header + tests::LayBits(septets, fill);
}

Bytes RandomDeliver(Random& random) {
    const bool hasHeader = random.Chance(40);
    const auto first = static_cast<unsigned char>((random.Octet() & 0xBC) | (hasHeader ? 0x40 : 0));
    return Bytes{first} + RandomAddress(random) + Bytes{0x00} +
           RandomBody(random, hasHeader, RandomTime(random));
}

Bytes RandomReport(Random& random) {
    return Bytes{0x02, random.Octet()} + RandomAddress(random) + RandomTime(random) + RandomTime(random) +
           Bytes{0x00};
}

std::u32string TextOf(const TString<wchar_t>& text) {
    return {text.begin(), text.end()};
}

void ExpectSameTime(const Fields& fields, std::size_t n, const Toolkit::smart_ptr<Toolkit::DateTime>& time) {
    ASSERT_NE(time.get(), nullptr);
    EXPECT_EQ(Number(fields, "scts_year", n), time->GetYear() - 2000);
    EXPECT_EQ(Number(fields, "scts_month", n), time->GetMonth());
    EXPECT_EQ(Number(fields, "scts_day", n), time->GetDay());
    EXPECT_EQ(Number(fields, "scts_hour", n), time->GetHour());
    EXPECT_EQ(Number(fields, "scts_minutes", n), time->GetMinute());
    EXPECT_EQ(Number(fields, "scts_seconds", n), time->GetSecond());
    EXPECT_TRUE(IsSameZone(Number(fields, "scts_timezone", n), *time));
}

void ExpectSameAddress(const Fields& fields, const char* name, const TString<wchar_t>& number,
                       const PduDecoder& decoder) {
    const long type = Number(fields, "dis_field_addr_num_type");
    EXPECT_TRUE(IsSameAddress(type, Text(fields, name), TextOf(number)))
        << "theirs " << Shown(Text(fields, name)) << "\nours   " << Shown(TextOf(number));
    EXPECT_TRUE(IsSameTypeOfNumber(type, decoder.m_NumberTon)) << type;
    EXPECT_TRUE(IsSameNumberingPlan(Number(fields, "dis_field_addr_num_plan"), decoder.m_NumberNpi));
}

TEST(Yardsticks, DeliverIsReadAlike) {
    Random random(Seed());
    std::vector<Bytes> messages(MessageCount());
    std::vector<Bytes> wrapped;
    for (Bytes& message : messages) {
        message = RandomDeliver(random);
        wrapped.push_back(ToMobile(message));
    }
    const std::vector<Fields> dissected = DissectSms(wrapped);
    for (std::size_t i = 0; i < messages.size(); ++i) {
        SCOPED_TRACE(tests::Hex(messages[i]));
        const Fields& fields = dissected[i];
        PduDecoder decoder;
        ASSERT_EQ(decoder.Decode(tests::MakePdu(messages[i]), true, false), 1);
        EXPECT_EQ(Number(fields, "tp-mti"), 0);
        EXPECT_EQ(Number(fields, "tp-rp"), decoder.m_ReplyPath);
        EXPECT_EQ(Number(fields, "tp-udhi"), decoder.m_HasUserDataHeader);
        EXPECT_EQ(Number(fields, "tp-pid"), decoder.m_ProtocolId);
        EXPECT_EQ(Number(fields, "tp-dcs"), decoder.m_DataCoding);
        EXPECT_EQ(Number(fields, "tp_user_data_length"), decoder.m_UserDataLength);
        ExpectSameAddress(fields, "tp-oa", decoder.m_Originator, decoder);
        ExpectSameTime(fields, 0, decoder.m_ServiceCentreTime);
        if (decoder.m_HasUserDataHeader != 0) {
            EXPECT_EQ(Number(fields, "udh_mm_msg_id"), decoder.m_ConcatReference);
            EXPECT_EQ(Number(fields, "udh_mm_msg_parts"), decoder.m_ConcatTotal);
            EXPECT_EQ(Number(fields, "udh_mm_msg_part"), decoder.m_ConcatSequence);
        }
        EXPECT_TRUE(IsSameReceivedText(Text(fields, "sms_text"), TextOf(decoder.m_Text)))
            << "theirs " << Shown(Text(fields, "sms_text")) << "\nours   " << Shown(TextOf(decoder.m_Text));
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

TEST(Yardsticks, StatusReportIsReadAlike) {
    Random random(Seed());
    std::vector<Bytes> messages(MessageCount() / 4);
    std::vector<Bytes> wrapped;
    for (Bytes& message : messages) {
        message = RandomReport(random);
        wrapped.push_back(ToMobile(message));
    }
    const std::vector<Fields> dissected = DissectSms(wrapped);
    for (std::size_t i = 0; i < messages.size(); ++i) {
        SCOPED_TRACE(tests::Hex(messages[i]));
        PduDecoder decoder;
        ASSERT_EQ(decoder.Decode(tests::MakePdu(messages[i]), true, false), 1);
        EXPECT_EQ(Number(dissected[i], "tp-mti"), 2);
        EXPECT_EQ(Number(dissected[i], "tp-mr"), decoder.m_MessageReference);
        ExpectSameAddress(dissected[i], "tp-ra", decoder.m_Recipient, decoder);
        ExpectSameTime(dissected[i], 0, decoder.m_ServiceCentreTime);
        ExpectSameTime(dissected[i], 1, decoder.m_DischargeTime);
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

} // namespace
} // namespace yardsticks
