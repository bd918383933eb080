#include "messages/Agreement.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "Messages/Words.h"

namespace tests {
namespace {

using namespace Messages;

void Require(bool holds, const char* what, OctetView pdu) {
    if (holds)
        return;
    std::cerr << what << ": " << ToHex(pdu) << '\n';
    std::abort();
}

auto Members(const FieldPlace& place) {
    return std::tuple(place.field, place.piece, place.mask, place.value, place.octet, place.count);
}
auto Members(const Remark& remark) {
    return std::tuple(remark.code, remark.field, remark.octet, remark.number, remark.other);
}
auto Members(const Fault& fault) {
    return std::tuple(fault.code, fault.field, fault.octet, fault.expected, fault.found);
}

template <class Value>
bool AreSame(const std::vector<Value>& left, const std::vector<Value>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const Value& one, const Value& other) { return Members(one) == Members(other); });
}

bool AreSame(const std::optional<Fault>& left, const std::optional<Fault>& right) {
    return left.has_value() == right.has_value() && (!left || Members(*left) == Members(*right));
}

bool AreSame(const UserData* left, const UserData* right) {
    if (left == nullptr || right == nullptr)
        return left == right;
    return left->octets == right->octets && left->text == right->text && left->length == right->length &&
           left->elements.size() == right->elements.size() && left->textUnits == right->textUnits &&
           left->concatenation == right->concatenation && left->ports == right->ports;
}

bool AreSame(const Reading& left, const Reading& right) {
    const Address* const party = PartyOf(left.tpdu);
    const Address* const other = PartyOf(right.tpdu);
    return left.Type() == right.Type() && left.direction == right.direction &&
           left.serviceCentre == right.serviceCentre && AreSame(left.places, right.places) &&
           AreSame(left.remarks, right.remarks) && AreSame(left.fault, right.fault) &&
           (party == nullptr) == (other == nullptr) && (party == nullptr || *party == *other) &&
           AreSame(UserDataOf(left.tpdu), UserDataOf(right.tpdu));
}

class Noting : public Visitor {
public:
    std::vector<FieldPlace> places;
    std::vector<Remark> remarks;
    std::optional<Fault> fault;

    void OnPlace(const FieldPlace& place) override { places.push_back(place); }
    void OnRemark(const Remark& remark) override { remarks.push_back(remark); }
    void OnFault(const Fault& one) override { fault = one; }
};

/// Each bit of each octet in one place.
bool CoverAllOnce(const std::vector<FieldPlace>& places, std::size_t octets, bool hasRest = false) {
    std::vector<unsigned int> covered(octets);
    for (const FieldPlace& place : places) {
        for (std::uint32_t i = 0; i < place.count; ++i) {
            const unsigned int mask = i == 0 ? place.mask : 0xFFU;
            if (place.octet + i >= octets || (covered[place.octet + i] & mask) != 0)
                return false;
            covered[place.octet + i] |= mask;
        }
    }
    return hasRest ||
           std::all_of(covered.begin(), covered.end(), [](unsigned int bits) { return bits == 0xFF; });
}

bool IsUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = lead < 0x80    ? 1
                                   : lead >= 0xF0 ? 4
                                   : lead >= 0xE0 ? 3
                                   : lead >= 0xC2 ? 2
                                                  : 0;
        if (length == 0 || lead > 0xF4 || at + length > text.size())
            return false;
        std::uint32_t character = length == 1 ? lead : lead & (0x7FU >> length);
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(text[at + i]);
            if ((next & 0xC0U) != 0x80)
                return false;
            character = character << 6U | (next & 0x3FU);
        }
        constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
        if (character < least[length] || character > 0x10FFFF || (character >= 0xD800 && character < 0xE000))
            return false;
        at += length;
    }
    return true;
}

void CheckFindings(const std::vector<Remark>& remarks, const std::optional<Fault>& fault, OctetView pdu) {
    for (const Remark& remark : remarks) {
        Require(remark.octet <= pdu.size(), "a remark is about an octet", pdu);
        Require(!MeaningOf(remark).empty(), "a remark has words", pdu);
    }
    if (fault)
        Require(!MeaningOf(*fault).empty(), "a fault has words", pdu);
}

void CheckTexts(const Reading& reading, OctetView pdu) {
    if (const Address* const party = PartyOf(reading.tpdu))
        Require(IsUtf8(party->text), "a name is UTF-8", pdu);
    if (const UserData* const data = UserDataOf(reading.tpdu)) {
        Require(IsUtf8(data->text), "text is UTF-8", pdu);
        Require(data->textOffset <= data->octets.size(), "text begins in the user data", pdu);
        for (const HeaderElement& element : data->elements)
            Require(element.Data(data->octets).size() == element.length, "elements lie in the user data",
                    pdu);
    }
    CheckFindings(reading.remarks, reading.fault, pdu);
}

ReadOptions OptionsOf(unsigned int way, OctetView pdu) {
    constexpr unsigned int three = 3;
    ReadOptions options;
    options.serviceCentre = static_cast<Presence>(way % three);
    options.direction = static_cast<Direction>(way / three % three);
    options.failureCause = static_cast<Presence>(way / (three * three) % three);
    if (options.failureCause == Presence::No)
        options.announcedLength = static_cast<std::uint32_t>(pdu.size());
    if (options.failureCause == Presence::Yes)
        options.announcedLength = 1;
    return options;
}

void CheckWay(OctetView pdu, unsigned int way) {
    const ReadOptions options = OptionsOf(way, pdu);
    const Reading reading = Read(pdu, options);
    const bool isReserved = reading.fault && reading.fault->code == FaultCode::ReservedType;
    Require(CoverAllOnce(reading.places, pdu.size(), isReserved), "places cover all octets once", pdu);
    CheckTexts(reading, pdu);
    Require(!reading.IsSound() || reading.Type() != TpduType::None, "what is sound has a type", pdu);
    Reading used = Read(pdu, OptionsOf(way + 1, pdu));
    Read(pdu, options, used);
    Require(AreSame(reading, used), "a used reading becomes the same", pdu);
    Noting noting;
    Walk(pdu, options, noting);
    Require(AreSame(noting.places, reading.places) && AreSame(noting.remarks, reading.remarks) &&
                AreSame(noting.fault, reading.fault),
            "a walk tells what a reading gives", pdu);
}

void CheckPages(const CellReading& reading, OctetView octets) {
    Require(IsUtf8(reading.text), "text is UTF-8", octets);
    Require(reading.pages.size() <= c_cellPages, "pages are 15 at most", octets);
    for (const CellPage& page : reading.pages) {
        Require(IsUtf8(page.text), "the text of a page is UTF-8", octets);
        Require(page.octets.size() <= c_cellPageOctets, "a page has 82 octets at most", octets);
        Require(page.textOffset <= page.octets.size(), "text begins in its page", octets);
        for (const HeaderElement& element : page.elements)
            Require(element.Data(page.octets).size() == element.length, "elements lie in the page", octets);
    }
}

void CheckJoining(const CellReading& reading, OctetView octets) {
    CellJoiner joiner;
    CellTaken taken = joiner.Take(reading);
    const bool isTaken = !reading.fault && !reading.pages.empty();
    std::optional<CellMessage> message = std::move(taken.complete);
    if (!message && !taken.givenUp.empty())
        message = std::move(taken.givenUp.front());
    if (!message)
        message = joiner.TakeOldest();
    Require(message.has_value() == isTaken, "a joiner keeps or gives back what it takes", octets);
    Require(!message || message->Text() == reading.text, "a message has the text of its reading", octets);
}

/// Whether returns and NULs end a text, as padding does, or fill a page.
bool LooksPadded(std::string_view text) {
    constexpr std::size_t leastOfAPage = 40; // characters
    std::size_t run = 0;
    for (const char one : text) {
        run = one == '\r' || one == '\0' ? run + 1 : 0;
        if (run == leastOfAPage)
            return true;
    }
    return run != 0;
}

void CheckWriting(CellDraft draft, OctetView octets) {
    const bool looksPadded = LooksPadded(draft.text);
    for (const CellFormat format : {CellFormat::GsmPage, CellFormat::UmtsMessage}) {
        draft.format = format;
        const CellWritten written = WriteCell(draft);
        Require(written.fault == CellDraftFault::None || written.fault == CellDraftFault::TooLong,
                "a text can be written", octets);
        CellJoiner joiner;
        std::optional<CellMessage> message;
        for (const std::vector<std::uint8_t>& sent : written.octets) {
            const CellReading page = ReadCell(sent, format);
            Require(!page.fault && page.remarks.empty(), "what is written is read without a remark", sent);
            message = joiner.Take(page).complete;
        }
        Require(written.octets.empty() || (message && (looksPadded || message->Text() == draft.text)),
                "what is written is read as it was", octets);
    }
}

void CheckWriting(const CellReading& reading, OctetView octets) {
    CellDraft draft;
    draft.serialNumber = reading.serialNumber;
    draft.text = reading.text;
    CheckWriting(draft, octets);
}

void CheckCell(OctetView octets, CellFormat format) {
    const CellReading reading = ReadCell(octets, format);
    Require(CoverAllOnce(reading.places, octets.size()), "places cover all octets once", octets);
    Require(format == CellFormat::Unknown || reading.format == format, "a format that is told holds", octets);
    const CellReading told = ReadCell(octets, reading.format);
    Require(told.text == reading.text && AreSame(told.places, reading.places) &&
                AreSame(told.remarks, reading.remarks) && AreSame(told.fault, reading.fault),
            "a format is read alike, told or recognised", octets);
    CheckFindings(reading.remarks, reading.fault, octets);
    CheckPages(reading, octets);
    CheckJoining(reading, octets);
    CheckWriting(reading, octets);
}

/// A copy of its own, so that a sanitizer sees whatever is read after its end.
class Copy {
public:
    explicit Copy(OctetView octets) : m_Octets(new std::uint8_t[octets.size()]), m_Size(octets.size()) {
        std::copy(octets.begin(), octets.end(), m_Octets.get());
    }
    OctetView View() const { return {m_Octets.get(), m_Size}; }

private:
    std::unique_ptr<std::uint8_t[]> m_Octets;
    std::size_t m_Size;
};

} // namespace

void CheckAgreement(OctetView pdu, unsigned int way) {
    const Copy copy(pdu);
    CheckWay(copy.View(), way);
}

void CheckCellAgreement(OctetView octets, CellFormat format) {
    const Copy copy(octets);
    CheckCell(copy.View(), format);
}

void CheckCellText(OctetView runs) {
    constexpr std::string_view c_characters[] = {"@", "\r", "x", "\xE2\x82\xAC"};
    CellDraft draft;
    for (const std::uint8_t run : runs)
        for (unsigned int count = 0; count <= run >> 2U; ++count)
            draft.text += c_characters[run & 3U];
    CheckWriting(draft, runs);
    draft.language = "uk";
    CheckWriting(draft, runs);
}

void CheckAgreement(OctetView pdu) {
    for (unsigned int way = 0; way < c_ways; ++way)
        CheckAgreement(pdu, way);
}

} // namespace tests
