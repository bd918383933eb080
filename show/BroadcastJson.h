// What cell broadcast sends, for a program.
#ifndef SHOW_BROADCASTJSON_H
#define SHOW_BROADCASTJSON_H

#include "show/JsonText.h"
#include "show/compare/BroadcastComparison.h"

namespace show {

/// The members of a page, a message or a notification: its type, a member for each field, its pages, text or
/// data, remarks, and what a host of libQX_Encoding gets instead.
void Write(const ComparedBroadcast& compared, JsonText& object);

/// Members that pages and joined messages have alike.
void WriteSerialNumber(Messages::SerialNumber serial, std::uint16_t messageIdentifier, JsonText& object);
void WriteDataCoding(const Messages::CellCoding& coding, JsonText& object);
void WriteMessageIdentifier(std::uint16_t messageIdentifier, JsonText& object);

} // namespace show

#endif
