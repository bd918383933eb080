// Every octet of a PDU, in order: to which field it belongs, what it says, and what is unusual about it.
#ifndef QXPDU_OCTETMAP_H
#define QXPDU_OCTETMAP_H

#include <vector>

#include "show/OctetRow.h"
#include "show/PduWalk.h"

namespace qxpdu {

/// The rows of a PDU: each octet belongs to exactly one. `walk` is that of the PDU, with the same `noSmsc`.
std::vector<OctetRow> MapOctets(const Encoding::Pdu& pdu, const PduWalk& walk, bool noSmsc);

} // namespace qxpdu

#endif
