// A command at work on input that comes in pieces, or all at once.
#ifndef WEB_MODULE_SESSION_H
#define WEB_MODULE_SESSION_H

#include <istream>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

#include "stream/Conversion.h"
#include "web/module/Options.h"

namespace qxpdu {

/// Gives the whole lines of what has come, and what is left once no more comes.
class PieceBuffer : public std::streambuf {
public:
    void Add(std::string_view piece, bool isLast);

protected:
    std::streamsize showmanyc() override { return m_IsLast ? -1 : 0; }

private:
    std::string m_Text;
    bool m_IsLast = false;
};

/// Collects what is written.
class TextBuffer : public std::streambuf {
public:
    const std::string& Text() const { return m_Text; }
    void Clear() { m_Text.clear(); }

protected:
    std::streamsize xsputn(const char* characters, std::streamsize count) override {
        m_Text.append(characters, static_cast<std::size_t>(count));
        return count;
    }
    int_type overflow(int_type character) override {
        if (!traits_type::eq_int_type(character, traits_type::eof()))
            m_Text += traits_type::to_char_type(character);
        return traits_type::not_eof(character);
    }

private:
    std::string m_Text;
};

class Session {
public:
    /// Does all of the work at once.
    void Run(const PreparedCommand& command, std::string_view input);

    /// Begins a command that takes its input piece by piece.
    void Begin(const PreparedCommand& command);

    /// Does the work on what has come.
    void Take(std::string_view piece, bool isLast);

    /// Of the work since the last piece.
    const std::string& Output() const { return m_OutBuffer.Text(); }
    const std::string& Messages() const { return m_ErrBuffer.Text(); }

    /// The exit status, once all is done.
    int Status() const { return m_Status; }

private:
    void Clear();

    PieceBuffer m_InBuffer;
    TextBuffer m_OutBuffer;
    TextBuffer m_ErrBuffer;
    std::istream m_In{&m_InBuffer};
    std::ostream m_Out{&m_OutBuffer};
    std::ostream m_Err{&m_ErrBuffer};
    std::unique_ptr<Conversion> m_Conversion;
    int m_Status = Console::ALL_GOOD;
};

} // namespace qxpdu

#endif
