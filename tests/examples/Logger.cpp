// What the host's logger does beside writing lines.
#include <algorithm>
#include <cstddef>
#include <iostream>
#include <sstream>
#include <streambuf>
#include <string>

#include <gtest/gtest.h>

#include "threads/Together.h"

#define main MainOfLogger
#include "../../examples/logger.cpp"
#undef main

namespace {

// As two threads do when one has taken over the line of the other. Under the thread sanitizer, too, which
// sees every unguarded access.
TEST(LoggerExample, KeepsThePiecesThatTwoThreadsWriteAtOnce) {
    constexpr std::size_t c_pieces = 500'000;
    std::ostringstream output;
    std::streambuf* const before = std::cout.rdbuf(output.rdbuf());
    {
        HostLogger logger(1);
        tests::Together(2, [&](std::size_t thread) {
            for (std::size_t piece = 0; piece < c_pieces; ++piece)
                logger.Write(thread == 0 ? L"a" : L"b");
        });
        logger.Write(Toolkit::ILogger::c_strLogToken3);
    }
    std::cout.rdbuf(before);
    const std::string line = output.str();
    EXPECT_EQ(std::count(line.begin(), line.end(), 'a'), 500'000);
    EXPECT_EQ(std::count(line.begin(), line.end(), 'b'), 500'000);
    EXPECT_EQ(line.size(), std::string("host: \n").size() + 1'000'000);
}

} // namespace
