// A JSON object written straight as text, for results that come by the million: a tree of each, as Json.h has
// it, would be made of hundreds of allocations and be thrown away at once.
#ifndef SHOW_JSONTEXT_H
#define SHOW_JSONTEXT_H

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Messages/Octets.h"

namespace show {

/// Of every object that is a result; another number where a reader would be misled.
constexpr int c_jsonFormat = 2;

/// A result. The members go into the text in the order of the calls. Strings are UTF-8;
/// in a name there is nothing to escape. A comma ends every value; whatever ends what the value is in takes
/// the last one away.
class JsonText {
public:
    JsonText() {
        Put("{");
        Member("format", c_jsonFormat);
    }
    JsonText(const JsonText&) = delete;
    JsonText& operator=(const JsonText&) = delete;

    void Member(std::string_view name, std::string_view value) {
        Name(name);
        String(value);
    }

    void Member(std::string_view name, std::integral auto value) {
        Name(name);
        Number(static_cast<std::int64_t>(value));
    }

    /// A member that is octets as hexadecimal digits, or whatever else there is nothing to escape in.
    void Octets(std::string_view name, Messages::OctetView octets) { Digits(name, Messages::ToHex(octets)); }
    void Digits(std::string_view name, std::string_view digits) {
        constexpr std::size_t c_around = 3; // two quotes and a comma
        Name(name);
        char* out = Room(digits.size() + c_around);
        *out++ = '"';
        std::memcpy(out, digits.data(), digits.size());
        out += digits.size();
        *out++ = '"';
        *out++ = ',';
        m_Out = out;
    }

    void Bool(std::string_view name, bool value) {
        Name(name);
        Put(value ? "true," : "false,");
    }

    void Null(std::string_view name) {
        Name(name);
        Put("null,");
    }

    void Numbers(std::string_view name, const std::vector<int>& values) {
        Array(name, [&] {
            for (const int value : values)
                Number(value);
        });
    }

    void Texts(std::string_view name, const std::vector<std::string>& values) {
        Array(name, [&] {
            for (const std::string& value : values)
                String(value);
        });
    }

    /// A member that is an object; `fill` adds its members.
    template <class Fill>
    void Object(std::string_view name, Fill&& fill) {
        Name(name);
        Element(std::forward<Fill>(fill));
    }

    /// A member that is an array; `fill` adds its elements.
    template <class Fill>
    void Array(std::string_view name, Fill&& fill) {
        Name(name);
        Put("[");
        std::forward<Fill>(fill)();
        End(']');
    }

    /// An object in an array; `fill` adds its members.
    template <class Fill>
    void Element(Fill&& fill) {
        Put("{");
        std::forward<Fill>(fill)();
        End('}');
    }

    /// Ends the object; nothing can be added any more.
    std::string_view Finish() {
        End('}');
        return {m_Begin, static_cast<std::size_t>(m_Out - m_Begin) - 1};
    }

    /// Whether a string holds anything but ASCII that is printed or escaped.
    bool HasOthers() const { return m_HasOthers; }

private:
    /// Where so many characters can be written.
    char* Room(std::size_t size) {
        if (static_cast<std::size_t>(m_End - m_Out) < size)
            Grow(size);
        return m_Out;
    }

    void Grow(std::size_t size);

    void Put(std::string_view plain) {
        std::memcpy(Room(plain.size()), plain.data(), plain.size());
        m_Out += plain.size();
    }

    void Name(std::string_view name) {
        constexpr std::string_view c_end = "\":";
        char* out = Room(1 + name.size() + c_end.size());
        *out++ = '"';
        std::memcpy(out, name.data(), name.size());
        std::memcpy(out + name.size(), c_end.data(), c_end.size());
        m_Out = out + name.size() + c_end.size();
    }

    /// Ends an object or an array, which may be empty.
    void End(char bracket) {
        char* out = Room(2);
        if (out[-1] == ',')
            --out;
        *out++ = bracket;
        *out++ = ',';
        m_Out = out;
    }

    void Number(std::int64_t value) {
        constexpr std::size_t most = std::numeric_limits<std::int64_t>::digits10 + 2; // and a sign
        char* const begin = Room(most + 1);
        m_Out = std::to_chars(begin, begin + most, value).ptr;
        *m_Out++ = ',';
    }

    void String(std::string_view text);
    char* Settle(std::string_view text, char* out);

    static constexpr std::size_t c_usualSize = 4096; ///< characters; more is found where needed

    std::array<char, c_usualSize> m_Usual;
    std::unique_ptr<char[]> m_Larger; ///< instead, where that is too small
    char* m_Begin = m_Usual.data();
    char* m_Out = m_Begin; ///< behind what is written
    char* m_End = m_Begin + c_usualSize;
    bool m_HasOthers = false;
};

} // namespace show

#endif
