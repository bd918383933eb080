// What a child of fork() can do, whatever the threads of its parent were about.
#include <atomic>
#include <chrono>
#include <functional>
#include <latch>
#include <string>
#include <thread>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "Encoding/TextDecoder.h"
#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/SystemInfo.h"
#include "support/CapturedStderr.h"
#include "support/Layout.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;
using tests::CapturedStderr;
using Toolkit::ILogger;
using Toolkit::SetSeverity;
using Toolkit::smart_ptr;

ILogger& Logger() {
    return **ILogger::s_pInstance;
}

void WriteLine(const char* text) {
    Logger() << SetSeverity(1) << TString<char>(text) << ILogger::c_strLogToken3;
}

/// Whether a child gets through with `work`, and sooner than a line of another thread is waited for.
bool ChildDoes(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(20);
        const auto start = steady_clock::now();
        work();
        _exit(steady_clock::now() - start < milliseconds(900) ? 0 : 1);
    }
    int status = -1;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Another thread that does `begin`, and `end` when the test says so.
class Elsewhere {
public:
    Elsewhere(const std::function<void()>& begin, const std::function<void()>& end)
        : m_Thread([this, begin, end] {
              begin();
              m_Begun.count_down();
              m_End.wait();
              end();
          }) {
        m_Begun.wait();
    }
    ~Elsewhere() {
        m_End.count_down();
        m_Thread.join();
    }
    Elsewhere(const Elsewhere&) = delete;
    Elsewhere& operator=(const Elsewhere&) = delete;

private:
    std::latch m_Begun{1};
    std::latch m_End{1};
    std::thread m_Thread;
};

TEST(Fork, ChildLogsWhileAnotherThreadOfTheParentComposesALine) {
    const CapturedStderr captured;
    std::thread waiting;
    {
        const Elsewhere elsewhere([] { Logger() << SetSeverity(1) << "begun elsewhere"; },
                                  [] { Logger() << ", ended elsewhere" << ILogger::c_strLogToken3; });
        waiting = std::thread([] { WriteLine("waited"); });
        std::this_thread::sleep_for(milliseconds(50));
        EXPECT_TRUE(ChildDoes([] {
            WriteLine("first of the child");
            WriteLine("second of the child");
        }));
        EXPECT_EQ(captured.Text(), "first of the child\nsecond of the child\n");
    }
    waiting.join();
    EXPECT_EQ(captured.Text(), "first of the child\nsecond of the child\n"
                               "begun elsewhere, ended elsewhere\nwaited\n");
}

TEST(Fork, ChildLogsWhileAnotherThreadsLineIsBeingWritten) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const int before = dup(STDERR_FILENO);
    dup2(ends[1], STDERR_FILENO);
    std::thread writer([] { WriteLine(std::string(1'000'000, 'x').c_str()); }); // more than the pipe takes
    char first = 0;
    EXPECT_EQ(read(ends[0], &first, 1), 1); // so it is in the middle
    EXPECT_TRUE(ChildDoes([] {
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        WriteLine("of the child");
    }));
    std::string rest(1'000'000, '\0'); // the line's end is the last octet
    for (std::size_t count = 0; count < rest.size();)
        count += static_cast<std::size_t>(read(ends[0], rest.data() + count, rest.size() - count));
    writer.join();
    dup2(before, STDERR_FILENO);
    for (const int descriptor : {before, ends[0], ends[1]})
        close(descriptor);
    EXPECT_EQ(rest, std::string(999'999, 'x') + "\n");
}

TEST(Fork, ChildWritesAnOwnLineAnew) {
    const CapturedStderr captured;
    Logger() << SetSeverity(1) << "of the parent";
    EXPECT_TRUE(ChildDoes([] { WriteLine("of the child"); }));
    Logger() << ILogger::c_strLogToken3;
    EXPECT_EQ(captured.Text(), "of the child\nof the parent\n");
}

template <class T>
void ExpectSharedInTheChild(smart_ptr<T>& shared, const char* what) {
    Toolkit::MutexInternal& mutex = tests::WordsOf(shared).m_pBlock->m_Mutex;
    const Elsewhere elsewhere([&mutex] { mutex.Lock(Toolkit::c_waitForever); }, [&mutex] { mutex.Unlock(); });
    EXPECT_TRUE(ChildDoes([&shared] {
        for (int round = 0; round < 2; ++round)
            const smart_ptr<T> share(shared);
    })) << what;
}

TEST(Fork, ChildTakesSharesOfWhatAThreadOfTheParentWasSharing) {
    ExpectSharedInTheChild(*Toolkit::SystemInfo::s_pInstance, "system information");
    ExpectSharedInTheChild(*Toolkit::LibModuleManager::s_pInstance, "module manager");
    ExpectSharedInTheChild(*ILogger::s_pInstance, "logger");
}

TEST(Fork, ChildDecodesTextWhileThreadsOfTheParentDo) {
    const auto decode = [] { EXPECT_EQ(Encoding::TextDecoder(L"0041", 2).m_DecodedText, L"A"); };
    std::atomic<bool> isOver = false;
    std::thread decoding([&] {
        while (!isOver)
            decode();
    });
    for (int round = 0; round < 50; ++round)
        EXPECT_TRUE(ChildDoes(decode));
    isOver = true;
    decoding.join();
}

} // namespace
