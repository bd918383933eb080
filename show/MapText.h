// The octet map for a person.
#ifndef SHOW_MAPTEXT_H
#define SHOW_MAPTEXT_H

#include <string>

#include "show/Message.h"
#include "show/Painter.h"
#include "show/compare/BroadcastComparison.h"
#include "show/compare/Comparison.h"

namespace show {

/// The rows for a person: offset, octets, meaning; below them what is unusual, "! …", what a host of
/// libQX_Encoding gets instead, "~ …", and the fault.
std::string MapText(const Message& message, const HostReading& host, Painter painter);
std::string MapText(const ComparedBroadcast& compared, Painter painter);

} // namespace show

#endif
