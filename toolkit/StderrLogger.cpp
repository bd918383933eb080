#include "StderrLogger.h"

#include <cerrno>
#include <memory>
#include <string_view>

#include <unistd.h>

#include "Toolkit/UTF8.h"

namespace Toolkit {
namespace {

/// What standard error does not take is lost: there is nowhere left to report it.
void WriteWhole(std::string_view octets) {
    while (!octets.empty()) {
        const ssize_t written = ::write(STDERR_FILENO, octets.data(), octets.size());
        if (written > 0)
            octets.remove_prefix(static_cast<std::size_t>(written));
        else if (written == 0 || errno != EINTR)
            return;
    }
}

} // namespace

// Level 1: the lines of severity 2 that the codecs write cost nothing until a host asks for them.
StderrLogger::StderrLogger(LineLock& lineLock) : ILogger(1), m_LineLock(lineLock) {}

StderrLogger::~StderrLogger() {
    if (!m_Line.empty())
        EndLine();
}

void StderrLogger::Write(const TString<wchar_t>& text) {
    const std::lock_guard<std::mutex> guard(m_Mutex);
    const unsigned long number = m_LineLock.Line();
    if (number == LineLock::c_othersLine)
        return;
    if (number != m_Number && !m_Line.empty())
        EndLine();
    m_Number = number;
    if (text != c_strLogToken3) {
        m_Line += text;
        return;
    }
    EndLine();
    m_LineLock.End(); // also when the piece was no string, of which the insertion knows nothing
}

void StderrLogger::StartAnew() {
    std::construct_at(&m_Mutex);
    std::construct_at(&m_Line); // the old one may have been changing just then
}

void StderrLogger::EndLine() {
    m_Line += c_strLogToken3;
    const TString<char> octets = UTF8::ToUTF8(m_Line);
    m_Line.clear();
    WriteWhole(octets);
}

} // namespace Toolkit
