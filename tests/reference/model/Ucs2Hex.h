// The UCS2 hex form of a text, and the text decoder that takes it or GSM codes.
#ifndef TESTS_REFERENCE_MODEL_UCS2HEX_H
#define TESTS_REFERENCE_MODEL_UCS2HEX_H

#include <string>

#include "model/Types.h"

namespace model {

/// Value of a hexadecimal digit of either case, 0 for every other character.
int DigitValue(char32_t character);

/// UTF-8; what is no Unicode scalar value becomes U+FFFD.
std::string Utf8(const Text& text);

bool IsUcs2(const std::string& hex);
Text FromUcs2(const std::string& hex);
std::string ToUcs2(const Text& text);

/// What the text decoder makes of a text.
Text DecodeText(const Text& text, int alphabet);
/// The message part of the line that it logs.
std::string TextDecoderMessage(const Text& text, int alphabet);

} // namespace model

#endif
