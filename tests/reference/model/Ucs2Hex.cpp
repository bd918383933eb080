#include "model/Ucs2Hex.h"

#include "model/Charset.h"

namespace model {

namespace {

/// The lowest `digits` hexadecimal digits of a number, highest first.
std::string UpperHex(std::uint32_t number, unsigned int digits) {
    std::string text;
    for (unsigned int i = 0; i < digits; ++i) {
        text.insert(text.begin(), "0123456789ABCDEF"[number % 16]);
        number /= 16;
    }
    return text;
}

} // namespace

int DigitValue(char32_t character) {
    if (character >= '0' && character <= '9')
        return static_cast<int>(character - '0');
    if (character >= 'A' && character <= 'F')
        return static_cast<int>(character - 'A') + 10;
    if (character >= 'a' && character <= 'f')
        return static_cast<int>(character - 'a') + 10;
    return 0;
}

std::string Utf8(const Text& text) {
    std::string octets;
    const auto put = [&octets](char32_t octet) { octets += static_cast<char>(octet); };
    for (char32_t c : text) {
        if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
            c = 0xFFFD;
        if (c < 0x80) {
            put(c);
        } else if (c < 0x800) {
            put(0xC0 + c / 64);
            put(0x80 + c % 64);
        } else if (c < 0x10000) {
            put(0xE0 + c / 4096);
            put(0x80 + c / 64 % 64);
            put(0x80 + c % 64);
        } else {
            put(0xF0 + c / 262144);
            put(0x80 + c / 4096 % 64);
            put(0x80 + c / 64 % 64);
            put(0x80 + c % 64);
        }
    }
    return octets;
}

bool IsUcs2(const std::string& hex) {
    if (hex.size() <= 7 || hex.size() % 4 != 0)
        return false;
    std::size_t digits = 0;
    std::size_t letters = 0;
    for (const char c : hex) {
        if (c >= '0' && c <= '9')
            ++digits;
        if (c >= 'A' && c <= 'Z')
            ++letters;
    }
    return digits + letters == hex.size() && digits >= 4;
}

Text FromUcs2(const std::string& hex) {
    Text text;
    for (std::size_t i = 0; i + 4 <= hex.size(); i += 4) {
        int value = 0;
        for (std::size_t j = 0; j < 4; ++j)
            value = value * 16 + DigitValue(static_cast<unsigned char>(hex[i + j]));
        text += static_cast<char32_t>(value);
    }
    return text;
}

std::string ToUcs2(const Text& text) {
    std::string hex;
    for (const char32_t character : text)
        hex += UpperHex(Low16(character), 4);
    return hex;
}

Text DecodeText(const Text& text, int alphabet) {
    if (text.empty())
        return {};
    if (alphabet != 0 && alphabet != 4)
        return FromUcs2(Utf8(text));
    Octets codes;
    for (const char32_t character : text)
        codes.push_back(static_cast<std::uint8_t>(character % 256));
    return Charset().GsmToUnicode(codes);
}

std::string TextDecoderMessage(const Text& text, int alphabet) {
    std::string dump;
    for (const char32_t character : text)
        dump += UpperHex(character, 8);
    return "TextDecoder( " + std::to_string(alphabet) + ", " + dump + " )";
}

} // namespace model
