// Writes pages and messages of text.
#include <algorithm>
#include <utility>

#include "cell/Pages.h"
#include "tables/Values.h"

namespace Messages {
namespace {

constexpr std::size_t c_unitOctets = 2;

/// Schemes that name no language.
constexpr std::uint8_t c_septetsAlone = 0x0F;
constexpr std::uint8_t c_unitsAlone = 0x48;
constexpr std::uint8_t c_classedSeptets = 0x50; ///< and the class
constexpr std::uint8_t c_classedUnits = 0x58;   ///< and the class
constexpr std::uint8_t c_languageAndSeptets = 0x10;
constexpr std::uint8_t c_languageAndUnits = 0x11;

/// The text as units: septets, one an octet, or UTF-16 units, two octets each.
struct Units {
    Alphabet alphabet = Alphabet::Gsm7;
    std::vector<std::uint8_t> octets;

    std::size_t UnitOctets() const { return alphabet == Alphabet::Gsm7 ? 1 : c_unitOctets; }
    std::size_t Count() const { return octets.size() / UnitOctets(); }
    std::uint16_t At(std::size_t unit) const {
        return alphabet == Alphabet::Gsm7 ? octets[unit]
                                          : static_cast<std::uint16_t>(octets[c_unitOctets * unit] << 8 |
                                                                       octets[c_unitOctets * unit + 1]);
    }
    OctetView Of(std::size_t first, std::size_t end) const {
        return OctetView(octets).Sub(first * UnitOctets(), (end - first) * UnitOctets());
    }
};

CellDraftFault FaultOf(const CellDraft& draft) {
    if (draft.format != CellFormat::GsmPage && draft.format != CellFormat::UmtsMessage)
        return CellDraftFault::NoSuchFormat;
    if (draft.alphabet == Alphabet::Data)
        return CellDraftFault::NoSuchAlphabet;
    if (draft.messageClass.value_or(0) > 3)
        return CellDraftFault::NoSuchClass;
    if (draft.language.empty())
        return CellDraftFault::None;
    if (draft.language.size() != c_languageSeptets ||
        !std::all_of(draft.language.begin(), draft.language.end(),
                     [](char letter) { return IsSmallLetter(static_cast<std::uint8_t>(letter)); }))
        return CellDraftFault::NoSuchLanguage;
    return draft.messageClass ? CellDraftFault::LanguageAndClass : CellDraftFault::None;
}

/// The default alphabet with its extension, or UCS2 where the text needs it. Returns what does not fit.
std::optional<MisfitCharacter> MakeUnits(const CellDraft& draft, Units& units) {
    if (draft.alphabet != Alphabet::Ucs2) {
        const std::optional<MisfitCharacter> misfit = AppendSeptets(draft.text, {}, units.octets);
        if (!misfit || misfit->character == c_notUtf8 || draft.alphabet)
            return misfit;
    }
    units.alphabet = Alphabet::Ucs2;
    return AppendUcs2(draft.text, units.octets);
}

std::uint8_t CodingOf(const CellDraft& draft, Alphabet alphabet) {
    const bool isSeptets = alphabet == Alphabet::Gsm7;
    if (draft.messageClass)
        return (isSeptets ? c_classedSeptets : c_classedUnits) | *draft.messageClass;
    if (draft.language.empty())
        return isSeptets ? c_septetsAlone : c_unitsAlone;
    if (!isSeptets)
        return c_languageAndUnits;
    for (const Tables::CellCodingRow& row : Tables::c_cellCodings)
        if (row.code == draft.language)
            return static_cast<std::uint8_t>(row.value.value);
    return c_languageAndSeptets;
}

/// Whether a cut before the unit parts a pair.
bool PartsPair(const Units& units, std::size_t at) {
    if (units.alphabet == Alphabet::Ucs2)
        return (units.At(at - 1) & 0xFC00) == 0xD800;
    return units.At(at - 1) == c_escapeSeptet;
}

/// Where a page ends that begins with a unit and has room for so many. A page is shorter where its end would
/// be taken for padding; of the last one only what fills it is, as nothing can come after a CR of its own.
std::size_t EndOfPage(const Units& units, std::size_t first, std::size_t room) {
    const auto looksLikePadding = [&](std::size_t end) {
        const std::uint16_t last = units.At(end - 1);
        if (last == 0) // a septet 0 is none where a CR comes after it
            return units.alphabet == Alphabet::Ucs2 ? end < units.Count() : end - first == room;
        return last == c_carriageReturn && end < units.Count();
    };
    std::size_t whole = first + std::min(units.Count() - first, room);
    if (whole < units.Count() && PartsPair(units, whole))
        --whole;
    std::size_t end = whole;
    while (end > first && looksLikePadding(end))
        --end;
    if (end > first)
        return end;
    // Nothing but what looks so: a last septet 0 that fills the page begins the next one, as a CR cannot
    // follow.
    const bool fillsPage =
        units.alphabet == Alphabet::Gsm7 && whole - first == room && units.At(whole - 1) == 0;
    return fillsPage ? whole - 1 : whole;
}

/// Packs septets, padded to so many.
std::vector<std::uint8_t> PackPadded(std::vector<std::uint8_t> septets, std::size_t count) {
    septets.resize(count, c_carriageReturn);
    std::vector<std::uint8_t> packed(OctetsOfSeptets(count));
    packed.resize(PackSeptets(septets, 0, packed.data()));
    return packed;
}

/// Septets that a page of a message needs: none of the bits after the text is a whole septet, and a last
/// septet 0 is no filling.
std::size_t PaddedSeptets(OctetView septets) {
    constexpr std::size_t group = 8;
    std::size_t count = septets.size();
    if (count == 0 || septets[count - 1] == 0)
        ++count;
    if (count % group == group - 1)
        ++count;
    return count;
}

/// The content of a page: all 82 octets, or those that are used.
std::vector<std::uint8_t> ContentOf(const CellCoding& coding, const std::string& language, OctetView units,
                                    bool isWhole) {
    const bool hasLanguage = coding.group == CellCodingGroup::LanguageInText;
    std::vector<std::uint8_t> content;
    if (hasLanguage)
        content.assign(language.begin(), language.end());
    if (coding.alphabet == Alphabet::Gsm7) {
        if (hasLanguage)
            content.push_back(c_carriageReturn);
        content.insert(content.end(), units.begin(), units.end());
        const std::size_t count = isWhole ? c_pageSeptets : PaddedSeptets(content);
        return PackPadded(std::move(content), count);
    }
    if (hasLanguage)
        content = PackPadded(std::move(content), c_languageSeptets);
    content.insert(content.end(), units.begin(), units.end());
    const std::size_t octets = isWhole ? c_cellPageOctets : std::max(content.size(), c_unitOctets);
    while (content.size() < octets) {
        content.push_back(0);
        content.push_back(c_carriageReturn);
    }
    return content;
}

void AppendWide(std::uint16_t value, std::vector<std::uint8_t>& octets) {
    octets.push_back(static_cast<std::uint8_t>(value >> 8));
    octets.push_back(static_cast<std::uint8_t>(value & 0xFF));
}

std::vector<std::uint8_t> GsmPage(const CellDraft& draft, const CellCoding& coding, std::size_t number,
                                  std::size_t total, const std::vector<std::uint8_t>& content) {
    std::vector<std::uint8_t> octets;
    octets.reserve(c_gsmPageOctets);
    AppendWide(draft.serialNumber.value, octets);
    AppendWide(draft.messageIdentifier, octets);
    octets.push_back(coding.value);
    octets.push_back(static_cast<std::uint8_t>(number << 4 | total));
    octets.insert(octets.end(), content.begin(), content.end());
    return octets;
}

std::vector<std::uint8_t> UmtsMessage(const CellDraft& draft, const CellCoding& coding,
                                      const std::vector<std::vector<std::uint8_t>>& contents) {
    std::vector<std::uint8_t> octets;
    octets.reserve(c_messageHeadOctets + contents.size() * c_slotOctets);
    octets.push_back(c_cbsMessageType);
    AppendWide(draft.messageIdentifier, octets);
    AppendWide(draft.serialNumber.value, octets);
    octets.push_back(coding.value);
    octets.push_back(static_cast<std::uint8_t>(contents.size()));
    for (const std::vector<std::uint8_t>& content : contents) {
        octets.insert(octets.end(), content.begin(), content.end());
        octets.resize(octets.size() + c_cellPageOctets - content.size());
        octets.push_back(static_cast<std::uint8_t>(content.size()));
    }
    return octets;
}

} // namespace

CellWritten WriteCell(const CellDraft& draft) {
    CellWritten written;
    Units units;
    written.fault = FaultOf(draft);
    if (written.fault != CellDraftFault::None)
        return written;
    written.misfit = MakeUnits(draft, units);
    if (written.misfit) {
        const bool isText = written.misfit->character != c_notUtf8;
        written.fault = isText ? CellDraftFault::NotInAlphabet : CellDraftFault::NotUtf8;
        return written;
    }
    const CellCoding coding(CodingOf(draft, units.alphabet));
    const bool hasLanguage = coding.group == CellCodingGroup::LanguageInText;
    const bool isSeptets = units.alphabet == Alphabet::Gsm7;
    const std::size_t room = isSeptets
                                 ? c_pageSeptets - (hasLanguage ? c_languageSeptets + 1 : 0)
                                 : (c_cellPageOctets - (hasLanguage ? c_languageOctets : 0)) / c_unitOctets;

    const bool isGsm = draft.format == CellFormat::GsmPage;
    std::vector<std::vector<std::uint8_t>> contents;
    std::size_t at = 0;
    do {
        if (contents.size() == c_cellPages) {
            written.fault = CellDraftFault::TooLong;
            return written;
        }
        const std::size_t end = EndOfPage(units, at, room);
        contents.push_back(ContentOf(coding, draft.language, units.Of(at, end), isGsm));
        at = end;
    } while (at < units.Count());

    written.coding = coding;
    written.pages = contents.size();
    if (isGsm)
        for (std::size_t i = 0; i < contents.size(); ++i)
            written.octets.push_back(GsmPage(draft, coding, i + 1, contents.size(), contents[i]));
    else
        written.octets.push_back(UmtsMessage(draft, coding, contents));
    return written;
}

} // namespace Messages
