#include "Toolkit/ILogger.h"

#include <algorithm>
#include <chrono>

#include "Digits.h"
#include "Instances.h"
#include "Toolkit/UTF8.h"

namespace Toolkit {
namespace {

LineLock& TheLineLock() {
    return Instances::s_pInstances->m_LineLock;
}

/// Ends the line after its last piece, written or not.
template <class CharT>
void EndAfter(const TString<CharT>& piece) {
    const TString<wchar_t>& last = ILogger::c_strLogToken3;
    if (std::equal(piece.begin(), piece.end(), last.begin(), last.end()))
        TheLineLock().End();
}

} // namespace

SetSeverity::SetSeverity(int severity) : m_Severity(severity) {}

int SetSeverity::Get() const {
    return m_Severity;
}

ILogger::ILogger(int level) : m_Level(level), m_Severity(0) {}

ILogger::~ILogger() = default;

TString<wchar_t> ILogger::GetTime() {
    using namespace std::chrono;
    const auto now = floor<milliseconds>(system_clock::now());
    const auto today = floor<days>(now);
    const year_month_day date(today);
    const hh_mm_ss time(now - today);

    TString<wchar_t> text;
    const auto append = [&text](auto value, unsigned int width, wchar_t after) {
        AppendDigits(text, static_cast<unsigned int>(value), width);
        text += after;
    };
    append(static_cast<int>(date.year()), 4, L'-');
    append(static_cast<unsigned int>(date.month()), 2, L'-');
    append(static_cast<unsigned int>(date.day()), 2, L'T');
    append(time.hours().count(), 2, L':');
    append(time.minutes().count(), 2, L':');
    append(time.seconds().count(), 2, L'.');
    append(time.subseconds().count(), 3, L'Z');
    return text;
}

void ILogger::SetLevel(int level) {
    const auto lock = TheLineLock().BetweenLines();
    m_Level = level;
}

int ILogger::GetLevel() const {
    const auto lock = TheLineLock().Hold();
    return m_Level;
}

ILogger& ILogger::operator<<(const TString<char>& text) {
    if (m_Severity <= m_Level)
        Write(UTF8::ToUNICODE(text));
    EndAfter(text);
    return **s_pInstance;
}

ILogger& ILogger::operator<<(const TString<wchar_t>& text) {
    if (m_Severity <= m_Level)
        Write(text);
    EndAfter(text);
    return **s_pInstance;
}

ILogger& ILogger::operator<<(const int& value) {
    if (m_Severity <= m_Level) {
        TString<wchar_t> text(value < 0 ? L"-" : L"");
        AppendDigits(text, Magnitude(value), 1);
        Write(text);
    }
    return **s_pInstance;
}

ILogger& ILogger::operator<<(const SetSeverity& severity) {
    TheLineLock().Begin();
    m_Severity = severity.Get();
    return **s_pInstance;
}

} // namespace Toolkit
