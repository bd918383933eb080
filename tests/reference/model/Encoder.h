// Writing of SMS-SUBMIT and of a reduced SMS-DELIVER, 3GPP TS 23.040.
#ifndef TESTS_REFERENCE_MODEL_ENCODER_H
#define TESTS_REFERENCE_MODEL_ENCODER_H

#include <optional>
#include <vector>

#include "model/Charset.h"
#include "model/Pdu.h"
#include "model/Types.h"

namespace model {

/// Everything that an encoder holds; the names are those of its setters and members.
struct EncoderState {
    Text smsc, originator, recipient;
    int smscTon = 1, numberTon = 1;
    int smsType = 0;
    int replyPath = 0, statusReport = 0, validityFormat = 0, rejectDuplicates = 0;
    int messageReference = 0, protocolId = 0, validityPeriod = 0;
    int messageClass = 4, alphabet = 0;
    Text text, workText;
    int concatReference = 0, concatTotal = 0, concatSequence = 0;

    Octets smscBytes;
    int smscLenient = 0;
    Octets recipientBytes, originatorBytes;
    std::optional<std::uint32_t> partCapacity; ///< nothing before the first count of parts
    int useConcatHeader = 1;
    std::uint32_t gsmLength = 0;
    Octets gsmBytes;
    std::uint8_t referenceCounter = 0;
    Octets partBytes;
    bool operator==(const EncoderState&) const = default;
};

struct EncodedNumber {
    int result = 0;
    Octets bytes;
    int ton = 1;
    bool operator==(const EncodedNumber&) const = default;
};
EncodedNumber EncodeNumber(const Text& number, bool lenient);

struct SubString {
    int result = 0;
    Octets bytes;
    bool operator==(const SubString&) const = default;
};
SubString GetSubString(const Text& text, std::uint32_t start, std::uint32_t count);

struct Encoder {
    EncoderState m_State;
    Charset m_Charset;

    void SetValidityPeriodOctet(int octet);
    void SetValidityPeriod(int period);
    void SetHeader(int reference, int total, int sequence);
    void RemoveHeader();
    void SetText(const Text& text);
    void SetText(const Text& text, int alphabet);
    void SetSmsc(const Text& number, bool lenient);
    void SetRecipient(const Text& number);

    std::uint32_t GetPduCount(const Text& text);
    std::vector<Pdu> Encode();

private:
    void WriteAddress(Pdu& pdu, const Text& number, Octets& bytes);
    void WriteSeptets(Pdu& pdu) const;
};

} // namespace model

#endif
