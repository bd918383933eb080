// Who composes the log line of the process.
#ifndef TOOLKIT_LINELOCK_H
#define TOOLKIT_LINELOCK_H

#include <condition_variable>
#include <mutex>
#include <thread>

namespace Toolkit {

/// Gives the logger to one thread at a time, from the beginning of a line to its end. Another thread's line
/// is waited for at most one second; then it is taken for abandoned.
class LineLock {
public:
    /// Begins a line of the calling thread.
    void Begin();

    /// Ends the line, if it is the calling thread's.
    void End();

    /// The number of the line that the calling thread may write to: of its own or of the last one,
    /// c_othersLine while another thread composes one. Numbers rise by 1 with every line.
    unsigned long Line() const;
    static constexpr unsigned long c_othersLine = ~0UL;

    /// Keeps every line from beginning and ending as long as the result lives. BetweenLines() waits first for
    /// another thread's line to end.
    [[nodiscard]] std::unique_lock<std::mutex> Hold() const;
    [[nodiscard]] std::unique_lock<std::mutex> BetweenLines();

private:
    bool IsOthersLine() const;

    mutable std::mutex m_Mutex;
    std::condition_variable m_Ended;
    std::thread::id m_Owner; ///< of no thread between two lines
    unsigned long m_Line = 0;
};

} // namespace Toolkit

#endif
