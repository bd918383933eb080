#include "stream/Writer.h"

#include <cerrno>
#include <system_error>

#include <fmt/format.h>

namespace qxpdu {

Writer::Writer(const Streams& streams, Format format, bool flushLines)
    : m_Streams(streams), m_Format(format), m_FlushLines(flushLines) {}

/// The call that wrote last tells why. Where the process is told by a signal that a pipe has no reader, that
/// has ended it.
void Writer::CheckOutput() {
    if (IsBroken())
        m_Failure = errno;
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

void Writer::Flush() {
    if (IsBroken())
        return;
    m_Streams.out.flush();
    CheckOutput();
}

int Writer::Finish() {
    if (!IsBroken()) {
        if (m_Format == Format::JsonArray)
            m_Streams.out << (m_Any ? "\n]\n" : "[]\n");
        Flush();
    }
    if (IsBroken() && m_Failure != EPIPE) {
        m_Streams.err << fmt::format("qxpdu: standard output: cannot be written: {}\n",
                                     std::generic_category().message(m_Failure));
        ++m_Errors;
    }
    return m_Errors == 0 ? Console::ALL_GOOD : Console::SOME_FAILED;
}

} // namespace qxpdu
