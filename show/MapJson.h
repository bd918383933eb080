// The octet map as JSON.
#ifndef SHOW_MAPJSON_H
#define SHOW_MAPJSON_H

#include "show/JsonText.h"
#include "show/Message.h"
#include "show/compare/BroadcastComparison.h"
#include "show/compare/Comparison.h"

namespace show {

/// The members of the map: octets, type, map, remarks, what a host of libQX_Encoding gets instead.
void WriteMap(const Message& message, const HostReading& host, JsonText& object);
void WriteMap(const ComparedBroadcast& compared, JsonText& object);

} // namespace show

#endif
