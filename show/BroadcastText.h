// What cell broadcast sends, for a person.
#ifndef SHOW_BROADCASTTEXT_H
#define SHOW_BROADCASTTEXT_H

#include <string>

#include "show/compare/BroadcastComparison.h"

namespace show {

/// A line for each field, as those of a short message; then the text.
std::string ToText(const ComparedBroadcast& compared);

} // namespace show

#endif
