// The tool where memory runs out.
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"
#include "tools/qxpdu/Samples.h"

namespace {

using tests::Outcome;
using tests::QxpduWithout;

/// It has a word of its own where it cannot note what a thread will have to destroy.
bool IsTheEndOfTheCLibrary(const Outcome& outcome) {
    return outcome.err.find("TLS destructor") != std::string::npos;
}

TEST(QxpduOutOfMemory, EndsWithAWordWhereverItComes) {
    constexpr unsigned long step = 97; // each piece would take minutes
    const struct {
        std::vector<std::string> arguments;
        std::string input;
    } runs[] = {
        {{"decode", "--jsonl", "--join"}, tests::Repeated(std::string(tests::c_hello) + '\n', 20)},
        {{"count", "--json", "Grüße"}, ""},
    };
    for (const auto& run : runs) {
        const Outcome whole = QxpduWithout(0, run.arguments, run.input);
        ASSERT_EQ(whole.status, 0) << whole;
        unsigned int failures = 0;
        unsigned int successes = 0; // one by one the C library does without a piece; in a row it is the end
        for (unsigned long piece = 1; successes < 3; piece += step) {
            const Outcome outcome = QxpduWithout(piece, run.arguments, run.input);
            if (outcome == whole || IsTheEndOfTheCLibrary(outcome)) {
                ++successes;
                continue;
            }
            successes = 0;
            ++failures;
            ASSERT_EQ(outcome.status, 1) << piece << '\n' << outcome;
            ASSERT_EQ(outcome.err, "qxpdu: out of memory\n") << piece;
        }
        EXPECT_GT(failures, 10U);
    }
}

} // namespace
