// How a text is written the cheapest way, found by trying every way from the front.
#ifndef TESTS_REFERENCE_MESSAGES_MODEL_CHOOSING_H
#define TESTS_REFERENCE_MESSAGES_MODEL_CHOOSING_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace plain {

/// What one message has room for.
struct Space {
    int octets = 140;
    int elements = 0; ///< octets of header elements beside those of languages and concatenation
    bool isWide = false;
};

/// One way to write a text.
struct Way {
    bool isUcs2 = false;
    int locking = 0, single = 0;
    int units = 0;                   ///< septets or UTF-16 units
    int octets = 0;                  ///< of user data in all parts
    std::vector<std::size_t> begins; ///< of the parts, in characters of the text

    bool operator==(const Way&) const = default;
};

/// Nothing where the tables lack a character, or where a part has no room for two units.
std::optional<Way> WriteIn(const std::u32string& text, bool isUcs2, int locking, int single,
                           const Space& space);

/// The septets of a text that the two tables hold: the lower of several, 1B before one of the single shift
/// table.
std::vector<int> SeptetsIn(const std::u32string& text, int locking, int single);

/// The cheapest of all ways with the languages given; 0, the default alphabet, is among them.
std::optional<Way> Cheapest(const std::u32string& text, const std::vector<int>& languages, const Space& space,
                            bool mayBeGsm = true, bool mayBeUcs2 = true);

} // namespace plain

#endif
