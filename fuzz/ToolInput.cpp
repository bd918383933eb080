// The tool's input. Input: the number of a command line, then standard input; or, where the number has its
// highest bit set, arguments with a NUL between them, of which those up to an empty one are put after the
// command line and what follows that is standard input.
#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Input.h"
#include "Property.h"
#include "Toolkit/ILogger.h"
#include "commands/CommandLine.h"
#include "stream/Console.h"

namespace {

using namespace fuzz;

constexpr unsigned int c_moreArguments = 0x80;
constexpr std::size_t c_longest = 4096;
constexpr int c_quiet = 1; ///< the level at which the text decoder's line is not written

using Arguments = std::vector<std::string>;

/// Complete command lines; the last argument tells whether the results are JSON.
const std::array<Arguments, 36> c_commandLines = {
    {{"decode"},
     {"decode", "--json"},
     {"decode", "--no-smsc"},
     {"decode", "--ignore-time-zone", "--json"},
     {"cell"},
     {"cell", "--json"},
     {"text", "--alphabet", "0"},
     {"text", "--alphabet", "0", "--json"},
     {"text", "--alphabet", "2"},
     {"text", "--alphabet", "2", "--json"},
     {"ucs2", "encode"},
     {"ucs2", "encode", "--json"},
     {"ucs2", "decode"},
     {"ucs2", "decode", "--json"},
     {"ucs2", "check"},
     {"ucs2", "check", "--json"},
     {"gsm", "encode"},
     {"gsm", "encode", "--greek", "--json"},
     {"gsm", "decode"},
     {"gsm", "decode", "--json"},
     {"encode", "--to", "+4179123"},
     {"encode", "--to", "+4179123", "--json"},
     {"encode", "--as", "libQX_Encoding", "--to", "4179123", "--greek", "--strict"},
     {"gsm", "encode", "--greek"},
     {"inspect", "--no-smsc"},
     {"inspect", "--json"},
     {"count"},
     {"count", "--as", "libQX_Encoding", "--greek", "--json"},
     {"cell", "--join"},
     {"cell", "--join", "--each", "--json"},
     {"cell", "--as", "libQX_Encoding", "--json"},
     {"cell", "encode", "--json"},
     {"cell", "encode", "--umts", "--language", "de"},
     {"inspect", "--cell"},
     {"inspect", "--cell", "--json"},
     {"count", "--language", "all", "--replace", "--json"}}};

/// The arguments that stand before the first empty one.
Arguments TakeArguments(Input& input) {
    Arguments arguments;
    for (std::string argument; input.Left() > 0;) {
        const auto octet = static_cast<char>(input.Octet());
        if (octet != '\0') {
            argument.push_back(octet);
            continue;
        }
        if (argument.empty())
            break;
        arguments.push_back(std::move(argument));
        argument.clear();
    }
    return arguments;
}

struct Run {
    int status;
    std::string out;
    std::string err;
};

Run RunTool(const Arguments& arguments, const std::string& in) {
    std::istringstream input(in);
    std::ostringstream output;
    std::ostringstream errors;
    const int status = qxpdu::RunTool(arguments, {input, output, errors});
    (*Toolkit::ILogger::s_pInstance)->SetLevel(c_quiet); // an argument may have raised it
    return {status, output.str(), errors.str()};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int number = input.Octet();
    const Arguments& commandLine = c_commandLines[(number & ~c_moreArguments) % c_commandLines.size()];
    Arguments arguments = commandLine;
    const bool isGood = (number & c_moreArguments) == 0;
    if (!isGood) {
        const Arguments more = TakeArguments(input);
        arguments.insert(arguments.end(), more.begin(), more.end());
    }
    const Run run = RunTool(arguments, input.Octets(c_longest));

    using qxpdu::Console;
    Require(run.status == Console::ALL_GOOD || run.status == Console::SOME_FAILED ||
                (!isGood && run.status == Console::WRONG_COMMAND_LINE),
            "a good command line has the exit status 0 or 1");
    if (!isGood)
        return 0;
    Require(run.status == Console::ALL_GOOD || !run.err.empty() || commandLine[1] == "check",
            "a failure is explained on standard error");
    Require(run.err.empty() || run.err.back() == '\n', "standard error holds whole lines");
    if (commandLine.back() == "--json") {
        const nlohmann::json results = nlohmann::json::parse(run.out, nullptr, false);
        Require(results.is_array(), "JSON results are one array");
        Require(std::all_of(results.begin(), results.end(),
                            [](const auto& result) { return result.is_object(); }),
                "each JSON result is an object");
    }
    return 0;
}
