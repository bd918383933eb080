// Octets of a PDU as a person or a program is told about them.
#ifndef QXPDU_OCTETROW_H
#define QXPDU_OCTETROW_H

#include <string>
#include <string_view>
#include <vector>

#include "show/Json.h"

namespace qxpdu {

/// Some bits of an octet; those of one octet stand from the highest to the lowest.
struct OctetBits {
    unsigned int mask;
    std::string name;
    unsigned int value;
    std::string meaning; ///< may be empty
};

/// Neighbouring octets that say one thing.
struct OctetRow {
    unsigned int offset;
    unsigned int length;
    std::string_view field;           ///< by the standard, "TP-OA"
    std::string part;                 ///< of the field, "length"; empty where the row is the whole of it
    Json value;                       ///< a number or a string; null where the octets speak for themselves
    std::string meaning;              ///< may be empty
    std::vector<OctetBits> bits;      ///< of the first octet; empty where that is a number
    std::vector<std::string> unusual; ///< by the standard, though it decodes
    bool isText = false;              ///< the value is what a person wrote
};

/// "TP-OA length"
std::string NameOf(const OctetRow& row);

/// The bits with their values, the others as points: ".001 ....".
std::string BitPattern(const OctetBits& bits);

} // namespace qxpdu

#endif
