#include "Writer.h"

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
    std::string_view results = console.m_Out;
    if (!m_Any) {
        results.remove_prefix(console.m_Separator);
        if (m_Format == Format::JsonArray)
            m_Streams.out << "[\n  ";
    }
    m_Any = true;
    m_Streams.out << results;
    if (m_FlushLines)
        m_Streams.out.flush();
    CheckOutput();
}

void Writer::Write(const Console& console) {
    m_Errors += console.m_Errors;
    if (IsBroken())
        return;
    if (!console.m_Out.empty())
        WriteResults(console);
    if (!console.m_Err.empty())
        m_Streams.err << console.m_Err;
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
