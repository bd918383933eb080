// The logger that is there until the host installs its own.
#ifndef TOOLKIT_STDERRLOGGER_H
#define TOOLKIT_STDERRLOGGER_H

#include <mutex>

#include "LineLock.h"
#include "Toolkit/ILogger.h"

namespace Toolkit {

/// Puts lines together and writes each whole to standard error, in UTF-8. A line that was never ended is
/// written, ended, before the next one.
class StderrLogger : public ILogger {
public:
    explicit StderrLogger(LineLock& lineLock);
    ~StderrLogger() override;

    void Write(const TString<wchar_t>& text) override;

    /// In a child of fork(): what the parent's threads compose is written there.
    void StartAnew();

private:
    void EndLine();

    LineLock& m_LineLock;
    std::mutex m_Mutex;         ///< guards the two below against a thread that has lost its line meanwhile
    unsigned long m_Number = 0; ///< of the line being composed
    TString<wchar_t> m_Line;    ///< what it holds so far
};

} // namespace Toolkit

#endif
