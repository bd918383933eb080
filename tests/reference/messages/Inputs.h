// Random PDUs, sound and damaged, and what a reader may be told of them.
#ifndef TESTS_REFERENCE_MESSAGES_INPUTS_H
#define TESTS_REFERENCE_MESSAGES_INPUTS_H

#include "../Random.h"
#include "model/Reading.h"

namespace plain {

/// A TPDU of any type, every field of it random, most of them plausible; with or without a service centre; at
/// times cut off, altered, lengthened, or noise. What is told of it is right, wrong or nothing.
Input RandomInput(reference::Random& random);

/// A TPDU of any type of which nothing is damaged, though its fields may hold anything.
Octets RandomTpdu(reference::Random& random, Direction& direction);

} // namespace plain

#endif
