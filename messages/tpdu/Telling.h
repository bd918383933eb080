// How a sink is told of places and remarks.
#ifndef TPDU_TELLING_H
#define TPDU_TELLING_H

#include <algorithm>
#include <cstddef>
#include <limits>

#include "Messages/Remarks.h"

namespace Messages {

/// What everybody has who reads octets to a sink.
template <class Sink>
class Telling {
protected:
    explicit Telling(Sink& sink) : m_Sink(sink) {}

    static std::uint32_t Count(std::size_t count) {
        return static_cast<std::uint32_t>(
            std::min<std::size_t>(count, std::numeric_limits<std::uint32_t>::max()));
    }

    void Place(Field field, Piece piece, std::size_t octet, std::size_t count, std::uint8_t mask = 0xFF,
               std::uint8_t value = 0) {
        if (count != 0)
            m_Sink.OnPlace({field, piece, mask, value, Count(octet), Count(count)});
    }

    void Note(RemarkCode code, Field field, std::size_t octet, std::size_t number = 0,
              std::size_t other = 0) {
        m_Sink.OnRemark({code, field, Count(octet), Count(number), Count(other)});
    }

    /// On a septet of a text or a name. A lone escape has no numbers.
    void NoteText(RemarkCode code, Field field, std::size_t octet, std::size_t septet, std::size_t place) {
        if (code == RemarkCode::EscapeAtEnd)
            Note(code, field, octet);
        else
            Note(code, field, octet, septet, place);
    }

    Sink& m_Sink;
};

} // namespace Messages

#endif
