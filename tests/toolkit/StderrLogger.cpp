// The default logger, seen from file descriptor 2.
#include <chrono>
#include <csignal>
#include <ctime>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/time.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Toolkit/ILogger.h"
#include "support/CapturedStderr.h"
#include "support/Octets.h"

namespace {

using tests::CapturedStderr;
using Toolkit::ILogger;
using Toolkit::LogSeverity;
using Toolkit::SetSeverity;

ILogger& Logger() {
    return **ILogger::s_pInstance;
}

/// Begins a line of severity 1 with this text.
ILogger& Begin(const char* text) {
    return Logger() << SetSeverity(1) << TString<char>(text);
}

/// Sends file descriptor 2 to a pipe for as long as it lives.
class StderrPipe {
public:
    explicit StderrPipe(int flags) : m_Saved(dup(STDERR_FILENO)) {
        if (m_Saved < 0 || pipe2(m_Ends, flags) != 0 || dup2(m_Ends[1], STDERR_FILENO) < 0)
            throw std::runtime_error("standard error cannot be piped");
        close(m_Ends[1]);
    }
    ~StderrPipe() {
        Restore();
        close(m_Saved);
        close(m_Ends[0]);
    }
    StderrPipe(const StderrPipe&) = delete;
    StderrPipe& operator=(const StderrPipe&) = delete;

    /// Ends the pipe for the writer.
    void Restore() { dup2(m_Saved, STDERR_FILENO); }

    /// What one read gives; empty at the end.
    std::string Read() {
        char piece[65536];
        const ssize_t count = read(m_Ends[0], piece, sizeof piece);
        return std::string(piece, count > 0 ? static_cast<std::size_t>(count) : 0);
    }

private:
    int m_Saved;
    int m_Ends[2]{};
};

TEST(StderrLogger, WritesTheFinishedLineToStandardError) {
    const CapturedStderr captured;
    Logger() << SetSeverity(1) << LogSeverity(1) << ILogger::c_strLogToken1 << L"2012-02-13T12:34:56.789Z"
             << ILogger::c_strLogToken2 << 49 << ILogger::c_strLogToken2 << "Function"
             << ILogger::c_strLogToken2 << "text( " << 0 << ", " << TString<wchar_t>(L"wide") << " )"
             << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "1 2012-02-13T12:34:56.789Z | 49 | Function | text( 0, wide )\n");
}

TEST(StderrLogger, WritesUtf8) {
    const CapturedStderr captured;
    Begin("") << tests::Wide({0xE9, 0x20AC, 0x1F600, 0xD800}) << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD\n");
}

TEST(StderrLogger, WritesNothingBeforeTheLineEnds) {
    const CapturedStderr captured;
    Begin("a") << "b";
    EXPECT_EQ(captured.Text(), "");
    Logger() << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "ab\n");
}

TEST(StderrLogger, WritesEachLineWithOneWrite) {
    StderrPipe pipe(O_DIRECT); // every write becomes a packet of its own
    Begin("first ") << 1 << " line" << ILogger::c_strLogToken3;
    Begin("second") << ILogger::c_strLogToken3;
    pipe.Restore();
    EXPECT_EQ(pipe.Read(), "first 1 line\n");
    EXPECT_EQ(pipe.Read(), "second\n");
    EXPECT_EQ(pipe.Read(), "");
}

TEST(StderrLogger, WritesNothingAboveItsLevel) {
    const CapturedStderr captured;
    Logger() << SetSeverity(2) << "filtered" << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "");
    Logger().SetLevel(2);
    Logger() << SetSeverity(2) << "written" << ILogger::c_strLogToken3;
    Logger().SetLevel(1);
    EXPECT_EQ(captured.Text(), "written\n");
}

TEST(StderrLogger, WritesALineThatWasCutShortBeforeTheNextOne) {
    const CapturedStderr captured;
    Begin("cut short");
    Begin("next") << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "cut short\nnext\n");
}

TEST(StderrLogger, FilteredLineLeavesALineThatWasCutShortToTheNextWrittenOne) {
    const CapturedStderr captured;
    Begin("cut short");
    Logger() << SetSeverity(2) << "filtered" << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "");
    Begin("next") << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "cut short\nnext\n");
}

TEST(StderrLogger, LineOfAnotherThreadIsTakenForCutShortAfterASecond) {
    const CapturedStderr captured;
    std::thread([] { Begin("cut short"); }).join();
    const std::time_t before = std::time(nullptr);
    Begin("next") << ILogger::c_strLogToken3;
    EXPECT_LE(std::time(nullptr) - before, 10);
    EXPECT_EQ(captured.Text(), "cut short\nnext\n");
}

TEST(StderrLogger, TextInsertedWithoutSeverityIsALineToo) {
    const CapturedStderr captured;
    Begin("first") << ILogger::c_strLogToken3;
    Logger() << "second" << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "first\nsecond\n");
}

TEST(StderrLogger, EmptyLineIsALine) {
    const CapturedStderr captured;
    Logger() << SetSeverity(1) << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "\n");
}

TEST(StderrLogger, InterruptedAndPartialWritesAreContinued) {
    const std::string text(1'000'000, 'x'); // more than a pipe holds
    struct sigaction interrupt {
    }, before{};
    interrupt.sa_handler = [](int) {};
    ASSERT_EQ(sigaction(SIGALRM, &interrupt, &before), 0);
    std::string received;
    {
        StderrPipe pipe(0);
        sigset_t alarm;
        sigemptyset(&alarm);
        sigaddset(&alarm, SIGALRM);
        pthread_sigmask(SIG_BLOCK, &alarm, nullptr);
        std::thread reader([&] {
            for (std::string piece = pipe.Read(); !piece.empty(); piece = pipe.Read()) {
                received += piece;
                std::this_thread::sleep_for(std::chrono::milliseconds(3));
            }
        });
        pthread_sigmask(SIG_UNBLOCK, &alarm, nullptr);
        const itimerval often{{0, 1000}, {0, 1000}};
        const itimerval never{};
        setitimer(ITIMER_REAL, &often, nullptr);
        Begin(text.c_str()) << ILogger::c_strLogToken3;
        setitimer(ITIMER_REAL, &never, nullptr);
        pipe.Restore();
        reader.join();
    }
    sigaction(SIGALRM, &before, nullptr);
    EXPECT_EQ(received, text + "\n");
}

TEST(StderrLogger, LineThatStandardErrorDoesNotTakeIsDropped) {
    const int saved = dup(STDERR_FILENO);
    close(STDERR_FILENO);
    Begin("lost") << ILogger::c_strLogToken3;
    dup2(saved, STDERR_FILENO);
    close(saved);
    const CapturedStderr captured;
    Begin("next") << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "next\n");
}

} // namespace
