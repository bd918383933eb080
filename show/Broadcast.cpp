#include "show/Broadcast.h"

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/CodeUnits.h"
#include "show/Message.h"
#include "show/Plural.h"
#include "show/Subfields.h"

namespace show {

namespace {

using Messages::CellFormat;
using Messages::CellPage;
using Messages::Field;
using Messages::FieldPlace;

constexpr std::uint32_t c_messageHead = 7; ///< octets before the first page of a UMTS message
constexpr std::uint32_t c_slot = Messages::c_cellPageOctets + 1; ///< of a page with its length
constexpr std::uint8_t c_cbsMessage = 1;                         ///< message type

/// What no line is made of: bits between fields, what a page does not use, and what the text is made of.
bool IsPassedOver(Field field) {
    return field == Field::FillBits || field == Field::PageFilling || field == Field::PageContent;
}

std::string MeaningOfWarningType(const Messages::EtwsWarning& warning) {
    return fmt::format("{}{}{}", Messages::NameOfWarningType(warning.type),
                       warning.hasEmergencyAlert ? ", emergency user alert" : "",
                       warning.hasPopup ? ", popup" : "");
}

std::string MeaningOfTime(const Messages::Timestamp& time) {
    return time.isValid ? time.ToString() : "no time";
}

char32_t UnitOf(const CellPage& page, std::size_t unit) {
    return UnitAt(page.Content(), 2 * unit);
}

std::size_t IndexOf(const CellPage* page, const Broadcast& broadcast) {
    return static_cast<std::size_t>(page - broadcast.reading.pages.data());
}

} // namespace

bool BroadcastField::IsNumber() const {
    switch (field) {
    case Field::SerialNumber:
    case Field::MessageIdentifier:
    case Field::CellDataCoding:
    case Field::PageParameter:
    case Field::CellMessageType:
    case Field::PageCount:
    case Field::PageLength:
    case Field::WarningType:
        return !isCut;
    default:
        return false;
    }
}

bool IsCut(const FieldPlace& place, const Broadcast& broadcast) {
    const auto& fault = broadcast.reading.fault;
    return fault && fault->field == place.field && fault->octet == place.octet;
}

std::vector<BroadcastField> FieldsOf(const Broadcast& broadcast) {
    std::vector<BroadcastField> fields;
    for (const FieldPlace& place : broadcast.reading.places) {
        if (place.count == 0 || IsPassedOver(place.field))
            continue;
        const CellPage* const page = place.field == Field::Surplus ? nullptr : PageAt(place.octet, broadcast);
        if (!fields.empty() && fields.back().page == page && AreOneField(fields.back().field, place.field))
            fields.back().count += place.count;
        else
            fields.push_back({place.field, place.octet, place.count, page, IsCut(place, broadcast)});
    }
    return fields;
}

std::string MeaningOf(const BroadcastField& field, const Broadcast& broadcast) {
    const Messages::CellReading& reading = broadcast.reading;
    if (field.isCut)
        return {};
    switch (field.field) {
    case Field::SerialNumber:
        return Messages::MeaningOf(reading.serialNumber, reading.messageIdentifier);
    case Field::MessageIdentifier:
        return Messages::MeaningOfMessageIdentifier(reading.messageIdentifier);
    case Field::CellDataCoding:
        return Messages::MeaningOf(reading.coding);
    case Field::PageParameter:
        return fmt::format("page {} of {}", reading.pages.front().number, reading.total);
    case Field::CellMessageType:
        return broadcast.octets[field.octet] == c_cbsMessage ? "CBS message" : "reserved";
    case Field::PageCount:
        return Counted(reading.total, "page");
    case Field::PageLength:
        return fmt::format("page {}, {}", field.page->number,
                           Counted(broadcast.octets[field.octet], "octet"));
    case Field::PageLanguage:
        return LanguageText(field.page->language);
    case Field::HeaderLength:
        return MeaningOfHeader(field.page->elements, field.page->octets, field.page->isHeaderIgnored);
    case Field::WarningType:
        return MeaningOfWarningType(*reading.warning);
    case Field::WarningTime:
        return MeaningOfTime(*reading.warning->time);
    default:
        return {};
    }
}

const CellPage* PageAt(std::uint32_t octet, const Broadcast& broadcast) {
    const Messages::CellReading& reading = broadcast.reading;
    constexpr std::uint32_t c_pageHead = 6; ///< octets before the content of a GSM page
    const bool isMessage = reading.format == CellFormat::UmtsMessage;
    const std::uint32_t head = isMessage ? c_messageHead : c_pageHead;
    if (octet < head)
        return nullptr;
    const std::size_t index = isMessage ? (octet - head) / c_slot : 0;
    return index < reading.pages.size() ? &reading.pages[index] : nullptr;
}

bool HasAlphabet(const Messages::CellCoding& coding) {
    return coding.group != Messages::CellCodingGroup::I1Protocol &&
           coding.group != Messages::CellCodingGroup::Wap;
}

std::string LanguageText(std::string_view code) {
    const std::string_view name = Messages::NameOfCellLanguage(code);
    return fmt::format("{}{}{}", code.empty() ? "none" : code, name.empty() ? "" : ", ", name);
}

std::vector<std::uint8_t> DataOf(const std::vector<CellPage>& pages) {
    std::vector<std::uint8_t> data;
    for (const CellPage& page : pages) {
        const Messages::OctetView content = page.Content();
        data.insert(data.end(), content.begin(), content.end());
    }
    return data;
}

bool ConcernsText(const Messages::Remark& remark, const Broadcast& broadcast) {
    if (remark.code == Messages::RemarkCode::PagesMissing)
        return true;
    if (!ConcernsText(remark))
        return false;
    const CellPage* const page = PageAt(remark.octet, broadcast);
    if (page != nullptr && remark.code == Messages::RemarkCode::OddOctet && page->paddingUnits != 0)
        return false; // after the text
    return page == nullptr || !IsHealed(remark, IndexOf(page, broadcast), broadcast.reading.pages);
}

bool IsHealed(const Messages::Remark& remark, std::size_t page, const std::vector<CellPage>& pages) {
    const auto goesOn = [&](std::size_t at) {
        return at + 1 < pages.size() && !pages[at].isCut && pages[at + 1].number == pages[at].number + 1 &&
               pages[at + 1].tables == pages[at].tables && pages[at + 1].textUnits != 0;
    };
    switch (remark.code) {
    case Messages::RemarkCode::EscapeAtEnd:
        return goesOn(page);
    case Messages::RemarkCode::UnpairedSurrogate:
        if (IsHighSurrogate(remark.number))
            return remark.other + 1 == pages[page].textUnits && goesOn(page) &&
                   IsLowSurrogate(UnitOf(pages[page + 1], 0));
        return remark.other == 0 && page > 0 && goesOn(page - 1) && pages[page - 1].textUnits != 0 &&
               IsHighSurrogate(UnitOf(pages[page - 1], pages[page - 1].textUnits - 1U));
    default:
        return false;
    }
}

} // namespace show
