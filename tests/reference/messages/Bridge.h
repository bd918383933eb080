// What libQX_Messages reads, in the second reading's values.
#ifndef TESTS_REFERENCE_MESSAGES_BRIDGE_H
#define TESTS_REFERENCE_MESSAGES_BRIDGE_H

#include <string>

#include "Messages/Read.h"
#include "model/Reading.h"

namespace plain {

/// What a reader is told, as the library is.
Messages::ReadOptions OptionsOf(const Input& input);

/// What the library reads. What it tells in two ways (a field of the first octet as a member and as a place,
/// places and remarks in the reading and to a visitor) is compared on the way; `contradictions` has what does
/// not agree.
Reading ReadByLibrary(const Input& input, std::string& contradictions);

/// The second reading without what the library does not keep: octets of addresses, TP-PI after its first one.
Reading AsTheLibraryKeepsIt(Reading reading);

/// The members in which two readings differ, a line each; empty where they are the same.
std::string Differences(const Reading& library, const Reading& expected);

} // namespace plain

#endif
