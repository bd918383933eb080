// What a host of libQX_Encoding gets of a page of cell broadcast, beside what the standard says.
#ifndef SHOW_BROADCASTCOMPARISON_H
#define SHOW_BROADCASTCOMPARISON_H

#include "show/Broadcast.h"
#include "show/compare/Comparison.h"

namespace show {

/// What cell broadcast sends by both readings.
struct ComparedBroadcast {
    Broadcast broadcast;
    HostReading host;
};

/// The members of its decoder that say something else than the standard does; none where that throws. It
/// reads a page of GSM, whatever it is given.
HostReading CompareWithHost(const Broadcast& broadcast);

} // namespace show

#endif
