// Running of another program.
#ifndef TESTS_SUPPORT_COMMAND_H
#define TESTS_SUPPORT_COMMAND_H

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

#include <sys/wait.h>

namespace tests {

struct CommandOutcome {
    int status;         ///< the exit status, -1 if the program did not exit
    std::string output; ///< standard output
};

/// Runs a command line of the shell to its end.
inline CommandOutcome RunCommand(const std::string& command) {
    std::FILE* const pPipe = popen(command.c_str(), "r");
    if (pPipe == nullptr)
        throw std::runtime_error("no shell");
    std::string output;
    std::array<char, 4096> piece;
    for (std::size_t count = 0; (count = std::fread(piece.data(), 1, piece.size(), pPipe)) != 0;)
        output.append(piece.data(), count);
    const int status = pclose(pPipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

} // namespace tests

#endif
