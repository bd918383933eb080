#include "log/Digits.h"

#include <algorithm>
#include <vector>

#include "characters/Letters.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_longWord = 16;     ///< digits that no date, number or address in a log has
constexpr std::size_t c_mostWords = 4096;  ///< that are looked at in a line
constexpr std::size_t c_mostDigits = 2048; ///< that are put together of them
constexpr std::string_view c_blanks = " \t";

bool IsArrow(char character) {
    return character == '-' || character == '<' || character == '>' || character == '=';
}

bool IsBlank(char character) {
    return c_blanks.find(character) != std::string_view::npos;
}

/// Letters and digits, or blanks, or what arrows are drawn of, count as one; other characters by themselves.
int ClassOf(char character) {
    constexpr int c_word = 256;
    constexpr int c_blank = 257;
    constexpr int c_arrow = 258;
    if (IsAlphanumeric(character))
        return c_word;
    if (IsBlank(character))
        return c_blank;
    return IsArrow(character) ? c_arrow : static_cast<unsigned char>(character);
}

/// After the characters of one class; a character by itself is one.
std::size_t EndOfClass(std::string_view text, std::size_t at) {
    constexpr int c_firstRun = 256;
    const int kind = ClassOf(text[at++]);
    while (kind >= c_firstRun && at < text.size() && ClassOf(text[at]) == kind)
        ++at;
    return at;
}

/// A run of letters and digits.
struct Word {
    std::string_view text; ///< without "0x"
    std::size_t begin;     ///< in the line
    std::size_t end;
    bool isHex;
};

std::vector<Word> WordsOf(std::string_view text) {
    constexpr std::string_view c_hexMark = "0X";
    std::vector<Word> words;
    for (std::size_t at = 0; at < text.size() && words.size() < c_mostWords;) {
        if (!IsAlphanumeric(text[at])) {
            ++at;
            continue;
        }
        const std::size_t end = EndOfClass(text, at);
        std::string_view word = text.substr(at, end - at);
        if (BeginsWith(word, c_hexMark) && word.size() > c_hexMark.size())
            word.remove_prefix(c_hexMark.size());
        words.push_back({word, at, end, AreHexDigits(word)});
        at = end;
    }
    return words;
}

/// Whether the digits of one PDU may be parted so.
bool IsSeparator(std::string_view between) {
    constexpr std::string_view c_separators = " \t:-,;'\"";
    constexpr std::size_t c_widest = 4;
    return between.size() <= c_widest && between.find_first_not_of(c_separators) == std::string_view::npos;
}

std::string_view Between(std::string_view text, const Word& before, const Word& after) {
    return text.substr(before.end, after.begin - before.end);
}

/// Words, beginning with any, that make the PDU whole.
std::string FindWhole(std::string_view text, const std::vector<Word>& words, const IsWhole& isWhole) {
    for (std::size_t first = 0; first < words.size(); ++first) {
        std::string digits;
        for (std::size_t i = first; i < words.size() && words[i].isHex && digits.size() <= c_mostDigits;
             ++i) {
            if (i > first && !IsSeparator(Between(text, words[i - 1], words[i])))
                break;
            digits += words[i].text;
            if (isWhole(digits))
                return digits;
        }
    }
    return {};
}

std::string Joined(const std::vector<Word>& words) {
    std::string digits;
    for (const Word& word : words)
        digits += word.text;
    return digits;
}

/// Nothing but digits, with no more than blanks between them unless they are too many for a time.
bool IsPlain(std::string_view text, const std::vector<Word>& words) {
    if (words.empty() ||
        !std::all_of(words.begin(), words.end(), [](const Word& word) { return word.isHex; }))
        return false;
    if (words.size() == c_mostWords || Joined(words).size() >= c_longWord)
        return true;
    return std::adjacent_find(words.begin(), words.end(), [text](const Word& before, const Word& after) {
               return Between(text, before, after).find_first_not_of(c_blanks) != std::string_view::npos;
           }) == words.end();
}

std::string Longest(const std::vector<Word>& words) {
    std::string_view longest;
    for (const Word& word : words) {
        if (word.isHex && word.text.size() > longest.size())
            longest = word.text;
    }
    return longest.size() < c_longWord ? std::string() : std::string(longest);
}

} // namespace

std::optional<std::size_t> EndOfPrefix(std::string_view text, std::string_view prefix) {
    std::size_t at = 0;
    for (std::size_t of = 0; of < prefix.size();) {
        if (at == text.size() || ClassOf(text[at]) != ClassOf(prefix[of]))
            return std::nullopt;
        const std::size_t end = EndOfClass(prefix, of);
        if (end == prefix.size() && IsAlphanumeric(prefix[of])) { // the PDU begins in the same run
            const std::string_view last = prefix.substr(of);
            return text.substr(at).starts_with(last) ? std::optional(at + last.size()) : std::nullopt;
        }
        at = EndOfClass(text, at);
        of = end;
    }
    return at;
}

std::string DigitsIn(std::string_view text, Beside beside, const IsWhole& isWhole) {
    const std::vector<Word> words = WordsOf(text);
    if (words.empty())
        return {};
    if (std::string digits = FindWhole(text, words, isWhole); !digits.empty())
        return digits;
    if (beside == Beside::Nothing) {
        if (IsPlain(text, words))
            return Joined(words);
        const std::size_t quote = text.find_first_of("'\"", words[0].end);
        const std::string_view head = text.substr(0, quote);
        if (const std::vector<Word> first = WordsOf(head);
            quote != std::string_view::npos && IsPlain(head, first))
            return Joined(first);
    }
    return Longest(words);
}

} // namespace qxpdu
