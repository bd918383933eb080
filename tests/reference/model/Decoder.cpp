#include "model/Decoder.h"

#include <map>

#include "model/Charset.h"

namespace model {

namespace {

using Position = std::int64_t;

int NumberingPlanOf(int typeOfAddress) {
    static const std::map<int, int> plans = {{0x0, 0}, {0x1, 1}, {0x3, 2}, {0x4, 3},
                                             {0x8, 4}, {0x9, 5}, {0xA, 6}, {0xF, 7}};
    const auto plan = plans.find(typeOfAddress & 0x0F);
    return plan == plans.end() ? 0 : plan->second;
}

/// The walk covers one octet more than the field has, as is required.
void ReadAlphanumeric(const Pdu& pdu, Position offset, Position length, Octets& buffer) {
    Position p = offset + 2;
    const Position stop = offset + 2 + length;
    int phase = 8;
    Position n = 0;
    for (int round = 0; round < 255; ++round) {
        int septet = 0;
        if (phase == 8) {
            septet = pdu.At(p) & 0x7F;
            phase = 1;
        } else {
            septet = (pdu.At(p - 1) >> (8 - phase)) & 0x7F;
            if (phase <= 6)
                septet |= (pdu.At(p) << phase) & 0x7F;
            if (phase == 7)
                --p;
            ++phase;
        }
        buffer.at(static_cast<std::size_t>(n)) = static_cast<std::uint8_t>(septet);
        ++p;
        ++n;
        if (p >= stop)
            break;
    }
    if (phase == 7 && n < length && n < 255)
        buffer.at(static_cast<std::size_t>(n)) = static_cast<std::uint8_t>(pdu.At(offset + length) >> 1);
}

void ReadDigits(const Pdu& pdu, Position offset, Position length, Octets& buffer) {
    std::size_t n = 0;
    for (Position p = offset + 2; p <= offset + length; ++p) {
        if (n >= 255)
            return;
        buffer.at(n++) = static_cast<std::uint8_t>('0' + (pdu.At(p) & 0x0F));
        if (pdu.At(p) >> 4 == 0x0F)
            continue;
        if (n >= 255)
            return;
        buffer.at(n++) = static_cast<std::uint8_t>('0' + (pdu.At(p) >> 4));
    }
}

} // namespace

std::uint32_t ReadNumber(const Pdu* pdu, std::uint32_t offset, bool semiOctets, Text& number, int& npi,
                         int& ton) {
    if (pdu == nullptr)
        return FAILED;
    const Position start = offset;
    Position length = pdu->At(start);
    npi = 0;
    ton = 1;
    if (semiOctets) {
        if (length % 2 == 1)
            ++length;
        length = length / 2 + 1;
    }
    const Position end = start + length;
    number.clear();
    if (Position{pdu->m_Length} <= end)
        return FAILED;
    if (length == 0)
        return static_cast<std::uint32_t>(end + 1);

    Octets buffer(256, 0);
    const int typeOfAddress = pdu->At(start + 1);
    const int type = (typeOfAddress >> 4) & 7;
    if (type == 5) {
        ton = 5;
        ReadAlphanumeric(*pdu, start, length, buffer);
    } else {
        if (type == 1) {
            number += U'+';
            ton = 2;
        }
        if (type == 7)
            ton = 7;
        ReadDigits(*pdu, start, length, buffer);
    }
    for (std::size_t i = 0; buffer.at(i) != 0; ++i)
        number += buffer[i];
    npi = NumberingPlanOf(typeOfAddress);
    return static_cast<std::uint32_t>(end + 1);
}

std::uint32_t ReadTimeStamp(const Pdu* pdu, std::uint32_t offset, std::optional<Time>& time,
                            bool ignoreTimeZone) {
    const Position start = offset;
    if (pdu == nullptr || Position{pdu->m_Length} <= start + 7)
        return FAILED;
    const auto field = [&](Position index) {
        return static_cast<unsigned int>(SwapNumber(pdu->At(start + index)));
    };
    Time read = {2000 + field(0), field(1), field(2), field(3), field(4), field(5), {}};
    if (read.month > 12 || read.day > 31 || read.hour > 24 || read.minute > 59 || read.second > 59)
        return offset + 7;
    if (!ignoreTimeZone) {
        const std::uint8_t zone = pdu->At(start + 6);
        const int quarters = (zone & 0x08) != 0 ? -SwapNumber(zone & 0xF7) : SwapNumber(zone);
        if (quarters != 0 && quarters != -1)
            read.offset = quarters / 4;
    }
    time = read;
    return offset + 7;
}

int ReadSmsType(int firstOctet) {
    switch (firstOctet & 0x03) {
    case 0:
        return 2;
    case 1:
        return 1;
    case 2:
        return 3;
    default:
        return 0;
    }
}

int ReadDcs(int dcs) {
    if (dcs >= 0xF0)
        return 4;
    if (dcs >= 0xE0)
        return 3;
    if (dcs >= 0xD0)
        return 2;
    if (dcs >= 0xC0)
        return 1;
    return 0;
}

int ReadClass(int codingGroup, int dcs) {
    if (codingGroup == 0 && (dcs & 0x10) != 0)
        return dcs & 0x03;
    if (codingGroup == 4)
        return dcs & 0x03;
    return 4;
}

int ReadAlphabet(int codingGroup, int dcs) {
    if (codingGroup == 0)
        return (dcs >> 2) & 0x03;
    if (codingGroup == 3)
        return 2;
    if (codingGroup == 4)
        return (dcs & 0x04) != 0 ? 1 : 0;
    return 0;
}

int ReadStatus(int status) {
    static const std::map<int, int> outcomes = {
        {0x00, 0},  {0x01, 1},  {0x02, 2},  {0x20, 3},  {0x21, 4},  {0x22, 5},  {0x23, 6},
        {0x24, 7},  {0x25, 8},  {0x40, 9},  {0x41, 10}, {0x42, 11}, {0x43, 12}, {0x44, 7},
        {0x45, 13}, {0x46, 14}, {0x47, 15}, {0x48, 16}, {0x49, 17},
    };
    const auto outcome = outcomes.find(status);
    return outcome == outcomes.end() ? 18 : outcome->second;
}

namespace {

/// The user data of one message, and where they lie.
struct UserData {
    Position start = 0;
    Position count = 0;      ///< as TP-UDL counts
    Position characters = 0; ///< septets of the text
    int fill = 0;            ///< bits before the first septet
};

/// The information elements of a header at `u`; false when one overruns the header.
bool ReadHeader(Record& record, const Pdu& pdu, Position u, UserData& data) {
    const Position headerLength = pdu.At(u);
    Position i = 0;
    Position sum = 0;
    do {
        const int identifier = pdu.At(u + 1 + i);
        const Position elementLength = pdu.At(u + 2 + i);
        const auto element = [&](Position index) { return int{pdu.At(u + 3 + i + index)}; };
        sum += elementLength + 2;
        if (sum > headerLength)
            return false;
        if (identifier == 0x00) {
            record.concatReference = element(0);
            record.concatTotal = element(1);
            record.concatSequence = element(2);
            data.fill = 1;
        } else if (identifier == 0x08) {
            record.concatReference = element(0) * 256 + element(1);
            record.concatTotal = element(2);
            record.concatSequence = element(3);
        } else if (identifier == 0x01) {
            record.concatTotal = element(1);
        }
        i += elementLength + 2;
    } while (i < headerLength);
    data.count = record.userDataLength - (headerLength + 1);
    data.characters = data.count - 1;
    data.start = u + 1 + headerLength;
    return true;
}

Text Read7Bit(const Pdu& pdu, const UserData& data) {
    if (data.characters <= 0)
        return {};
    const Position octets = (data.count * 7 + 7) >> 3;
    std::map<Position, int> septets;
    Position q = data.start + data.fill;
    int phase = 8 - data.fill;
    Position k = data.fill;
    Position n = 0;
    while (k < octets) {
        int septet = 0;
        if (phase == 8) {
            septet = pdu.At(q) & 0x7F;
            phase = 1;
        } else {
            septet = (pdu.At(q - 1) >> (8 - phase)) & 0x7F;
            if (phase <= 6)
                septet |= (pdu.At(q) << phase) & 0x7F;
            if (phase == 7) {
                --k;
                --q;
            }
            ++phase;
        }
        septets[n] = septet;
        ++k;
        ++n;
        ++q;
    }
    if (phase == 7 && data.characters > n)
        septets[n] = pdu.At(data.start + octets - 1) >> 1;

    Octets codes;
    for (Position i = 0; i < data.characters; ++i)
        codes.push_back(static_cast<std::uint8_t>(septets[i]));
    return Charset().GsmToUnicode(codes);
}

} // namespace

int Decode(Record& record, const Pdu* pdu, bool noSmsc, bool ignoreTimeZone) {
    if (pdu == nullptr)
        return 0;
    const Position len = pdu->m_Length;

    Position p = 0;
    if (!noSmsc) {
        p = ReadNumber(pdu, 0, false, record.smsc, record.smscNpi, record.smscTon);
        if (p >= len)
            return 0;
    }
    const int first = pdu->At(p);
    ++p;

    record.smsType = ReadSmsType(first);
    const bool isSubmit = record.smsType == 1;
    const bool isDeliver = record.smsType == 2;
    const bool isReport = record.smsType == 3;
    if (isSubmit || isDeliver) {
        record.replyPath = (first >> 7) & 1;
        record.hasUserDataHeader = (first >> 6) & 1;
    }
    if (isSubmit) {
        record.rejectDuplicates = (first >> 2) & 1;
        static const std::map<int, int> formats = {{0b00, 0}, {0b10, 1}, {0b01, 2}, {0b11, 3}};
        record.validityFormat = formats.at((first >> 3) & 0b11);
        record.statusReport = (first >> 5) & 1;
    }
    if (len <= p)
        return 0;

    if (isSubmit || isReport) {
        record.messageReference = pdu->At(p);
        ++p;
        if (len <= p)
            return 0;
    }

    p = ReadNumber(pdu, static_cast<std::uint32_t>(p), true,
                   isSubmit || isReport ? record.recipient : record.originator, record.numberNpi,
                   record.numberTon);
    if (p >= len)
        return 0;

    if (isSubmit || isDeliver) {
        record.protocolId = pdu->At(p);
        if (len <= p + 1)
            return 0;
        record.dataCoding = pdu->At(p + 1);
        p += 2;
        if (len <= p)
            return 0;
        record.codingGroup = ReadDcs(record.dataCoding);
        record.messageClass = ReadClass(record.codingGroup, record.dataCoding);
        record.alphabet = ReadAlphabet(record.codingGroup, record.dataCoding);
    }

    const auto readTime = [&](std::optional<Time>& time) {
        p = ReadTimeStamp(pdu, static_cast<std::uint32_t>(p), time, ignoreTimeZone);
        return p < len;
    };
    if (isReport) {
        if (!readTime(record.serviceCentreTime))
            return 0;
        if (!readTime(record.dischargeTime))
            return 0;
        record.status = ReadStatus(pdu->At(p));
        ++p;
    }
    if (isSubmit) {
        if (record.validityFormat == 1) {
            record.validityPeriod = pdu->At(p);
            ++p;
            if (len <= p)
                return 0;
        }
        if (record.validityFormat == 3 && !readTime(record.validityTime))
            return 0;
    }
    if (isDeliver && !readTime(record.serviceCentreTime))
        return 0;
    if (!isSubmit && !isDeliver)
        return 1;

    record.userDataLength = pdu->At(p);
    const Position u = p + 1;
    if (len == u) {
        record.text.clear();
        return 1;
    }

    UserData data;
    if (record.hasUserDataHeader == 0) {
        data = {u, record.userDataLength, record.userDataLength, 0};
    } else {
        if (!ReadHeader(record, *pdu, u, data))
            return 0;
        if (data.count < 0)
            return 0;
    }

    record.text.clear();
    switch (record.alphabet) {
    case 1:
        for (Position k = 0; k < data.count; ++k)
            record.text += char32_t{pdu->At(data.start + k)};
        return 1;
    case 2:
        for (Position k = 0; k < data.count; k += 2)
            record.text += char32_t{pdu->At(data.start + k)} * 256 + pdu->At(data.start + k + 1);
        return 1;
    case 0:
        record.text = Read7Bit(*pdu, data);
        return 1;
    default:
        return 0;
    }
}

namespace {

bool IsBlank(char32_t character) {
    return character == U' ' || character == U'\t';
}

/// One pass of trimming: blanks, then runs of one character, the end first.
void Trim(Text& text, char32_t padding) {
    std::size_t first = 0;
    while (first < text.size() && IsBlank(text.at(first)))
        ++first;
    if (first == text.size()) {
        text.clear();
        return;
    }
    std::size_t last = text.size() - 1;
    while (IsBlank(text.at(last)))
        --last;
    text = text.substr(first, last - first + 1);

    std::size_t leading = 0;
    while (leading < text.size() && text.at(leading) == padding)
        ++leading;
    std::size_t end = text.size();
    while (end > leading && text.at(end - 1) == padding)
        --end;
    text = text.substr(leading, end - leading);
}

} // namespace

PageOutcome DecodePage(CellBroadcastPage& page, const Pdu* pdu) {
    if (pdu == nullptr)
        return PageOutcome::Rejected;
    page.serialNumber = pdu->At(0) * 256U + pdu->At(1);
    page.messageIdentifier = pdu->At(2) * 256U + pdu->At(3);
    page.dataCodingScheme = pdu->At(4);
    page.pageParameter = pdu->At(5);

    // Short pages have a content length that wraps, which no memory can hold.
    if (pdu->m_Length < 6 || pdu->m_Length - 6 > 0x7FFFFFFF)
        return PageOutcome::OutOfMemory;
    const Position count = pdu->m_Length - 6;

    Octets codes;
    for (Position i = 0; i < count; ++i) {
        const Position group = 6 + i / 8 * 7;
        const int k = static_cast<int>(i % 8);
        int septet = 0;
        if (k == 0)
            septet = pdu->At(group) & 0x7F;
        else if (k == 7)
            septet = pdu->At(group + 6) >> 1;
        else
            septet = (pdu->At(group + k - 1) >> (8 - k)) | ((pdu->At(group + k) << k) & 0x7F);
        codes.push_back(static_cast<std::uint8_t>(septet));
    }
    page.text = Charset().GsmToUnicode(codes);
    Trim(page.text, U'\r');
    Trim(page.text, U'\n');
    return PageOutcome::Decoded;
}

} // namespace model
