// A reader, with what it has read last, which joiners take.
#ifndef C_READER_H
#define C_READER_H

#include <vector>

#include "c/Results.h"

/// See qx_messages.h.
struct qx_reader {
    enum class Kind { Nothing, Message, Cell };

    Kind kind = Kind::Nothing; ///< which of the two readings was made last
    Messages::Reading reading;
    Messages::CellReading cell;
    std::vector<std::uint8_t> octets; ///< of hexadecimal digits
    Messages::Results results;
};

#endif
