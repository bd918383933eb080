// What the work on one input has to say: results, warnings and errors.
#ifndef QXPDU_CONSOLE_H
#define QXPDU_CONSOLE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "show/JsonForward.h"
#include "show/JsonText.h"

namespace qxpdu {

/// The three streams of a process.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool outIsTerminal = false; ///< results are shown as soon as they are there
    bool errIsTerminal = false; ///< the progress is shown unless results go to the same place
    std::optional<std::uint64_t> inSize = std::nullopt; ///< in bytes, where it is known
    std::function<void()> endInputOnSignal =
        nullptr;   ///< from now on, what asks the process to end only ends `in`, and makes `stop` readable
    int stop = -1; ///< a descriptor; none where that is -1
};

enum class Format {
    Text,
    JsonArray, ///< one array with an object for each result
    JsonLines  ///< an object a line for each result and for each input that failed
};

/// Collects what goes to standard output and to standard error, until a Writer passes it on.
class Console {
public:
    static constexpr int ALL_GOOD = 0;
    static constexpr int SOME_FAILED = 1;
    static constexpr int WRONG_COMMAND_LINE = 2;

    explicit Console(Format format) : m_Format(format) {}

    bool WantsJson() const { return m_Format != Format::Text; }
    bool WantsJsonLines() const { return m_Format == Format::JsonLines; }

    /// One result as a line of text.
    void Line(std::string_view text);

    /// One result as lines of text, each ended by a line feed; a blank line stands between two results.
    void Block(std::string_view text);

    /// One result as an object.
    void Object(const show::Json& object);
    void Object(show::JsonText& object);

    /// `where` names the input, or the option, that the message is about.
    void Warning(std::string_view where, std::string_view message);

    /// Also makes the exit status SOME_FAILED.
    void Error(std::string_view where, std::string_view message);

    /// The exit status becomes SOME_FAILED without a message.
    void Failed() { ++m_Errors; }

    bool HasMessages() const { return !m_Err.empty(); }

    /// Room for so many bytes, and a last result, before any is moved.
    void ExpectResults(std::size_t bytes) { m_Out.reserve(bytes + bytes / 8); }

    /// For standard output; without the separator where nothing has been written there.
    std::string_view Results(bool isFirst) const {
        return std::string_view(m_Out).substr(isFirst ? m_Separator : 0);
    }

    /// For standard error.
    std::string_view Messages() const { return m_Err; }

    std::size_t Errors() const { return m_Errors; }

private:
    Format m_Format;
    std::string m_Out;
    std::size_t m_Separator = 0; ///< characters at the front of m_Out that the first result does not need
    std::string m_Err;
    std::size_t m_Errors = 0;
};

} // namespace qxpdu

#endif
