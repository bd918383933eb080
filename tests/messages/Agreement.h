// What every reading of any octets must fulfil. For tests and for fuzzing.
#ifndef MESSAGES_AGREEMENT_H
#define MESSAGES_AGREEMENT_H

#include "Messages/Octets.h"
#include "Messages/Read.h"

namespace tests {

/// Reads the octets in every way that the options have, each as often as it takes to compare: places cover
/// all octets once, Walk() tells what Read() gives, a used reading becomes the same as a fresh one, texts are
/// UTF-8. Ends the program, with a word on why, where one of them does not hold.
void CheckAgreement(Messages::OctetView pdu);

} // namespace tests

#endif
