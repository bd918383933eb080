// Where a command's results and complaints go.
#ifndef QXPDU_CONSOLE_H
#define QXPDU_CONSOLE_H

#include <istream>
#include <ostream>
#include <string_view>

#include <nlohmann/json.hpp>

namespace qxpdu {

/// Members keep the order in which they are made.
using Json = nlohmann::ordered_json;

/// The three streams of a process.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool outIsTerminal = false; ///< results are shown as soon as they are there
};

enum class Format {
    Text,
    JsonArray ///< one array with an object for each result
};

/// Writes results to standard output, and warnings and errors to standard error, and knows the exit status.
class Console {
public:
    static constexpr int ALL_GOOD = 0;
    static constexpr int SOME_FAILED = 1;
    static constexpr int WRONG_COMMAND_LINE = 2;

    Console(const Streams& streams, Format format);

    bool WantsJson() const { return m_Format == Format::JsonArray; }

    /// One result as a line of text.
    void Line(std::string_view text);

    /// One result as lines of text, each ended by a line feed; a blank line stands between two results.
    void Block(std::string_view text);

    /// One result as an object of the array.
    void Object(const Json& object);

    /// `where` names the input, or the option, that the message is about.
    void Warning(std::string_view where, std::string_view message);

    /// Also makes the exit status SOME_FAILED.
    void Error(std::string_view where, std::string_view message);

    /// The exit status becomes SOME_FAILED without a message.
    void Failed() { m_Status = SOME_FAILED; }

    /// Ends the results and returns the exit status; results that could not be written are an error.
    int Finish();

private:
    void ResultWritten();

    Streams m_Streams;
    Format m_Format;
    bool m_Any = false; ///< a result has been written
    int m_Status = ALL_GOOD;
};

} // namespace qxpdu

#endif
