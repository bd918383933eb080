// What cell broadcast sends as it is shown: a page, a message or a notification, field by field.
#ifndef SHOW_BROADCAST_H
#define SHOW_BROADCAST_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Messages/Cell.h"

namespace show {

/// Octets of cell broadcast and what they say by the standard.
struct Broadcast {
    std::vector<std::uint8_t> octets;
    Messages::CellReading reading;
    std::vector<std::string> warnings; ///< of what had to be assumed to read it

    Messages::OctetView Octets(std::uint32_t octet, std::uint32_t count) const {
        return Messages::OctetView(octets).Sub(octet, count);
    }
};

/// A field as people speak of it: the length and the elements of a header are one, and the content of the
/// pages is shown as text.
struct BroadcastField {
    Messages::Field field;
    std::uint32_t octet = 0;                  ///< the first one
    std::uint32_t count = 0;                  ///< octets
    const Messages::CellPage* page = nullptr; ///< that it stands in; null where it is of all pages
    bool isCut = false;                       ///< the octets end in it

    /// Whether its octets are one number.
    bool IsNumber() const;
};

/// Whether the place holds what is there of the field that the reading ends in.
bool IsCut(const Messages::FieldPlace& place, const Broadcast& broadcast);

/// The fields in the order of their octets.
std::vector<BroadcastField> FieldsOf(const Broadcast& broadcast);

/// What the value of a field means, for a person; may be empty. An element of a header is a line.
std::string MeaningOf(const BroadcastField& field, const Broadcast& broadcast);

/// The page that an octet stands in; null where it stands in none.
const Messages::CellPage* PageAt(std::uint32_t octet, const Broadcast& broadcast);

/// Whether the scheme says what the pages are written in; not where they hold a protocol of its own.
bool HasAlphabet(const Messages::CellCoding& coding);

/// "en, English"; the code alone where it is no language of a data coding scheme.
std::string LanguageText(std::string_view code);

/// The octets of all pages that hold no text.
std::vector<std::uint8_t> DataOf(const std::vector<Messages::CellPage>& pages);

/// Whether something of the text is missing or is no whole character. What the pages that are there heal is
/// not.
bool ConcernsText(const Messages::Remark& remark, const Broadcast& broadcast);

/// Whether a character that a page lacks the rest of is whole in the text of all pages.
bool IsHealed(const Messages::Remark& remark, std::size_t page, const std::vector<Messages::CellPage>& pages);

} // namespace show

#endif
