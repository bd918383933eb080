// The user-data header: its elements, what they say of the text, and whatever is odd in them.
#ifndef TPDU_HEADERS_H
#define TPDU_HEADERS_H

#include <bitset>

#include "alphabet/Packing.h"
#include "tables/Values.h"
#include "tpdu/Addresses.h"
#include "tpdu/Sinks.h"
#include "tpdu/Telling.h"

namespace Messages {

constexpr std::size_t c_elementHeadOctets = 2; ///< identifier and length

/// What is known of the elements of the user-data header with an identifier.
struct ElementFacts {
    bool isReserved = false;
    bool standsOnce = false;
    std::int16_t least = -1;
    std::int16_t most = -1;
    std::int16_t excludes = -1;

    constexpr bool Allows(std::size_t length) const {
        return (least < 0 || length >= static_cast<std::size_t>(least)) &&
               (most < 0 || length <= static_cast<std::size_t>(most));
    }
};

constexpr auto c_elementFacts = Tables::ByOctet(Tables::c_headerElements, [](const Tables::ElementRow& row) {
    return ElementFacts{row.isReserved, row.times == "once", static_cast<std::int16_t>(row.least.value),
                        static_cast<std::int16_t>(row.most.value),
                        static_cast<std::int16_t>(row.excludes.value)};
});

/// Reads the header that user data begin with.
template <class Sink>
class HeaderReader : Telling<Sink> {
public:
    /// `at`: where the user data begin in the PDU. A language holds for septets only.
    HeaderReader(Sink& sink, std::size_t at, bool countsSeptets)
        : Telling<Sink>(sink), m_At(at), m_CountsSeptets(countsSeptets) {}

    /// REQUIRES user data of an octet.
    void Read(UserDataHead& head) {
        const std::size_t octets = 1U + head.octets[0];
        Place(Field::HeaderLength, Piece::Whole, m_At, 1);
        head.isHeaderIgnored = !HeaderAddsUp(head, octets);
        head.textOffset = std::min(octets, head.octets.size());
        if (head.isHeaderIgnored)
            Place(Field::IgnoredHeader, Piece::Whole, m_At + 1, head.textOffset - 1);
        else
            ReadElements(head, octets);
    }

private:
    using Telling<Sink>::Place;
    using Telling<Sink>::Note;
    using Telling<Sink>::m_Sink;

    bool HeaderAddsUp(const UserDataHead& head, std::size_t octets) {
        if (octets > head.octets.size()) {
            Note(RemarkCode::HeaderBeyondUserData, Field::HeaderLength, m_At, octets, head.octets.size());
            return false;
        }
        std::size_t at = 1;
        while (at + c_elementHeadOctets <= octets) {
            const std::size_t next = at + c_elementHeadOctets + head.octets[at + 1];
            if (next > octets) {
                Note(RemarkCode::HeaderOverrun, Field::HeaderElement, m_At + at, next - octets);
                return false;
            }
            at = next;
        }
        if (at < octets)
            Note(RemarkCode::HeaderLeftOver, Field::HeaderElement, m_At + at, octets - at);
        return at == octets;
    }

    void ReadElements(UserDataHead& head, std::size_t octets) {
        std::bitset<256> seen;
        for (std::size_t at = 1; at < octets;) {
            const HeaderElement element{head.octets[at], head.octets[at + 1],
                                        static_cast<std::uint8_t>(at + c_elementHeadOctets)};
            Place(Field::HeaderElement, Piece::Identifier, m_At + at, 1);
            Place(Field::HeaderElement, Piece::Length, m_At + at + 1, 1);
            Place(Field::HeaderElement, Piece::Content, m_At + element.offset, element.length);
            m_Sink.OnElement(element);
            NoteElement(element, element.Data(head.octets), m_At + at, seen);
            ReadElement(head, element, m_At + at);
            seen[element.identifier] = true;
            at += c_elementHeadOctets + element.length;
        }
    }

    void NoteElement(const HeaderElement& element, OctetView data, std::size_t octet,
                     const std::bitset<256>& seen) {
        const ElementFacts& facts = c_elementFacts[element.identifier];
        if (facts.isReserved)
            Note(RemarkCode::ReservedElement, Field::HeaderElement, octet, element.identifier);
        if (!facts.Allows(element.length) || (element.Is(ElementId::ReplyAddress) && !IsReplyAddress(data)))
            Note(RemarkCode::ElementLength, Field::HeaderElement, octet, element.identifier, element.length);
        if (facts.standsOnce && seen[element.identifier])
            Note(RemarkCode::ElementRepeated, Field::HeaderElement, octet, element.identifier);
        if (facts.excludes >= 0 && seen[static_cast<std::size_t>(facts.excludes)])
            Note(RemarkCode::ElementsExclusive, Field::HeaderElement, octet, element.identifier,
                 static_cast<std::size_t>(facts.excludes));
    }

    /// The elements that say how the text is read, and where it belongs.
    void ReadElement(UserDataHead& head, const HeaderElement& element, std::size_t octet) {
        const OctetView data = element.Data(head.octets);
        if (const auto concatenation = ReadConcatenation(element.identifier, data)) {
            if (concatenation->part != 0 && concatenation->part <= concatenation->total)
                head.concatenation = concatenation;
            else
                Note(RemarkCode::ConcatenationInvalid, Field::HeaderElement, octet, concatenation->part,
                     concatenation->total);
        } else if (const auto ports = ReadPorts(element.identifier, data)) {
            head.ports = ports;
        } else if (element.Is(ElementId::SingleShift)) {
            ReadLanguage(element, data, octet, HasSingleShiftTable, head.tables.single);
        } else if (element.Is(ElementId::LockingShift)) {
            ReadLanguage(element, data, octet, HasLockingTable, head.tables.locking);
        }
    }

    void ReadLanguage(const HeaderElement& element, OctetView data, std::size_t octet,
                      bool (&hasTable)(Language) noexcept, Language& language) {
        if (data.size() != 1)
            return;
        const auto told = static_cast<Language>(data[0]);
        if (told == Language::Default || !hasTable(told))
            Note(RemarkCode::UnknownLanguage, Field::HeaderElement, octet, data[0], element.identifier);
        else if (m_CountsSeptets)
            language = told;
    }

    std::size_t m_At;
    bool m_CountsSeptets;
};

} // namespace Messages

#endif
