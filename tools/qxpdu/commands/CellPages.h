// Puts the pages of cell broadcast messages together.
#ifndef QXPDU_CELLPAGES_H
#define QXPDU_CELLPAGES_H

#include <cstddef>
#include <list>
#include <map>
#include <optional>
#include <string>

namespace qxpdu {

/// What the pages of one message have in common.
struct CellMessageKey {
    unsigned int serialNumber;
    unsigned int messageIdentifier;
    unsigned int pages;

    bool operator==(const CellMessageKey&) const = default;
};

/// A message of which some pages have come.
struct CellMessage {
    CellMessageKey key;
    std::map<unsigned int, std::string> texts; ///< by page number

    bool IsComplete() const { return texts.size() == key.pages; }
    std::string Text() const;
};

/// Holds messages whose pages have not all come yet: OPEN_MESSAGES at most, of which the oldest then goes
/// first.
class CellPages {
public:
    static constexpr std::size_t OPEN_MESSAGES = 256;

    /// Takes a page in; one that is there already changes nothing. Returns a message that is complete now, or
    /// that had to go to make room.
    std::optional<CellMessage> Take(const CellMessageKey& key, unsigned int page, const std::string& text);

    /// Gives up the oldest message held, if any.
    std::optional<CellMessage> TakeOldest();

private:
    std::list<CellMessage> m_Messages; ///< in order of their first pages
};

} // namespace qxpdu

#endif
