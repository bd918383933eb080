// A text on its way out as the encoder of libQX_Encoding makes it.
#ifndef QXPDU_HOSTENCODE_H
#define QXPDU_HOSTENCODE_H

#include <cstdint>
#include <string>

#include "commands/Outgoing.h"

namespace qxpdu {

/// Where there are several parts they have the reference. Throws InputError. REQUIRES options that go
/// together.
Outgoing MakeOutgoingAsHost(const OutgoingOptions& options, const std::string& text, std::uint8_t reference);

} // namespace qxpdu

#endif
