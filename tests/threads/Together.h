// Several threads that start at once.
#ifndef TESTS_THREADS_TOGETHER_H
#define TESTS_THREADS_TOGETHER_H

#include <cstddef>
#include <functional>
#include <latch>
#include <thread>
#include <vector>

namespace tests {

/// Runs `work` on `count` threads at once, each with its number from 0, and waits for their ends.
inline void Together(std::size_t count, const std::function<void(std::size_t)>& work) {
    std::latch start(static_cast<std::ptrdiff_t>(count));
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < count; ++number)
        threads.emplace_back([&start, &work, number] {
            start.arrive_and_wait();
            work(number);
        });
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace tests

#endif
