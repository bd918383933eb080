#include "RunTool.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/Command.h"

namespace tests {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File TemporaryFile() {
    File file(std::tmpfile(), std::fclose);
    if (!file)
        throw std::runtime_error("no temporary file");
    return file;
}

std::string ContentsOf(std::FILE* file) {
    std::string contents;
    std::array<char, 65536> piece;
    std::rewind(file);
    while (const std::size_t read = std::fread(piece.data(), 1, piece.size(), file))
        contents.append(piece.data(), read);
    return contents;
}

/// qxpdu's executable, after the emulator of the machine that it is built for where that is another one.
std::vector<std::string> Command() {
    return WordsOf(QXPDU_COMMAND);
}

/// The exit status of a command, or 128 and the signal that ended it.
int RunWords(std::vector<std::string> words, int in, int out, int err) {
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("no process");
    if (child == 0) {
        dup2(in, STDIN_FILENO);
        dup2(out, STDOUT_FILENO);
        dup2(err, STDERR_FILENO);
        execvp(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::vector<std::string> Followed(std::vector<std::string> words, const std::vector<std::string>& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

int RunWith(const std::vector<std::string>& arguments, int in, int out, int err) {
    return RunWords(Followed(Command(), arguments), in, out, err);
}

Outcome RunWithInput(std::vector<std::string> words, const std::string& input) {
    const File in = TemporaryFile();
    const File out = TemporaryFile();
    const File err = TemporaryFile();
    std::fwrite(input.data(), 1, input.size(), in.get());
    std::fflush(in.get());
    std::rewind(in.get());
    const int status = RunWords(std::move(words), fileno(in.get()), fileno(out.get()), fileno(err.get()));
    return {status, ContentsOf(out.get()), ContentsOf(err.get())};
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const Outcome& run) {
    constexpr std::size_t c_shown = 4000;
    return stream << "status " << run.status << "\nout:\n"
                  << run.out.substr(0, c_shown) << "err:\n"
                  << run.err.substr(0, c_shown);
}

Outcome Qxpdu(const std::vector<std::string>& arguments, const std::string& input) {
    return RunWithInput(Followed(Command(), arguments), input);
}

#ifdef QXPDU_FAILING_COMMAND
Outcome QxpduWithout(unsigned long piece, const std::vector<std::string>& arguments,
                     const std::string& input) {
    std::vector<std::string> words = {"env", "QXPDU_MISSING_PIECE=" + std::to_string(piece)};
    words = Followed(std::move(words), WordsOf(QXPDU_FAILING_COMMAND));
    return RunWithInput(Followed(std::move(words), arguments), input);
}
#endif

Outcome Shell(const std::string& script) {
    const File in = TemporaryFile();
    const File out = TemporaryFile();
    const File err = TemporaryFile();
    constexpr std::string_view c_placeholder = "$QXPDU";
    const std::string tool = Quoted(Command());
    std::string command = script;
    for (std::size_t at = 0; (at = command.find(c_placeholder, at)) != std::string::npos; at += tool.size())
        command.replace(at, c_placeholder.size(), tool);
    const int status = RunWords({"timeout", "60", "sh", "-c", command}, fileno(in.get()), fileno(out.get()),
                                fileno(err.get()));
    return {status, ContentsOf(out.get()), ContentsOf(err.get())};
}

int QxpduInto(const std::string& file, const std::vector<std::string>& arguments) {
    const File in = TemporaryFile();
    const File err = TemporaryFile();
    const File out(std::fopen(file.c_str(), "w"), std::fclose);
    return RunWith(arguments, fileno(in.get()), fileno(out.get()), fileno(err.get()));
}

bool HasLine(const std::string& text, const std::string& line) {
    std::istringstream lines(text);
    for (std::string shown; std::getline(lines, shown);) {
        if (shown.substr(std::min(shown.find_first_not_of(' '), shown.size())) == line)
            return true;
    }
    return false;
}

std::vector<nlohmann::json> JsonLines(const std::string& text) {
    std::vector<nlohmann::json> objects;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        objects.push_back(nlohmann::json::parse(line));
    return objects;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string AsLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

std::string Repeated(const std::string& text, std::size_t count) {
    std::string repeated;
    while (count-- > 0)
        repeated += text;
    return repeated;
}

} // namespace tests
