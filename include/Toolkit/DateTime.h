/// @file
/// A point in time as a time-stamp field gives it.
#ifndef TOOLKIT_DATETIME_H
#define TOOLKIT_DATETIME_H

#include "Toolkit/Export.h"
#include "Toolkit/TString.h"

namespace Toolkit {

/// Keeps exactly the fields that it was given, valid calendar date or not, and never changes afterwards.
/// Reading one object from several threads is safe.
class TOOLKIT_API DateTime {
public:
    /// A time without any word about its zone.
    DateTime(unsigned int year, unsigned int month, unsigned int day, unsigned int hour, unsigned int minute,
             unsigned int second);

    /// `offset` is the zone's distance from UTC in whole hours, positive east of Greenwich.
    DateTime(unsigned int year, unsigned int month, unsigned int day, unsigned int hour, unsigned int minute,
             unsigned int second, int offset);

    DateTime(const DateTime&);            ///< the same fields
    DateTime& operator=(const DateTime&); ///< the same fields
    ~DateTime();

    unsigned int GetYear() const;   ///< all digits, 2012
    unsigned int GetMonth() const;  ///< from 1
    unsigned int GetDay() const;    ///< of the month, from 1
    unsigned int GetHour() const;   ///< from 0
    unsigned int GetMinute() const; ///< from 0
    unsigned int GetSecond() const; ///< from 0

    /// Whether an offset from UTC was given.
    bool HasOffset() const;
    /// The offset from UTC in hours; 0 where none was given.
    int GetOffset() const;

    /// ISO 8601: "2012-02-13T12:34:56+02:00", without the last six characters where no offset was given.
    /// A field that its usual width cannot hold is written with as many digits as it takes.
    TString<char> ToString() const;

private:
    unsigned int m_Year;
    unsigned int m_Month;
    unsigned int m_Day;
    unsigned int m_Hour;
    unsigned int m_Minute;
    unsigned int m_Second;
    bool m_HasOffset;
    int m_Offset;
};

} // namespace Toolkit

#endif
