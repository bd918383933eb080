// Sentences with numbers in them.
#ifndef WORDS_SENTENCES_H
#define WORDS_SENTENCES_H

#include <cstdint>
#include <string>
#include <string_view>

#include "Messages/Remarks.h"

namespace Messages {

struct SentenceValues {
    Field field = Field::MessageType;
    std::uint32_t octet = 0;
    std::uint32_t number = 0;
    std::uint32_t other = 0;
};

/// Fills in the braces of a sentence, see words/Findings.h.
std::string FillIn(std::string_view sentence, const SentenceValues& values);

/// "1 octet", "2 octets".
std::string Counted(std::uint32_t count, std::string_view what);

/// Upper-case digits, as many as are asked for or more.
std::string Hexadecimal(std::uint32_t number, unsigned int digits);

} // namespace Messages

#endif
