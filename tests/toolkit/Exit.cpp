// The process-wide objects outlive whoever uses them.
#include <gtest/gtest.h>

#include "support/Command.h"

namespace {

TEST(Exit, StaticObjectsUseTheSupportLibraryFromFirstToLast) {
    const auto outcome = tests::RunCommand(tests::Quoted(tests::WordsOf(EXIT_LINKED_HOST)) + "2>&1");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "constructor\nmain\ndestructor\ncut short by the end of the process\n");
}

TEST(Exit, SupportLibraryThatWasLoadedLateStillServesTheHostsStaticObjects) {
    const auto outcome = tests::RunCommand(tests::Quoted(tests::WordsOf(EXIT_LATE_HOST)) + "2>&1");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "logged by a static object of the host at exit\n");
}

TEST(Exit, SupportLibraryThatWasUnloadedLeavesForkAlone) {
    EXPECT_EQ(tests::RunCommand(tests::Quoted(tests::WordsOf(EXIT_FORK_HOST))).status, 0);
}

} // namespace
