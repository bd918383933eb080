// The line that tells how far the work is.
#ifndef QXPDU_PROGRESS_H
#define QXPDU_PROGRESS_H

#include <chrono>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace qxpdu {

/// What has been worked on.
struct ProgressFigures {
    std::string_view unit;               ///< what is counted
    std::optional<std::uint64_t> inSize; ///< in bytes, where it is known
    std::uint64_t count = 0;
    std::uint64_t bytes = 0;
    std::uint64_t errors = 0;

    /// "20 lines, 2 a second, 0 errors, 25 %, 30 s left"
    std::string After(double seconds) const;
};

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
    ProgressFigures m_Figures;
    Clock::time_point m_Begin = Clock::now();
    Clock::time_point m_Next = m_Begin; ///< when the line is due again
    bool m_IsShown = false;
};

} // namespace qxpdu

#endif
