#include "stream/Inputs.h"

#include <array>
#include <iterator>
#include <limits>
#include <utility>

namespace qxpdu {

namespace {

constexpr const char* c_standardInput = "-";

/// Reads up to the next line feed, or the end, and keeps at most one byte more than MAX_LINE. Returns false
/// when nothing was left.
bool ReadLine(std::istream& in, std::string& line) {
    std::array<char, 4096> piece;
    line.clear();
    while (in.getline(piece.data(), piece.size()) || in.gcount() > 0) {
        const auto read = static_cast<std::size_t>(in.gcount());
        const bool isCut = in.fail();             // the piece was full before a line feed came
        const bool hasFeed = !isCut && !in.eof(); // counted, but not stored
        line.append(piece.data(), hasFeed ? read - 1 : read);
        if (!isCut)
            return true;
        in.clear(in.rdstate() & ~std::ios::failbit);
        if (line.size() > Inputs::MAX_LINE) {
            line.resize(Inputs::MAX_LINE + 1);
            in.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
            return true;
        }
    }
    return !line.empty();
}

/// Reads up to the end, keeps at most one byte more than MAX_LINE, and leaves the last line feed out.
std::string ReadAll(std::istream& in) {
    std::string text(Inputs::MAX_LINE + 1, '\0');
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    if (text.ends_with('\n'))
        text.pop_back();
    return text;
}

} // namespace

Inputs::Inputs(std::vector<std::string> arguments, std::istream& in, bool isWhole)
    : m_Arguments(std::move(arguments)), m_In(in), m_IsWhole(isWhole), m_InStream(m_Arguments.empty()) {}

bool Inputs::NextLine(Input& input) {
    std::string line;
    if (!ReadLine(m_In, line))
        return false;
    m_Bytes += line.size() + 1;
    input = {Input::Source::Line, ++m_Line, std::move(line)};
    return true;
}

bool Inputs::NextOfStream(Input& input) {
    if (!m_IsWhole)
        return NextLine(input);
    m_InStream = false;
    input = {Input::Source::Stream, 0, ReadAll(m_In)};
    return !HasFailed();
}

bool Inputs::Next(Input& input) {
    for (;;) {
        if (m_InStream && NextOfStream(input))
            return true;
        m_InStream = false;
        if (m_Argument == m_Arguments.size())
            return false;
        const std::string& argument = m_Arguments[m_Argument++];
        if (argument != c_standardInput) {
            input = {Input::Source::Argument, m_Argument, argument};
            return true;
        }
        m_InStream = true;
    }
}

} // namespace qxpdu
