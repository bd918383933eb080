#include "commands/Times.h"

#include <array>
#include <charconv>
#include <ctime>
#include <string_view>

#include <fmt/format.h>

#include "characters/Letters.h"

namespace qxpdu {

namespace {

constexpr int c_quarterMinutes = 15;
constexpr int c_quarterSeconds = 900;
constexpr int c_quartersOfHour = 4;

/// Reads a text from its beginning on.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_Text(text) {}

    bool AtEnd() const { return m_Text.empty(); }

    /// Takes one of these characters.
    bool Take(std::string_view characters) {
        const bool isThere = !m_Text.empty() && characters.find(m_Text.front()) != std::string_view::npos;
        m_Text.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    /// Takes so many decimal digits.
    bool Take(std::size_t digits, int& number) {
        const std::string_view taken = m_Text.substr(0, digits);
        for (const char character : taken)
            if (!IsDecimal(character))
                return false;
        std::from_chars(taken.data(), taken.data() + taken.size(), number);
        m_Text.remove_prefix(taken.size());
        return taken.size() == digits;
    }

private:
    std::string_view m_Text;
};

/// Z, +01, +0100 or +01:00, to the end of the text.
std::optional<int> TakeQuarters(Scanner& scanner) {
    if (scanner.Take("Zz"))
        return scanner.AtEnd() ? std::optional(0) : std::nullopt;
    const bool isWest = scanner.Take("-");
    int hours = 0;
    int minutes = 0;
    if ((!isWest && !scanner.Take("+")) || !scanner.Take(2, hours))
        return std::nullopt;
    if (!scanner.AtEnd()) {
        scanner.Take(":");
        if (!scanner.Take(2, minutes) || !scanner.AtEnd())
            return std::nullopt;
    }
    if (minutes >= 60 || minutes % c_quarterMinutes != 0)
        return std::nullopt;
    const int quarters = hours * c_quartersOfHour + minutes / c_quarterMinutes;
    return isWest ? -quarters : quarters;
}

} // namespace

std::optional<Messages::Timestamp> TimeIn(const std::string& text) {
    Scanner scanner(text);
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    const bool isThere = scanner.Take(4, year) && scanner.Take("-") && scanner.Take(2, month) &&
                         scanner.Take("-") && scanner.Take(2, day) && scanner.Take("Tt ") &&
                         scanner.Take(2, hour) && scanner.Take(":") && scanner.Take(2, minute) &&
                         (!scanner.Take(":") || scanner.Take(2, second));
    if (!isThere)
        return std::nullopt;
    scanner.Take(" ");
    const std::optional<int> quarters = TakeQuarters(scanner);
    return quarters ? Messages::MakeTimestamp(year, month, day, hour, minute, second, *quarters)
                    : std::nullopt;
}

std::string FaultOfTime(const std::string& text) {
    return TimeIn(text) ? ""
                        : fmt::format("{} is no time of the years 2000 to 2099 with its zone, as "
                                      "2026-12-24T18:00:00+01:00",
                                      text);
}

Messages::Timestamp Now() {
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    localtime_r(&seconds, &local);
    const auto quarters = static_cast<int>(local.tm_gmtoff / c_quarterSeconds);
    return Messages::MakeTimestamp(std::int64_t{seconds}, quarters).value_or(Messages::Timestamp{});
}

} // namespace qxpdu
