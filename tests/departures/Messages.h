// Messages put together octet by octet, and decoded.
#ifndef TESTS_DEPARTURES_MESSAGES_H
#define TESTS_DEPARTURES_MESSAGES_H

#include <string>

#include "Encoding/PduDecoder.h"
#include "support/Octets.h"

namespace tests {

/// What a decoder of its own makes of a PDU without service centre.
class Decoded : public Encoding::PduDecoder {
public:
    explicit Decoded(std::string_view tpdu) : m_Result(Decode(MakePdu(tpdu), true, false)) {}
    const int m_Result;
};

/// An SMS-DELIVER from 1234 of 2012-02-13 12:34:56: first octet, TP-DCS, and all from TP-UDL on.
inline std::string Deliver(const std::string& first, const std::string& coding, const std::string& userData) {
    return first + "04 81 21 43 00" + coding + "21 20 31 21 43 65 00" + userData;
}

/// The same with "Hello" from the originating address that is given.
inline std::string DeliverFrom(const std::string& address) {
    return "04" + address + "00 00 21 20 31 21 43 65 00 05 C8 32 9B FD 06";
}

/// The same with another TP-SCTS.
inline std::string DeliverAt(const std::string& time) {
    return "04 04 81 21 43 00 00" + time + "05 C8 32 9B FD 06";
}

/// An SMS-STATUS-REPORT on message 42 to 1234: first octet, and all from TP-ST on.
inline std::string Report(const std::string& first, const std::string& status) {
    return first + "2A 04 81 21 43 21 20 31 21 43 65 00 21 20 31 21 44 00 00" + status;
}

} // namespace tests

#endif
