// Signals that ask the process to end.
#ifndef QXPDU_STOPSIGNALS_H
#define QXPDU_STOPSIGNALS_H

#include <array>

namespace qxpdu {

/// Lets the process finish what it has read when it is asked to end. There is one object at a time.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// From now on the first SIGINT, SIGTERM or SIGHUP, unless it is ignored, makes the descriptor readable;
    /// the second one of a kind ends the process at once.
    void Catch() const;

    /// -1 where the system has none to give; then nothing is caught.
    int Descriptor() const { return m_Pipe[0]; }

    /// Ends the process as the signal that has come would have, if any has.
    static void Follow();

private:
    std::array<int, 2> m_Pipe = {-1, -1};
};

} // namespace qxpdu

#endif
