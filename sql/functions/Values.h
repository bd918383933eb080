// What SQL gives to a function and gets from it, whichever the database is.
#ifndef SQL_VALUES_H
#define SQL_VALUES_H

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace sql {

/// NULL, a number, or a text in UTF-8.
using Value = std::variant<std::monostate, std::int64_t, std::string>;

/// Octets, or text that is to be hexadecimal digits.
struct Given {
    std::string_view content;
    bool isText = false;

    /// Whether nothing that a network sends is so long. It is not read then, nor copied.
    bool IsTooLong() const { return content.size() > (isText ? 2 * c_mostOctets : c_mostOctets); }

    /// Far more than a PDU, or a message of cell broadcast with all of its pages, can have.
    static constexpr std::size_t c_mostOctets = 4096;
};

/// What is said of content that is too long.
std::string TooLongText();

/// What no function can be asked: ends the statement. What is wrong with a PDU is none.
class Misuse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace sql

#endif
