// What the parts of a message are written with, so that it can be read across their boundaries.
#ifndef QXPDU_PARTS_H
#define QXPDU_PARTS_H

#include <cstdint>
#include <vector>

#include "Messages/Alphabet.h"
#include "Messages/DataCoding.h"
#include "Messages/Tpdu.h"

namespace qxpdu {

/// The text of a part before it is decoded: septets one an octet, or octets.
struct PartContent {
    Messages::Alphabet alphabet = Messages::Alphabet::Gsm7; ///< data also where it is compressed
    Messages::SeptetTables tables;
    std::vector<std::uint8_t> units;

    bool operator==(const PartContent& other) const;

    /// Whether the text of both is read with the same alphabet and tables.
    bool IsAlike(const PartContent& other) const;
};

/// Nothing but GSM 7-bit without septets where the TPDU has no user data.
PartContent ContentOf(const Messages::Tpdu& tpdu);

} // namespace qxpdu

#endif
