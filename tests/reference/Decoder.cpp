// PduDecoder and CBMDecoder beside the model.
#include "model/Decoder.h"

#include <new>
#include <string>

#include <gtest/gtest.h>

#include "Bridge.h"
#include "Cases.h"
#include "Encoding/CBMDecoder.h"
#include "Encoding/PduDecoder.h"
#include "Inputs.h"
#include "decoder/Samples.h"
#include "support/Octets.h"

namespace reference {
namespace {

using Encoding::PduDecoder;
using Toolkit::smart_ptr;

model::Record RecordOf(const Encoding::PduCommon& common) {
    model::Record record;
    record.smsc = TextOf(common.m_Smsc);
    record.originator = TextOf(common.m_Originator);
    record.recipient = TextOf(common.m_Recipient);
    record.smscNpi = common.m_SmscNpi;
    record.smscTon = common.m_SmscTon;
    record.numberNpi = common.m_NumberNpi;
    record.numberTon = common.m_NumberTon;
    record.smsType = common.m_SmsType;
    record.replyPath = common.m_ReplyPath;
    record.hasUserDataHeader = common.m_HasUserDataHeader;
    record.statusReport = common.m_StatusReport;
    record.validityFormat = common.m_ValidityFormat;
    record.rejectDuplicates = common.m_RejectDuplicates;
    record.messageReference = common.m_MessageReference;
    record.protocolId = common.m_ProtocolId;
    record.dataCoding = common.m_DataCoding;
    record.validityPeriod = common.m_ValidityPeriod;
    record.validityTime = TimeOf(common.m_ValidityTime);
    record.dischargeTime = TimeOf(common.m_DischargeTime);
    record.serviceCentreTime = TimeOf(common.m_ServiceCentreTime);
    record.userDataLength = common.m_UserDataLength;
    record.status = common.m_Status;
    record.codingGroup = common.m_CodingGroup;
    record.messageClass = common.m_Class;
    record.alphabet = common.m_Alphabet;
    record.text = TextOf(common.m_Text);
    record.workText = TextOf(common.m_WorkText);
    record.concatReference = common.m_ConcatReference;
    record.concatTotal = common.m_ConcatTotal;
    record.concatSequence = common.m_ConcatSequence;
    return record;
}

/// A null pointer now and then.
struct OptionalPdu {
    OptionalPdu(Random& random, const model::Pdu& pdu) : m_IsNull(random.Below(1000) == 0), m_Pdu(pdu) {}
    const model::Pdu* Model() const { return m_IsNull ? nullptr : &m_Pdu; }
    smart_ptr<Encoding::Pdu> Library() const {
        return m_IsNull ? smart_ptr<Encoding::Pdu>() : LibraryPdu(m_Pdu);
    }
    std::string Text() const { return m_IsNull ? "null" : Show(m_Pdu); }

private:
    bool m_IsNull;
    const model::Pdu& m_Pdu;
};

TEST(ReferenceDecoder, ReadNumber) {
    PduDecoder decoder;
    RunCases(ADDRESSES, [&decoder](Random& random) {
        std::uint32_t offset = 0;
        const bool semiOctets = random.Chance(60);
        const model::Pdu octets = RandomAddressPdu(random, offset, semiOctets);
        const OptionalPdu pdu(random, octets);

        TString<wchar_t> number = L"before";
        model::Text expectedNumber = U"before";
        auto npi = Encoding::NumberingPlan::NPI_TELEX;
        auto ton = Encoding::TypeOfNumber::TON_RESERVED;
        int expectedNpi = npi;
        int expectedTon = ton;
        const unsigned int end = decoder.ReadNumber(pdu.Library(), offset, semiOctets, number, npi, ton);
        const std::uint32_t expectedEnd =
            model::ReadNumber(pdu.Model(), offset, semiOctets, expectedNumber, expectedNpi, expectedTon);
        return Between(Line("end", end, expectedEnd) + Line("number", TextOf(number), expectedNumber) +
                           Line("npi", int{npi}, expectedNpi) + Line("ton", int{ton}, expectedTon),
                       pdu.Text() + " offset " + Show(offset) + (semiOctets ? " semi-octets" : " octets"));
    });
}

TEST(ReferenceDecoder, ReadTimeStamp) {
    PduDecoder decoder;
    RunCases(TIME_STAMPS, [&decoder](Random& random) {
        std::uint32_t offset = 0;
        const model::Pdu octets = RandomTimeStampPdu(random, offset);
        const OptionalPdu pdu(random, octets);
        const bool ignoreTimeZone = random.Chance(20);

        smart_ptr<Toolkit::DateTime> time;
        std::optional<model::Time> expectedTime;
        const unsigned int end = decoder.ReadTimeStamp(pdu.Library(), offset, time, ignoreTimeZone);
        const std::uint32_t expectedEnd =
            model::ReadTimeStamp(pdu.Model(), offset, expectedTime, ignoreTimeZone);
        return Between(Line("end", end, expectedEnd) + Line("time", TimeOf(time), expectedTime),
                       pdu.Text() + " offset " + Show(offset));
    });
}

/// Most random messages are worth decoding, but not all.
TEST(ReferenceDecoder, RandomMessagesComeFar) {
    Random random(1);
    int decoded = 0;
    constexpr int rounds = 10000;
    for (int round = 0; round < rounds; ++round) {
        const Message message = RandomMessage(random);
        model::Record record;
        decoded += model::Decode(record, &message.pdu, message.noSmsc, false);
    }
    EXPECT_GT(decoded, rounds / 3);
    EXPECT_LT(decoded, rounds * 9 / 10);
}

/// Decodes one message by both.
std::string DecodeByBoth(Random& random, PduDecoder& decoder, model::Record& record, std::string& input) {
    const Message message = RandomMessage(random);
    const OptionalPdu pdu(random, message.pdu);
    const bool ignoreTimeZone = random.Chance(10);
    const int result = decoder.Decode(pdu.Library(), message.noSmsc, ignoreTimeZone);
    const int expected = model::Decode(record, pdu.Model(), message.noSmsc, ignoreTimeZone);
    input += pdu.Text() + (message.noSmsc ? " without" : " with") + " service centre";
    return Line("result", result, expected) + Lines(RecordOf(decoder), record);
}

TEST(ReferenceDecoder, FreshDecoder) {
    RunCases(FRESH_DECODER, [](Random& random) {
        PduDecoder decoder;
        model::Record record;
        std::string input;
        const std::string lines = DecodeByBoth(random, decoder, record, input);
        return Between(lines, input);
    });
}

TEST(ReferenceDecoder, ReusedDecoderKeepsWhatIsNotInTheMessage) {
    RunCases(REUSED_DECODER, [](Random& random) {
        PduDecoder decoder;
        model::Record record;
        std::string input;
        std::string lines;
        for (std::uint32_t messages = random.Between(2, 5); messages > 0 && lines.empty(); --messages) {
            input += "\n  ";
            lines = DecodeByBoth(random, decoder, record, input);
        }
        return Between(lines, input);
    });
}

TEST(ReferenceDecoder, EveryValueInEveryOctetOfTheSamples) {
    for (const char* const sample : tests::c_samples) {
        const model::Octets octets = tests::Octets(sample);
        for (std::size_t place = 0; place < octets.size(); ++place) {
            for (unsigned int value = 0; value < 256; ++value) {
                model::Octets changed = octets;
                changed[place] = static_cast<std::uint8_t>(value);
                const auto pdu = model::Pdu::FromOctets(changed, static_cast<std::uint32_t>(changed.size()));
                PduDecoder decoder;
                model::Record record;
                ASSERT_EQ(decoder.Decode(LibraryPdu(pdu), false, false),
                          model::Decode(record, &pdu, false, false))
                    << Show(pdu);
                ASSERT_EQ(Lines(RecordOf(decoder), record), "") << Show(pdu);
            }
        }
    }
}

TEST(ReferenceDecoder, CellBroadcastPages) {
    RunCases(CELL_BROADCAST, [](Random& random) {
        model::Pdu octets = RandomPage(random);
        if (octets.m_Length > 4096 && octets.m_Length <= 0x80000005)
            octets.m_Length = 4096; // the rule asks for as much memory as is claimed
        const OptionalPdu pdu(random, octets);

        Encoding::CBMDecoder decoder;
        model::CellBroadcastPage expected;
        const model::PageOutcome expectedOutcome = model::DecodePage(expected, pdu.Model());
        model::PageOutcome outcome = model::PageOutcome::OutOfMemory;
        try {
            outcome =
                decoder.Decode(pdu.Library()) ? model::PageOutcome::Decoded : model::PageOutcome::Rejected;
        } catch (const std::bad_alloc&) {
        }
        const auto number = [](auto value) { return std::int64_t{value}; };
        return Between(
            Line("outcome", number(static_cast<int>(outcome)), number(static_cast<int>(expectedOutcome))) +
                Line("serial number", number(decoder.m_SerialNumber), number(expected.serialNumber)) +
                Line("message identifier", number(decoder.m_MessageIdentifier),
                     number(expected.messageIdentifier)) +
                Line("data coding scheme", number(decoder.m_DataCodingScheme),
                     number(expected.dataCodingScheme)) +
                Line("page parameter", number(decoder.m_PageParameter), number(expected.pageParameter)) +
                Line("text", TextOf(decoder.m_Text), expected.text),
            pdu.Text());
    });
}

TEST(ReferenceDecoder, EveryOctetOfTheMappings) {
    PduDecoder decoder;
    for (int octet = 0; octet < 256; ++octet) {
        SCOPED_TRACE(octet);
        EXPECT_EQ(decoder.ReadSmsType(octet), model::ReadSmsType(octet));
        EXPECT_EQ(decoder.ReadStatus(static_cast<unsigned char>(octet)), model::ReadStatus(octet));
        decoder.m_CodingGroup = decoder.ReadDCS(octet);
        EXPECT_EQ(decoder.m_CodingGroup, model::ReadDcs(octet));
        EXPECT_EQ(decoder.ReadClass(octet), model::ReadClass(decoder.m_CodingGroup, octet));
        EXPECT_EQ(decoder.ReadAlphabet(octet), model::ReadAlphabet(decoder.m_CodingGroup, octet));
    }
}

} // namespace
} // namespace reference
