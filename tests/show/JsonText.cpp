// JSON written straight as text.
#include "show/JsonText.h"

#include <limits>
#include <utility>

#include <gtest/gtest.h>

#include "show/Json.h"
#include "support/Allocations.h"

namespace {

std::string TextWith(std::string_view value) {
    show::JsonText object;
    object.Member("text", value);
    return std::string(object.Finish());
}

TEST(JsonText, HasMembersInTheOrderOfTheCalls) {
    const std::uint8_t octets[] = {0x07, 0x91};
    show::JsonText object;
    object.Member("name", std::string_view("a"));
    object.Member("number", -1);
    object.Octets("octets", {octets, sizeof octets});
    object.Octets("none", {});
    object.Bool("flag", true);
    object.Null("nothing");
    object.Numbers("numbers", {1, 2});
    object.Texts("texts", {"b", "\"c\""});
    object.Object("object", [&] { object.Member("inner", std::string_view()); });
    EXPECT_EQ(object.Finish(),
              R"({"format":2,"name":"a","number":-1,"octets":"0791","none":"","flag":true,)"
              R"("nothing":null,"numbers":[1,2],"texts":["b","\"c\""],"object":{"inner":""}})");
}

TEST(JsonText, EscapesWhatJsonRequires) {
    const struct {
        std::string_view text;
        const char* written;
    } cases[] = {
        {"\"", R"(\")"},
        {"\\", R"(\\)"},
        {"\n", R"(\n)"},
        {"\b\f\r\t", R"(\b\f\r\t)"},
        {"\x01\x0B\x10\x1A\x1F", R"(\u0001\u000B\u0010\u001A\u001F)"},
        {{"\0", 1}, R"(\u0000)"},
        {" ", " "},
        {"!", "!"},
        {"#", "#"},
        {"[", "["},
        {"]", "]"},
        {"\x7F", "\x7F"},
        {"é€😀", "é€😀"},
    };
    for (const auto& [text, written] : cases)
        EXPECT_EQ(TextWith(text), std::string(R"({"format":2,"text":")") + written + "\"}");
}

TEST(JsonText, EscapesWhereverItStands) {
    for (std::size_t length = 1; length <= 25; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            for (const char special : {'"', '\\', '\x1F', '\0'}) {
                std::string text(length, 'a');
                text[place] = special;
                EXPECT_EQ(show::Json::parse(TextWith(text))["text"], text) << length << ' ' << place;
            }
        }
    }
}

TEST(JsonText, WritesEveryOctetWhereverItStands) {
    constexpr std::string_view c_digits = "0123456789ABCDEF";
    constexpr std::pair<char, char> c_short[] = {{'"', '"'},  {'\\', '\\'}, {'\b', 'b'}, {'\f', 'f'},
                                                 {'\n', 'n'}, {'\r', 'r'},  {'\t', 't'}};
    for (unsigned int octet = 0; octet < 256; ++octet) {
        const char character = static_cast<char>(octet);
        std::string written(1, character);
        if (octet < 0x20)
            written = std::string("\\u00") + c_digits[octet >> 4U] + c_digits[octet & 0x0FU];
        for (const auto& [escaped, letter] : c_short) {
            if (character == escaped)
                written = std::string("\\") + letter;
        }
        for (std::size_t length = 1; length <= 34; ++length) {
            for (std::size_t place = 0; place < length; ++place) {
                std::string before(place, 'a');
                std::string after(length - place - 1, 'z');
                ASSERT_EQ(TextWith(before + character + after),
                          R"({"format":2,"text":")" + before + written + after + "\"}")
                    << octet << ' ' << length << ' ' << place;
            }
        }
    }
}

TEST(JsonText, EndsWhatIsEmptyWithoutAComma) {
    show::JsonText object;
    object.Array("array", [] {});
    object.Object("object", [] {});
    object.Array("elements", [&] {
        object.Element([] {});
        object.Element([&] { object.Numbers("numbers", {}); });
    });
    EXPECT_EQ(object.Finish(), R"({"format":2,"array":[],"object":{},"elements":[{},{"numbers":[]}]})");
}

TEST(JsonText, KeepsACommaThatEndsAText) {
    show::JsonText object;
    object.Object("object", [&] { object.Member("text", std::string_view(",")); });
    object.Digits("digits", "0791");
    object.Digits("none", "");
    EXPECT_EQ(object.Finish(), R"({"format":2,"object":{"text":","},"digits":"0791","none":""})");
}

TEST(JsonText, GrowsInAllThatIsWritten) {
    for (std::size_t size = 0; size <= 4200; ++size) { // around what it begins with
        const std::string digits(size, '7');
        show::JsonText object;
        object.Digits("d", digits);
        object.Object("o", [&] {
            object.Bool("b", false);
            object.Null("n");
            object.Member("i", std::numeric_limits<std::int64_t>::min());
        });
        ASSERT_EQ(object.Finish(), R"({"format":2,"d":")" + digits +
                                       R"(","o":{"b":false,"n":null,"i":-9223372036854775808}})");
    }
}

TEST(JsonText, EscapesThatFillTheRoom) {
    std::string escapes;
    for (std::size_t length = 1; length <= 800; ++length) {
        escapes += "\\u0001";
        for (std::size_t before = 0; length >= 600 && before < 16; ++before) {
            const std::string letters(before, 'a');
            ASSERT_EQ(TextWith(letters + std::string(length, '\x01')),
                      R"({"format":2,"text":")" + letters + escapes + "\"}");
        }
    }
}

TEST(JsonText, TellsOfWhatIsNoAscii) {
    for (std::size_t place = 0; place <= 20; ++place) {
        for (const auto& [other, isTold] :
             {std::pair("~", false), {"\n", false}, {"\x7F", true}, {"é", true}}) {
            show::JsonText object;
            object.Member("text", std::string(place, ' ') + other + std::string(20 - place, 'a'));
            EXPECT_EQ(object.HasOthers(), isTold) << place << other;
            object.Member("more", std::string_view("a"));
            EXPECT_EQ(object.HasOthers(), isTold) << place << other;
        }
    }
}

TEST(JsonText, ThrowsWhereThereIsNoMemory) {
    const std::string text(10000, '\n'); // six characters each as JSON
    const unsigned long before = tests::AllocatedBytes();
    const std::string whole = TextWith(text);
    EXPECT_GT(tests::AllocatedBytes() - before, 2 * whole.size()) << "its own, and the copy";
    for (unsigned long n = 1;; ++n) {
        const tests::FailAllocation fail(n);
        try {
            EXPECT_TRUE(TextWith(text) == whole);
            EXPECT_GT(n, 2U);
            break;
        } catch (const std::bad_alloc&) {
            EXPECT_TRUE(fail.Happened());
        }
    }
}

} // namespace
