#include <iostream>

#include <sys/stat.h>
#include <unistd.h>

#include "commands/CommandLine.h"

namespace {

std::optional<std::uint64_t> SizeOfInput() {
    struct stat status;
    if (fstat(STDIN_FILENO, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

} // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    return qxpdu::RunTool({argv + 1, argv + argc},
                          {std::cin, std::cout, std::cerr, isatty(STDOUT_FILENO) != 0,
                           isatty(STDERR_FILENO) != 0, SizeOfInput()});
}
