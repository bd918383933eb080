// A JSON object written straight as text, for results that come by the million: a tree of each, as Json.h has
// it, would be made of hundreds of allocations and be thrown away at once.
#ifndef SHOW_JSONTEXT_H
#define SHOW_JSONTEXT_H

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Its stacks add to a null pointer before their first allocation, to see that there is no room.
#ifdef __clang__
#pragma clang attribute push(__attribute__((no_sanitize("pointer-overflow"))), apply_to = function)
#endif
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#ifdef __clang__
#pragma clang attribute pop
#endif

#include "Messages/Octets.h"

namespace show {

/// Of every object that is a result; another number where a reader would be misled.
constexpr int c_jsonFormat = 2;

/// Whether the text stands in JSON as it is, without a quotation mark, a backslash or a control character.
/// Eight characters are looked at together.
inline bool IsPlain(std::string_view text) {
    constexpr std::uint64_t each = 0x0101010101010101;
    constexpr std::uint64_t highBits = each << 7;
    const auto areBelow = [](std::uint64_t eight, unsigned char limit) {
        return (eight - each * limit) & ~eight & highBits;
    };
    const auto hasSpecial = [&](std::uint64_t eight) {
        return (areBelow(eight, ' ') | areBelow(eight ^ each * '"', 1) | areBelow(eight ^ each * '\\', 1)) !=
               0;
    };
    std::uint64_t eight = 0;
    for (; text.size() >= sizeof(eight); text.remove_prefix(sizeof(eight))) {
        std::memcpy(&eight, text.data(), sizeof(eight));
        if (hasSpecial(eight))
            return false;
    }
    eight = each * ' ';
    text.copy(reinterpret_cast<char*>(&eight), text.size());
    return !hasSpecial(eight);
}

/// The memory of the JSON library, whose own goes on with a null pointer where there is none.
struct JsonMemory {
    static constexpr bool kNeedFree = true;

    static void* Malloc(std::size_t size) { return size == 0 ? nullptr : ::operator new(size); }
    static void* Realloc(void* old, std::size_t oldSize, std::size_t size) {
        void* const fresh = Malloc(size);
        if (old != nullptr && fresh != nullptr)
            std::memcpy(fresh, old, std::min(oldSize, size));
        Free(old);
        return fresh;
    }
    static void Free(void* memory) { ::operator delete(memory); }
};

/// A result. The members go into the text in the order of the calls. Strings are UTF-8;
/// in a name there is nothing to escape.
class JsonText {
public:
    JsonText() : m_Buffer(nullptr, c_usualSize), m_Writer(m_Buffer) {
        m_Writer.StartObject();
        Member("format", c_jsonFormat);
    }

    void Member(std::string_view name, std::string_view value) {
        m_Writer.Plain(name);
        String(value);
    }

    void Member(std::string_view name, std::integral auto value) {
        m_Writer.Plain(name);
        m_Writer.Int64(static_cast<std::int64_t>(value));
    }

    /// A member that is octets as hexadecimal digits.
    void Octets(std::string_view name, Messages::OctetView octets) {
        m_Writer.Plain(name);
        m_Writer.Plain(Messages::ToHex(octets));
    }

    void Bool(std::string_view name, bool value) {
        m_Writer.Plain(name);
        m_Writer.Bool(value);
    }

    void Null(std::string_view name) {
        m_Writer.Plain(name);
        m_Writer.Null();
    }

    void Numbers(std::string_view name, const std::vector<int>& values) {
        Array(name, [&] {
            for (const int value : values)
                m_Writer.Int(value);
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
        m_Writer.Plain(name);
        Element(std::forward<Fill>(fill));
    }

    /// A member that is an array; `fill` adds its elements.
    template <class Fill>
    void Array(std::string_view name, Fill&& fill) {
        m_Writer.Plain(name);
        m_Writer.StartArray();
        std::forward<Fill>(fill)();
        m_Writer.EndArray();
    }

    /// An object in an array; `fill` adds its members.
    template <class Fill>
    void Element(Fill&& fill) {
        m_Writer.StartObject();
        std::forward<Fill>(fill)();
        m_Writer.EndObject();
    }

    /// Ends the object; nothing can be added any more.
    std::string_view Finish() {
        m_Writer.EndObject();
        return {m_Buffer.GetString(), m_Buffer.GetSize()};
    }

private:
    using Utf8 = rapidjson::UTF8<>;
    using Buffer = rapidjson::GenericStringBuffer<Utf8, JsonMemory>;

    class Writer : public rapidjson::Writer<Buffer, Utf8, Utf8, JsonMemory> {
    public:
        using rapidjson::Writer<Buffer, Utf8, Utf8, JsonMemory>::Writer;

        /// A string in which there is nothing to escape.
        void Plain(std::string_view text) {
            Prefix(rapidjson::kStringType);
            char* const begin = os_->Push(text.size() + 2);
            *begin = '"';
            *std::copy(text.begin(), text.end(), begin + 1) = '"';
        }
    };

    void String(std::string_view text) {
        if (IsPlain(text))
            m_Writer.Plain(text);
        else
            m_Writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    }

    static constexpr std::size_t c_usualSize = 4096; ///< bytes; more is found where needed

    Buffer m_Buffer;
    Writer m_Writer;
};

} // namespace show

#endif
