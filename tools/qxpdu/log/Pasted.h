// PDUs as people paste them and modems announce them: read as they make sense.
#ifndef QXPDU_PASTED_H
#define QXPDU_PASTED_H

#include <cstdint>
#include <string>
#include <vector>

#include "Messages/Read.h"
#include "log/Headings.h"

namespace qxpdu {

inline constexpr const char* c_freeRecord = "a free SIM record, without a message";

/// What is told of a PDU beside its octets.
struct Told {
    Messages::Presence serviceCentre = Messages::Presence::Unknown; ///< --smsc
    Messages::Direction direction = Messages::Direction::Unknown;   ///< --direction
    const Heading* heading = nullptr;                               ///< in a log
};

/// A PDU and what had to be assumed so that it makes sense.
struct PastedPdu {
    std::vector<std::uint8_t> octets; ///< without what is no part of it
    Messages::Reading reading;
    bool hasServiceCentre = true;      ///< before the TPDU
    bool isFreeRecord = false;         ///< of a SIM, in which no PDU stands
    std::vector<std::string> warnings; ///< each assumption, with the option that settles it
};

/// Reads a PDU. What was told holds; an announced length is a hint. The status octet of a SIM record,
/// 3GPP TS 51.011 clause 10.5.3, and the octets FF that fill it are taken off where a sound PDU is left.
/// Octets FF alone, or after the status of a free record, are none.
PastedPdu ReadPasted(std::vector<std::uint8_t> octets, const Told& told);

} // namespace qxpdu

#endif
