// Finds the inputs in what the user gave.
#ifndef QXPDU_INPUTREADER_H
#define QXPDU_INPUTREADER_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "log/LogReader.h"
#include "stream/Inputs.h"

namespace qxpdu {

/// What standard input and files are.
enum class LineKind {
    Hex,        ///< an input a line; blank lines are skipped
    Text,       ///< an input a line, every line as it stands
    Message,    ///< an input a line, a text to be sent; a carriage return belongs to the line feed
    Transcript, ///< the log of a modem, or PDUs, a line each
    Whole       ///< one input
};

/// What is done where the next line has not come yet.
enum class WhenDry {
    Wait,   ///< give what can be given, then wait
    Return, ///< give what can be given, and nothing more
    Stop    ///< nothing: what was read is a piece, and the next one tells what it is
};

/// What is to be said of a source as a whole.
struct SourceNote {
    std::string source; ///< "standard input", or a file
    std::string text;
    bool isError = false;
};

/// Used by one thread at a time.
class InputReader {
public:
    InputReader(Inputs inputs, LineKind kind);

    /// Reads the next input; false when there is none, or when it had to be waited for and may not be.
    bool Next(Input& input, WhenDry whenDry);

    /// Whether the next input, or that there is none, can be told without waiting for it.
    bool IsReady() { return m_HasEnded || m_Line || (m_Log && m_Log->HasEntries()) || m_Inputs.IsReady(); }

    /// Whether all inputs have been given.
    bool HasEnded() const { return m_HasEnded; }

    /// Lines and arguments read so far, chatter included, and what the lines took.
    std::uint64_t Lines() const { return m_Inputs.Lines(); }
    std::uint64_t Bytes() const { return m_Inputs.Bytes(); }

    /// Sources that could not be read to their end.
    const std::vector<std::string>& Unreadable() const { return m_Inputs.Unreadable(); }

    /// Once all has been read.
    const std::vector<SourceNote>& Notes() const { return m_Notes; }

private:
    bool NextEntry(Input& input, WhenDry whenDry);
    bool ReleaseLog();
    bool IsInput(Input& line) const;
    void TakeIntoLog(Input line);
    void EndLog();
    void Note(const LogCounts& counts);

    Inputs m_Inputs;
    LineKind m_Kind;
    std::optional<Input> m_Line; ///< read, and not taken yet
    std::optional<LogReader> m_Log;
    Input m_LogStart;            ///< where it began
    std::size_t m_LogStream = 0; ///< in which stream it is read
    bool m_IsInLog = false;
    bool m_HasEnded = false;
    std::vector<SourceNote> m_Notes;
};

} // namespace qxpdu

#endif
