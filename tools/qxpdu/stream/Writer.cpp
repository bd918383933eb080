#include "stream/Writer.h"

#include <cerrno>

namespace qxpdu {

Writer::Writer(const Streams& streams, Format format, bool flushLines)
    : m_Streams(streams), m_Format(format), m_FlushLines(flushLines) {}

/// A pipe without a reader is told by the call that wrote last; where the process is told by a signal, that
/// has ended it.
void Writer::CheckOutput() {
    if (IsBroken() && errno == EPIPE)
        m_Unread = true;
}

void Writer::WriteResults(const Console& console) {
    if (!m_Any && m_Format == Format::JsonArray)
        m_Streams.out << "[\n  ";
    m_Streams.out << console.Results(!m_Any);
    m_Any = true;
    if (m_FlushLines)
        m_Streams.out.flush();
    CheckOutput();
}

void Writer::Write(const Console& console) {
    m_Errors += console.Errors();
    if (IsBroken())
        return;
    if (!console.Results(false).empty())
        WriteResults(console);
    if (console.HasMessages())
        m_Streams.err << console.Messages();
}

int Writer::Finish() {
    if (!IsBroken()) {
        if (m_Format == Format::JsonArray)
            m_Streams.out << (m_Any ? "\n]\n" : "[]\n");
        m_Streams.out.flush();
        CheckOutput();
    }
    if (IsBroken() && !m_Unread) {
        m_Streams.err << "qxpdu: standard output: cannot be written\n";
        ++m_Errors;
    }
    return m_Errors == 0 ? Console::ALL_GOOD : Console::SOME_FAILED;
}

} // namespace qxpdu
