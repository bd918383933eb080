#include "model/Encoder.h"

#include <algorithm>
#include <map>

namespace model {

EncodedNumber EncodeNumber(const Text& number, bool lenient) {
    if (number.empty())
        return {};
    EncodedNumber encoded = {1, {0x81}, 1};
    if (number[0] == U'+') {
        encoded.bytes[0] = 0x91;
        encoded.ton = 2;
    }
    bool isPending = false;
    int pending = 0;
    for (const char32_t character : number) {
        if (character >= U'0' && character <= U'9') {
            const int digit = static_cast<int>(character - U'0');
            if (!isPending) {
                pending = digit;
                isPending = true;
                continue;
            }
            if (encoded.bytes.size() > 253) {
                if (encoded.bytes.size() < 255)
                    encoded.bytes.push_back(static_cast<std::uint8_t>(pending | 0xF0));
                return encoded;
            }
            encoded.bytes.push_back(static_cast<std::uint8_t>(digit * 16 | pending));
            isPending = false;
        } else if (character == U'+' && lenient) {
            isPending = !isPending;
            pending = 0;
        }
    }
    if (isPending && encoded.bytes.size() < 255)
        encoded.bytes.push_back(static_cast<std::uint8_t>(pending | 0xF0));
    return encoded;
}

SubString GetSubString(const Text& text, std::uint32_t start, std::uint32_t count) {
    if (text.empty() || start >= text.size() || count == 0)
        return {};
    SubString cut = {1, {}};
    for (std::size_t i = 0; i < count; ++i) {
        // After the end of the text stand zeros.
        const std::uint16_t unit = start + i < text.size() ? Low16(text.at(start + i)) : std::uint16_t{0};
        cut.bytes.push_back(static_cast<std::uint8_t>(unit / 256));
        cut.bytes.push_back(static_cast<std::uint8_t>(unit % 256));
    }
    return cut;
}

void Encoder::SetValidityPeriodOctet(int octet) {
    m_State.validityPeriod = octet;
    m_State.validityFormat = 1;
}

void Encoder::SetValidityPeriod(int period) {
    static const std::map<int, int> octets = {{0, 11},  {1, 23},  {2, 71}, {3, 143},
                                              {4, 167}, {5, 173}, {6, 255}};
    const auto octet = octets.find(period);
    SetValidityPeriodOctet(octet == octets.end() ? 0 : octet->second);
}

void Encoder::SetHeader(int reference, int total, int sequence) {
    m_State.concatReference = reference;
    m_State.concatTotal = total;
    m_State.concatSequence = sequence;
}

void Encoder::RemoveHeader() {
    m_State.concatTotal = 0;
}

void Encoder::SetText(const Text& text) {
    if (!text.empty())
        m_State.text = text;
}

void Encoder::SetText(const Text& text, int alphabet) {
    // The text held is looked at, not the one given, as is required.
    if (m_State.text.empty())
        return;
    m_State.text = text;
    m_State.alphabet = alphabet;
}

void Encoder::SetSmsc(const Text& number, bool lenient) {
    if (number.empty())
        return;
    m_State.smsc = number;
    m_State.smscLenient = lenient ? 1 : 0;
}

void Encoder::SetRecipient(const Text& number) {
    if (!number.empty())
        m_State.recipient = number;
}

std::uint32_t Encoder::GetPduCount(const Text& text) {
    EncoderState& s = m_State;
    s.partCapacity = 140;
    s.alphabet = 2;
    s.workText = text;
    if (text.empty())
        return 1;
    const std::uint32_t textBytes = static_cast<std::uint32_t>(text.size() * 4);
    if (static_cast<std::int32_t>(textBytes) < 1)
        return 0;

    s.gsmBytes.clear();
    s.gsmLength = 0;
    if (m_Charset.GetGsmBytes(text, textBytes, s.gsmLength, nullptr) && s.gsmLength != 0) {
        s.gsmBytes.assign(s.gsmLength, 0);
        if (m_Charset.GetGsmBytes(text, textBytes, s.gsmLength, &s.gsmBytes)) {
            const Text back = m_Charset.GsmToUnicode(s.gsmBytes);
            // The flag's value is asked for as if it were a table, as is required.
            if (!m_Charset.m_Selected.empty() && m_Charset.FindTable(m_Charset.m_Translated))
                s.workText = back;
            if (back == s.workText)
                s.alphabet = 0;
        }
    }

    if (s.alphabet == 2) {
        const auto length = static_cast<std::uint32_t>(s.workText.size());
        if (length > 70) {
            s.partCapacity = 67;
            return (length + 66) / 67;
        }
        s.partCapacity = 70;
        return 1;
    }
    if (s.gsmLength > 160) {
        s.partCapacity = 153;
        return (s.gsmLength + 152) / 153;
    }
    s.partCapacity = 160;
    return 1;
}

void Encoder::WriteAddress(Pdu& pdu, const Text& number, Octets& bytes) {
    bytes.clear();
    if (number.empty()) {
        pdu.Write(std::uint8_t{0x00});
        pdu.Write(std::uint8_t{0x80});
        return;
    }
    const EncodedNumber encoded = EncodeNumber(number, false);
    bytes = encoded.bytes;
    m_State.numberTon = encoded.ton;
    const auto octets = static_cast<std::int64_t>(bytes.size());
    pdu.Write(Low8(bytes.back() >> 4 == 0xF ? 2 * octets - 3 : 2 * octets - 2));
    pdu.Write(bytes);
}

void Encoder::WriteSeptets(Pdu& pdu) const {
    int s = m_State.concatTotal != 0 ? 7 : 8;
    int acc = 0;
    for (const std::uint8_t b : m_State.partBytes) {
        if (s == 8) {
            acc = b;
            s = 1;
            continue;
        }
        acc = Low8(acc | (b << (8 - s)));
        pdu.Write(static_cast<std::uint8_t>(acc));
        if (s < 7)
            acc = b >> s;
        ++s;
    }
    if (s != 8)
        pdu.Write(static_cast<std::uint8_t>(acc));
}

std::vector<Pdu> Encoder::Encode() {
    EncoderState& s = m_State;
    std::vector<Pdu> pdus;
    const std::uint32_t n = GetPduCount(s.text);
    std::size_t offset = 0;
    for (std::uint32_t i = 0; i < n; ++i) {
        // Concatenation values.
        if (n > 1) {
            if (i == 0)
                s.referenceCounter = Low8(s.referenceCounter + 1);
            if (s.useConcatHeader != 0) {
                s.concatTotal = static_cast<int>(n);
                s.concatReference = s.referenceCounter;
                s.concatSequence = static_cast<int>(i) + 1;
            } else {
                s.messageReference = static_cast<int>(i) + s.referenceCounter;
            }
        }

        // Part data.
        s.partBytes.clear();
        if (s.alphabet != 0) {
            const std::size_t count = std::min<std::size_t>(*s.partCapacity, s.workText.size() - offset);
            const SubString cut = GetSubString(s.workText, static_cast<std::uint32_t>(offset),
                                               static_cast<std::uint32_t>(count));
            if (cut.result != 0) {
                s.partBytes = cut.bytes;
                offset += count;
            }
        } else {
            const std::size_t count = std::min<std::size_t>(*s.partCapacity, s.gsmLength - offset);
            for (std::size_t k = 0; k < count; ++k)
                s.partBytes.push_back(s.gsmBytes.at(offset + k));
            offset += count;
        }

        Pdu pdu;

        // Service-centre address.
        s.smscBytes.clear();
        if (!s.smsc.empty()) {
            const EncodedNumber encoded = EncodeNumber(s.smsc, s.smscLenient != 0);
            s.smscBytes = encoded.bytes;
            s.smscTon = encoded.ton;
        }
        if (!s.smscBytes.empty()) {
            pdu.Write(Low8(static_cast<std::int64_t>(s.smscBytes.size())));
            pdu.Write(s.smscBytes);
        } else {
            pdu.Write(std::uint8_t{0x00});
        }

        // First octet.
        const bool isSubmit = s.smsType == 1;
        const bool isDeliver = s.smsType == 2;
        if (!isSubmit && !isDeliver) {
            pdu.Write(std::uint8_t{0x00});
            pdus.push_back(pdu);
            continue;
        }
        int first = isSubmit ? 0x01 : 0x00;
        if (s.replyPath != 0)
            first += 0x80;
        if (s.concatTotal != 0)
            first += 0x40;
        if (isSubmit) {
            if (s.statusReport != 0 && i == 0)
                first += 0x20;
            if (s.validityFormat == 1)
                first += 0x10;
            if (s.validityFormat == 2)
                first += 0x08;
            if (s.validityFormat == 3)
                first += 0x18;
            if (s.rejectDuplicates != 0)
                first += 0x04;
        }
        pdu.Write(Low8(first));

        // Reference and address.
        if (isSubmit) {
            pdu.Write(Low8(s.messageReference));
            WriteAddress(pdu, s.recipient, s.recipientBytes);
        } else {
            WriteAddress(pdu, s.originator, s.originatorBytes);
        }

        // Protocol identifier, data coding, validity period.
        pdu.Write(Low8(s.protocolId));
        int coding = s.alphabet == 2 ? 0x08 : 0x00;
        if (s.messageClass >= 0 && s.messageClass <= 3)
            coding += 0x10 + s.messageClass;
        pdu.Write(Low8(coding));
        if (isSubmit) {
            if (s.validityFormat == 1)
                pdu.Write(Low8(s.validityPeriod));
            // One octet where seven are announced, as is required.
            if (s.validityFormat == 2 || s.validityFormat == 3)
                pdu.Write(std::uint8_t{0xFF});
        }

        // User data.
        std::int64_t length = Low8(static_cast<std::int64_t>(s.partBytes.size()));
        if (s.concatTotal != 0)
            length += s.alphabet != 0 ? 6 : 7;
        pdu.Write(Low8(length));
        if (s.concatTotal != 0) {
            pdu.Write(std::uint8_t{0x05});
            pdu.Write(std::uint8_t{0x00});
            pdu.Write(std::uint8_t{0x03});
            pdu.Write(Low8(s.concatReference));
            pdu.Write(Low8(s.concatTotal));
            pdu.Write(Low8(s.concatSequence));
        }
        if (s.alphabet != 0)
            pdu.Write(s.partBytes);
        else
            WriteSeptets(pdu);
        pdus.push_back(pdu);
    }
    return pdus;
}

} // namespace model
