// Many inputs: each line is answered once and in order, whatever the threads. Input: the number of a command
// line, the number of threads, then standard input.
#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Input.h"
#include "Property.h"
#include "commands/CommandLine.h"

namespace {

using namespace fuzz;

constexpr std::size_t c_longest = 1400;

/// How the lines that come out belong to those that went in.
enum class Answers {
    EachLine, ///< an object a line
    Rows,     ///< a row a line
    SomeLines ///< an object for what stands in a line, and more for what is joined
};

struct Command {
    std::vector<std::string> arguments;
    Answers answers;
};

const std::array<Command, 12> c_commands = {
    {{{"count", "--lines", "--jsonl"}, Answers::EachLine},
     {{"encode", "--to", "+4179123", "--concat-reference", "7", "--lines", "--jsonl"}, Answers::EachLine},
     {{"decode", "--columns", "input,text,error", "--input-column", "2"}, Answers::Rows},
     {{"cell", "--jsonl"}, Answers::SomeLines},
     {{"decode", "--jsonl"}, Answers::SomeLines},
     {{"decode", "--jsonl", "--join"}, Answers::SomeLines},
     {{"inspect", "--jsonl"}, Answers::SomeLines},
     {{"decode", "--jsonl", "--join", "--each"}, Answers::SomeLines},
     {{"cell", "--jsonl", "--join"}, Answers::SomeLines},
     {{"cell", "--jsonl", "--join", "--each"}, Answers::SomeLines},
     {{"cell", "encode", "--lines", "--jsonl"}, Answers::EachLine},
     {{"decode", "--columns", "text,type", "--each-line"}, Answers::Rows}}};

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

struct Run {
    int status;
    std::string out;
    std::string err;

    bool operator==(const Run&) const = default;
};

Run RunTool(const std::vector<std::string>& arguments, const std::string& in) {
    std::istringstream input(in);
    std::ostringstream output;
    std::ostringstream errors;
    const int status = qxpdu::RunTool(arguments, {input, output, errors});
    return {status, output.str(), errors.str()};
}

/// The line that an object is about, if it is about one.
std::optional<std::size_t> LineOf(const std::string& text) {
    const nlohmann::json object = nlohmann::json::parse(text, nullptr, false);
    Require(object.is_object(), "each line is an object");
    return object.contains("line") ? std::optional<std::size_t>(object["line"]) : std::nullopt;
}

void RequireAnswers(Answers answers, const std::vector<std::string>& out, std::size_t lines) {
    if (answers != Answers::SomeLines)
        Require(out.size() == lines, "each line is answered once");
    if (answers == Answers::Rows)
        return;
    std::size_t last = 0;
    for (const std::string& text : out) {
        const std::optional<std::size_t> line = LineOf(text);
        Require(line || answers == Answers::SomeLines, "each object names its line");
        if (!line)
            continue;
        Require(answers == Answers::SomeLines ? *line >= last : *line == last + 1,
                "answers come in the order of the lines");
        last = *line;
    }
    Require(last <= lines, "only a line that is there is answered");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const Command& command = c_commands[input.Octet() % c_commands.size()];
    const unsigned int threads = input.Octet() % 4 + 1U;
    const std::string in = input.Octets(c_longest);
    const Run run = RunTool(command.arguments, in);
    RequireAnswers(command.answers, LinesOf(run.out), LinesOf(in).size());
    if (threads == 1)
        return 0;
    std::vector<std::string> arguments = command.arguments; // a batch a line, so that threads have to wait
    arguments.insert(arguments.end(), {"--line-buffered", "-j", std::to_string(threads)});
    Require(RunTool(arguments, in) == run, "threads change nothing");
    return 0;
}
