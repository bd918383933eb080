#include "Inputs.h"

#include <array>
#include <iterator>
#include <limits>
#include <utility>

#include <fmt/format.h>

namespace qxpdu {

namespace {

constexpr const char* c_standardInput = "-";

/// Reads up to the next line feed, or the end, or MAX_LINE bytes. Returns false when nothing was left.
bool ReadLine(std::istream& in, std::string& line, bool& tooLong) {
    std::array<char, 4096> piece;
    line.clear();
    tooLong = false;
    while (in.getline(piece.data(), piece.size()) || in.gcount() > 0) {
        const auto read = static_cast<std::size_t>(in.gcount());
        const bool more = in.fail();           // the piece was filled before a line feed came
        const bool ended = !more && !in.eof(); // the line feed was read and counted
        line.append(piece.data(), ended ? read - 1 : read);
        if (!more)
            return true;
        in.clear(in.rdstate() & ~std::ios::failbit);
        if (line.size() > Inputs::MAX_LINE) {
            line.resize(Inputs::MAX_LINE);
            tooLong = true;
            in.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
            return true;
        }
    }
    return !line.empty();
}

} // namespace

std::string NameOf(const Input& input) {
    switch (input.source) {
    case Input::Source::Argument:
        return fmt::format("argument {}", input.number);
    case Input::Source::Line:
        return fmt::format("line {}", input.number);
    case Input::Source::Stream:
        break;
    }
    return "standard input";
}

Inputs::Inputs(std::vector<std::string> arguments, std::istream& in)
    : m_Arguments(std::move(arguments)), m_In(in), m_InLines(m_Arguments.empty()) {}

bool Inputs::NextLine(Input& input) {
    if (!ReadLine(m_In, input.text, input.tooLong))
        return false;
    input.source = Input::Source::Line;
    input.number = ++m_Line;
    return true;
}

bool Inputs::Next(Input& input) {
    for (;;) {
        if (m_InLines && NextLine(input))
            return true;
        m_InLines = false;
        if (m_Argument == m_Arguments.size())
            return false;
        const std::string& argument = m_Arguments[m_Argument++];
        if (argument != c_standardInput) {
            input = {Input::Source::Argument, m_Argument, argument, false};
            return true;
        }
        m_InLines = true;
    }
}

Input ReadStream(std::istream& in) {
    Input input{Input::Source::Stream, 0, {std::istreambuf_iterator<char>(in), {}}, false};
    if (!input.text.empty() && input.text.back() == '\n')
        input.text.pop_back();
    return input;
}

} // namespace qxpdu
