#include "log/Digits.h"

#include <algorithm>
#include <vector>

#include "characters/Dump.h"
#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "characters/Letters.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_digitsInOctet = 2;
constexpr std::size_t c_longWord = 16; ///< digits that no date, number or address in a log has
constexpr std::string_view c_blanks = " \t";

bool IsArrow(char character) {
    return character == '-' || character == '<' || character == '>' || character == '=';
}

bool IsBlank(char character) {
    return c_blanks.find(character) != std::string_view::npos;
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(c_blanks, at), text.size());
}

/// Classes of several characters, above those of one, which are their octets.
enum CharacterClass { c_word = 256, c_blank, c_arrow };

/// Letters and digits, or blanks, or what arrows are drawn of, count as one; other characters by themselves.
int ClassOf(char character) {
    if (IsAlphanumeric(character))
        return c_word;
    if (IsBlank(character))
        return c_blank;
    if (IsArrow(character))
        return c_arrow;
    return static_cast<unsigned char>(character);
}

/// After the characters of one class; a character by itself is one.
std::size_t EndOfClass(std::string_view text, std::size_t at) {
    const int kind = ClassOf(text[at++]);
    while (kind >= c_word && at < text.size() && ClassOf(text[at]) == kind)
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
    constexpr std::string_view c_answer = "OK"; // in the line of the PDU, where no line ends are printed
    std::vector<Word> words;
    for (std::size_t at = 0; at < text.size();) {
        if (!IsAlphanumeric(text[at])) {
            ++at;
            continue;
        }
        const std::size_t end = EndOfClass(text, at);
        std::string_view word = text.substr(at, end - at);
        if (BeginsWith(word, c_hexMark) && word.size() > c_hexMark.size())
            word.remove_prefix(c_hexMark.size());
        if (word.ends_with(c_answer) && word.size() > c_longWord)
            word.remove_suffix(c_answer.size());
        words.push_back({word, at, end, AreHexDigits(word)});
        at = end;
    }
    return words;
}

/// What stands between two words.
std::string_view Between(std::string_view text, const Word& before, const Word& after) {
    return text.substr(before.end, after.begin - before.end);
}

bool AreBlanks(std::string_view between) {
    return between.find_first_not_of(c_blanks) == std::string_view::npos;
}

/// Whether the digits of one PDU may be parted so.
bool IsSeparator(std::string_view between) {
    constexpr std::string_view c_separators = " \t:-,;'\"";
    constexpr std::size_t c_widest = 4;
    return AreBlanks(between) ||
           (between.size() <= c_widest && between.find_first_not_of(c_separators) == std::string_view::npos);
}

/// Words of digits that follow each other with nothing but separators between them.
struct Run {
    std::string digits;
    std::vector<std::size_t> words = {1}; ///< those begun where one begins or all end, from 1; 0 elsewhere

    void Add(std::string_view word) {
        const std::size_t begun = words.back();
        digits += word;
        words.resize(digits.size());
        words.push_back(begun + 1);
    }
};

std::vector<Run> RunsOf(std::string_view text, const std::vector<Word>& words) {
    std::vector<Run> runs;
    const Word* before = nullptr;
    for (const Word& word : words) {
        if (word.isHex) {
            if (before == nullptr || !IsSeparator(Between(text, *before, word)))
                runs.emplace_back();
            runs.back().Add(word.text);
        }
        before = word.isHex ? &word : nullptr;
    }
    return runs;
}

/// Digits that complete the PDU.
struct Completion {
    std::size_t words; ///< that they stand in
    std::string_view digits;
};

std::vector<Completion> CompletionsIn(const std::vector<Run>& runs, const AwaitedPdu& pdu) {
    std::vector<Completion> completions;
    for (const Run& run : runs) {
        for (std::size_t begin = 0; begin < run.digits.size(); ++begin) {
            if (run.words[begin] == 0)
                continue;
            const std::string_view rest = std::string_view(run.digits).substr(begin);
            for (const std::size_t size : pdu.Lacking(rest)) {
                if (size != 0 && size <= rest.size() && run.words[begin + size] != 0)
                    completions.push_back({run.words[begin + size] - run.words[begin], rest.substr(0, size)});
            }
        }
    }
    return completions;
}

/// Words, beginning with any, that complete the PDU and make it sound. Where several do, as the last digits
/// of a text always do, those of the fewest words: the others are of a time. Of the few lines in which more
/// than these have the right length, the rest is not tried.
std::string FindSound(const std::vector<Run>& runs, const AwaitedPdu& pdu) {
    constexpr std::size_t c_mostTries = 16;
    std::vector<Completion> completions = CompletionsIn(runs, pdu);
    std::stable_sort(completions.begin(), completions.end(),
                     [](const Completion& a, const Completion& b) { return a.words < b.words; });
    completions.resize(std::min(completions.size(), c_mostTries));
    for (const Completion& completion : completions) {
        if (pdu.IsPage() || pdu.IsSound(completion.digits))
            return std::string(completion.digits);
    }
    return {};
}

/// Whether digits are parted as one program would do it: by blanks, wherever, or into octets by something
/// else that is the same throughout. Of octets so parted a time has too few.
bool IsPartedAlike(std::string_view text, const std::vector<Word>& words) {
    constexpr std::size_t c_octet = 2;
    const auto areAllParted = [&](const auto& isParted) {
        return std::adjacent_find(words.begin(), words.end(), [&](const Word& before, const Word& after) {
                   return !isParted(Between(text, before, after));
               }) == words.end();
    };
    if (areAllParted(AreBlanks))
        return true;
    const std::string_view first = Between(text, words[0], words[1]);
    return words.size() >= c_longWord / c_octet &&
           std::all_of(words.begin(), words.end(),
                       [](const Word& word) { return word.text.size() == c_octet; }) &&
           areAllParted([first](std::string_view between) { return between == first; });
}

std::string Joined(const std::vector<Word>& words) {
    std::string digits;
    for (const Word& word : words)
        digits += word.text;
    return digits;
}

/// The digits of a text that is nothing else; empty where it says something else, a time for one.
std::string PlainDigits(std::string_view text, const std::vector<Word>& words) {
    const bool areHex = std::all_of(words.begin(), words.end(), [](const Word& word) { return word.isHex; });
    return areHex && IsPartedAlike(text, words) ? Joined(words) : std::string();
}

/// Those of the text before the first bracket or quotation mark after a digit; empty where they stand after a
/// string and a comma, as other arguments of a program, and where one digit is the mark of a string: b'07'.
std::string PlainHead(std::string_view text, const std::vector<Word>& words) {
    const std::string_view before = text.substr(0, words[0].begin);
    if (before.find(',', std::min(before.find_first_of("'\""), before.size())) != std::string_view::npos)
        return {};
    const std::size_t end = text.find_first_of("'\"()[]{}|", words[0].end);
    const std::string_view head = text.substr(0, end);
    if (words[0].text.size() == 1 && end == words[0].end && end < text.size() &&
        (text[end] == '\'' || text[end] == '"'))
        return {};
    return end == std::string_view::npos ? std::string() : PlainDigits(head, WordsOf(head));
}

std::string Longest(const std::vector<Word>& words) {
    std::string_view longest;
    for (const Word& word : words) {
        if (word.isHex && word.text.size() > longest.size())
            longest = word.text;
    }
    return longest.size() < c_longWord ? std::string() : std::string(longest);
}

/// A word of a language, and no digits.
bool IsSpoken(const Word& word) {
    return word.text.size() > 1 && !word.isHex && std::none_of(word.text.begin(), word.text.end(), IsDecimal);
}

} // namespace

std::optional<std::size_t> EndOfPrefix(std::string_view text, std::string_view prefix) {
    std::size_t at = 0;
    for (std::size_t of = 0; of < prefix.size();) {
        if (const std::size_t number = SkipBlanks(prefix, of);
            number < prefix.size() && IsDecimal(prefix[number])) {
            of = number;
            at = SkipBlanks(text, at);
        }
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

std::string DigitsIn(std::string_view text, Beside beside, const AwaitedPdu& pdu) {
    const std::vector<Word> words = WordsOf(text);
    if (words.empty())
        return {};
    std::string plain = PlainDigits(text, words);
    std::optional<DumpLine> dumped = ReadDumpLine(text, pdu.Digits().size() / c_digitsInOctet);
    if (dumped && (!dumped->isBare || !pdu.IsComplete(plain)))
        return std::move(dumped->digits);
    const std::size_t fewest = beside == Beside::Others ? 2 : 1; // one digit by itself may be an answer
    const bool isLine = beside != Beside::Words && plain.size() >= fewest;
    if (pdu.IsComplete(plain) || (isLine && !pdu.IsTooLong(plain)))
        return plain;
    if (std::string sound = FindSound(RunsOf(text, words), pdu); !sound.empty())
        return sound;
    if (isLine)
        return plain;
    if (beside == Beside::Others)
        return {};
    if (std::string head = PlainHead(text, words); beside == Beside::Nothing && !head.empty())
        return head;
    return Longest(words);
}

bool MayBePdu(const std::string& line) {
    const std::vector<Word> words = WordsOf(line);
    if (std::none_of(words.begin(), words.end(), IsSpoken) || !Longest(words).empty())
        return !words.empty();
    try {
        ReadHex(line);
        return true;
    } catch (const InputError&) {
        return false;
    }
}

} // namespace qxpdu
