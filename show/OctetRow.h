// Octets of a PDU as a person or a program is told about them.
#ifndef SHOW_OCTETROW_H
#define SHOW_OCTETROW_H

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "show/OctetBits.h"

namespace show {

/// What a person wrote.
struct QuotedText {
    std::string text;
};

/// Neighbouring octets that say one thing.
struct OctetRow {
    std::uint32_t octet;
    std::uint32_t count;
    std::string_view field;         ///< by the standard, "TP-OA"
    std::string_view subfield = {}; ///< of the field, "length"; empty where the row is the whole of it
    std::variant<std::monostate, int, std::string, QuotedText> value = {};
    std::string meaning = {};         ///< may be empty
    std::vector<OctetBits> bits = {}; ///< of the first octet; empty where that is a number
    bool isCount = false;             ///< the number is one, though it is made of bits
    bool isIdentifier = false;        ///< the number is none, though it is not made of bits
};

} // namespace show

#endif
