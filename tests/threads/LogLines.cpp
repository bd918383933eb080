// Log lines of several threads.
#include <chrono>
#include <functional>
#include <latch>
#include <map>
#include <sstream>
#include <string>
#include <thread>

#include <unistd.h>

#include <gtest/gtest.h>

#include "Toolkit/ILogger.h"
#include "support/CapturedStderr.h"
#include "support/CapturingLogger.h"
#include "threads/Together.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using tests::CapturedStderr;
using tests::InstalledLogger;
using tests::Together;
using Toolkit::ILogger;
using Toolkit::LogSeverity;
using Toolkit::SetSeverity;

constexpr int c_threads = 4;
constexpr int c_lines = 300;

ILogger& Logger() {
    return **ILogger::s_pInstance;
}

void WriteLine(int severity, int thread, int line) {
    Logger() << SetSeverity(severity) << LogSeverity(severity) << ILogger::c_strLogToken1
             << ILogger::GetTime().c_str() << ILogger::c_strLogToken2 << thread << ILogger::c_strLogToken2
             << line << ILogger::c_strLogToken2 << TString<char>("narrow") << TString<wchar_t>(L" wide")
             << " end" << ILogger::c_strLogToken3;
}

/// Each thread writes its lines with severities 1 and 2 by turns.
void WriteLines(std::size_t thread) {
    for (int line = 0; line < c_lines; ++line) {
        WriteLine(1, static_cast<int>(thread), line);
        WriteLine(2, static_cast<int>(thread), line);
    }
}

TEST(LogLines, OfSeveralThreadsComeOutWholeAndFiltered) {
    const CapturedStderr captured;
    Together(c_threads, WriteLines);

    std::istringstream text(captured.Text());
    std::map<int, int> next; // the number that each thread's next line should have
    int count = 0;
    for (std::string line; std::getline(text, line); ++count) {
        const std::size_t fields = std::string("1 2012-02-13T12:34:56.789Z | ").size();
        ASSERT_GT(line.size(), fields) << line;
        ASSERT_EQ(line.substr(0, 2), "1 ") << line;
        ASSERT_EQ(line.substr(fields - 4, 4), "Z | ") << line;
        const int thread = std::stoi(line.substr(fields));
        const std::string rest =
            std::to_string(thread) + " | " + std::to_string(next[thread]++) + " | narrow wide end";
        ASSERT_EQ(line.substr(fields), rest);
    }
    EXPECT_EQ(count, c_threads * c_lines);
}

TEST(LogLines, OfSeveralThreadsReachAHostsLoggerOneAfterTheOther) {
    InstalledLogger logger(1); // which has no lock of its own
    Together(c_threads, WriteLines);
    ASSERT_EQ(logger->m_Pieces.size(), 12U * c_threads * c_lines);
    for (std::size_t first = 0; first < logger->m_Pieces.size(); first += 12) {
        ASSERT_EQ(logger->m_Pieces[first], L"1");
        ASSERT_EQ(logger->m_Pieces[first + 11], L"\n");
    }
}

TEST(LogLines, LevelChangesBetweenTheLinesOfOtherThreads) {
    InstalledLogger logger(1);
    Together(c_threads, [&logger](std::size_t thread) {
        if (thread != 0)
            return WriteLines(thread);
        for (int round = 0; round < c_lines; ++round) {
            logger->SetLevel(round % 3);
            EXPECT_EQ(logger->GetLevel(), round % 3);
        }
    });
    ASSERT_EQ(logger->m_Pieces.size() % 12, 0U);
    for (std::size_t first = 0; first < logger->m_Pieces.size(); first += 12)
        ASSERT_EQ(logger->m_Pieces[first + 11], L"\n");
}

/// Another thread's line that ends when the test says so.
class LineElsewhere {
public:
    explicit LineElsewhere(int severity)
        : m_Thread([this, severity] {
              Logger() << SetSeverity(severity) << "begun elsewhere";
              m_Begun.count_down();
              m_End.wait();
              Logger() << ", ended elsewhere" << ILogger::c_strLogToken3;
          }) {
        m_Begun.wait();
    }
    ~LineElsewhere() { End(); }
    LineElsewhere(const LineElsewhere&) = delete;
    LineElsewhere& operator=(const LineElsewhere&) = delete;

    void End() {
        if (!m_Thread.joinable())
            return;
        m_End.count_down();
        m_Thread.join();
    }

private:
    std::latch m_Begun{1};
    std::latch m_End{1};
    std::thread m_Thread;
};

TEST(LogLines, LineWaitsForTheEndOfAnotherThreadsLine) {
    for (const int severity : {1, 2}) { // a line that is filtered out is waited for as well
        SCOPED_TRACE(severity);
        const CapturedStderr captured;
        LineElsewhere elsewhere(severity);
        std::thread ender([&elsewhere] {
            std::this_thread::sleep_for(milliseconds(50));
            elsewhere.End();
        });
        const auto start = steady_clock::now();
        Logger() << SetSeverity(1) << "here" << ILogger::c_strLogToken3;
        EXPECT_GE(steady_clock::now() - start, milliseconds(40));
        EXPECT_LT(steady_clock::now() - start, milliseconds(900));
        ender.join();
        EXPECT_EQ(captured.Text(), severity == 1 ? "begun elsewhere, ended elsewhere\nhere\n" : "here\n");
    }
}

TEST(LogLines, AnotherThreadsLineIsTakenOverAfterASecondAndItsRestDropped) {
    const CapturedStderr captured;
    LineElsewhere elsewhere(1);
    const auto start = steady_clock::now();
    Logger() << SetSeverity(1) << "begun here";
    EXPECT_GE(steady_clock::now() - start, milliseconds(1000));
    EXPECT_LT(steady_clock::now() - start, milliseconds(10'000));
    elsewhere.End();
    Logger() << ", ended here" << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "begun elsewhere\nbegun here, ended here\n");
}

/// Taken over while it is being written, a line still comes out whole.
TEST(LogLines, LineThatStandardErrorTakesSlowlyIsNotBrokenByTheNextOne) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const int before = dup(STDERR_FILENO);
    dup2(ends[1], STDERR_FILENO);
    const std::string text(1'000'000, 'x'); // more than a pipe holds
    std::thread slow(
        [&text] { Logger() << SetSeverity(1) << TString<char>(text) << ILogger::c_strLogToken3; });
    std::string received(1, '\0');
    EXPECT_EQ(read(ends[0], received.data(), 1), 1); // so it is in the middle
    std::thread next([] { Logger() << SetSeverity(1) << "next" << ILogger::c_strLogToken3; });
    std::this_thread::sleep_for(milliseconds(1200));
    std::thread reader([&received, from = ends[0]] {
        char piece[4096];
        for (ssize_t count = 0; (count = read(from, piece, sizeof piece)) > 0;)
            received.append(piece, static_cast<std::size_t>(count));
    });
    slow.join();
    next.join();
    dup2(before, STDERR_FILENO);
    close(before);
    close(ends[1]);
    reader.join();
    close(ends[0]);
    EXPECT_EQ(received, text + "\nnext\n");
}

TEST(LogLines, EndOfALineThatWasTakenOverDoesNotEndTheNewOne) {
    const CapturedStderr captured;
    LineElsewhere elsewhere(1);
    Logger() << SetSeverity(1) << "begun here";
    elsewhere.End();
    std::thread third([] { Logger() << SetSeverity(1) << "third" << ILogger::c_strLogToken3; });
    std::this_thread::sleep_for(milliseconds(50));
    Logger() << ", ended here" << ILogger::c_strLogToken3;
    third.join();
    EXPECT_EQ(captured.Text(), "begun elsewhere\nbegun here, ended here\nthird\n");
}

TEST(LogLines, LevelIsChangedWhenAnotherThreadsLineHasEnded) {
    InstalledLogger logger(1);
    LineElsewhere elsewhere(1);
    std::thread changer([&logger] { logger->SetLevel(0); });
    std::this_thread::sleep_for(milliseconds(50));
    EXPECT_EQ(logger->GetLevel(), 1);
    elsewhere.End();
    changer.join();
    EXPECT_EQ(logger->GetLevel(), 0);
    EXPECT_EQ(logger->m_Pieces.size(), 3U);
}

/// A single wake-up would be the changer's, which waits longest and passes none on.
TEST(LogLines, EndOfALineWakesEveryoneWhoWaitsForIt) {
    InstalledLogger logger(1);
    LineElsewhere elsewhere(1);
    std::thread changer([&logger] { logger->SetLevel(2); });
    std::this_thread::sleep_for(milliseconds(50));
    std::thread writer([] { Logger() << SetSeverity(1) << "next" << ILogger::c_strLogToken3; });
    std::this_thread::sleep_for(milliseconds(50));
    const auto start = steady_clock::now();
    elsewhere.End();
    changer.join();
    writer.join();
    EXPECT_LT(steady_clock::now() - start, milliseconds(700));
}

/// The thread sanitizer notices an asker that takes no lock.
TEST(LogLines, LevelIsAskedForWhileAnotherThreadChangesIt) {
    InstalledLogger logger(1);
    Together(2, [&logger](std::size_t thread) {
        for (int round = 0; round < c_lines; ++round) {
            if (thread == 0)
                logger->SetLevel(round % 3);
            else
                EXPECT_LT(logger->GetLevel(), 3);
        }
    });
}

/// Whatever ends the written line lets the other threads go on, too.
TEST(LogLines, StringEqualToTheLastTokenEndsTheLineForOtherThreads) {
    const std::function<void()> ends[] = {
        [] { Logger() << ILogger::c_strLogToken3; },
        [] { Logger() << TString<wchar_t>(ILogger::c_strLogToken3); },
        [] { Logger() << TString<char>("\n"); },
        [] { Logger() << "\n"; },
    };
    for (const auto& end : ends) {
        const CapturedStderr captured;
        std::thread([&end] {
            Logger() << SetSeverity(1) << "elsewhere";
            end();
        }).join();
        const auto start = steady_clock::now();
        Logger() << SetSeverity(1) << "here" << ILogger::c_strLogToken3;
        EXPECT_LT(steady_clock::now() - start, milliseconds(900));
        EXPECT_EQ(captured.Text(), "elsewhere\nhere\n");
    }
}

TEST(LogLines, StringEqualToTheLastTokenEndsALineThatIsFilteredOutToo) {
    std::thread([] { Logger() << SetSeverity(2) << TString<wchar_t>(ILogger::c_strLogToken3); }).join();
    std::thread([] { Logger() << SetSeverity(2) << TString<char>("\n"); }).join();
    const CapturedStderr captured;
    const auto start = steady_clock::now();
    Logger() << SetSeverity(1) << "here" << ILogger::c_strLogToken3;
    EXPECT_LT(steady_clock::now() - start, milliseconds(900));
}

TEST(LogLines, StringThatOnlyBeginsLikeTheLastTokenEndsNothing) {
    const CapturedStderr captured;
    LineElsewhere elsewhere(1);
    std::thread third;
    {
        elsewhere.End();
        Logger() << SetSeverity(1) << TString<wchar_t>() << TString<wchar_t>(L"\n!") << TString<char>("!\n");
        third = std::thread([] { Logger() << SetSeverity(1) << "third" << ILogger::c_strLogToken3; });
        std::this_thread::sleep_for(milliseconds(50));
        Logger() << "here" << ILogger::c_strLogToken3;
    }
    third.join();
    EXPECT_EQ(captured.Text(), "begun elsewhere, ended elsewhere\n\n!!\nhere\nthird\n");
}

TEST(LogLines, LevelIsChangedInAnOwnLineAtOnce) {
    InstalledLogger logger(1);
    Logger() << SetSeverity(1) << "begun";
    const auto start = steady_clock::now();
    logger->SetLevel(2);
    Logger() << SetSeverity(1) << "begun again" << ILogger::c_strLogToken3;
    EXPECT_LT(steady_clock::now() - start, milliseconds(900));
}

TEST(LogLines, LineThatWasCutShortOnThisThreadIsNotWaitedFor) {
    const CapturedStderr captured;
    Logger() << SetSeverity(1) << "cut short";
    const auto start = steady_clock::now();
    Logger() << SetSeverity(1) << "next" << ILogger::c_strLogToken3;
    EXPECT_LT(steady_clock::now() - start, milliseconds(900));
    EXPECT_EQ(captured.Text(), "cut short\nnext\n");
}

} // namespace
