#include "Toolkit/TString.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "support/Allocations.h"

namespace {

TEST(TString, EmptyReturnsTheSameObjectOnEveryCall) {
    const TString<wchar_t>& wide = TString<wchar_t>::Empty();
    EXPECT_EQ(&TString<wchar_t>::Empty(), &wide);
    EXPECT_EQ(wide.length(), 0U);
    EXPECT_EQ(wide.c_str()[0], L'\0');

    const TString<char>& narrow = TString<char>::Empty();
    EXPECT_EQ(&TString<char>::Empty(), &narrow);
    EXPECT_EQ(narrow.length(), 0U);
}

TEST(TString, EmptyAllocatesNothing) {
    const unsigned long allocations = tests::Allocations();
    EXPECT_TRUE(TString<wchar_t>::Empty().empty());
    EXPECT_EQ(tests::Allocations(), allocations);
}

TEST(TString, IsAStandardStringWithoutStateOfItsOwn) {
    static_assert(std::is_base_of_v<std::wstring, TString<wchar_t>>);
    static_assert(sizeof(TString<wchar_t>) == sizeof(std::wstring));
    static_assert(sizeof(TString<char>) == sizeof(std::string));
    static_assert(sizeof(wchar_t) == 4);
    static_assert(std::is_nothrow_move_constructible_v<TString<wchar_t>>);
}

TEST(TString, IsMadeAsAStandardStringIs) {
    const std::wstring standard = L"abc";
    EXPECT_EQ(TString<wchar_t>(L"abc"), standard);
    EXPECT_EQ(TString<wchar_t>(L"abcdef", 3), standard);
    EXPECT_EQ(TString<wchar_t>(3, L'x'), L"xxx");
    EXPECT_EQ(TString<wchar_t>(standard), standard);
    EXPECT_EQ(TString<wchar_t>(std::wstring(L"abc")), standard);
    EXPECT_TRUE(TString<char>().empty());
}

} // namespace
