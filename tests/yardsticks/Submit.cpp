// SMS-SUBMIT: what the encoder was told, beside what the dissector reads.
#include <gtest/gtest.h>

#include "Differences.h"
#include "Dissector.h"
#include "Encoding/PduEncoder.h"
#include "reference/Random.h"

namespace yardsticks {
namespace {

using namespace Encoding;
using reference::Random;
using tests::Bytes;

/// One message as it was asked for.
struct Order {
    std::u32string text;
    std::u32string number;
    int reference;
    int validity;     ///< the octet, or -1
    int messageClass; ///< 0 to 4
    bool report;
    bool rejectDuplicates;
    bool replyPath;
};

/// A text of one to a few parts, of characters that go out in one way only.
std::u32string RandomOrderText(Random& random) {
    static const std::u32string gsm = U"@£$¥èéùìò\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
                                      U"¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüàç";
    static const std::u32string extension = U"\f^{}\\[~]|€";
    const bool isUcs2 = random.Chance(30);
    const std::uint32_t length = random.Chance(70) ? random.Between(1, 170) : random.Between(1, 700);
    std::u32string text;
    while (text.size() < length) {
        if (isUcs2 && random.Chance(60))
            text += random.Between(0x0400, 0x4FFF);
        else if (random.Chance(10))
            text += extension[random.Below(static_cast<std::uint32_t>(extension.size()))];
        else
            text += gsm[random.Below(static_cast<std::uint32_t>(gsm.size()))];
    }
    return text;
}

Order RandomOrder(Random& random) {
    Order order;
    order.text = RandomOrderText(random);
    if (random.Chance(50))
        order.number = U"+";
    for (std::uint32_t digits = random.Between(1, 20); digits > 0; --digits)
        order.number += U'0' + random.Below(10);
    order.reference = random.Octet();
    order.validity = random.Chance(50) ? random.Octet() : -1;
    order.messageClass = static_cast<int>(random.Below(5));
    order.report = random.Chance(30);
    order.rejectDuplicates = random.Chance(30);
    order.replyPath = random.Chance(30);
    return order;
}

TString<wchar_t> Wide(const std::u32string& text) {
    return {text.begin(), text.end()};
}

/// The TPDUs of a message, without the service centre's octet before them.
std::vector<Bytes> Encode(const Order& order) {
    PduEncoder encoder(MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    encoder.SetRecipient(Wide(order.number));
    encoder.SetText(Wide(order.text));
    encoder.SetMessageReference(order.reference);
    if (order.validity >= 0)
        encoder.SetValidityPeriod(order.validity);
    encoder.SetClass(static_cast<MessageClass::Class>(order.messageClass));
    encoder.SetRequireStatusReport(order.report);
    encoder.SetReject_Duplicates(order.rejectDuplicates);
    encoder.SetReplyPath(order.replyPath);
    std::vector<Toolkit::smart_ptr<Pdu>> pdus;
    encoder.Encode(pdus);
    std::vector<Bytes> tpdus;
    for (const auto& pdu : pdus)
        tpdus.emplace_back(pdu->m_Bytes + 1, pdu->m_Bytes + pdu->m_Length);
    return tpdus;
}

/// What every part says of the message.
void ExpectOptions(const Order& order, const Fields& part, bool isFirst) {
    EXPECT_EQ(Number(part, "tp-mti"), 1);
    EXPECT_EQ(Number(part, "tp-rd"), order.rejectDuplicates);
    EXPECT_EQ(Number(part, "tp-srr"), order.report && isFirst) << "a report is asked for once";
    EXPECT_EQ(Number(part, "tp-rp"), order.replyPath);
    EXPECT_EQ(Number(part, "tp-mr"), order.reference);
    EXPECT_EQ(Number(part, "tp-pid"), 0);
    EXPECT_EQ(Number(part, "tp-vpf"), order.validity < 0 ? 0 : 2);
    EXPECT_EQ(Number(part, "vp_validity_period"), order.validity);
    const bool isInternational = order.number[0] == U'+';
    EXPECT_EQ(Number(part, "dis_field_addr_num_type"), isInternational);
    EXPECT_EQ(Number(part, "dis_field_addr_num_plan"), 1);
    EXPECT_EQ(Text(part, "tp-da"), order.number.substr(isInternational));
    const long dcs = Number(part, "tp-dcs");
    EXPECT_EQ(dcs & 0x13, order.messageClass == 4 ? 0 : 0x10 + order.messageClass);
    EXPECT_TRUE((dcs & 0xEC) == 0x00 || (dcs & 0xEC) == 0x08);
}

TEST(Yardsticks, SubmitReadsAsItWasAskedFor) {
    Random random(Seed());
    std::vector<Order> orders;
    std::vector<std::size_t> parts;
    std::vector<Bytes> messages;
    while (messages.size() < MessageCount()) {
        orders.push_back(RandomOrder(random));
        const std::vector<Bytes> tpdus = Encode(orders.back());
        parts.push_back(tpdus.size());
        for (const Bytes& tpdu : tpdus)
            messages.push_back(FromMobile(tpdu));
    }
    const std::vector<Fields> dissected = DissectSms(messages);

    std::size_t next = 0;
    for (std::size_t i = 0; i < orders.size(); ++i) {
        const Order& order = orders[i];
        std::vector<std::u32string> texts;
        for (std::size_t part = 0; part < parts[i]; ++part, ++next) {
            const Fields& fields = dissected[next];
            SCOPED_TRACE(tests::Hex(messages[next]));
            ExpectOptions(order, fields, part == 0);
            EXPECT_EQ(Number(fields, "tp-udhi"), parts[i] > 1);
            if (parts[i] > 1) {
                EXPECT_EQ(Number(fields, "udh_mm_msg_parts"), static_cast<long>(parts[i]));
                EXPECT_EQ(Number(fields, "udh_mm_msg_part"), static_cast<long>(part + 1));
                EXPECT_EQ(Number(fields, "udh_mm_msg_id"), Number(dissected[next - part], "udh_mm_msg_id"));
            }
            texts.push_back(Text(fields, "sms_text"));
        }
        EXPECT_TRUE(IsSameSentText(order.text, texts))
            << "asked  " << Shown(order.text) << "\ntheirs " << Shown(Joined(texts));
        ASSERT_FALSE(testing::Test::HasFailure()) << "message " << i;
    }
}

} // namespace
} // namespace yardsticks
