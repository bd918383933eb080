// Reads pages, messages and notifications octet by octet.
#include <algorithm>

#include "alphabet/Text.h"
#include "cell/Pages.h"
#include "tpdu/Headers.h"
#include "tpdu/Octets.h"
#include "tpdu/Times.h"

namespace Messages {
namespace {

constexpr std::uint16_t Wide(std::uint8_t high, std::uint8_t low) {
    return static_cast<std::uint16_t>(high << 8 | low);
}

/// Puts what it is told into a reading.
class CellSink {
public:
    explicit CellSink(CellReading& reading) : m_Reading(reading) {}

    void OnPlace(const FieldPlace& place) { m_Reading.places.push_back(place); }
    void OnRemark(const Remark& remark) { m_Reading.remarks.push_back(remark); }
    void OnFault(const Fault& fault) { m_Reading.fault = fault; }
    void OnElement(const HeaderElement& element) { m_Reading.pages.back().elements.push_back(element); }

private:
    CellReading& m_Reading;
};

/// Where the text of septets ends and its padding begins: CRs, and zeros after them. Zeros without a CR fill
/// a page as well, if there are more of them than a text would end with.
struct TextEnd {
    std::size_t units;
    std::size_t zeros = 0; ///< at the end of the text, which may be filling

    TextEnd(OctetView septets, bool isWholePage) : units(septets.size()) {
        // A text hardly ends in two at signs; a page that is shorter than it may be needs no octets of zeros.
        const std::size_t leastFilling = isWholePage ? 2 : 8;
        Drop(0, septets);
        const std::size_t filling = septets.size() - units;
        const std::size_t run = units;
        Drop(c_carriageReturn, septets);
        if (units == run && filling < leastFilling) {
            units = septets.size();
            zeros = filling;
        }
        if (units < septets.size() && EndsInEscape(septets.Sub(0, units)))
            ++units;
    }

private:
    void Drop(std::uint8_t septet, OctetView septets) {
        while (units > 0 && septets[units - 1] == septet)
            --units;
    }
};

constexpr bool IsLetter(std::uint8_t septet) {
    return IsSmallLetter(septet) || (septet >= 'A' && septet <= 'Z');
}

std::string LanguageOf(const std::uint8_t* septets) {
    return {static_cast<char>(septets[0]), static_cast<char>(septets[1])};
}

class CellWalker : Telling<CellSink> {
public:
    CellWalker(OctetView octets, CellReading& reading, CellSink& sink)
        : Telling(sink), m_Octets(octets), m_Reading(reading) {}

    void Walk() {
        switch (m_Reading.format) {
        case CellFormat::UmtsMessage:
            return ReadMessage();
        case CellFormat::EtwsNotification:
            return ReadNotification();
        default:
            return ReadPage();
        }
    }

private:
    using Field = Messages::Field;

    std::size_t Left() const { return m_Octets.size() - m_At; }

    /// The octets of a field that must be there; none where they are not, and the reading has ended.
    OctetView Take(Field field, std::size_t count) {
        Place(field, Piece::Whole, m_At, std::min(count, Left()));
        if (Left() < count) {
            m_Sink.OnFault({m_Octets.empty() ? FaultCode::Empty : FaultCode::FieldCut, field, Count(m_At),
                            Count(count), Count(Left())});
            return {};
        }
        const OctetView octets = m_Octets.Sub(m_At, count);
        m_At += count;
        return octets;
    }

    // Each returns whether the field is there.

    bool TakeSerialNumber() {
        const OctetView octets = Take(Field::SerialNumber, 2);
        if (!octets.empty())
            m_Reading.serialNumber.value = Wide(octets[0], octets[1]);
        return !octets.empty();
    }

    bool TakeIdentifier() {
        const OctetView octets = Take(Field::MessageIdentifier, 2);
        if (!octets.empty())
            m_Reading.messageIdentifier = Wide(octets[0], octets[1]);
        return !octets.empty();
    }

    bool TakeCoding() {
        const OctetView octet = Take(Field::CellDataCoding, 1);
        if (octet.empty())
            return false;
        m_Reading.coding = CellCoding(octet[0]);
        if (m_Reading.coding.isReserved)
            Note(RemarkCode::ReservedDataCoding, Field::CellDataCoding, m_At - 1, octet[0]);
        return true;
    }

    void End() {
        if (Left() == 0)
            return;
        Note(RemarkCode::PageSurplus, Field::Surplus, m_At, Left());
        Place(Field::Surplus, Piece::Whole, m_At, Left());
    }

    void ReadPage() {
        if (!TakeSerialNumber() || !TakeIdentifier() || !TakeCoding())
            return;
        const OctetView parameter = Take(Field::PageParameter, 1);
        if (parameter.empty())
            return;
        std::uint8_t number = parameter[0] >> 4;
        std::uint8_t total = parameter[0] & 0x0F;
        if (number == 0 || total == 0) {
            Note(RemarkCode::PageParameterZero, Field::PageParameter, m_At - 1, parameter[0]);
            number = total = 1;
        } else if (number > total) {
            Note(RemarkCode::PageBeyondTotal, Field::PageParameter, m_At - 1, number, total);
        }
        m_Reading.total = total;
        ReadContent(number, std::min(Left(), c_cellPageOctets));
        End();
    }

    void ReadMessage() {
        const OctetView type = Take(Field::CellMessageType, 1);
        if (type.empty())
            return;
        if (type[0] != c_cbsMessageType)
            Note(RemarkCode::ReservedCellType, Field::CellMessageType, m_At - 1, type[0]);
        if (!TakeIdentifier() || !TakeSerialNumber() || !TakeCoding())
            return;
        const OctetView count = Take(Field::PageCount, 1);
        if (count.empty())
            return;
        if (count[0] == 0 || count[0] > c_cellPages)
            Note(RemarkCode::ReservedPageCount, Field::PageCount, m_At - 1, count[0]);
        m_Reading.total = static_cast<std::uint8_t>(std::clamp<std::size_t>(count[0], 1, c_cellPages));
        if (const std::size_t whole = Left() / c_slotOctets; whole < m_Reading.total)
            Note(RemarkCode::PagesMissing, Field::PageCount, m_At - 1, m_Reading.total, whole);
        for (std::uint8_t number = 1; number <= m_Reading.total && Left() != 0; ++number)
            ReadSlot(number);
        End();
    }

    /// A page of a message, with its length where that is there.
    void ReadSlot(std::uint8_t number) {
        const std::size_t lengthAt = m_At + c_cellPageOctets;
        if (lengthAt >= m_Octets.size()) {
            ReadContent(number, Left());
            m_Reading.pages.back().isCut = true;
            return;
        }
        const std::uint8_t length = m_Octets[lengthAt];
        if (length == 0 || length > c_cellPageOctets)
            Note(RemarkCode::ReservedPageLength, Field::PageLength, lengthAt, length);
        ReadContent(number, std::min<std::size_t>(length, c_cellPageOctets));
        Place(Field::PageFilling, Piece::Whole, m_At, lengthAt - m_At);
        Place(Field::PageLength, Piece::Whole, lengthAt, 1);
        m_At = lengthAt + 1;
    }

    void ReadNotification() {
        if (!TakeSerialNumber() || !TakeIdentifier())
            return;
        if (!IsEtws(m_Reading.messageIdentifier))
            Note(RemarkCode::NoWarningIdentifier, Field::MessageIdentifier, m_At - 2,
                 m_Reading.messageIdentifier);
        const OctetView type = Take(Field::WarningType, 2);
        if (type.empty())
            return;
        ReadWarningType(Wide(type[0], type[1]));
        if (Left() == 0)
            return Note(RemarkCode::WarningSecurityMissing, Field::WarningTime, m_At);
        const std::size_t timeAt = m_At;
        const OctetView time = Take(Field::WarningTime, c_timeOctets);
        if (time.empty())
            return;
        m_Reading.warning->time = ReadTime(time, [&](RemarkCode code, std::size_t octet) {
            Note(code, Field::WarningTime, timeAt + octet, octet);
        });
        const OctetView signature = Take(Field::WarningSignature, c_signatureOctets);
        if (signature.empty())
            return;
        m_Reading.warning->signature.assign(signature.begin(), signature.end());
        End();
    }

    void ReadWarningType(std::uint16_t value) {
        constexpr std::uint16_t filling = 0x7F;
        EtwsWarning& warning = m_Reading.warning.emplace();
        warning.value = value;
        warning.type = static_cast<std::uint8_t>(value >> 9);
        warning.hasEmergencyAlert = (value & 0x0100) != 0;
        warning.hasPopup = (value & 0x0080) != 0;
        if (Tables::IsReserved(Tables::RowWith(Tables::c_warningTypes, warning.type)))
            Note(RemarkCode::ReservedWarningType, Field::WarningType, m_At - 2, warning.type);
        if ((value & filling) != 0)
            Note(RemarkCode::WarningFillingSet, Field::WarningType, m_At - 1, value & filling);
    }

    // The content of a page, of which so many octets are used.

    void ReadContent(std::uint8_t number, std::size_t used) {
        CellPage& page = m_Reading.pages.emplace_back();
        page.number = number;
        const OctetView content = m_Octets.Sub(m_At, used);
        page.octets.assign(content.begin(), content.end());
        const CellCoding& coding = m_Reading.coding;
        bool isHeaderBeyond = false;
        if (coding.hasHeader)
            isHeaderBeyond = !ReadHeader(page);
        if (!coding.HasText() || isHeaderBeyond)
            ReadData(page);
        else if (coding.alphabet == Alphabet::Ucs2)
            ReadUnits(page);
        else
            ReadSeptets(page);
        m_At += used;
    }

    /// Whether the page holds the whole header.
    bool ReadHeader(CellPage& page) {
        if (page.octets.empty()) {
            Note(RemarkCode::HeaderMissing, Field::CellDataCoding, m_At);
            return true;
        }
        UserDataHead head;
        head.octets = page.octets;
        HeaderReader(m_Sink, m_At, m_Reading.coding.CountsSeptets()).Read(head);
        page.isHeaderIgnored = head.isHeaderIgnored;
        page.tables = head.tables;
        page.textOffset = static_cast<std::uint8_t>(head.textOffset);
        return page.octets[0] < page.octets.size();
    }

    void ReadData(CellPage& page) {
        const OctetView data = page.Content();
        Place(Field::PageContent, Piece::Whole, m_At + page.textOffset, data.size());
        if (m_Reading.coding.isCompressed)
            Note(RemarkCode::Compressed, Field::PageContent, m_At + page.textOffset);
        page.textUnits = static_cast<std::uint8_t>(data.size());
    }

    void ReadUnits(CellPage& page) {
        constexpr std::size_t unitOctets = 2;
        if (m_Reading.coding.group == CellCodingGroup::LanguageInText)
            ReadUnitsLanguage(page);
        const std::size_t textAt = m_At + page.textOffset;
        const OctetView octets = page.Content();
        Place(Field::PageContent, Piece::Whole, textAt, octets.size());
        const auto isPadding = [&](std::size_t unit) {
            const std::uint16_t value = Wide(octets[unitOctets * unit], octets[unitOctets * unit + 1]);
            return value == c_carriageReturn || value == 0;
        };
        const std::size_t all = octets.size() / unitOctets;
        std::size_t units = all;
        while (units > 0 && isPadding(units - 1))
            --units;
        page.textUnits = static_cast<std::uint8_t>(units);
        page.paddingUnits = static_cast<std::uint8_t>(all - units);
        std::array<char, c_cellPageOctets * c_mostUtf8OfUnit + c_utf8Slack> text;
        const char* const end =
            WriteUcs2Text(octets.Sub(0, unitOctets * units), text.data(),
                          [&](RemarkCode code, std::size_t unit, std::size_t place) {
                              Note(code, Field::PageContent, textAt + unitOctets * place, unit, place);
                          });
        page.text.assign(text.data(), static_cast<std::size_t>(end - text.data()));
        if (octets.size() % unitOctets != 0)
            Note(RemarkCode::OddOctet, Field::PageContent, textAt + octets.size() - 1,
                 octets[octets.size() - 1]);
    }

    /// Two letters in septets, and two bits that are 0 or begin a CR; networks without a language have a line
    /// break there.
    void ReadUnitsLanguage(CellPage& page) {
        constexpr std::uint8_t lastBit = 0x80;
        constexpr std::uint16_t lineBreak = 0x0D0A;
        std::array<std::uint8_t, c_languageSeptets> septets{};
        const OctetView octets = OctetView(page.octets).Sub(0, c_languageOctets);
        const bool isThere = octets.size() == c_languageOctets;
        const bool isBreak = isThere && Wide(octets[0], octets[1]) == lineBreak;
        UnpackSeptets(octets, 0, septets.size(), septets.data());
        if (isThere && (octets[1] & lastBit) == 0 && IsSmallLetter(septets[0]) && IsSmallLetter(septets[1]))
            page.language = LanguageOf(septets.data());
        else
            NoteNoLanguage(page);
        if (page.language.empty() && !isBreak)
            return;
        if (const CellPage& first = m_Reading.pages.front(); &page != &first && !BeginsAlike(page, first))
            return page.language.clear();
        Place(Field::PageLanguage, Piece::Whole, m_At, c_languageOctets);
        page.textOffset = c_languageOctets;
    }

    void NoteNoLanguage(const CellPage& page) {
        if (page.number == 1)
            Note(RemarkCode::LanguageMissing, Field::PageLanguage, m_At);
    }

    void ReadSeptets(CellPage& page) {
        if (page.textOffset != 0 && page.textOffset < page.octets.size())
            ReadFillBits(page);
        if (m_Reading.coding.group == CellCodingGroup::LanguageInText)
            ReadSeptetsLanguage(page);
        const std::size_t textAt = m_At + page.textOffset;
        const OctetView content = page.Content();
        Place(Field::PageContent, Piece::Whole, textAt, content.size(),
              static_cast<std::uint8_t>(0xFFU << page.textBit));
        std::array<std::uint8_t, c_pageSeptets> septets;
        const std::size_t all = UnpackSeptets(content, page.textBit, septets.size(), septets.data());
        const TextEnd end({septets.data(), all}, page.octets.size() == c_cellPageOctets);
        page.textUnits = static_cast<std::uint8_t>(end.units);
        page.paddingUnits = static_cast<std::uint8_t>(all - end.units);
        std::array<char, c_pageSeptets * c_mostUtf8OfUnit + c_utf8Slack> text;
        const char* const textEnd =
            WriteSeptetText({septets.data(), end.units}, page.tables, text.data(),
                            [&](RemarkCode code, std::size_t septet, std::size_t place) {
                                const std::size_t octet =
                                    textAt + (page.textBit + place * c_septetBits) / c_octetBits;
                                NoteText(code, Field::PageContent, octet, septet, place);
                            });
        page.text.assign(text.data(), static_cast<std::size_t>(textEnd - text.data()));
        if (end.zeros != 0)
            Note(RemarkCode::PagePossibleFilling, Field::PageContent, m_At + page.octets.size() - 1,
                 end.zeros);
    }

    void ReadFillBits(CellPage& page) {
        page.textBit = static_cast<std::uint8_t>(FillBitsAfter(page.textOffset));
        if (page.textBit == 0)
            return;
        const std::size_t octet = m_At + page.textOffset;
        const auto mask = static_cast<std::uint8_t>((1U << page.textBit) - 1);
        Place(Field::FillBits, Piece::Whole, octet, 1, mask);
        if (const unsigned int set = page.octets[page.textOffset] & mask; set != 0)
            Note(RemarkCode::FillBitsSet, Field::FillBits, octet, set);
    }

    /// Two letters and CR, in septets.
    void ReadSeptetsLanguage(CellPage& page) {
        constexpr std::size_t count = c_languageSeptets + 1;
        constexpr std::size_t wholeOctets = count * c_septetBits / c_octetBits;
        constexpr unsigned int bits = count * c_septetBits % c_octetBits;
        std::array<std::uint8_t, count> septets{};
        UnpackSeptets(page.octets, 0, count, septets.data());
        if (!IsLetter(septets[0]) || !IsLetter(septets[1]) || septets[2] != c_carriageReturn)
            return NoteNoLanguage(page);
        page.language = LanguageOf(septets.data());
        page.textOffset = wholeOctets;
        page.textBit = bits;
        Place(Field::PageLanguage, Piece::Whole, m_At, wholeOctets);
        Place(Field::PageLanguage, Piece::Whole, m_At + wholeOctets, 1,
              static_cast<std::uint8_t>((1U << bits) - 1));
    }

    OctetView m_Octets;
    CellReading& m_Reading;
    std::size_t m_At = 0; ///< the next octet
};

CellFormat FormatOf(OctetView octets) {
    constexpr std::size_t countAt = c_messageHeadOctets - 1;
    constexpr std::size_t identifierAt = 2;
    if (octets.size() > countAt && octets[0] == c_cbsMessageType && octets[countAt] >= 1 &&
        octets[countAt] <= c_cellPages &&
        octets.size() == c_messageHeadOctets + c_slotOctets * octets[countAt])
        return CellFormat::UmtsMessage;
    if (octets.size() == c_notificationOctets && IsEtws(Wide(octets[identifierAt], octets[identifierAt + 1])))
        return CellFormat::EtwsNotification;
    return CellFormat::GsmPage;
}

} // namespace

std::string_view CellReading::Language() const noexcept {
    if (!pages.empty() && !pages.front().language.empty())
        return pages.front().language;
    return coding.language;
}

CellReading ReadCell(OctetView octets, CellFormat format) {
    CellReading reading;
    reading.format = format == CellFormat::Unknown ? FormatOf(octets) : format;
    CellSink sink(reading);
    CellWalker(octets, reading, sink).Walk();
    reading.text = JoinText(reading.pages, reading.coding);
    return reading;
}

CellReading ReadCellHex(std::string_view digits, CellFormat format) {
    std::vector<std::uint8_t> octets;
    const std::optional<std::size_t> none = ReadOctets(digits, octets);
    if (!none)
        return ReadCell(octets, format);
    CellReading reading;
    reading.format = format;
    reading.fault =
        Fault{FaultCode::NotHexadecimal, Field::SerialNumber, static_cast<std::uint32_t>(*none), 1, 0};
    return reading;
}

} // namespace Messages
