// What PostgreSQL's server calls, without the server: nothing gets out but plain values.
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "sql/postgresql/Wall.h"
#include "support/Allocations.h"

namespace {

constexpr std::string_view c_part = "00440C9144770009103200046231128051030008050003070302C834";
constexpr const char* c_names[] = {"sms_text",   "sms_address", "sms_time", "sms_type",    "sms_reference",
                                   "sms_part",   "sms_parts",   "sms_json", "sms_remarks", "sms_error",
                                   "sms_fields", "cbs_text",    "cbs_json", "cbs_error"};

qx_view ViewOf(std::string_view text) {
    return {text.data(), text.size()};
}

/// In words, and given back: "NULL", a number, a text, "misuse: …", "no memory".
std::string Taken(const qx_value& value) {
    const std::unique_ptr<char, decltype(&std::free)> given(value.text, std::free);
    const std::string text = given == nullptr ? std::string() : std::string(given.get(), value.size);
    switch (value.kind) {
    case QX_NULL:
        return "NULL";
    case QX_NUMBER:
        return std::to_string(value.number);
    case QX_TEXT:
        return text;
    case QX_MISUSE:
        return "misuse: " + text;
    default:
        return "no memory";
    }
}

std::string Called(const char* name, std::string_view digits, std::string_view options = {}) {
    return Taken(qx_call(qx_find(name), {ViewOf(digits), true}, ViewOf(options)));
}

std::string JoinedOf(std::initializer_list<std::string_view> pdus) {
    const std::unique_ptr<qx_group, decltype(&qx_end_group)> group(qx_begin_group(), qx_end_group);
    if (group == nullptr)
        return "no memory";
    std::string wrong;
    for (const std::string_view pdu : pdus) {
        const std::string added = Taken(qx_add_to_group(group.get(), {ViewOf(pdu), true}));
        wrong = added == "NULL" ? wrong : added;
    }
    return wrong.empty() ? Taken(qx_finish_group(group.get())) : wrong;
}

TEST(SqlWall, FunctionsAreFoundByTheirNames) {
    for (const char* const name : c_names)
        EXPECT_NE(qx_find(name), nullptr) << name;
    EXPECT_EQ(qx_find("sms_tex"), nullptr);
    EXPECT_EQ(Called("sms_parts", c_part), "3");
    EXPECT_EQ(Called("sms_part", c_part), "2");
    EXPECT_EQ(Called("sms_time", c_part), "NULL");
    EXPECT_EQ(Called("cbs_error", "4032").substr(0, 8), "octet 2:");
    EXPECT_EQ(Called("sms_fields", "0").substr(0, 2), "[]");
}

TEST(SqlWall, WhatIsWrongIsAText) {
    EXPECT_EQ(Called("cbs_text", "00", "lte"), "misuse: 'lte' is neither gsm, umts nor etws");
    EXPECT_EQ(Taken(qx_encode(ViewOf("x"), ViewOf("Hi"), nullptr)),
              "misuse: octet 0 of the number is of no digit");
}

TEST(SqlWall, TextsHaveNoNul) {
    constexpr std::string_view c_nul = "00040C914477000910320008621112805103000400410000";
    EXPECT_EQ(Called("sms_text", c_nul), "A\xEF\xBF\xBD");
    EXPECT_NE(Called("sms_json", c_nul).find("\"text\":\"A\xEF\xBF\xBD\""), std::string::npos);
}

TEST(SqlWall, GroupIsJoined) {
    constexpr std::string_view c_head = "00440C91447700091032000862111280510300080500030702";
    const std::string first = std::string(c_head) + "010061";
    const std::string second = std::string(c_head) + "020062";
    EXPECT_EQ(JoinedOf({second, first}), "ab");
    EXPECT_EQ(JoinedOf({first}), "NULL");
    EXPECT_EQ(JoinedOf({}), "NULL");
    qx_end_group(nullptr);
    qx_end_group(qx_begin_group());
}

/// No exception gets out, and what comes next is as if nothing had been.
TEST(SqlWall, EveryAllocationFails) {
    const auto everything = [] {
        std::string all;
        for (const char* const name : c_names)
            all += Called(name, c_part) + '\n';
        all += Taken(qx_encode(ViewOf("+447700900123"), ViewOf(std::string(200, 'x')), nullptr)) + '\n';
        return all + Called("sms_text", c_part, "smsc=maybe") + '\n' + JoinedOf({c_part, "00"});
    };
    const std::string expected = everything();
    ASSERT_EQ(expected.find("no memory"), std::string::npos);
    unsigned int failed = 0;
    bool hasHappened = true;
    for (unsigned long n = 1; hasHappened && n < 5000; ++n) {
        std::string all;
        {
            const tests::FailAllocation failure(n);
            try {
                all = everything();
            } catch (const std::bad_alloc&) { // in the test itself
            }
            hasHappened = failure.Happened();
        }
        failed += all.find("no memory") != std::string::npos ? 1 : 0;
    }
    EXPECT_FALSE(hasHappened);
    EXPECT_GT(failed, 50U);
    EXPECT_EQ(everything(), expected);
}

} // namespace
