#include "stream/StopSignals.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace qxpdu {

namespace {

// A handler reaches nothing else.
volatile std::sig_atomic_t g_signal = 0; ///< that has come
volatile std::sig_atomic_t g_wake = -1;  ///< the end of the pipe that is written to

extern "C" void Note(int signal) {
    const int error = errno;
    g_signal = signal;
    [[maybe_unused]] const ssize_t written = write(g_wake, "", 1);
    errno = error;
}

/// A standard stream may be closed; what is read or written there must not be this pipe.
int AboveStandardStreams(int descriptor) {
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(descriptor);
    return moved;
}

void CatchUnlessIgnored(int signal) {
    struct sigaction before;
    if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_handler = Note;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

} // namespace

StopSignals::StopSignals() {
    std::array<int, 2> ends;
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_Pipe = {AboveStandardStreams(ends[0]), AboveStandardStreams(ends[1])};
    g_wake = m_Pipe[1];
}

StopSignals::~StopSignals() {
    for (const int end : m_Pipe) {
        if (end >= 0)
            close(end);
    }
}

void StopSignals::Catch() const {
    if (Descriptor() < 0)
        return;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        CatchUnlessIgnored(signal);
}

void StopSignals::Follow() {
    if (g_signal == 0)
        return;
    std::signal(g_signal, SIG_DFL);
    std::raise(g_signal);
}

} // namespace qxpdu
