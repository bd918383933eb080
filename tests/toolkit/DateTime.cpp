#include "Toolkit/DateTime.h"

#include <climits>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using Toolkit::DateTime;

TEST(DateTime, KeepsTheFieldsThatItWasGiven) {
    const DateTime time(2012, 2, 13, 12, 34, 56, -3);
    EXPECT_EQ(time.GetYear(), 2012U);
    EXPECT_EQ(time.GetMonth(), 2U);
    EXPECT_EQ(time.GetDay(), 13U);
    EXPECT_EQ(time.GetHour(), 12U);
    EXPECT_EQ(time.GetMinute(), 34U);
    EXPECT_EQ(time.GetSecond(), 56U);
    EXPECT_TRUE(time.HasOffset());
    EXPECT_EQ(time.GetOffset(), -3);
}

TEST(DateTime, KeepsWhatIsNoCalendarDate) {
    const DateTime time(2099, 0, 0, 24, 60, 61);
    EXPECT_EQ(time.GetYear(), 2099U);
    EXPECT_EQ(time.GetMonth(), 0U);
    EXPECT_EQ(time.GetDay(), 0U);
    EXPECT_EQ(time.GetHour(), 24U);
    EXPECT_EQ(time.GetMinute(), 60U);
    EXPECT_EQ(time.GetSecond(), 61U);
}

TEST(DateTime, HasNoOffsetWhereNoneWasGiven) {
    const DateTime time(2012, 2, 13, 12, 34, 56);
    EXPECT_FALSE(time.HasOffset());
    EXPECT_EQ(time.GetOffset(), 0);
}

TEST(DateTime, OffsetOfZeroIsAnOffset) {
    EXPECT_TRUE(DateTime(2012, 2, 13, 12, 34, 56, 0).HasOffset());
}

TEST(DateTime, CopiesAreEqual) {
    const DateTime time(2012, 2, 13, 12, 34, 56, 2);
    const DateTime copy(time);
    DateTime assigned(1, 1, 1, 1, 1, 1);
    assigned = time;
    EXPECT_EQ(copy.ToString(), "2012-02-13T12:34:56+02:00");
    EXPECT_EQ(assigned.ToString(), "2012-02-13T12:34:56+02:00");
    static_assert(!std::is_polymorphic_v<DateTime>);
}

TEST(DateTime, PrintsItselfAsIso8601) {
    static_assert(std::is_same_v<decltype(DateTime(0, 0, 0, 0, 0, 0).ToString()), TString<char>>);
    const struct {
        DateTime time;
        const char* text;
    } rows[] = {
        {{2012, 2, 13, 12, 34, 56}, "2012-02-13T12:34:56"},
        {{2012, 2, 13, 12, 34, 56, 2}, "2012-02-13T12:34:56+02:00"},
        {{2012, 2, 13, 12, 34, 56, -2}, "2012-02-13T12:34:56-02:00"},
        {{2012, 2, 13, 12, 34, 56, 0}, "2012-02-13T12:34:56+00:00"},
        {{2012, 11, 30, 1, 2, 3, 14}, "2012-11-30T01:02:03+14:00"},
        {{2012, 11, 30, 1, 2, 3, -10}, "2012-11-30T01:02:03-10:00"},
        {{2000, 0, 0, 24, 0, 9}, "2000-00-00T24:00:09"},
        // Fewer and more digits than the usual width.
        {{7, 1, 1, 0, 0, 0}, "0007-01-01T00:00:00"},
        {{999, 1, 1, 0, 0, 0}, "0999-01-01T00:00:00"},
        {{12345, 100, 101, 102, 103, 104, 105}, "12345-100-101T102:103:104+105:00"},
        {{UINT_MAX, UINT_MAX, 1, 0, 0, 0, INT_MIN}, "4294967295-4294967295-01T00:00:00-2147483648:00"},
        {{2012, 1, 1, 0, 0, 0, INT_MAX}, "2012-01-01T00:00:00+2147483647:00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.time.ToString(), row.text);
}

} // namespace
