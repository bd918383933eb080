// Numbers in decimal, narrow and wide.
#ifndef TOOLKIT_DIGITS_H
#define TOOLKIT_DIGITS_H

#include <string>

namespace Toolkit {

/// Appends `value` in decimal, with leading zeros up to `width` digits; a larger value takes more.
template <class CharT>
void AppendDigits(std::basic_string<CharT>& text, unsigned int value, unsigned int width) {
    if (width > 1 || value >= 10)
        AppendDigits(text, value / 10, width > 1 ? width - 1 : 1);
    text += static_cast<CharT>('0' + value % 10);
}

/// What is left of a value without its sign.
inline unsigned int Magnitude(int value) {
    return value < 0 ? 0U - static_cast<unsigned int>(value) : static_cast<unsigned int>(value);
}

} // namespace Toolkit

#endif
