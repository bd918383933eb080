#include "stream/Progress.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "show/Plural.h"

namespace qxpdu {

namespace {

constexpr auto c_interval = std::chrono::milliseconds(200);
constexpr double c_shortest = 1e-6; ///< seconds, so that a rate can be given
constexpr const char* c_clear = "\r\033[K";

/// Nothing else in the tool has a fraction, so none has to be formatted.
std::uint64_t Rounded(double number) {
    return static_cast<std::uint64_t>(std::llround(number));
}

} // namespace

std::string ProgressFigures::After(double seconds) const {
    seconds = std::max(seconds, c_shortest);
    std::string figures =
        fmt::format("{}, {} a second, {}", show::Counted(count, unit),
                    Rounded(static_cast<double>(count) / seconds), show::Counted(errors, "error"));
    if (bytes == 0 || inSize.value_or(0) == 0)
        return figures;
    const double done = std::min(1.0, static_cast<double>(bytes) / static_cast<double>(*inSize));
    figures += fmt::format(", {} %, {} s left", Rounded(100 * done), Rounded(seconds * (1 - done) / done));
    return figures;
}

Progress::Progress(std::ostream& err, bool isOn, std::optional<std::uint64_t> inSize, std::string_view unit)
    : m_Err(err), m_IsOn(isOn), m_Figures{unit, inSize} {}

void Progress::Add(std::uint64_t lines, std::uint64_t bytes, std::uint64_t errors) {
    m_Figures.count += lines;
    m_Figures.bytes += bytes;
    m_Figures.errors = errors;
    const Clock::time_point now = Clock::now();
    if (!m_IsOn || now < m_Next)
        return;
    m_Next = now + c_interval;
    Clear();
    Show(std::chrono::duration<double>(now - m_Begin).count());
    m_Err.flush();
    m_IsShown = true;
}

void Progress::Clear() {
    if (m_IsShown)
        m_Err << c_clear;
    m_IsShown = false;
}

void Progress::Finish() {
    if (!m_IsOn)
        return;
    Clear();
    m_Figures.inSize.reset();
    Show(std::chrono::duration<double>(Clock::now() - m_Begin).count());
    m_Err << '\n';
}

void Progress::Show(double seconds) {
    m_Err << "qxpdu: " << m_Figures.After(seconds);
}

} // namespace qxpdu
