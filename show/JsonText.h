// A JSON object written straight as text, for results that come by the million.
#ifndef QXPDU_JSONTEXT_H
#define QXPDU_JSONTEXT_H

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

// Its stacks add to a null pointer before their first allocation, to see that there is no room.
#ifdef __clang__
#pragma clang attribute push(__attribute__((no_sanitize("pointer-overflow"))), apply_to = function)
#endif
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#ifdef __clang__
#pragma clang attribute pop
#endif

namespace qxpdu {

/// The members go into the text in the order of the calls. Strings are UTF-8.
class JsonText {
public:
    JsonText() : m_Buffer(nullptr, c_usualSize), m_Writer(m_Buffer) { m_Writer.StartObject(); }

    void Member(std::string_view name, std::string_view value) {
        String(name);
        String(value);
    }

    void Member(std::string_view name, std::integral auto value) {
        String(name);
        m_Writer.Int64(static_cast<std::int64_t>(value));
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

} // namespace qxpdu

#endif
