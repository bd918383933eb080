// What a cell of a table holds. The rows are made of strings when the library is built; the type of a column
// reads them while it is compiled, and a cell that it cannot read does not compile.
#ifndef TABLES_CELLS_H
#define TABLES_CELLS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace Messages::Tables {

constexpr std::string_view c_nothing = "-";

constexpr int DigitValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    throw std::invalid_argument("no digit");
}

template <int Base>
constexpr int NumberIn(std::string_view text) {
    int number = 0;
    for (const char digit : text)
        number = number * Base + DigitValue(digit);
    return number;
}

/// A number; -1 where the cell holds nothing.
template <int Base>
struct Number {
    int value = 0;
    // NOLINTNEXTLINE(google-explicit-constructor): a row is a list of strings.
    constexpr Number(const char* cell) : value(cell == c_nothing ? -1 : NumberIn<Base>(cell)) {}
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr operator int() const { return value; }
};
using Decimal = Number<10>;
using Hexadecimal = Number<16>;

struct YesNo {
    bool value = false;
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr YesNo(const char* cell) : value(cell == std::string_view("yes")) {
        if (!value && cell != std::string_view("no") && cell != c_nothing)
            throw std::invalid_argument("neither yes nor no");
    }
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr operator bool() const { return value; }
};

/// Bits of an octet, "3-4" or "2".
struct Bits {
    unsigned int lowest = 0;
    std::uint8_t mask = 0;
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr Bits(std::string_view cell) {
        const std::size_t dash = cell.find('-');
        lowest = static_cast<unsigned int>(NumberIn<10>(cell.substr(0, dash)));
        const unsigned int highest = dash == std::string_view::npos
                                         ? lowest
                                         : static_cast<unsigned int>(NumberIn<10>(cell.substr(dash + 1)));
        mask = static_cast<std::uint8_t>((2U << highest) - (1U << lowest));
    }
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr Bits(const char* cell) : Bits(std::string_view(cell)) {}
};

/// A character of the alphabets: 0 where there is none and for an escape. A cell with a star is read and
/// never written.
struct Character {
    static constexpr char16_t c_control = 0x0D;
    char16_t value = 0;
    bool isWritten = false;
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr Character(std::string_view cell) {
        const bool isReadOnly = cell.back() == '*';
        if (isReadOnly)
            cell.remove_suffix(1);
        if (cell == "CTRL") {
            value = c_control;
        } else if (cell != c_nothing && cell != "ESC") {
            value = static_cast<char16_t>(NumberIn<16>(cell));
            isWritten = !isReadOnly;
        }
    }
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr Character(const char* cell) : Character(std::string_view(cell)) {}
};

/// For each octet what the row says that it lies in; the rows have the members from and to.
template <class Row, std::size_t Count, class Say>
constexpr auto ByOctet(const Row (&rows)[Count], Say say) {
    std::array<decltype(say(rows[0])), 256> said{};
    for (const Row& row : rows)
        for (int octet = row.from; octet <= row.to; ++octet)
            said[static_cast<std::size_t>(octet)] = say(row);
    return said;
}

} // namespace Messages::Tables

#endif
