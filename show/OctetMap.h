// Each octet of a PDU once, in order, with what it means.
#ifndef SHOW_OCTETMAP_H
#define SHOW_OCTETMAP_H

#include <vector>

#include "show/Broadcast.h"
#include "show/Message.h"
#include "show/OctetRow.h"

namespace show {

/// The rows of a message, sound or broken; they hold all of its octets.
std::vector<OctetRow> MapOctets(const Message& message);

/// The same of what cell broadcast sends.
std::vector<OctetRow> MapOctets(const Broadcast& broadcast);

} // namespace show

#endif
