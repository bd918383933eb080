/// @file
/// The process-wide logger: lines are put together piece by piece with operator<<.
///
/// A line is one chained expression on the process-wide logger,
///
///     **ILogger::s_pInstance << SetSeverity(s) << LogSeverity(s) << ILogger::c_strLogToken1
///         << ILogger::GetTime().c_str() << ILogger::c_strLogToken2 << line << ILogger::c_strLogToken2
///         << "function" << ILogger::c_strLogToken2 << message pieces … << ILogger::c_strLogToken3;
///
/// Threads: inserting a SetSeverity begins a line and inserting c_strLogToken3, or a string equal to it, ends
/// it; between the two the logger belongs to the thread that began, so lines come out whole and a severity
/// never leaks into another thread's line. A thread that begins a line while another one is being composed
/// waits for its end, at most one second: a line that an exception cut short does not hold up the others for
/// ever. A line that takes longer is taken over, and what its thread still inserts then may be lost or judged
/// by the other line's severity.
///
/// fork: a child begins between two lines, whoever composed one in the parent, and can log and use the codecs
/// at once; the parent's line is written by the parent alone. What else another thread had locked just then
/// (an object of the host's, a module being loaded) stays locked in the child.
///
/// Loading: the process-wide objects are made when the support library is loaded. Should memory run out
/// there, the process ends by std::terminate.
#ifndef TOOLKIT_ILOGGER_H
#define TOOLKIT_ILOGGER_H

#include <sstream>

#include "Toolkit/Export.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace Toolkit {

/// A severity as a number to be written: LogSeverity(2). Lower is more important.
enum LogSeverity : int {};

/// Inserted into the logger, begins a line and sets its severity; writes nothing.
class TOOLKIT_API SetSeverity {
public:
    explicit SetSeverity(int severity); ///< any number; lower is more important
    int Get() const;                    ///< the number given

private:
    int m_Severity;
};

/// Base of every logger. A host assigns its own, made by `new`, to what s_pInstance points to before it
/// starts the threads that log. The order of the two data members and of the virtual operations is binding.
class TOOLKIT_API ILogger {
public:
    /// The process-wide logger. Insertions use it without taking a share. The support library sets up its
    /// own logger, which writes whole lines to standard error, before any user's static construction.
    static smart_ptr<ILogger>* s_pInstance;

    static const TString<wchar_t> c_strLogToken1; ///< after the severity
    static const TString<wchar_t> c_strLogToken2; ///< between the fields
    static const TString<wchar_t> c_strLogToken3; ///< ends the line

    /// The present time, UTC, ISO 8601 with milliseconds: "2012-02-13T12:34:56.789Z".
    static TString<wchar_t> GetTime();

    /// `level` is the highest severity number that is still written.
    explicit ILogger(int level);
    ILogger(const ILogger&) = delete;
    ILogger& operator=(const ILogger&) = delete;
    virtual ~ILogger();

    /// Appends a piece of text to the line being composed. A piece equal to c_strLogToken3 ends the line.
    virtual void Write(const TString<wchar_t>& text) = 0;

    /// Changes the level, once another thread's line has ended. May be called from any thread.
    void SetLevel(int level);
    int GetLevel() const; ///< the level that is in force

    ILogger& operator<<(const TString<char>& text);    ///< UTF-8
    ILogger& operator<<(const TString<wchar_t>& text); ///< as it is
    ILogger& operator<<(const int& value);             ///< in decimal
    ILogger& operator<<(const SetSeverity& severity);  ///< begins a line

    /// Inserts any other value as a standard wide stream would. Every insertion returns the process-wide
    /// logger, not this one; one whose line is filtered out writes nothing and allocates nothing.
    template <class T>
    ILogger& operator<<(const T& value) {
        if (m_Severity <= m_Level) {
            std::wstringstream stream;
            stream << value;
            Write(TString<wchar_t>(stream.str()));
        }
        return **s_pInstance;
    }

protected:
    int m_Level;    ///< severities up to this one are written
    int m_Severity; ///< of the line being composed
};

} // namespace Toolkit

#endif
