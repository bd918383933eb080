// What can be read from a descriptor without waiting: whole lines.
#include "stream/DescriptorBuffer.h"

#include <array>
#include <chrono>
#include <csignal>
#include <istream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tools/qxpdu/stream/DescriptorLimit.h"

namespace {

using qxpdu::DescriptorBuffer;

/// A pipe that is written to and read from.
class Pipe {
public:
    Pipe() {
        if (pipe(m_Ends.data()) != 0)
            throw std::runtime_error("no pipe");
    }
    ~Pipe() {
        Close();
        close(m_Ends[0]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int Reader() const { return m_Ends[0]; }
    int Writer() const { return m_Ends[1]; }
    void Write(const std::string& text) const {
        ASSERT_EQ(write(m_Ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void Close() {
        if (m_Ends[1] >= 0)
            close(m_Ends[1]);
        m_Ends[1] = -1;
    }

private:
    std::array<int, 2> m_Ends{};
};

/// So many characters.
std::string Taken(DescriptorBuffer& buffer, std::size_t count) {
    std::string text(count, '\0');
    text.resize(static_cast<std::size_t>(buffer.sgetn(text.data(), static_cast<std::streamsize>(count))));
    return text;
}

TEST(DescriptorBuffer, GivesWholeLines) {
    Pipe pipe;
    DescriptorBuffer buffer(pipe.Reader(), -1);
    EXPECT_EQ(buffer.in_avail(), 0);
    pipe.Write("a");
    EXPECT_EQ(buffer.in_avail(), 0) << "a piece of a line";
    pipe.Write("b\ncd\ne");
    EXPECT_EQ(buffer.in_avail(), 6);
    EXPECT_EQ(Taken(buffer, 6), "ab\ncd\n");
    EXPECT_EQ(buffer.in_avail(), 0);
    pipe.Write("f\n");
    EXPECT_EQ(buffer.in_avail(), 3);
    EXPECT_EQ(Taken(buffer, 1), "e");
    EXPECT_EQ(buffer.in_avail(), 2) << "of what was given";
    EXPECT_EQ(Taken(buffer, 2), "f\n");
    pipe.Write("gh");
    EXPECT_EQ(buffer.in_avail(), 0);
    pipe.Close();
    EXPECT_EQ(buffer.in_avail(), 2) << "the last line needs no line feed";
    EXPECT_EQ(Taken(buffer, 9), "gh");
    EXPECT_EQ(buffer.in_avail(), -1);
    EXPECT_EQ(buffer.sgetc(), std::char_traits<char>::eof());
}

TEST(DescriptorBuffer, WaitsForALineOrTheEnd) {
    Pipe pipe;
    DescriptorBuffer buffer(pipe.Reader(), -1);
    pipe.Write("ab\nc");
    EXPECT_EQ(buffer.sgetc(), 'a');
    EXPECT_EQ(buffer.sgetc(), 'a') << "it stays";
    EXPECT_EQ(Taken(buffer, 3), "ab\n");
    pipe.Write("d\n");
    EXPECT_EQ(Taken(buffer, 3), "cd\n");
    pipe.Close();
    EXPECT_EQ(buffer.sgetc(), std::char_traits<char>::eof());
}

TEST(DescriptorBuffer, GivesPiecesOfALineThatIsLongerThanItHoldsAtOnce) {
    constexpr std::size_t c_most = 65536; // what a pipe holds too
    Pipe pipe;
    DescriptorBuffer buffer(pipe.Reader(), -1);
    pipe.Write(std::string(c_most - 1, 'a'));
    EXPECT_EQ(buffer.in_avail(), 0);
    pipe.Write("b");
    EXPECT_EQ(buffer.in_avail(), static_cast<std::streamsize>(c_most));
    EXPECT_EQ(Taken(buffer, c_most), std::string(c_most - 1, 'a') + 'b');
    pipe.Write("c\n");
    EXPECT_EQ(buffer.in_avail(), 2);
    EXPECT_EQ(Taken(buffer, 2), "c\n");
    pipe.Write("d\n" + std::string(c_most - 3, 'e'));
    EXPECT_EQ(buffer.in_avail(), 2) << "the line before";
    EXPECT_EQ(Taken(buffer, 2), "d\n");
    pipe.Write("e\n");
    EXPECT_EQ(buffer.in_avail(), static_cast<std::streamsize>(c_most - 1));
}

TEST(DescriptorBuffer, EndsWhereItIsStopped) {
    Pipe pipe;
    Pipe stop;
    DescriptorBuffer buffer(pipe.Reader(), stop.Reader());
    pipe.Write("a\nb");
    EXPECT_EQ(Taken(buffer, 2), "a\n");
    EXPECT_EQ(buffer.in_avail(), 0);
    stop.Write("!");
    pipe.Write("c");
    EXPECT_EQ(buffer.in_avail(), 1) << "what was read before";
    EXPECT_EQ(Taken(buffer, 9), "b");
    EXPECT_EQ(buffer.in_avail(), -1);
    DescriptorBuffer waiting(pipe.Reader(), stop.Reader());
    EXPECT_EQ(waiting.sgetc(), std::char_traits<char>::eof()) << "and does not wait";
}

TEST(DescriptorBuffer, NothingToReadYetIsNoEnd) {
    Pipe pipe;
    ASSERT_EQ(fcntl(pipe.Reader(), F_SETFL, O_NONBLOCK), 0);
    DescriptorBuffer buffer(pipe.Reader(), -1);
    EXPECT_EQ(buffer.in_avail(), 0);
    const pid_t writer = fork(); // a thread would be short of descriptors as well
    if (writer == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        pipe.Write("a\n");
        _exit(0);
    }
    {
        const tests::DescriptorLimit one(1); // poll() refuses two: nothing waits
        EXPECT_EQ(buffer.sgetc(), 'a');
    }
    EXPECT_EQ(waitpid(writer, nullptr, 0), writer);
}

int g_signalled = -1; ///< what a signal writes to

TEST(DescriptorBuffer, SignalIsNoEnd) {
    Pipe pipe;
    g_signalled = pipe.Writer();
    struct sigaction action {};
    action.sa_handler = [](int) {
        if (write(g_signalled, "a\n", 2) != 2)
            _exit(1);
    };
    struct sigaction before {};
    ASSERT_EQ(sigaction(SIGALRM, &action, &before), 0);
    DescriptorBuffer buffer(pipe.Reader(), -1);
    {
        const tests::DescriptorLimit one(1); // poll() refuses two: it is reading that the signal interrupts
        itimerval soon{};
        soon.it_value.tv_usec = 10'000;
        ASSERT_EQ(setitimer(ITIMER_REAL, &soon, nullptr), 0);
        EXPECT_EQ(buffer.sgetc(), 'a');
    }
    sigaction(SIGALRM, &before, nullptr);
}

TEST(DescriptorBuffer, ThrowsWhereItCannotRead) {
    const int folder = open("/", O_RDONLY | O_CLOEXEC);
    ASSERT_GE(folder, 0);
    DescriptorBuffer buffer(folder, -1);
    EXPECT_EQ(buffer.in_avail(), -1);
    try {
        buffer.sgetc();
        ADD_FAILURE();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::is_a_directory);
    }
    close(folder);
}

} // namespace
