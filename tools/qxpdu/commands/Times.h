// Points in time, as the user writes them.
#ifndef QXPDU_TIMES_H
#define QXPDU_TIMES_H

#include <optional>
#include <string>

#include "Messages/Time.h"

namespace qxpdu {

/// ISO 8601 with a zone, "2026-12-24T18:00:00+01:00": seconds may be missing, a blank may stand for the T, Z
/// for the zone of UTC. Nothing where it is none, and where the field of a message cannot hold it.
std::optional<Messages::Timestamp> TimeIn(const std::string& text);

std::string FaultOfTime(const std::string& text);

/// By the clock, in the zone of the system.
Messages::Timestamp Now();

} // namespace qxpdu

#endif
