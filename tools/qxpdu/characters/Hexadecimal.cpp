#include "characters/Hexadecimal.h"

#include <algorithm>
#include <optional>
#include <span>

#include <fmt/format.h>

#include "Encoding/Pdu.h"
#include "Messages/Octets.h"
#include "characters/Dump.h"
#include "characters/InputError.h"
#include "characters/Letters.h"
#include "characters/Unicode.h"

namespace qxpdu {

namespace {

constexpr std::string_view c_blanks = " \t\r";

/// What may stand anywhere among the digits.
constexpr std::string_view c_beside[] = {" ",
                                         "\t",
                                         "\r",
                                         "\n",
                                         "'",
                                         "\"",
                                         "`",
                                         "(",
                                         ")",
                                         "[",
                                         "]",
                                         "{",
                                         "}",
                                         "<",
                                         ">",
                                         "\x1A",         // ends what is typed at a modem's prompt
                                         "\xEF\xBB\xBF", // the byte-order mark
                                         "\xC2\xA0",     // U+00A0 and U+200B, blanks
                                         "\xE2\x80\x8B",
                                         "\xE2\x80\x98", // U+2018 and so on, quotation marks
                                         "\xE2\x80\x99",
                                         "\xE2\x80\x9C",
                                         "\xE2\x80\x9D",
                                         "\xC2\xAB",
                                         "\xC2\xBB"};

/// What may stand between octets, but not inside one: "7:91" might be two octets or three digits.
constexpr std::string_view c_between[] = {",", ";", ":", "-", "0x", "0X", "\\x", "\\X"};

/// What parts all octets or none: a time or a date may stand before them.
constexpr std::string_view c_marks = ":-";

/// What begins a string of octets in a program, before its quotation mark.
constexpr std::string_view c_stringMarks = "bBxX";

constexpr std::string_view c_labelEnds = ":=";

/// Characters of the first of these that the text begins with; 0 where it begins with none.
std::size_t LengthOfAny(std::string_view text, std::span<const std::string_view> candidates) {
    const auto found = std::find_if(candidates.begin(), candidates.end(),
                                    [text](std::string_view each) { return text.starts_with(each); });
    return found == candidates.end() ? 0 : found->size();
}

/// Characters of a label, "PDU: " or "pdu=": a word that cannot be digits, and what ends it.
std::size_t LabelIn(std::string_view text) {
    const std::size_t end = text.find_first_of(c_labelEnds);
    if (end == std::string_view::npos)
        return 0;
    const std::string_view label = text.substr(0, end);
    const bool isWord = std::all_of(label.begin(), label.end(), [](char character) {
        return IsAlphanumeric(character) || character == ' ' || character == '_' || character == '"' ||
               character == '\'';
    });
    const bool isNoDigits = std::any_of(label.begin(), label.end(), [](char character) {
        return IsAlphanumeric(character) && !IsHexDigit(character) && Upper(character) != 'X';
    });
    return isWord && isNoDigits ? end + 1 : 0;
}

/// Takes the digits, an even number of them, out of what was pasted with them.
class DigitReader {
public:
    explicit DigitReader(std::string_view text) : m_Text(text) {}

    std::string Read() {
        m_At = LabelIn(m_Text);
        SkipStringMark();
        while (m_At < m_Text.size())
            ReadNext();
        if (m_Digits.empty())
            throw InputError("no hexadecimal digits");
        if (m_Digits.size() % 2 != 0)
            throw InputError(fmt::format("odd number of hexadecimal digits, {}", m_Digits.size()));
        CheckMarks();
        return std::move(m_Digits);
    }

private:
    std::string_view Rest() const { return m_Text.substr(m_At); }

    void SkipStringMark() {
        while (m_At < m_Text.size() && m_Text[m_At] == ' ')
            ++m_At;
        const std::string_view rest = Rest();
        if (rest.size() > 1 && c_stringMarks.find(rest[0]) != std::string_view::npos &&
            (rest[1] == '\'' || rest[1] == '"'))
            ++m_At;
    }

    void ReadNext() {
        const std::size_t between = LengthOfAny(Rest(), c_between);
        if (between == 0 && IsHexDigit(m_Text[m_At]))
            return TakeRun();
        if (between != 0 && m_Digits.size() % 2 != 0)
            Refuse("stands inside an octet");
        m_IsMarked = m_IsMarked || c_marks.find(m_Text[m_At]) != std::string_view::npos;
        m_IsLineEnd = m_IsLineEnd || m_Text[m_At] == '\n';
        const std::size_t length = between != 0 ? between : LengthOfAny(Rest(), c_beside);
        if (length == 0)
            Refuse("is no hexadecimal digit");
        m_At += length;
    }

    /// All digits up to something else.
    void TakeRun() {
        if (m_Runs++ > 0 && m_IsMarked)
            ++m_MarkedGaps;
        else if (m_Runs > 1 && m_IsLineEnd)
            ++m_LineEnds;
        m_IsMarked = m_IsLineEnd = false;
        const std::string_view rest = Rest();
        const auto* const end = std::find_if_not(rest.begin(), rest.end(), IsHexDigit);
        const auto size = static_cast<std::size_t>(end - rest.begin());
        m_Digits += rest.substr(0, size);
        m_At += size;
        m_LongestRun = std::max(m_LongestRun, size);
    }

    /// A time before the digits is none of them.
    void CheckMarks() const {
        constexpr std::size_t c_octet = 2;
        if (m_MarkedGaps > 0 && (m_LongestRun > c_octet || m_MarkedGaps + m_LineEnds + 1 != m_Runs))
            throw InputError("colons or hyphens stand between some of the octets, but not all");
    }

    [[noreturn]] void Refuse(std::string_view why) const {
        throw InputError(fmt::format("character {}, {}, {}", m_At + 1, FirstCharacter(Rest()), why));
    }

    std::string_view m_Text;
    std::size_t m_At = 0;
    std::size_t m_LongestRun = 0; ///< digits
    std::size_t m_Runs = 0;
    std::size_t m_MarkedGaps = 0; ///< between two runs
    std::size_t m_LineEnds = 0;   ///< between two runs without a mark
    bool m_IsMarked = false;      ///< since the last run
    bool m_IsLineEnd = false;     ///< since the last run
    std::string m_Digits;
};

} // namespace

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(c_blanks);
    return first == std::string_view::npos ? std::string_view{}
                                           : text.substr(first, text.find_last_not_of(c_blanks) - first + 1);
}

std::vector<unsigned char> ReadHex(std::string_view text) {
    std::vector<unsigned char> octets;
    const bool areDigitsAlone = Messages::FromHex(text, octets) && !octets.empty();
    if (areDigitsAlone)
        return octets;
    const std::optional<std::string> dumped = ReadDump(text);
    Messages::FromHex(dumped ? *dumped : DigitReader(text).Read(), octets);
    return octets;
}

std::vector<unsigned char> ReadPduOctets(std::string_view text) {
    std::vector<unsigned char> octets = ReadHex(text);
    if (octets.size() > Encoding::Pdu::CAPACITY)
        throw InputError(fmt::format("{} octets, {} at most", octets.size(), +Encoding::Pdu::CAPACITY));
    return octets;
}

} // namespace qxpdu
