// A short message for a program.
#ifndef SHOW_MESSAGEJSON_H
#define SHOW_MESSAGEJSON_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "show/JsonText.h"
#include "show/Message.h"
#include "show/compare/Comparison.h"

namespace show {

/// The members of a message: its type, a member for each field, text or data, remarks, and what a host of
/// libQX_Encoding gets instead. `reportOn` is the number of the message that a status report is about.
void Write(const Message& message, const HostReading& host, std::optional<std::size_t> reportOn,
           JsonText& object);

/// The record of libQX_Encoding, as the member of that name.
void Write(const HostReading& record, JsonText& object);

/// The name of the member that a field is, "tp_oa".
std::string_view MemberOf(Messages::Field field);

/// The array "elements" of a user-data header in octets of user data, and the national languages that a text
/// is read with.
void WriteElements(const std::vector<Messages::HeaderElement>& elements, Messages::OctetView userData,
                   JsonText& object);
void WriteTables(const Messages::SeptetTables& tables, JsonText& object);

/// The member "fault" of a message that has one.
void WriteFault(const Messages::Fault& fault, JsonText& object);

/// The array "warnings"; none where nothing had to be assumed.
void WriteWarnings(const std::vector<std::string>& warnings, JsonText& object);

/// The array "remarks"; none where nothing is unusual.
void WriteRemarks(const std::vector<Messages::Remark>& remarks, JsonText& object);

/// Members that messages and joined messages have alike.
void WriteDirection(Messages::Direction direction, JsonText& object);
void WriteAddress(const Messages::Address& address, JsonText& object);

} // namespace show

#endif
