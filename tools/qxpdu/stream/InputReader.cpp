#include "stream/InputReader.h"

#include <sstream>
#include <utility>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "show/CodeUnits.h"
#include "show/Plural.h"

namespace qxpdu {

InputReader::InputReader(Inputs inputs, LineKind kind) : m_Inputs(std::move(inputs)), m_Kind(kind) {}

bool InputReader::Next(Input& input, WhenDry whenDry) {
    if (m_Kind == LineKind::Transcript)
        return NextEntry(input, whenDry);
    do {
        if (whenDry != WhenDry::Wait && !m_Inputs.IsReady())
            return false;
        m_HasEnded = !m_Inputs.Next(input);
        if (m_HasEnded)
            return false;
    } while (input.source == Input::Source::Line && !IsInput(input));
    return true;
}

bool InputReader::IsInput(Input& line) const {
    if (m_Kind == LineKind::Hex)
        return !Trimmed(line.text).empty();
    if (m_Kind == LineKind::Message && line.text.ends_with('\r'))
        line.text.pop_back();
    return true;
}

/// Entries come before whatever was read after them.
bool InputReader::NextEntry(Input& input, WhenDry whenDry) {
    for (;;) {
        if (std::optional<LogEntry> entry = m_Log ? m_Log->Next() : std::nullopt) {
            const bool isLine = m_LogStart.source == Input::Source::Line;
            input = {m_LogStart.source, isLine ? entry->line : m_LogStart.number, std::move(entry->text),
                     std::move(entry->heading), m_LogStart.file};
            return true;
        }
        if (!m_Line && !m_Inputs.IsReady()) {
            if (whenDry == WhenDry::Stop)
                return false;
            const bool hasLogEnded = m_IsInLog && m_Inputs.StreamsOpened() != m_LogStream;
            if (hasLogEnded)
                EndLog();
            if (hasLogEnded || ReleaseLog())
                continue;
            if (whenDry == WhenDry::Return)
                return false;
        }
        Input line;
        if (!m_Line && m_Inputs.Next(line))
            m_Line = std::move(line);
        const bool isOfLog =
            m_Line && m_Line->source == Input::Source::Line && m_Inputs.StreamsOpened() == m_LogStream;
        if (m_IsInLog && !isOfLog) {
            EndLog();
            continue;
        }
        m_HasEnded = !m_Line;
        if (m_HasEnded)
            return false;
        const bool isArgument = m_Line->source == Input::Source::Argument;
        if (isArgument ? !HasHeading(m_Line->text) : m_Line->text.size() > Inputs::MAX_LINE) {
            if (ReleaseLog())
                continue;
            input = std::move(*std::exchange(m_Line, std::nullopt));
            return true;
        }
        TakeIntoLog(*std::exchange(m_Line, std::nullopt));
    }
}

/// False where nothing waits in it that can be given.
bool InputReader::ReleaseLog() {
    if (m_IsInLog)
        m_Log->Release();
    return m_IsInLog && m_Log->HasEntries();
}

void InputReader::TakeIntoLog(Input line) {
    if (!m_IsInLog) {
        m_Log.emplace();
        m_LogStart = {line.source, line.number, {}, std::nullopt, line.file};
        m_LogStream = m_Inputs.StreamsOpened();
        m_IsInLog = true;
    }
    if (line.source == Input::Source::Line) {
        m_Log->Take(std::move(line.text), line.number);
        return;
    }
    std::istringstream lines(line.text);
    for (std::string each; std::getline(lines, each);)
        m_Log->Take(each, line.number); // all of them are that argument
    EndLog();
}

void InputReader::EndLog() {
    m_Log->Finish();
    m_IsInLog = false;
    Note(m_Log->Counts());
}

void InputReader::Note(const LogCounts& counts) {
    const std::string source = m_LogStart.source == Input::Source::Argument ? NameOf(m_LogStart)
                               : m_LogStart.file.empty()                    ? "standard input"
                                                         : show::Printable(m_LogStart.file);
    if (counts.textModes > 0) {
        m_Notes.push_back({source,
                           fmt::format("{} in text mode passed over; PDU mode is AT+CMGF=0",
                                       show::Counted(counts.textModes, "message")),
                           false});
    }
    if (!m_Log->IsLog() && counts.forgotten > 0) {
        m_Notes.push_back({source,
                           fmt::format("{} passed over, before anything like a PDU or the line of a modem",
                                       show::Counted(counts.forgotten, "line")),
                           true});
    }
    if (counts.entries == 0 && counts.textModes == 0 && counts.strayDigits > 0) {
        m_Notes.push_back({source,
                           fmt::format("the log of a modem without a message; {} of hexadecimal digits "
                                       "stand in none",
                                       show::Counted(counts.strayDigits, "line")),
                           counts.strayPdus > 0});
    } else if (counts.strayPdus > 0 && counts.textModes == 0) {
        m_Notes.push_back(
            {source,
             fmt::format("{} that no heading announces passed over", show::Counted(counts.strayPdus, "PDU")),
             false});
    }
}

} // namespace qxpdu
