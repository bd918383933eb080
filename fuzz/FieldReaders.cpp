// PduDecoder's field readers and mappings. Input: the offset (four octets), flags (1 semi-octets, 2 times
// without zone, 4 the length is given by the octets that follow), the length (four octets), the octets.
#include <algorithm>

#include "Encoding/PduDecoder.h"
#include "Input.h"
#include "Property.h"

namespace {

using namespace Encoding;
using namespace fuzz;

constexpr unsigned int c_timeStampSize = 7;

unsigned int OctetAt(const Pdu& pdu, unsigned long long offset) {
    return offset < Pdu::CAPACITY ? pdu.m_Bytes[offset] : 0U;
}

void CheckNumber(const Toolkit::smart_ptr<Pdu>& pdu, unsigned int offset, bool semiOctets) {
    PduDecoder decoder;
    TString<wchar_t> number = L"before";
    NumberingPlan::NPI npi = NumberingPlan::NPI_ERMES;
    TypeOfNumber::TON ton = TypeOfNumber::TON_RESERVED;
    const unsigned int next = decoder.ReadNumber(pdu, offset, semiOctets, number, npi, ton);

    const unsigned long long length = OctetAt(*pdu, offset);
    const unsigned long long end = offset + (semiOctets ? (length + 1) / 2 + 1 : length);
    if (pdu->m_Length <= end) {
        Require(next == PduDecoder::FIELD_FAILED, "a number that reaches past the PDU fails");
        Require(number.empty() && npi == NumberingPlan::NPI_UNKNOWN && ton == TypeOfNumber::TON_UNKNOWN,
                "a failed read leaves an empty number");
        return;
    }
    Require(next == end + 1, "the next field begins after the number");
    const bool isInternational = ton == TypeOfNumber::TON_INTERNATIONAL;
    Require(isInternational == (!number.empty() && number.front() == L'+') ||
                ton == TypeOfNumber::TON_ALPHANUMERIC,
            "an international number, and no other, begins with a plus sign");
    const std::size_t digits = number.size() - (isInternational ? 1 : 0);
    Require(digits <= 255, "an address has 255 characters at most");
    Require(ton == TypeOfNumber::TON_ALPHANUMERIC
                ? std::all_of(number.begin(), number.end(), [](wchar_t c) { return c > 0 && c < 0x80; })
                : std::all_of(number.begin() + (isInternational ? 1 : 0), number.end(),
                              [](wchar_t c) { return c >= L'0' && c <= L'?'; }),
            "an address holds septets above 0, or semi-octets");
    if (ton != TypeOfNumber::TON_ALPHANUMERIC)
        Require(end - offset == 0 || digits <= 2 * (end - offset - 1),
                "two digits come from one octet at most");
}

void CheckTimeStamp(const Toolkit::smart_ptr<Pdu>& pdu, unsigned int offset, bool ignoreTimeZone) {
    PduDecoder decoder;
    const Toolkit::smart_ptr<Toolkit::DateTime> before(new Toolkit::DateTime(1, 2, 3, 4, 5, 6));
    Toolkit::smart_ptr<Toolkit::DateTime> time(before);
    const unsigned int next = decoder.ReadTimeStamp(pdu, offset, time, ignoreTimeZone);

    const unsigned long long end = static_cast<unsigned long long>(offset) + c_timeStampSize;
    if (pdu->m_Length <= end) {
        Require(next == PduDecoder::FIELD_FAILED && time.get() == before.get(),
                "a time stamp that is not followed by an octet fails");
        return;
    }
    Require(next == end, "the next field begins after the time stamp");
    const auto field = [&](unsigned int i) {
        const unsigned int octet = OctetAt(*pdu, offset + static_cast<unsigned long long>(i));
        return (octet & 0x0F) * 10 + (octet >> 4);
    };
    const bool isInRange =
        field(1) <= 12 && field(2) <= 31 && field(3) <= 24 && field(4) <= 59 && field(5) <= 59;
    Require(isInRange == (time.get() != before.get()), "a time stamp out of range, and no other, is skipped");
    if (!isInRange)
        return;
    Require(time->GetYear() == 2000 + field(0) && time->GetMonth() == field(1) &&
                time->GetDay() == field(2) && time->GetHour() == field(3) && time->GetMinute() == field(4) &&
                time->GetSecond() == field(5),
            "a time is made of swapped semi-octets");
    const unsigned int zone = OctetAt(*pdu, end - 1);
    const int quarters = static_cast<int>((zone & 0x07) * 10 + (zone >> 4)) * ((zone & 0x08) != 0 ? -1 : 1);
    const bool hasOffset = !ignoreTimeZone && quarters != 0 && quarters != -1;
    Require(time->HasOffset() == hasOffset && time->GetOffset() == (hasOffset ? quarters / 4 : 0),
            "the zone is given in whole hours, and one of no quarter or of a negative one not at all");
}

void CheckMappings(int octet) {
    PduDecoder decoder;
    const int type = decoder.ReadSmsType(octet);
    decoder.m_CodingGroup = decoder.ReadDCS(octet);
    const int messageClass = decoder.ReadClass(octet);
    const int alphabet = decoder.ReadAlphabet(octet);
    const int status = decoder.ReadStatus(static_cast<unsigned char>(octet));
    Require(type >= 0 && type <= 3 && decoder.m_CodingGroup >= 0 && decoder.m_CodingGroup <= 4 &&
                messageClass >= 0 && messageClass <= 4 && alphabet >= 0 && alphabet <= 3 && status >= 0 &&
                status <= 18,
            "every octet has a meaning");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int offset = input.Word(4);
    const unsigned int flags = input.Octet();
    const unsigned int length = input.Word(4);
    const Toolkit::smart_ptr<Pdu> pdu = input.Pdu();
    if ((flags & 4) == 0)
        pdu->m_Length = length;
    CheckNumber(pdu, offset, (flags & 1) != 0);
    CheckTimeStamp(pdu, offset, (flags & 2) != 0);
    CheckMappings(static_cast<int>(offset));
    return 0;
}
