// Runs the real executable.
#ifndef TESTS_TOOLS_QXPDU_RUNTOOL_H
#define TESTS_TOOLS_QXPDU_RUNTOOL_H

#include <ostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace tests {

/// What one run of qxpdu gave.
struct Outcome {
    int status = -1;
    std::string out;
    std::string err;

    bool operator==(const Outcome&) const = default;
    nlohmann::json Json() const { return nlohmann::json::parse(out); }
};

std::ostream& operator<<(std::ostream& stream, const Outcome& run);

/// Runs qxpdu with these arguments and this standard input, and waits for its end.
Outcome Qxpdu(const std::vector<std::string>& arguments, const std::string& input = "");

/// The same where the piece of memory with that number, from 1, is not to be had.
Outcome QxpduWithout(unsigned long piece, const std::vector<std::string>& arguments,
                     const std::string& input);

/// Runs a script of the shell, in which $QXPDU stands for the tool, quoted as its path needs it.
Outcome Shell(const std::string& script);

/// Runs qxpdu with these arguments and no input, with standard output going to a file.
int QxpduInto(const std::string& file, const std::vector<std::string>& arguments);

/// Whether the lines of a text hold this one, the blanks before it left out.
bool HasLine(const std::string& text, const std::string& line);

/// One object a line.
std::vector<nlohmann::json> JsonLines(const std::string& text);

/// The lines of a text without their line feeds.
std::vector<std::string> LinesOf(const std::string& text);

/// A line each, with its line feed.
std::string AsLines(const std::vector<std::string>& lines);

/// The text as often as that.
std::string Repeated(const std::string& text, std::size_t count);

} // namespace tests

#endif
