#include "decoder/PlainReading.h"

#include <string>
#include <vector>

#include "support/Octets.h"

namespace tests {
namespace {

using namespace Encoding;

constexpr long long c_failed = -1;

/// The octets of a PDU, zeros behind the array.
class Reader {
public:
    explicit Reader(const Pdu& pdu) : m_Pdu(pdu) {}
    int operator[](long long i) const { return i >= 0 && i < 512 ? m_Pdu.m_Bytes[i] : 0; }
    long long Length() const { return m_Pdu.m_Length; }

private:
    const Pdu& m_Pdu;
};

/// Walks septets octet by octet: `m_Phase` is the number of septets begun in this group of eight, and 8 means
/// that the next octet is a fresh one.
class SeptetWalk {
public:
    SeptetWalk(const Reader& b, long long position, int phase)
        : m_Octets(b), m_Position(position), m_Phase(phase) {}

    /// Returns whether an octet was used up.
    bool Next(Bytes& septets) {
        int septet = 0;
        bool isUsed = true;
        if (m_Phase == 8) {
            septet = m_Octets[m_Position] & 0x7F;
            m_Phase = 1;
        } else {
            septet = m_Octets[m_Position - 1] >> (8 - m_Phase) & 0x7F;
            if (m_Phase <= 6)
                septet |= m_Octets[m_Position] << m_Phase & 0x7F;
            isUsed = m_Phase != 7;
            ++m_Phase;
        }
        septets.push_back(static_cast<unsigned char>(septet));
        if (isUsed)
            ++m_Position;
        return isUsed;
    }

    bool IsAtLastOfGroup() const { return m_Phase == 7; }

private:
    const Reader& m_Octets;
    long long m_Position;
    int m_Phase;
};

std::string Letters(const Reader& b, long long offset, int octets) {
    Bytes septets;
    SeptetWalk walk(b, offset + 2, 8);
    for (int used = 0; used < octets && septets.size() < 255;)
        used += walk.Next(septets) ? 1 : 0;
    const std::string text(septets.begin(), septets.end());
    return text.substr(0, text.find('\0'));
}

std::string Digits(const Reader& b, long long offset, int octets) {
    std::string text;
    for (long long i = offset + 2; i <= offset + octets; ++i) {
        text += static_cast<char>('0' + b[i] % 16);
        if (b[i] / 16 != 15)
            text += static_cast<char>('0' + b[i] / 16);
    }
    return text.substr(0, 255);
}

long long PlainNumber(const Reader& b, long long offset, bool semiOctets, TString<wchar_t>& number,
                      NumberingPlan::NPI& npi, TypeOfNumber::TON& ton) {
    int octets = b[offset];
    if (semiOctets)
        octets = (octets % 2 == 0 ? octets : octets + 1) / 2 + 1;
    npi = static_cast<NumberingPlan::NPI>(0);
    ton = static_cast<TypeOfNumber::TON>(1);
    number = L"";
    if (b.Length() <= offset + octets)
        return c_failed;
    if (octets == 0)
        return offset + 1;
    const int type = b[offset + 1] / 16 % 8;
    const std::string text = type == 5 ? Letters(b, offset, octets) : Digits(b, offset, octets);
    if (type == 1)
        number = L"+";
    number.append(text.begin(), text.end());
    const int tons[] = {1, 2, 1, 1, 1, 5, 1, 7};
    const int npis[] = {0, 1, 0, 2, 3, 0, 0, 0, 4, 5, 6, 0, 0, 0, 0, 7};
    ton = static_cast<TypeOfNumber::TON>(tons[type]);
    npi = static_cast<NumberingPlan::NPI>(npis[b[offset + 1] % 16]);
    return offset + octets + 1;
}

unsigned int Swapped(int octet) {
    return static_cast<unsigned int>(octet % 16 * 10 + octet / 16);
}

long long PlainTime(const Reader& b, long long offset, Toolkit::smart_ptr<Toolkit::DateTime>& time,
                    bool ignoreTimeZone) {
    if (b.Length() <= offset + 7)
        return c_failed;
    unsigned int field[6];
    for (int i = 0; i < 6; ++i)
        field[i] = Swapped(b[offset + i]);
    const unsigned int most[] = {0xFFFFFFFF, 12, 31, 24, 59, 59};
    for (int i = 0; i < 6; ++i)
        if (field[i] > most[i])
            return offset + 7;
    const int zone = b[offset + 6];
    const bool isNegative = zone / 8 % 2 == 1;
    const int quarters = static_cast<int>(Swapped(isNegative ? zone - 8 : zone)) * (isNegative ? -1 : 1);
    if (ignoreTimeZone || quarters == 0 || quarters == -1)
        time = new Toolkit::DateTime(2000 + field[0], field[1], field[2], field[3], field[4], field[5]);
    else
        time = new Toolkit::DateTime(2000 + field[0], field[1], field[2], field[3], field[4], field[5],
                                     quarters / 4);
    return offset + 7;
}

void PlainFirstOctet(int first, PduCommon& record) {
    const int types[] = {2, 1, 3, 0};
    const int type = types[first % 4];
    record.m_SmsType = static_cast<MessageTypeIndicator::TP_MTI_Type>(type);
    if (type == 1 || type == 2) {
        record.m_ReplyPath = first / 128;
        record.m_HasUserDataHeader = first / 64 % 2;
    }
    if (type == 1) {
        const int formats[] = {0, 2, 1, 3};
        record.m_RejectDuplicates = first / 4 % 2;
        record.m_ValidityFormat = formats[first / 8 % 4];
        record.m_StatusReport = first / 32 % 2;
    }
}

void PlainCoding(int dcs, PduCommon& record) {
    const int group = dcs < 0xC0 ? 0 : dcs / 16 - 0xB;
    const bool hasClass = group == 4 || (group == 0 && dcs / 16 % 2 == 1);
    const int alphabets[] = {dcs / 4 % 4, 0, 0, 2, dcs / 4 % 2};
    record.m_CodingGroup = group;
    record.m_Class = static_cast<MessageClass::Class>(hasClass ? dcs % 4 : 4);
    record.m_Alphabet = static_cast<Alphabet::Encoding>(alphabets[group]);
}

int PlainStatus(int octet) {
    const int temporary[] = {3, 4, 5, 6, 7, 8};
    const int permanent[] = {9, 10, 11, 12, 7, 13, 14, 15, 16, 17};
    if (octet <= 0x02)
        return octet;
    if (octet >= 0x20 && octet <= 0x25)
        return temporary[octet - 0x20];
    if (octet >= 0x40 && octet <= 0x49)
        return permanent[octet - 0x40];
    return 18;
}

/// Where the user data stand, and how they are to be read.
struct UserData {
    long long start;
    int count; ///< TP-UDL without the header
    int chars; ///< septets of text
    int fill;
};

bool PlainHeader(const Reader& b, UserData& data, PduCommon& record) {
    const long long u = data.start;
    const int h = b[u];
    int i = 0;
    do {
        const int identifier = b[u + 1 + i];
        const long long element = u + 3 + i;
        i += b[u + 2 + i] + 2;
        if (i > h)
            return false;
        if (identifier == 0x00) {
            record.m_ConcatReference = b[element];
            record.m_ConcatTotal = b[element + 1];
            record.m_ConcatSequence = b[element + 2];
            data.fill = 1;
        } else if (identifier == 0x08) {
            record.m_ConcatReference = b[element] * 256 + b[element + 1];
            record.m_ConcatTotal = b[element + 2];
            record.m_ConcatSequence = b[element + 3];
        } else if (identifier == 0x01) {
            record.m_ConcatTotal = b[element + 1];
        }
    } while (i < h);
    data.count -= h + 1;
    data.chars = data.count - 1;
    data.start += 1 + h;
    return data.count >= 0;
}

TString<wchar_t> PlainSeptets(const Reader& b, const UserData& data, GSMCharSet& charSet) {
    if (data.chars < 0)
        return L"";
    const int octets = (data.count * 7 + 7) >> 3;
    Bytes septets;
    SeptetWalk walk(b, data.start + data.fill, 8 - data.fill);
    for (int k = data.fill; k < octets;)
        k += walk.Next(septets) ? 1 : 0;
    if (walk.IsAtLastOfGroup() && data.chars > static_cast<int>(septets.size()))
        septets.push_back(static_cast<unsigned char>(b[data.start + octets - 1] >> 1));
    septets.resize(static_cast<std::size_t>(data.chars)); // what the walk did not reach is 0
    return charSet.GsmToUnicode(septets.data(), static_cast<unsigned int>(septets.size()));
}

int PlainUserData(const Reader& b, long long p, PduCommon& record) {
    record.m_UserDataLength = b[p];
    UserData data{p + 1, b[p], b[p], 0};
    if (b.Length() == p + 1) {
        record.m_Text = L"";
        return 1;
    }
    if (record.m_HasUserDataHeader != 0 && !PlainHeader(b, data, record))
        return 0;
    record.m_Text = L"";
    if (record.m_Alphabet == 3)
        return 0;
    if (record.m_Alphabet == 1)
        for (int k = 0; k < data.count; ++k)
            record.m_Text += static_cast<wchar_t>(b[data.start + k]);
    if (record.m_Alphabet == 2)
        for (int k = 0; k < data.count; k += 2)
            record.m_Text += static_cast<wchar_t>(b[data.start + k] * 256 + b[data.start + k + 1]);
    if (record.m_Alphabet == 0)
        record.m_Text = PlainSeptets(b, data, *record.m_CharSet);
    return 1;
}

} // namespace

int PlainDecode(const Pdu& pdu, bool noSmsc, bool ignoreTimeZone, PduCommon& record) {
    const Reader b(pdu);
    const long long len = b.Length();
    const auto isInside = [len](long long position) { return position >= 0 && position < len; };

    long long p = 0;
    if (!noSmsc) {
        p = PlainNumber(b, 0, false, record.m_Smsc, record.m_SmscNpi, record.m_SmscTon);
        if (!isInside(p))
            return 0;
    }
    PlainFirstOctet(b[p++], record);
    const bool isSubmit = record.m_SmsType == 1;
    const bool isDeliver = record.m_SmsType == 2;
    const bool isReport = record.m_SmsType == 3;
    if (!isInside(p))
        return 0;
    if (isSubmit || isReport) {
        record.m_MessageReference = b[p++];
        if (!isInside(p))
            return 0;
    }
    p = PlainNumber(b, p, true, isSubmit || isReport ? record.m_Recipient : record.m_Originator,
                    record.m_NumberNpi, record.m_NumberTon);
    if (!isInside(p))
        return 0;
    if (isSubmit || isDeliver) {
        record.m_ProtocolId = b[p++];
        if (!isInside(p))
            return 0;
        record.m_DataCoding = b[p++];
        if (!isInside(p))
            return 0;
        PlainCoding(record.m_DataCoding, record);
    }
    if (isReport || isDeliver) {
        p = PlainTime(b, p, record.m_ServiceCentreTime, ignoreTimeZone);
        if (!isInside(p))
            return 0;
    }
    if (isReport) {
        p = PlainTime(b, p, record.m_DischargeTime, ignoreTimeZone);
        if (!isInside(p))
            return 0;
        record.m_Status = static_cast<DeliveryStatus::TP_ST_Status>(PlainStatus(b[p]));
    }
    if (isSubmit && record.m_ValidityFormat == 1) {
        record.m_ValidityPeriod = b[p++];
        if (!isInside(p))
            return 0;
    }
    if (isSubmit && record.m_ValidityFormat == 3) {
        p = PlainTime(b, p, record.m_ValidityTime, ignoreTimeZone);
        if (!isInside(p))
            return 0;
    }
    return isSubmit || isDeliver ? PlainUserData(b, p, record) : 1;
}

namespace {

/// One trimming pass. The alphabet has no tab, so that a blank is a space.
void PlainTrim(TString<wchar_t>& text, wchar_t character) {
    for (const wchar_t around : {L' ', character}) {
        while (!text.empty() && text.back() == around)
            text.pop_back();
        while (!text.empty() && text.front() == around)
            text.erase(0, 1);
    }
}

} // namespace

TString<wchar_t> PlainPageText(const Pdu& page) {
    const Reader b(page);
    const long long n = b.Length() - 6;
    const long long end = 6 + (7 * n + 7) / 8;
    Bytes septets;
    SeptetWalk walk(b, 6, 8);
    for (long long position = 6; position < end;)
        position += walk.Next(septets) ? 1 : 0;
    if (static_cast<long long>(septets.size()) < n)
        septets.push_back(static_cast<unsigned char>(b[end - 1] >> 1));
    GSMCharSet charSet;
    TString<wchar_t> text = charSet.GsmToUnicode(septets.data(), static_cast<unsigned int>(n));
    PlainTrim(text, L'\r');
    PlainTrim(text, L'\n');
    return text;
}

} // namespace tests
