// A short message for a person.
#ifndef SHOW_MESSAGETEXT_H
#define SHOW_MESSAGETEXT_H

#include <string>
#include <string_view>

#include "show/Message.h"
#include "show/compare/Comparison.h"

namespace show {

/// A line for each field, the names right-aligned: name, value on the wire, meaning; below it what is unusual
/// there, "! …", and what a host of libQX_Encoding gets instead, "~ …". Then the text. `reportOn` names the
/// message that a status report is about; empty where it is none or not known.
std::string ToText(const Message& message, const HostReading& host, std::string_view reportOn);

/// The record of libQX_Encoding, a line for each member.
std::string ToText(const HostReading& record);

} // namespace show

#endif
