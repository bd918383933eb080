#include "show/Painter.h"

#include <array>

#include <fmt/format.h>

namespace show {

namespace {

constexpr std::array<int, 5> c_fieldColours = {36, 32, 35, 34, 33}; // cyan, green, magenta, blue, yellow
constexpr int c_red = 31;
constexpr int c_grey = 90;

} // namespace

void Painter::Begin(std::string_view field) {
    if (field != m_Field)
        ++m_Colour;
    m_Field = field;
}

std::string Painter::InFieldColour(std::string_view text) const {
    return Painted(text, c_fieldColours[m_Colour % c_fieldColours.size()]);
}

std::string Painter::AsRemark(std::string_view text) const {
    return Painted(text, c_red);
}

std::string Painter::AsDifference(std::string_view text) const {
    return Painted(text, c_grey);
}

std::string Painter::Painted(std::string_view text, int colour) const {
    return m_IsOn ? fmt::format("\x1B[{}m{}\x1B[0m", colour, text) : std::string(text);
}

} // namespace show
