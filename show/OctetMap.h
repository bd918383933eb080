// Each octet of a PDU once, in order, with what it means.
#ifndef SHOW_OCTETMAP_H
#define SHOW_OCTETMAP_H

#include <string>
#include <vector>

#include "show/JsonText.h"
#include "show/Message.h"
#include "show/OctetRow.h"
#include "show/Painter.h"
#include "show/compare/Comparison.h"

namespace show {

/// The rows of a message, sound or broken; they hold all of its octets.
std::vector<OctetRow> MapOctets(const Message& message);

/// The rows for a person: offset, octets, meaning; below them what is unusual, "! …", what a host of
/// libQX_Encoding gets instead, "~ …", and the fault.
std::string MapText(const Message& message, const HostReading& host, Painter painter);

/// The members of the map: octets, type, map, remarks, what a host of libQX_Encoding gets instead.
void WriteMap(const Message& message, const HostReading& host, JsonText& object);

} // namespace show

#endif
