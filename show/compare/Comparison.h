// What a host of libQX_Encoding gets of a PDU, beside what the standard says.
#ifndef SHOW_COMPARISON_H
#define SHOW_COMPARISON_H

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "show/JsonText.h"
#include "show/Message.h"

namespace show {

/// The value of a member of the record: a number, a text, or nothing where a pointer is null.
using MemberValue = std::variant<std::monostate, int, std::string>;

/// A member of the record, by its name in the header.
struct RecordMember {
    std::string_view name;
    Messages::Field field; ///< that it is about
    MemberValue value;
    std::string_view enumerator = {}; ///< that the header has for a number; may be empty
};

/// What libQX_Encoding makes of a PDU.
struct HostReading {
    bool isRejected = false;
    std::vector<RecordMember> members;
};

/// A message by both readings.
struct ComparedMessage {
    Message message;
    HostReading host;
};

/// All members of the record but those that are no values of the message, `m_CharSet` alone.
HostReading ReadAsHost(const Message& message);

/// The members that say something else than the standard does; none where the PDU is rejected.
HostReading CompareWithHost(const Message& message);

/// "2: TON_INTERNATIONAL", "\"Hello\"", "null"
std::string ValueText(const RecordMember& member);

/// The value as a member of the object.
void WriteValue(const RecordMember& member, JsonText& object);

/// The member "libQX_Encoding" of a message that was read with or without a fault, unless both readings are
/// the same.
void WriteDifferences(const HostReading& host, bool isFault, JsonText& object);

} // namespace show

#endif
