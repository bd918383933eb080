// Decimal numbers of a fixed width, as time stamps write them.
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

} // namespace Toolkit

#endif
