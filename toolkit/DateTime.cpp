#include "Toolkit/DateTime.h"

#include "Digits.h"

namespace Toolkit {

DateTime::DateTime(unsigned int year, unsigned int month, unsigned int day, unsigned int hour,
                   unsigned int minute, unsigned int second)
    : m_Year(year),
      m_Month(month),
      m_Day(day),
      m_Hour(hour),
      m_Minute(minute),
      m_Second(second),
      m_HasOffset(false),
      m_Offset(0) {}

DateTime::DateTime(unsigned int year, unsigned int month, unsigned int day, unsigned int hour,
                   unsigned int minute, unsigned int second, int offset)
    : m_Year(year),
      m_Month(month),
      m_Day(day),
      m_Hour(hour),
      m_Minute(minute),
      m_Second(second),
      m_HasOffset(true),
      m_Offset(offset) {}

DateTime::DateTime(const DateTime&) = default;
DateTime& DateTime::operator=(const DateTime&) = default;
DateTime::~DateTime() = default;

unsigned int DateTime::GetYear() const {
    return m_Year;
}
unsigned int DateTime::GetMonth() const {
    return m_Month;
}
unsigned int DateTime::GetDay() const {
    return m_Day;
}
unsigned int DateTime::GetHour() const {
    return m_Hour;
}
unsigned int DateTime::GetMinute() const {
    return m_Minute;
}
unsigned int DateTime::GetSecond() const {
    return m_Second;
}
bool DateTime::HasOffset() const {
    return m_HasOffset;
}
int DateTime::GetOffset() const {
    return m_Offset;
}

TString<char> DateTime::ToString() const {
    TString<char> text;
    AppendDigits(text, m_Year, 4);
    text += '-';
    AppendDigits(text, m_Month, 2);
    text += '-';
    AppendDigits(text, m_Day, 2);
    text += 'T';
    AppendDigits(text, m_Hour, 2);
    text += ':';
    AppendDigits(text, m_Minute, 2);
    text += ':';
    AppendDigits(text, m_Second, 2);
    if (m_HasOffset) {
        text += m_Offset < 0 ? '-' : '+';
        AppendDigits(text, Magnitude(m_Offset), 2);
        text += ":00";
    }
    return text;
}

} // namespace Toolkit
