// Words for a person: some that a table has, or some that were made for a value.
#ifndef SHOW_WORDS_H
#define SHOW_WORDS_H

#include <string>
#include <string_view>
#include <utility>

namespace show {

/// What a table has is not copied; it lives as long as the program.
class Words {
public:
    Words(std::string_view known) : m_Known(known) {}
    Words(const char* known) : m_Known(known) {}
    Words(std::string made) : m_Made(std::move(made)) {}

    operator std::string_view() const { return m_Made.empty() ? m_Known : m_Made; }
    operator std::string() && { return m_Made.empty() ? std::string(m_Known) : std::move(m_Made); }

private:
    std::string_view m_Known;
    std::string m_Made;
};

} // namespace show

#endif
