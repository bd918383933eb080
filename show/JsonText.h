// A JSON object written straight as text, for results that come by the million: a tree of each, as Json.h has
// it, would be made of hundreds of allocations and be thrown away at once.
#ifndef SHOW_JSONTEXT_H
#define SHOW_JSONTEXT_H

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Messages/Octets.h"

namespace show {

/// Of every object that is a result; another number where a reader would be misled.
constexpr int c_jsonFormat = 2;

/// A result. The members go into the text in the order of the calls. Strings are UTF-8;
/// in a name there is nothing to escape.
class JsonText {
public:
    JsonText() : m_Text(c_usualSize, '\0') {
        Put("{");
        Member("format", c_jsonFormat);
    }

    void Member(std::string_view name, std::string_view value) {
        Name(name);
        String(value);
    }

    void Member(std::string_view name, std::integral auto value) {
        Name(name);
        Number(static_cast<std::int64_t>(value));
    }

    /// A member that is octets as hexadecimal digits.
    void Octets(std::string_view name, Messages::OctetView octets) {
        Name(name);
        Put("\"");
        Put(Messages::ToHex(octets));
        Put("\"");
    }

    void Bool(std::string_view name, bool value) {
        Name(name);
        Put(value ? "true" : "false");
    }

    void Null(std::string_view name) {
        Name(name);
        Put("null");
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
        Put("]");
    }

    /// An object in an array; `fill` adds its members.
    template <class Fill>
    void Element(Fill&& fill) {
        Separate();
        Put("{");
        std::forward<Fill>(fill)();
        Put("}");
    }

    /// Ends the object; nothing can be added any more.
    std::string_view Finish() {
        Put("}");
        return std::string_view(m_Text).substr(0, m_Size);
    }

    /// Whether a string holds anything but ASCII that is printed or escaped.
    bool HasOthers() const { return m_HasOthers; }

private:
    /// Where so many characters can be written.
    char* Room(std::size_t size) {
        if (m_Text.size() - m_Size < size)
            m_Text.resize(2 * m_Text.size() + size);
        return m_Text.data() + m_Size;
    }

    void Put(std::string_view plain) {
        std::memcpy(Room(plain.size()), plain.data(), plain.size());
        m_Size += plain.size();
    }

    /// Unless the first member, element or a member's value comes.
    bool TakesComma() const {
        const char last = m_Text[m_Size - 1];
        return last != '{' && last != '[' && last != ':';
    }

    void Separate() {
        if (TakesComma())
            Put(",");
    }

    /// `,"name":`, in one piece, as a third of all that is written are names.
    void Name(std::string_view name);

    void Number(std::int64_t value) {
        constexpr std::size_t most = std::numeric_limits<std::int64_t>::digits10 + 2; // and a sign
        Separate();
        char* const begin = Room(most);
        m_Size += static_cast<std::size_t>(std::to_chars(begin, begin + most, value).ptr - begin);
    }

    void String(std::string_view text);

    static constexpr std::size_t c_usualSize = 4096; ///< characters; more is found where needed

    std::string m_Text; ///< of which m_Size characters are written
    std::size_t m_Size = 0;
    bool m_HasOthers = false;
};

} // namespace show

#endif
