// An encoder whose state the tests can see and set.
#ifndef TESTS_ENCODER_OPENENCODER_H
#define TESTS_ENCODER_OPENENCODER_H

#include <vector>

#include "Encoding/PduEncoder.h"
#include "support/Octets.h"

namespace tests {

using Pdus = std::vector<Toolkit::smart_ptr<Encoding::Pdu>>;

class OpenEncoder : public Encoding::PduEncoder {
public:
    explicit OpenEncoder(int type = 1)
        : PduEncoder(static_cast<Encoding::MessageTypeIndicator::TP_MTI_Type>(type)) {}

    using PduCommon::m_Alphabet;
    using PduCommon::m_CharSet;
    using PduCommon::m_Class;
    using PduCommon::m_ConcatReference;
    using PduCommon::m_ConcatSequence;
    using PduCommon::m_ConcatTotal;
    using PduCommon::m_MessageReference;
    using PduCommon::m_NumberTon;
    using PduCommon::m_Originator;
    using PduCommon::m_ProtocolId;
    using PduCommon::m_Recipient;
    using PduCommon::m_RejectDuplicates;
    using PduCommon::m_ReplyPath;
    using PduCommon::m_Smsc;
    using PduCommon::m_SmscTon;
    using PduCommon::m_SmsType;
    using PduCommon::m_StatusReport;
    using PduCommon::m_Text;
    using PduCommon::m_ValidityFormat;
    using PduCommon::m_ValidityPeriod;
    using PduCommon::m_WorkText;
    using PduEncoder::m_GsmBytes;
    using PduEncoder::m_GsmLength;
    using PduEncoder::m_OriginatorBytes;
    using PduEncoder::m_OriginatorLength;
    using PduEncoder::m_PartBytes;
    using PduEncoder::m_PartCapacity;
    using PduEncoder::m_PartLength;
    using PduEncoder::m_RecipientBytes;
    using PduEncoder::m_RecipientLength;
    using PduEncoder::m_ReferenceCounter;
    using PduEncoder::m_SmscBytes;
    using PduEncoder::m_SmscLength;
    using PduEncoder::m_SmscLenient;
    using PduEncoder::m_UseConcatHeader;

    /// Address octets of a number, or nothing.
    Bytes Number(const TString<wchar_t>& number, bool lenient = false) {
        unsigned int length = 99;
        unsigned char* octets = nullptr;
        auto ton = Encoding::TypeOfNumber::TON_RESERVED;
        m_NumberResult = EncodeNumber(number, lenient, &length, &octets, ton);
        m_NumberTon = ton;
        const std::unique_ptr<unsigned char[]> owner(octets);
        return Bytes(octets, octets + length);
    }
    int m_NumberResult = -1;

    /// The PDUs of the current settings.
    std::vector<Bytes> Pdus() {
        tests::Pdus pdus;
        Encode(pdus);
        std::vector<Bytes> octets;
        for (const auto& pdu : pdus)
            octets.push_back(OctetsOf(*pdu));
        return octets;
    }
    /// The PDU of a message that takes one.
    std::string Pdu() {
        const std::vector<Bytes> pdus = Pdus();
        return pdus.size() == 1 ? Hex(pdus.front()) : "not one PDU";
    }
};

} // namespace tests

#endif
