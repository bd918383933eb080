// PduEncoder beside the model.
#include "model/Encoder.h"

#include <memory>

#include <gtest/gtest.h>

#include "../encoder/OpenEncoder.h"
#include "Bridge.h"
#include "Cases.h"
#include "Inputs.h"

namespace reference {
namespace {

using namespace Encoding;
using tests::OpenEncoder;

model::Octets Copy(const unsigned char* octets, unsigned int count) {
    return octets == nullptr ? model::Octets() : model::Octets(octets, octets + count);
}

model::EncoderState StateOf(const OpenEncoder& encoder) {
    model::EncoderState state;
    state.smsc = TextOf(encoder.m_Smsc);
    state.originator = TextOf(encoder.m_Originator);
    state.recipient = TextOf(encoder.m_Recipient);
    state.smscTon = encoder.m_SmscTon;
    state.numberTon = encoder.m_NumberTon;
    state.smsType = encoder.m_SmsType;
    state.replyPath = encoder.m_ReplyPath;
    state.statusReport = encoder.m_StatusReport;
    state.validityFormat = encoder.m_ValidityFormat;
    state.rejectDuplicates = encoder.m_RejectDuplicates;
    state.messageReference = encoder.m_MessageReference;
    state.protocolId = encoder.m_ProtocolId;
    state.validityPeriod = encoder.m_ValidityPeriod;
    state.messageClass = encoder.m_Class;
    state.alphabet = encoder.m_Alphabet;
    state.text = TextOf(encoder.m_Text);
    state.workText = TextOf(encoder.m_WorkText);
    state.concatReference = encoder.m_ConcatReference;
    state.concatTotal = encoder.m_ConcatTotal;
    state.concatSequence = encoder.m_ConcatSequence;
    state.smscBytes = Copy(encoder.m_SmscBytes.get(), encoder.m_SmscLength);
    state.smscLenient = encoder.m_SmscLenient;
    state.recipientBytes = Copy(encoder.m_RecipientBytes.get(), encoder.m_RecipientLength);
    state.originatorBytes = Copy(encoder.m_OriginatorBytes.get(), encoder.m_OriginatorLength);
    state.partCapacity = encoder.m_PartCapacity;
    state.useConcatHeader = encoder.m_UseConcatHeader;
    state.gsmLength = encoder.m_GsmLength;
    state.gsmBytes = Copy(encoder.m_GsmBytes.get(), encoder.m_GsmLength);
    state.referenceCounter = encoder.m_ReferenceCounter;
    state.partBytes = Copy(encoder.m_PartBytes.get(), encoder.m_PartLength);
    return state;
}

/// An encoder of the library and one of the model that are told the same.
struct EncoderPair {
    explicit EncoderPair(Random& random)
        : m_Library(random.Chance(85) ? 1 : static_cast<int>(random.Below(5))) {
        m_Model.m_State.smsType = m_Library.m_SmsType;
        m_Model.m_State.referenceCounter = m_Library.m_ReferenceCounter = random.Octet();
    }

    /// One setting, chosen at random.
    void Set(Random& random) {
        model::EncoderState& state = m_Model.m_State;
        const bool flag = random.Chance(50);
        const int number = random.Number();
        switch (random.Below(18)) {
        case 0:
            m_Library.SetClass(static_cast<MessageClass::Class>(number));
            state.messageClass = number;
            break;
        case 1:
            m_Library.SetClass(static_cast<MessageClass::Class>(number % 4));
            state.messageClass = number % 4;
            break;
        case 2:
            m_Library.SetValidityPeriod(number);
            m_Model.SetValidityPeriodOctet(number);
            break;
        case 3: {
            const int period = static_cast<int>(random.Below(9)) - 1;
            m_Library.SetValidityPeriod(static_cast<ValidityPeriod::TP_VP_Period>(period));
            m_Model.SetValidityPeriod(period);
            break;
        }
        case 4:
            m_Library.SetRequireStatusReport(flag);
            state.statusReport = flag ? 1 : 0;
            break;
        case 5:
            m_Library.SetReject_Duplicates(flag);
            state.rejectDuplicates = flag ? 1 : 0;
            break;
        case 6:
            m_Library.SetReplyPath(flag);
            state.replyPath = flag ? 1 : 0;
            break;
        case 7:
            m_Library.SetMessageReference(number);
            state.messageReference = number;
            break;
        case 8: {
            const int total = flag ? random.Number() : 0;
            m_Library.SetHeader(number, total, number / 2);
            m_Model.SetHeader(number, total, number / 2);
            break;
        }
        case 9:
            m_Library.RemoveHeader();
            m_Model.RemoveHeader();
            break;
        case 10: {
            const model::Text text = RandomText(random);
            m_Library.SetText(Wide(text), static_cast<Alphabet::Encoding>(number));
            m_Model.SetText(text, number);
            break;
        }
        case 11: {
            const model::Text centre = RandomNumber(random);
            m_Library.SetSmsc(Wide(centre), flag);
            m_Model.SetSmsc(centre, flag);
            break;
        }
        case 12: {
            const model::Text originator = RandomNumber(random);
            m_Library.m_Originator = Wide(originator);
            state.originator = originator;
            break;
        }
        case 13:
            m_Library.m_UseConcatHeader = state.useConcatHeader = flag ? 1 : 0;
            break;
        case 14:
            m_Library.m_ProtocolId = state.protocolId = number;
            break;
        case 15:
            m_Library.m_ValidityFormat = state.validityFormat = static_cast<int>(random.Below(5));
            break;
        case 16: {
            const int table = random.Chance(80) ? model::GREEK : static_cast<int>(random.Below(3));
            m_Library.AddTranslateTable(static_cast<TranslateTable::TT>(table));
            m_Model.m_Charset.m_Selected.push_back(table);
            break;
        }
        default:
            m_Library.ClearTranslateTable();
            m_Model.m_Charset.m_Selected.clear();
            break;
        }
    }

    void SetMessage(Random& random) {
        const model::Text text = RandomText(random);
        const model::Text recipient = RandomNumber(random);
        m_Library.SetText(Wide(text));
        m_Model.SetText(text);
        m_Library.SetRecipient(Wide(recipient));
        m_Model.SetRecipient(recipient);
    }

    /// Encodes by both.
    std::string Encode() {
        std::vector<Toolkit::smart_ptr<Pdu>> pdus;
        m_Library.Encode(pdus);
        const std::vector<model::Pdu> expected = m_Model.Encode();
        std::string lines =
            Line("parts", static_cast<std::int64_t>(pdus.size()), static_cast<std::int64_t>(expected.size()));
        for (std::size_t i = 0; i < std::min(pdus.size(), expected.size()); ++i)
            lines += Line("part", PduOf(*pdus[i].get()), expected[i]);
        return lines + Lines(StateOf(m_Library), m_Model.m_State);
    }

    OpenEncoder m_Library;
    model::Encoder m_Model;
};

TEST(ReferenceEncoder, EncodesOneMessageAfterAnother) {
    RunCases(ENCODER, [](Random& random) {
        EncoderPair pair(random);
        std::string input;
        std::string lines;
        for (std::uint32_t messages = random.Between(1, 3); messages > 0 && lines.empty(); --messages) {
            for (std::uint32_t settings = random.Below(6); settings > 0; --settings)
                pair.Set(random);
            pair.SetMessage(random);
            input +=
                " text " + Show(pair.m_Model.m_State.text) + " to " + Show(pair.m_Model.m_State.recipient);
            lines = pair.Encode();
        }
        return Between(lines, input);
    });
}

TEST(ReferenceEncoder, NumbersBecomeAddressOctets) {
    OpenEncoder encoder;
    RunCases(NUMBERS, [&encoder](Random& random) {
        const model::Text number = RandomNumber(random);
        const bool lenient = random.Chance(50);
        unsigned int length = 99;
        unsigned char* octets = nullptr;
        auto ton = TypeOfNumber::TON_UNKNOWN;
        model::EncodedNumber encoded;
        encoded.result = encoder.EncodeNumber(Wide(number), lenient, &length, &octets, ton);
        const std::unique_ptr<unsigned char[]> owned(octets);
        encoded.bytes = Copy(octets, length);
        encoded.ton = ton;
        const model::EncodedNumber expected = model::EncodeNumber(number, lenient);
        return Between(Line("result", encoded.result, expected.result) +
                           Line("length", length, static_cast<unsigned int>(expected.bytes.size())) +
                           Line("octets", encoded.bytes, expected.bytes) +
                           Line("ton", encoded.ton, expected.ton),
                       Show(number) + (lenient ? " lenient" : ""));
    });
}

TEST(ReferenceEncoder, CountsParts) {
    RunCases(PART_COUNTS, [](Random& random) {
        EncoderPair pair(random);
        for (const int table : RandomTables(random)) {
            pair.m_Library.AddTranslateTable(static_cast<TranslateTable::TT>(table));
            pair.m_Model.m_Charset.m_Selected.push_back(table);
        }
        const model::Text text = RandomText(random);
        const unsigned int count = pair.m_Library.GetPduCount(Wide(text));
        const std::uint32_t expected = pair.m_Model.GetPduCount(text);
        return Between(Line("parts", count, expected) + Lines(StateOf(pair.m_Library), pair.m_Model.m_State),
                       Show(text));
    });
}

TEST(ReferenceEncoder, CutsUcs2) {
    OpenEncoder encoder;
    RunCases(SUB_STRINGS, [&encoder](Random& random) {
        const model::Text text = RandomShortText(random);
        const auto size = static_cast<std::uint32_t>(text.size());
        const std::uint32_t start = random.Chance(90)
                                        ? random.Below(size + 1)
                                        : random.Of(std::vector<std::uint32_t>{0x7FFFFFFF, 0xFFFFFFFF});
        const std::uint32_t count = random.Below(random.Chance(80) ? 12 : 400);
        unsigned int length = 99;
        unsigned char* octets = nullptr;
        model::SubString cut;
        cut.result = encoder.GetSubString(Wide(text), start, count, &length, &octets);
        const std::unique_ptr<unsigned char[]> owned(octets);
        // Two zero octets stand after the counted ones.
        if (octets != nullptr)
            cut.bytes = Copy(octets, length + 2);
        model::SubString expected = model::GetSubString(text, start, count);
        if (expected.result != 0)
            expected.bytes.insert(expected.bytes.end(), 2, 0);
        return Between(Line("result", cut.result, expected.result) +
                           Line("octets", cut.bytes, expected.bytes) +
                           Line("length", length, 2 * (expected.result != 0 ? count : 0)),
                       Show(text) + " start " + Show(start) + " count " + Show(count));
    });
}

} // namespace
} // namespace reference
