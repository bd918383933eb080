#include "commands/Times.h"

#include <algorithm>
#include <ctime>
#include <string_view>

#include <fmt/format.h>

#include "characters/Letters.h"

namespace qxpdu {

namespace {

constexpr int c_quarterMinutes = 15;
constexpr int c_quartersOfHour = 4;

/// Reads a text from its beginning on, and notes whether it is as it has to be.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_Text(text) {}

    bool AtEnd() const { return m_Text.empty(); }

    /// Whether all of the text was read, and was as it has to be.
    bool IsRight() const { return m_IsRight && AtEnd(); }

    void Require(bool condition) { m_IsRight = m_IsRight && condition; }

    /// Takes one of these characters where it is next.
    bool Take(std::string_view characters) {
        const bool isThere = !AtEnd() && characters.find(m_Text.front()) != std::string_view::npos;
        m_Text.remove_prefix(isThere ? 1 : 0);
        return isThere;
    }

    /// Takes one of these characters, which has to be next.
    void Expect(std::string_view characters) { Require(Take(characters)); }

    /// Takes so many decimal digits, which have to be next.
    int Number(std::size_t digits) {
        const std::string_view taken = m_Text.substr(0, digits);
        Require(taken.size() == digits);
        int number = 0;
        for (const char character : taken) {
            Require(IsDecimal(character));
            number = 10 * number + (character - '0');
        }
        m_Text.remove_prefix(taken.size());
        return number;
    }

private:
    std::string_view m_Text;
    bool m_IsRight = true;
};

/// Z, +01, +0100 or +01:00, to the end of the text.
int TakeQuarters(Scanner& scanner) {
    if (scanner.Take("Zz"))
        return 0;
    const bool isWest = scanner.Take("-");
    if (!isWest)
        scanner.Expect("+");
    const int hours = scanner.Number(2);
    int minutes = 0;
    if (!scanner.AtEnd()) {
        scanner.Take(":");
        minutes = scanner.Number(2);
    }
    scanner.Require(minutes < 60 && minutes % c_quarterMinutes == 0);
    const int quarters = hours * c_quartersOfHour + minutes / c_quarterMinutes;
    return isWest ? -quarters : quarters;
}

} // namespace

std::optional<Messages::Timestamp> TimeIn(const std::string& text) {
    Scanner scanner(text);
    const int year = scanner.Number(4);
    scanner.Expect("-");
    const int month = scanner.Number(2);
    scanner.Expect("-");
    const int day = scanner.Number(2);
    scanner.Expect("Tt ");
    const int hour = scanner.Number(2);
    scanner.Expect(":");
    const int minute = scanner.Number(2);
    const int second = scanner.Take(":") ? scanner.Number(2) : 0;
    scanner.Take(" ");
    const int quarters = TakeQuarters(scanner);
    return scanner.IsRight() ? Messages::MakeTimestamp(year, month, day, hour, minute, second, quarters)
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
    const auto quarters = static_cast<int>(local.tm_gmtoff / (60 * c_quarterMinutes));
    return Messages::MakeTimestamp(std::int64_t{seconds}, quarters).value_or(Messages::Timestamp{});
}

} // namespace qxpdu
