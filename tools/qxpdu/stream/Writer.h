// Passes on what the inputs gave, in their order, and knows the exit status.
#ifndef QXPDU_WRITER_H
#define QXPDU_WRITER_H

#include <cstddef>

#include "stream/Console.h"

namespace qxpdu {

/// Used by one thread at a time.
class Writer {
public:
    /// With `flushLines`, results are out as soon as they have been written.
    Writer(const Streams& streams, Format format, bool flushLines);

    void Write(const Console& console);

    /// Results written so far are out.
    void Flush();

    /// Whether standard output takes no more, so that further work is in vain.
    bool IsBroken() const { return !m_Streams.out; }

    /// Inputs and other things that failed so far.
    std::size_t Errors() const { return m_Errors; }

    /// Ends the results and returns the exit status. Results that could not be written are an error, unless
    /// nobody wanted to read any more of them.
    int Finish();

private:
    void WriteResults(const Console& console);
    void CheckOutput();

    Streams m_Streams;
    Format m_Format;
    bool m_FlushLines;
    bool m_Any = false; ///< a result has been written
    int m_Failure = 0;  ///< why standard output takes no more
    std::size_t m_Errors = 0;
};

} // namespace qxpdu

#endif
