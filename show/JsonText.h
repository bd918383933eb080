// A JSON object written straight as text, for results that come by the million: a tree of each, as Json.h has
// it, would be made of hundreds of allocations and be thrown away at once.
#ifndef SHOW_JSONTEXT_H
#define SHOW_JSONTEXT_H

#include <concepts>
#include <cstddef>
#include <cstdint>
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

#include "show/Hex.h"

namespace show {

/// Of every object that is a result; another number where a reader would be misled.
constexpr int c_jsonFormat = 2;

/// A result. The members go into the text in the order of the calls. Strings are UTF-8.
class JsonText {
public:
    JsonText() : m_Buffer(nullptr, c_usualSize), m_Writer(m_Buffer) {
        m_Writer.StartObject();
        Member("format", c_jsonFormat);
    }

    void Member(std::string_view name, std::string_view value) {
        String(name);
        String(value);
    }

    void Member(std::string_view name, std::integral auto value) {
        String(name);
        m_Writer.Int64(static_cast<std::int64_t>(value));
    }

    /// A member that is octets as hexadecimal digits, in which there is nothing to escape.
    void Octets(std::string_view name, const unsigned char* octets, std::size_t count) {
        String(name);
        const std::string text = '"' + Hex(octets, count) + '"';
        m_Writer.RawValue(text.data(), text.size(), rapidjson::kStringType);
    }

    void Bool(std::string_view name, bool value) {
        String(name);
        m_Writer.Bool(value);
    }

    void Null(std::string_view name) {
        String(name);
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
        String(name);
        Element(std::forward<Fill>(fill));
    }

    /// A member that is an array; `fill` adds its elements.
    template <class Fill>
    void Array(std::string_view name, Fill&& fill) {
        String(name);
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
    void String(std::string_view text) {
        m_Writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    }

    static constexpr std::size_t c_usualSize = 4096; ///< bytes; more is found where needed

    rapidjson::StringBuffer m_Buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_Writer;
};

} // namespace show

#endif
