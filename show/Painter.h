// Colours for a terminal.
#ifndef SHOW_PAINTER_H
#define SHOW_PAINTER_H

#include <cstddef>
#include <string>
#include <string_view>

namespace show {

/// Makes text coloured, or leaves it.
class Painter {
public:
    explicit Painter(bool isOn) : m_IsOn(isOn) {}

    /// Each field has another colour than its neighbours.
    void Begin(std::string_view field);

    std::string InFieldColour(std::string_view text) const;
    std::string AsRemark(std::string_view text) const; ///< what is unusual, or wrong
    std::string AsDifference(std::string_view text) const;

private:
    std::string Painted(std::string_view text, int colour) const;

    bool m_IsOn;
    std::string_view m_Field;
    std::size_t m_Colour = 0;
};

} // namespace show

#endif
