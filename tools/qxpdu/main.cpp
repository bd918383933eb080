#include <iostream>
#include <new>
#include <string_view>

#include <sys/stat.h>
#include <unistd.h>

#include "commands/CommandLine.h"
#include "stream/DescriptorBuffer.h"
#include "stream/StopSignals.h"

namespace {

/// Thrown, the failure could come out of a destructor, and no message would tell.
void EndOutOfMemory() {
    constexpr std::string_view c_message = "qxpdu: out of memory\n";
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, c_message.data(), c_message.size());
    _exit(qxpdu::Console::SOME_FAILED);
}

/// Before the objects of the option parser's headers, which take memory too.
[[gnu::constructor(101)]] void HandleNoMemory() {
    std::set_new_handler(EndOutOfMemory);
}

/// What is no file has the size 0.
std::optional<std::uint64_t> SizeOfInput() {
    struct stat status;
    if (fstat(STDIN_FILENO, &status) != 0)
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

} // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const qxpdu::StopSignals signals;
    qxpdu::DescriptorBuffer buffer(STDIN_FILENO, signals.Descriptor());
    std::istream in(&buffer);
    const int status =
        qxpdu::RunTool({argv + 1, argv + argc},
                       {in, std::cout, std::cerr, isatty(STDOUT_FILENO) != 0, isatty(STDERR_FILENO) != 0,
                        SizeOfInput(), [&] { signals.Catch(); }, signals.Descriptor()});
    qxpdu::StopSignals::Follow();
    return status;
}
