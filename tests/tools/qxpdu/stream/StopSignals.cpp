#include "stream/StopSignals.h"

#include <csignal>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tools/qxpdu/stream/DescriptorLimit.h"

namespace {

using qxpdu::StopSignals;

TEST(StopSignals, FirstOfAKindIsNotedAndTheNextEndsTheProcess) {
    struct sigaction interrupt {};
    struct sigaction hangUp {};
    sigaction(SIGINT, nullptr, &interrupt);
    sigaction(SIGHUP, nullptr, &hangUp);
    std::signal(SIGTERM, SIG_DFL);
    const StopSignals signals;
    signals.Catch();
    struct sigaction caught {};
    ASSERT_EQ(sigaction(SIGTERM, nullptr, &caught), 0);
    EXPECT_EQ(caught.sa_flags & SA_RESTART, SA_RESTART) << "what waits is not disturbed";
    std::raise(SIGTERM);
    char noted = 0;
    EXPECT_EQ(read(signals.Descriptor(), &noted, 1), 1);
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
    sigaction(SIGINT, &interrupt, nullptr);
    sigaction(SIGHUP, &hangUp, nullptr);
}

TEST(StopSignals, EndTheProcessAtOnceWhereNothingCanWaitForThem) {
    std::signal(SIGTERM, SIG_DFL);
    const int in = fcntl(STDIN_FILENO, F_GETFD);
    const tests::DescriptorLimit none(0);
    {
        const StopSignals signals;
        EXPECT_EQ(signals.Descriptor(), -1);
        signals.Catch();
        EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
    }
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), in) << "nothing is closed";
}

} // namespace
