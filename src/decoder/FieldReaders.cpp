// The address field and the time-stamp field.
#include <algorithm>
#include <array>
#include <cstdint>

#include "Encoding/PduDecoder.h"
#include "Toolkit/UTF8.h"
#include "pdu/Octets.h"
#include "pdu/Septets.h"
#include "pdu/WireFormat.h"

namespace Encoding {
namespace {

constexpr unsigned int c_international = 1; ///< type-of-number bits
constexpr unsigned int c_alphanumeric = 5;
constexpr unsigned int c_reserved = 7;
constexpr unsigned int c_longestAddress = 255; ///< characters

constexpr unsigned int c_timeStampSize = 7;   ///< octets
constexpr unsigned int c_negativeZone = 0x08; ///< the sign bit of the time-zone octet
constexpr int c_quartersPerHour = 4;

/// The eight characters of four octets of semi-octets, the first one in the low-order bits: '0' plus each
/// value.
class EightDigits {
public:
    explicit EightDigits(std::uint64_t octets) : m_Values(octets) {
        m_Values = (m_Values | m_Values << 16) & 0x0000FFFF0000FFFF;
        m_Values = (m_Values | m_Values << 8) & 0x00FF00FF00FF00FF;
        m_Values = (m_Values | m_Values << 4) & 0x0F0F0F0F0F0F0F0F;
    }

    /// In a high semi-octet.
    bool HasFiller() const { return ((m_Values + 0x0100010001000100) & 0x1000100010001000) != 0; }

    void Write(unsigned char* characters) const {
        for (unsigned int i = 0; i < 8; ++i)
            characters[i] = static_cast<unsigned char>('0' + (m_Values >> 8 * i & 0x0F));
    }

private:
    std::uint64_t m_Values; ///< an octet each
};

/// An address as 8-bit characters.
class AddressText {
public:
    /// Septets are taken as character codes, without a look into the alphabet, and the walk goes one octet
    /// past the field; both are required. `octets` counts the type octet and those after it. A zero ends the
    /// text.
    void ReadAlphanumeric(const Pdu& pdu, unsigned int digits, unsigned int octets) {
        const unsigned int septets = std::min(octets + (octets - 1) / 7, c_longestAddress);
        UnpackSeptets(pdu, digits, 0, septets, First());
        m_Length = static_cast<std::size_t>(std::find(First(), First() + septets, 0) - First());
    }

    /// Every semi-octet is '0' plus its value, whatever the value; only a filler in the high one is left out:
    /// it is written, and the next digit takes its place.
    void ReadDigits(const Pdu& pdu, unsigned int digits, unsigned int octets) {
        unsigned char* next = First();
        const unsigned char* const full = next + c_longestAddress;
        unsigned int i = 1;
        for (; i + 4 <= octets && next + 8 <= full; i += 4, next += 8) {
            const EightDigits eight(FourOctetsAt(pdu, digits + i - 1));
            if (eight.HasFiller())
                break;
            eight.Write(next);
        }
        for (; i < octets && next < full; ++i) {
            const unsigned int pair = OctetAt(pdu, digits + i - 1);
            next[0] = static_cast<unsigned char>('0' + (pair & 0x0F));
            next[1] = static_cast<unsigned char>('0' + (pair >> 4));
            next += pair >> 4 != c_filler ? 2 : 1;
        }
        m_Length = std::min<std::size_t>(static_cast<std::size_t>(next - First()), c_longestAddress);
    }

    /// The wide form, after a "+" where the number is international.
    TString<wchar_t> Wide(bool isInternational) {
        m_Characters[0] = '+';
        const auto* characters = reinterpret_cast<const char*>(m_Characters.data());
        return Toolkit::UTF8::ToUNICODE(isInternational ? TString<char>(characters, m_Length + 1)
                                                        : TString<char>(characters + 1, m_Length));
    }

private:
    unsigned char* First() { return m_Characters.data() + 1; }

    std::size_t m_Length = 0;
    std::array<unsigned char, c_longestAddress + 2>
        m_Characters; ///< a place for the "+", the address after it, and one for the digit of a last filler
};

NumberingPlan::NPI PlanOf(unsigned int typeOfAddress) {
    switch (typeOfAddress & 0x0F) {
    case 0x1:
        return NumberingPlan::NPI_ISDN;
    case 0x3:
        return NumberingPlan::NPI_DATA;
    case 0x4:
        return NumberingPlan::NPI_TELEX;
    case 0x8:
        return NumberingPlan::NPI_NATIONAL;
    case 0x9:
        return NumberingPlan::NPI_PRIVATE;
    case 0xA:
        return NumberingPlan::NPI_ERMES;
    case 0xF:
        return NumberingPlan::NPI_RESERVED;
    default:
        return NumberingPlan::NPI_UNKNOWN;
    }
}

/// The time zone in quarter hours.
int QuarterHours(unsigned int zone) {
    if ((zone & c_negativeZone) != 0)
        return -Swapped(static_cast<unsigned char>(zone & ~c_negativeZone));
    return Swapped(static_cast<unsigned char>(zone));
}

} // namespace

unsigned int PduDecoder::ReadNumber(Toolkit::smart_ptr<Pdu> pdu, unsigned int offset, bool semiOctets,
                                    TString<wchar_t>& number, NumberingPlan::NPI& npi,
                                    TypeOfNumber::TON& ton) {
    if (pdu.get() == nullptr)
        return FIELD_FAILED;
    npi = NumberingPlan::NPI_UNKNOWN;
    ton = TypeOfNumber::TON_UNKNOWN;
    number.clear();

    // The type octet and the digit octets, whichever way the length counts.
    unsigned int octets = OctetAt(*pdu, offset);
    if (semiOctets)
        octets = (octets + 1) / 2 + 1;
    const unsigned long long end = static_cast<unsigned long long>(offset) + octets;
    if (pdu->m_Length <= end)
        return FIELD_FAILED;
    const auto next = static_cast<unsigned int>(end + 1);
    if (octets == 0)
        return next;

    AddressText text;
    const unsigned int typeOfAddress = OctetAt(*pdu, offset + 1);
    const unsigned int typeOfNumber = typeOfAddress >> 4 & 0x07;
    if (typeOfNumber == c_alphanumeric) {
        ton = TypeOfNumber::TON_ALPHANUMERIC;
        text.ReadAlphanumeric(*pdu, offset + 2, octets);
    } else {
        if (typeOfNumber == c_international)
            ton = TypeOfNumber::TON_INTERNATIONAL;
        else if (typeOfNumber == c_reserved)
            ton = TypeOfNumber::TON_RESERVED;
        text.ReadDigits(*pdu, offset + 2, octets);
    }
    number = text.Wide(ton == TypeOfNumber::TON_INTERNATIONAL);
    npi = PlanOf(typeOfAddress);
    return next;
}

unsigned int PduDecoder::ReadTimeStamp(Toolkit::smart_ptr<Pdu> pdu, unsigned int offset,
                                       Toolkit::smart_ptr<Toolkit::DateTime>& time, bool ignoreTimeZone) {
    if (pdu.get() == nullptr || pdu->m_Length <= static_cast<unsigned long long>(offset) + c_timeStampSize)
        return FIELD_FAILED;
    const unsigned int next = offset + c_timeStampSize;

    const auto field = [&](unsigned int i) {
        return static_cast<unsigned int>(Swapped(OctetAt(*pdu, offset + i)));
    };
    const unsigned int year = 2000 + field(0);
    const unsigned int month = field(1);
    const unsigned int day = field(2);
    const unsigned int hour = field(3);
    const unsigned int minute = field(4);
    const unsigned int second = field(5);
    // No lower bounds, and hour 24 passes, as is required.
    if (month > 12 || day > 31 || hour > 24 || minute > 59 || second > 59)
        return next;

    const int quarters = ignoreTimeZone ? 0 : QuarterHours(OctetAt(*pdu, offset + 6));
    if (quarters == 0 || quarters == -1)
        time = new Toolkit::DateTime(year, month, day, hour, minute, second);
    else
        time = new Toolkit::DateTime(year, month, day, hour, minute, second, quarters / c_quartersPerHour);
    return next;
}

} // namespace Encoding
