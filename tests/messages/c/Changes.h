// What is written by the C interface after members were changed at will. For tests and for fuzzing.
#ifndef MESSAGES_C_CHANGES_H
#define MESSAGES_C_CHANGES_H

#include "Messages/Read.h"

namespace tests {

/// How many members can be changed.
constexpr unsigned int c_changes = 39;

/// Reads the octets, changes members of what was read, and writes that: what is written has to read as what
/// was given. A change is two octets, which member and its value. Ends the program, with a word on why, where
/// it does not.
void CheckCWritesWithChanges(Messages::OctetView pdu, Messages::OctetView changes);

} // namespace tests

#endif
