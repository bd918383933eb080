// A host's logger that keeps what it is given.
#ifndef TESTS_SUPPORT_CAPTURINGLOGGER_H
#define TESTS_SUPPORT_CAPTURINGLOGGER_H

#include <vector>

#include "Toolkit/ILogger.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace tests {

struct CapturingLogger : Toolkit::ILogger {
    explicit CapturingLogger(int level) : ILogger(level) {}
    void Write(const TString<wchar_t>& text) override { m_Pieces.push_back(text); }

    using ILogger::m_Level;
    using ILogger::m_Severity;
    std::vector<TString<wchar_t>> m_Pieces;
};

/// Makes a CapturingLogger the process-wide logger for as long as it lives.
class InstalledLogger {
public:
    explicit InstalledLogger(int level) : m_Before(*Toolkit::ILogger::s_pInstance) {
        m_pLogger = new CapturingLogger(level);
        *Toolkit::ILogger::s_pInstance = m_pLogger;
    }
    ~InstalledLogger() { *Toolkit::ILogger::s_pInstance = m_Before; }
    InstalledLogger(const InstalledLogger&) = delete;
    InstalledLogger& operator=(const InstalledLogger&) = delete;

    CapturingLogger* operator->() const { return m_pLogger; }
    CapturingLogger& operator*() const { return *m_pLogger; }

private:
    const Toolkit::smart_ptr<Toolkit::ILogger> m_Before;
    CapturingLogger* m_pLogger;
};

} // namespace tests

#endif
