// A stream of which a piece comes after the other.
#ifndef TESTS_TOOLS_QXPDU_STREAM_TRICKLE_H
#define TESTS_TOOLS_QXPDU_STREAM_TRICKLE_H

#include <streambuf>
#include <string>
#include <utility>
#include <vector>

namespace tests {

/// Gives pieces, each when the one before has been read; whether the next has come is told.
class Trickle : public std::streambuf {
public:
    explicit Trickle(std::vector<std::string> pieces) : m_Pieces(std::move(pieces)) {}

    bool hasCome = false;

protected:
    int_type underflow() override {
        if (m_Next == m_Pieces.size())
            return traits_type::eof();
        std::string& piece = m_Pieces[m_Next++];
        setg(piece.data(), piece.data(), piece.data() + piece.size());
        hasCome = false;
        return traits_type::to_int_type(piece.front());
    }
    std::streamsize showmanyc() override {
        if (!hasCome)
            return 0;
        return m_Next == m_Pieces.size() ? -1 : static_cast<std::streamsize>(m_Pieces[m_Next].size());
    }

private:
    std::vector<std::string> m_Pieces;
    std::size_t m_Next = 0;
};

} // namespace tests

#endif
