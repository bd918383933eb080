// The line that tells how far the work is.
#ifndef QXPDU_PROGRESS_H
#define QXPDU_PROGRESS_H

#include <chrono>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string_view>

namespace qxpdu {

/// Shows lines, rate and errors, and percent and remaining time where the input's size is known. Used by one
/// thread at a time.
class Progress {
public:
    /// Shown only if `isOn`; `inSize` is in bytes, `unit` what is counted.
    Progress(std::ostream& err, bool isOn, std::optional<std::uint64_t> inSize,
             std::string_view unit = "line");

    /// So much more has been worked on; `errors` counts from the beginning.
    void Add(std::uint64_t lines, std::uint64_t bytes, std::uint64_t errors);

    /// Takes the line away so that a message can be written.
    void Clear();

    /// Leaves the figures of the whole work as the last line.
    void Finish();

private:
    using Clock = std::chrono::steady_clock;

    void Show(double seconds);

    std::ostream& m_Err;
    bool m_IsOn;
    std::optional<std::uint64_t> m_InSize;
    std::string_view m_Unit;
    Clock::time_point m_Begin = Clock::now();
    Clock::time_point m_Next = m_Begin; ///< when the line is due again
    bool m_IsShown = false;
    std::uint64_t m_Lines = 0;
    std::uint64_t m_Bytes = 0;
    std::uint64_t m_Errors = 0;
};

} // namespace qxpdu

#endif
