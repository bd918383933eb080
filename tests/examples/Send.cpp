// What the sender does when sending fails, and how long it waits.
#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>

#include <gtest/gtest.h>

#include "support/CapturedStderr.h"
#include "support/PseudoTerminal.h"

namespace {

bool grants = true;

int Grant(int descriptor) {
    return grants ? grantpt(descriptor) : -1;
}

thread_local bool waits = true;
thread_local std::vector<int> limits; // of what this thread waited for, each once

int Poll(pollfd* files, nfds_t count, int limit) {
    if (limits.empty() || limits.back() != limit)
        limits.push_back(limit);
    return waits ? poll(files, count, limit) : 0;
}

} // namespace

#define poll Poll
#define grantpt Grant
#define main MainOfSend
#include "../../examples/send.cpp"
#undef main
#undef grantpt
#undef poll

namespace {

class SendExample : public testing::Test {
protected:
    void SetUp() override {
        if (!tests::HasPseudoTerminals())
            GTEST_SKIP() << tests::c_noPseudoTerminals;
    }
};

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

struct Step {
    std::string hears;
    std::string answers;
};

/// Runs the sender with a modem that keeps to this dialogue.
Outcome RunSender(const std::vector<Step>& dialogue) {
    const Line modem(posix_openpt(O_RDWR | O_NOCTTY));
    const std::string device = modem.OtherEnd();
    const auto played = std::async(std::launch::async, [&] {
        for (const Step& step : dialogue) {
            modem.ReadTo(step.hears);
            modem.Write(step.answers);
        }
    });
    return RunSender(device.c_str());
}

bool IsQuick(std::chrono::steady_clock::time_point begin) {
    return std::chrono::steady_clock::now() - begin < std::chrono::seconds(8);
}

TEST_F(SendExample, ShowsARefusalAtOnce) {
    const struct {
        std::vector<Step> dialogue;
        std::string errors;
    } rows[] = {
        {{{"=0\r", "\r\nERROR\r\n"}}, "the modem refuses: ERROR\n"},
        {{{"=0\r", "ERROR\r\n"}}, "the modem refuses: ERROR\n"},
        {{{"=0\r", "AT+CMGF=0\r\r\n+CME ERROR: 10\r\n"}}, "the modem refuses: +CME ERROR: 10\n"},
        {{{"=0\r", "\r\nOK\r\n"}, {"=151\r", "\r\n+CMS ERROR: 302\r\n"}},
         "the modem refuses: +CMS ERROR: 302\n"},
        {{{"=0\r", "\r\nOK\r\n"}, {"=151\r", "\r\n> "}, {"\x1A", "\r\n+CMS ERROR: 38\r\n"}},
         "the modem refuses: +CMS ERROR: 38\n"},
        {{{"=0\r", "\r\nOK\r\n"},
          {"=151\r", "\r\n> "},
          {"\x1A", "\r\n+CMTI: 1\r\n\r\n+CMS ERROR: no network\r\n"}},
         "the modem refuses: +CMS ERROR: no network\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.errors);
        const auto begin = std::chrono::steady_clock::now();
        const Outcome outcome = RunSender(row.dialogue);
        EXPECT_EQ(outcome.status, EXIT_FAILURE);
        EXPECT_EQ(outcome.errors, row.errors);
        EXPECT_TRUE(IsQuick(begin));
    }
}

TEST_F(SendExample, PretendedModemRefusesAPduOfAnotherLength) {
    const struct {
        std::string announced;
        std::string answer;
    } rows[] = {{"AT+CMGS=7\r", "\r\n+CMS ERROR: 304\r\n"},
                {"AT+CMGS=8\r", "\r\n+CMGS: 1\r\n\r\nOK\r\n"},
                {"AT+CMGS=9\r", "\r\n+CMS ERROR: 304\r\n"}};
    for (const auto& row : rows) {
        const Line modem(posix_openpt(O_RDWR | O_NOCTTY));
        const auto played = std::async(std::launch::async, [&] { PlayModem(modem, 1); });
        const Line host(open(modem.OtherEnd().c_str(), O_RDWR | O_NOCTTY));
        host.Write("AT+CMGF=0\r");
        Expect(host, "OK\r\n");
        host.Write(row.announced);
        Expect(host, "> ");
        host.Write("02910001000181F1000000\x1A"); // 3 octets of service centre, and 8
        EXPECT_EQ(host.ReadTo("OK\r\n"), row.answer);
    }
}

TEST_F(SendExample, WaitsAMinuteForTheNetworkAndTenSecondsForTheModem) {
    limits.clear();
    testing::internal::CaptureStdout();
    EXPECT_EQ(RunSender(nullptr).status, EXIT_SUCCESS);
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(limits, (std::vector{10'000, 60'000, 10'000, 60'000}));
}

TEST_F(SendExample, HangsUpWhenNoAnswerComes) {
    const auto begin = std::chrono::steady_clock::now();
    waits = false;
    const Outcome outcome = RunSender(nullptr);
    waits = true;
    EXPECT_EQ(outcome.status, EXIT_FAILURE);
    EXPECT_EQ(outcome.errors, "no answer\n");
    EXPECT_TRUE(IsQuick(begin));
}

TEST_F(SendExample, LeavesNoFileOpenWhenTheDeviceIsNoTerminal) {
    const long before = OpenFiles();
    EXPECT_THROW(Line(open("/dev/null", O_RDWR)), std::runtime_error);
    EXPECT_EQ(OpenFiles(), before);
}

TEST_F(SendExample, LeavesNoFileOpenWhenThereIsNoPseudoTerminal) {
    const long before = OpenFiles();
    grants = false;
    const Outcome outcome = RunSender(nullptr);
    grants = true;
    EXPECT_EQ(outcome.status, EXIT_FAILURE);
    EXPECT_EQ(outcome.errors, "no pseudo-terminal\n");
    EXPECT_EQ(OpenFiles(), before);
}

TEST_F(SendExample, LeavesNoFileOpenWhenAllIsSent) {
    const long before = OpenFiles();
    testing::internal::CaptureStdout();
    EXPECT_EQ(RunSender(nullptr).status, EXIT_SUCCESS);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "AT+CMGS=151: sent\nAT+CMGS=85: sent\n");
    EXPECT_EQ(OpenFiles(), before);
}

TEST_F(SendExample, NamesADeviceThatIsNone) {
    for (const char* device : {"/dev/null", "/nowhere"}) {
        const Outcome outcome = RunSender(device);
        EXPECT_EQ(outcome.status, EXIT_FAILURE);
        EXPECT_EQ(outcome.errors, "no terminal\n");
    }
}

} // namespace
