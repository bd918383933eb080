// Threads that work on batches and deliver in order.
#include "stream/Workers.h"

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using qxpdu::BatchWork;
using qxpdu::Delivery;

/// Batches 0 to 999, of which each gives its number; the early ones of eight take longest.
struct Stream {
    unsigned int taken = 0;
    std::vector<unsigned int> delivered{};
    unsigned int told = 0; ///< how many threads there are

    template <class Convert, class Deliver>
    void Work(unsigned int threads, Convert convert, Deliver deliver) {
        qxpdu::WorkInOrder(
            [&]() -> BatchWork {
                if (taken == 1000)
                    return nullptr;
                return [&, number = taken++]() -> Delivery {
                    convert(number);
                    return [&, number] {
                        delivered.push_back(number);
                        return deliver(number);
                    };
                };
            },
            threads, [this](unsigned int granted) { told = granted; });
    }
};

void Linger(unsigned int number) {
    for (unsigned int i = number % 8; i < 8; ++i)
        std::this_thread::yield();
}

std::vector<unsigned int> UpTo(unsigned int end) {
    std::vector<unsigned int> numbers(end);
    for (unsigned int i = 0; i < end; ++i)
        numbers[i] = i;
    return numbers;
}

TEST(WorkInOrder, DeliversInTheOrderOfTaking) {
    for (const unsigned int threads : {1U, 2U, 8U}) {
        Stream stream;
        stream.Work(threads, Linger, [](unsigned int) { return true; });
        EXPECT_EQ(stream.delivered, UpTo(1000)) << threads;
        EXPECT_EQ(stream.told, 0U) << "none is missing";
    }
}

constexpr int c_asExpected = 0;
constexpr int c_otherwise = 1;
constexpr int c_notToBeTried = 2;

/// What a process gives in which no second thread is to be had. The limit does not hold for the superuser.
int WorkAlone() {
    constexpr uid_t c_nobody = 65534;
    const rlimit one = {1, 1};
    if (setrlimit(RLIMIT_NPROC, &one) != 0 ||
        (geteuid() == 0 && setresuid(c_nobody, c_nobody, c_nobody) != 0))
        return c_notToBeTried;
    Stream stream;
    stream.Work(8, Linger, [](unsigned int) { return true; });
    return stream.told == 1 && stream.delivered == UpTo(1000) ? c_asExpected : c_otherwise;
}

TEST(WorkInOrder, GoesOnWithTheThreadsThatAreToBeHadAndTellsHowMany) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        _exit(WorkAlone());
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == c_notToBeTried)
        GTEST_SKIP() << "threads cannot be limited here";
    EXPECT_EQ(WEXITSTATUS(status), c_asExpected);
}

TEST(WorkInOrder, EndsWhenADeliveryIsTheLastOneWanted) {
    for (const unsigned int threads : {1U, 2U, 8U}) {
        Stream stream;
        stream.Work(threads, Linger, [](unsigned int number) { return number != 20; });
        EXPECT_EQ(stream.delivered, UpTo(21)) << threads;
        EXPECT_LE(stream.taken, 21 + threads) << "each thread holds one batch";
    }
}

TEST(WorkInOrder, ThrowsOnWhatAStepThrows) {
    const auto good = [](unsigned int) { return true; };
    for (const unsigned int threads : {1U, 2U, 8U}) {
        Stream converting;
        EXPECT_THROW(converting.Work(
                         threads,
                         [](unsigned int number) {
                             return number == 20 ? throw std::runtime_error("20") : Linger(number);
                         },
                         good),
                     std::runtime_error);
        EXPECT_LE(converting.delivered.size(), 20U);
        Stream delivering;
        EXPECT_THROW(delivering.Work(threads, Linger,
                                     [](unsigned int number) {
                                         return number == 20 ? throw std::runtime_error("20") : true;
                                     }),
                     std::runtime_error);
        EXPECT_EQ(delivering.delivered, UpTo(21));
        EXPECT_THROW(qxpdu::WorkInOrder([]() -> BatchWork { throw std::runtime_error("taking"); }, threads,
                                        [](unsigned int) {}),
                     std::runtime_error);
    }
}

TEST(WorkInOrder, StepsOfDistinctBatchesOverlap) {
    // Two conversions wait for each other, which one thread alone would do for ever.
    std::atomic<int> inside = 0;
    Stream stream;
    stream.Work(
        2,
        [&inside](unsigned int number) {
            if (number > 1)
                return;
            ++inside;
            while (inside < 2)
                std::this_thread::yield();
        },
        [](unsigned int) { return true; });
    EXPECT_EQ(stream.delivered.size(), 1000U);
}

} // namespace
