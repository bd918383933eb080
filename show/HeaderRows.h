// The elements of a user-data header, 3GPP TS 23.040 clause 9.2.3.24.
#ifndef QXPDU_HEADERROWS_H
#define QXPDU_HEADERROWS_H

#include <string>
#include <vector>

#include "show/OctetRow.h"
#include "show/PduWalk.h"

namespace qxpdu {

/// What is unusual in an element as a whole.
std::vector<std::string> ElementFaults(const HeaderElement& element, const Encoding::Pdu& pdu,
                                       Encoding::Alphabet::Encoding alphabet);

/// The data of an element; the rows have no offset and no field yet.
std::vector<OctetRow> ElementRows(const HeaderElement& element, const Encoding::Pdu& pdu);

} // namespace qxpdu

#endif
