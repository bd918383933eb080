// What every reading of any octets must fulfil. For tests and for fuzzing.
#ifndef MESSAGES_AGREEMENT_H
#define MESSAGES_AGREEMENT_H

#include "Messages/Cell.h"
#include "Messages/Octets.h"
#include "Messages/Read.h"

namespace tests {

/// How many ways to read the options make.
constexpr unsigned int c_ways = 27;

/// Reads the octets in one of the ways, below c_ways, as often as it takes to compare: places cover all
/// octets once, Walk() tells what Read() gives, a used reading becomes the same as a fresh one, texts are
/// UTF-8. Ends the program, with a word on why, where one of them does not hold.
void CheckAgreement(Messages::OctetView pdu, unsigned int way);

/// The same in all ways.
void CheckAgreement(Messages::OctetView pdu);

/// Reads the octets as cell broadcast: places cover all octets once, texts are UTF-8, a format that is
/// recognised and then told gives the same, a joiner keeps or gives back what it takes, and a text can be
/// written in either geometry and be read again. Ends the program likewise.
void CheckCellAgreement(Messages::OctetView octets, Messages::CellFormat format);

/// The same of a text of few characters, of which some look like padding, in runs: an octet for each says
/// which, and how often less one.
void CheckCellText(Messages::OctetView runs);

} // namespace tests

#endif
