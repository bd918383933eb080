// What the sender does beside sending: that it fails as it should.
#include <array>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>

#include <fcntl.h>

#include <gtest/gtest.h>

#include "support/CapturedStderr.h"

namespace {

bool grants = true;

int Grant(int descriptor) {
    return grants ? grantpt(descriptor) : -1;
}

} // namespace

#define grantpt Grant
#define main MainOfSend
#include "../../examples/send.cpp"
#undef main
#undef grantpt

namespace {

long OpenFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

struct Outcome {
    int status;
    std::string errors;
};

/// Runs the sender with this device, or none.
Outcome RunSender(const char* device) {
    std::string program = "send";
    std::string argument = device == nullptr ? "" : device;
    std::array<char*, 3> arguments{program.data(), device == nullptr ? nullptr : argument.data(), nullptr};
    const tests::CapturedStderr captured;
    const int status = MainOfSend(device == nullptr ? 1 : 2, arguments.data());
    return {status, captured.Text()};
}

TEST(SendExample, LeavesNoFileOpenWhenTheDeviceIsNoTerminal) {
    const long before = OpenFiles();
    EXPECT_THROW(Line(open("/dev/null", O_RDWR)), std::runtime_error);
    EXPECT_EQ(OpenFiles(), before);
}

TEST(SendExample, LeavesNoFileOpenWhenThereIsNoPseudoTerminal) {
    const long before = OpenFiles();
    grants = false;
    const Outcome outcome = RunSender(nullptr);
    grants = true;
    EXPECT_EQ(outcome.status, EXIT_FAILURE);
    EXPECT_EQ(outcome.errors, "no pseudo-terminal\n");
    EXPECT_EQ(OpenFiles(), before);
}

TEST(SendExample, LeavesNoFileOpenWhenAllIsSent) {
    const long before = OpenFiles();
    testing::internal::CaptureStdout();
    EXPECT_EQ(RunSender(nullptr).status, EXIT_SUCCESS);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "AT+CMGS=151: sent\nAT+CMGS=85: sent\n");
    EXPECT_EQ(OpenFiles(), before);
}

TEST(SendExample, NamesADeviceThatIsNone) {
    for (const char* device : {"/dev/null", "/nowhere"}) {
        const Outcome outcome = RunSender(device);
        EXPECT_EQ(outcome.status, EXIT_FAILURE);
        EXPECT_EQ(outcome.errors, "no terminal\n");
    }
}

} // namespace
