#include "Choosing.h"

#include <map>
#include <tuple>

#include "Tables.h"

namespace plain {

namespace {

/// The septet of each character below U+10000 in one table, -1 where it has none.
using Septets = std::vector<int>;

Septets SeptetsOf(const Alphabet& alphabet) {
    Septets septets(0x10000, -1);
    for (int code = 127; code >= 0; --code) {
        const Cell& cell = alphabet[static_cast<std::size_t>(code)];
        if (cell.kind == Cell::CHARACTER && !cell.readOnly)
            septets[cell.character] = code;
    }
    return septets;
}

std::map<int, Septets> AllOf(const std::map<int, Alphabet>& alphabets) {
    std::map<int, Septets> all;
    for (const auto& [language, alphabet] : alphabets)
        all[language] = SeptetsOf(alphabet);
    return all;
}

bool Holds(const Septets& septets, char32_t character) {
    return character < 0x10000 && septets[character] >= 0;
}

const std::map<int, Septets>& Lockings() {
    static const std::map<int, Septets> all = AllOf(TheTables().locking);
    return all;
}

const std::map<int, Septets>& Singles() {
    static const std::map<int, Septets> all = AllOf(TheTables().single);
    return all;
}

/// What each character takes; empty where one has no septets.
std::optional<std::vector<int>> UnitsIn(const std::u32string& text, bool isUcs2, int locking, int single) {
    std::vector<int> units;
    for (const char32_t character : text) {
        if (isUcs2)
            units.push_back(character > 0xFFFF ? 2 : 1);
        else if (Holds(Lockings().at(locking), character))
            units.push_back(1);
        else if (Holds(Singles().at(single), character))
            units.push_back(2);
        else
            return {};
    }
    return units;
}

/// Octets of user data with a header of so many octets, 0 for none, and so many units.
int OctetsWith(int header, int units, bool isUcs2) {
    if (isUcs2)
        return header + 2 * units;
    const int headerSeptets = (8 * header + 6) / 7;
    return (7 * (headerSeptets + units) + 7) / 8;
}

} // namespace

std::optional<Way> WriteIn(const std::u32string& text, bool isUcs2, int locking, int single,
                           const Space& space) {
    const auto units = UnitsIn(text, isUcs2, locking, single);
    if (!units)
        return {};
    Way way{isUcs2, locking, single, 0, 0, {0}};
    for (const int one : *units)
        way.units += one;
    const int elements = space.elements + (locking != 0 ? 3 : 0) + (single != 0 ? 3 : 0);
    int header = elements == 0 ? 0 : 1 + elements;
    if (OctetsWith(header, way.units, isUcs2) <= space.octets) {
        way.octets = OctetsWith(header, way.units, isUcs2);
        return way;
    }
    header = 1 + elements + (space.isWide ? 6 : 5);
    if (OctetsWith(header, 2, isUcs2) > space.octets)
        return {};
    int used = 0;
    for (std::size_t i = 0; i < units->size(); ++i) {
        if (OctetsWith(header, used + (*units)[i], isUcs2) > space.octets) {
            way.octets += OctetsWith(header, used, isUcs2);
            way.begins.push_back(i);
            used = 0;
        }
        used += (*units)[i];
    }
    way.octets += OctetsWith(header, used, isUcs2);
    return way;
}

std::vector<int> SeptetsIn(const std::u32string& text, int locking, int single) {
    std::vector<int> septets;
    for (const char32_t character : text) {
        if (Holds(Lockings().at(locking), character)) {
            septets.push_back(Lockings().at(locking)[character]);
        } else {
            septets.push_back(0x1B);
            septets.push_back(Singles().at(single).at(character));
        }
    }
    return septets;
}

std::optional<Way> Cheapest(const std::u32string& text, const std::vector<int>& languages, const Space& space,
                            bool mayBeGsm, bool mayBeUcs2) {
    std::optional<Way> best;
    const auto rank = [](const Way& way) {
        const int kind = way.isUcs2         ? 4
                         : way.locking != 0 ? (way.single != 0 ? 3 : 2)
                         : way.single != 0  ? 1
                                            : 0;
        return std::tuple(way.begins.size(), way.octets, kind, way.locking, way.single);
    };
    const auto offer = [&](const std::optional<Way>& way) {
        if (way && (!best || rank(*way) < rank(*best)))
            best = way;
    };
    if (mayBeGsm)
        for (const int locking : languages)
            for (const int single : languages)
                if (TheTables().locking.contains(locking))
                    offer(WriteIn(text, false, locking, single, space));
    if (mayBeUcs2)
        offer(WriteIn(text, true, 0, 0, space));
    return best;
}

} // namespace plain
