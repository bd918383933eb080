#include "words/Sentences.h"

#include <algorithm>

#include "Messages/Words.h"

namespace Messages {
namespace {

std::string Shown(std::uint32_t number, std::string_view kind) {
    if (kind.empty())
        return std::to_string(number);
    if (kind == "x")
        return Hexadecimal(number, 2);
    if (kind == "x1")
        return Hexadecimal(number, 1);
    if (kind == "x4")
        return Hexadecimal(number, 4);
    if (kind == "character" && number == c_notUtf8)
        return "octets that are not UTF-8";
    if (kind == "character")
        return "U+" + Hexadecimal(number, 4);
    if (kind == "element")
        return Hexadecimal(number, 2) + " (" + std::string(NameOfElement(static_cast<std::uint8_t>(number))) +
               ')';
    return Counted(number, kind);
}

std::uint32_t NumberIn(const SentenceValues& values, char letter) {
    if (letter == 'p')
        return values.octet;
    return letter == 'n' ? values.number : values.other;
}

std::string Shown(std::string_view brace, const SentenceValues& values) {
    const char letter = brace.front();
    if (letter == 'f')
        return std::string(NameOf(values.field));
    return Shown(NumberIn(values, letter), brace.size() > 2 ? brace.substr(2) : std::string_view());
}

} // namespace

std::string FillIn(std::string_view sentence, const SentenceValues& values) {
    std::string filled;
    while (!sentence.empty()) {
        const std::size_t open = std::min(sentence.find('{'), sentence.size());
        filled += sentence.substr(0, open);
        sentence.remove_prefix(open);
        if (sentence.empty())
            break;
        const std::size_t close = sentence.find('}');
        filled += Shown(sentence.substr(1, close - 1), values);
        sentence.remove_prefix(close + 1);
    }
    return filled;
}

std::string Counted(std::uint32_t count, std::string_view what) {
    return std::to_string(count) + ' ' + std::string(what) + (count == 1 ? "" : "s");
}

std::string Hexadecimal(std::uint32_t number, unsigned int digits) {
    constexpr std::string_view all = "0123456789ABCDEF";
    std::string text;
    for (; number != 0 || text.size() < digits; number >>= 4U)
        text.insert(text.begin(), all[number & 0x0FU]);
    return text;
}

} // namespace Messages
