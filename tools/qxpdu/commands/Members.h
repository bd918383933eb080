// A text to send with its options, as an object of JSON.
#ifndef QXPDU_MEMBERS_H
#define QXPDU_MEMBERS_H

#include <functional>
#include <string>

#include "show/JsonForward.h"

namespace qxpdu {

/// A member of the wrong type, or with a value that the option refuses: throws InputError, as all of these
/// do.
[[noreturn]] void Refuse(const std::string& name, const std::string& reason);

std::string StringIn(const std::string& name, const show::Json& value,
                     std::string (*faultOf)(const std::string&) = nullptr);
int NumberIn(const std::string& name, const show::Json& value, int most);
bool FlagIn(const std::string& name, const show::Json& value);

/// Gives each member of the object, of which one is "text" unless there need be none.
void ReadMembers(const std::string& line,
                 const std::function<void(const std::string& name, const show::Json& value)>& set,
                 bool needsText = true);

} // namespace qxpdu

#endif
