// What a command works on: its arguments, or the lines of standard input.
#ifndef QXPDU_INPUTS_H
#define QXPDU_INPUTS_H

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include "stream/Input.h"

namespace qxpdu {

/// Gives the inputs one after the other, in memory bounded by the longest line allowed.
class Inputs {
public:
    static constexpr std::size_t MAX_LINE = 1U << 20; ///< bytes; of a longer line, one more is kept

    /// Without arguments the inputs are the lines of `in`, and an argument "-" stands for those as well. With
    /// `isWhole`, the whole of `in` is one input, without its last line feed.
    Inputs(std::vector<std::string> arguments, std::istream& in, bool isWhole = false);

    /// Reads the next input; false when there is none. A line comes without its line feed.
    bool Next(Input& input);

    /// Whether the next input, or that there is none, can be told without waiting for it.
    bool IsReady() const { return !m_InStream || m_In.rdbuf()->in_avail() != 0; }

    /// Whether standard input could not be read to its end.
    bool HasFailed() const { return m_In.bad(); }

    /// Lines given so far, and what they took.
    std::size_t Lines() const { return m_Line; }
    std::uint64_t Bytes() const { return m_Bytes; }

private:
    bool NextLine(Input& input);
    bool NextOfStream(Input& input);

    std::vector<std::string> m_Arguments;
    std::istream& m_In;
    std::size_t m_Argument = 0; ///< arguments given so far
    std::size_t m_Line = 0;     ///< lines given so far
    std::uint64_t m_Bytes = 0;  ///< of these lines
    bool m_IsWhole;
    bool m_InStream; ///< `m_In` is being read
};

} // namespace qxpdu

#endif
