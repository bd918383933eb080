// Running of another program.
#ifndef TESTS_SUPPORT_COMMAND_H
#define TESTS_SUPPORT_COMMAND_H

#include <array>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace tests {

/// The words of a command that the build handed over, with bars between them.
inline std::vector<std::string> WordsOf(const std::string& command) {
    std::vector<std::string> words;
    std::istringstream rest(command);
    for (std::string word; std::getline(rest, word, '|');)
        words.push_back(word);
    return words;
}

/// These words for a command line of the shell, whatever characters are in them.
inline std::string Quoted(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words) {
        line += '\'';
        for (const char character : word)
            line += character == '\'' ? "'\\''" : std::string(1, character);
        line += "' ";
    }
    return line;
}

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
