// The log of a modem. Input: the log, which the reader takes line by line and the tool decodes as a whole.
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Input.h"
#include "Property.h"
#include "commands/CommandLine.h"
#include "log/Transcript.h"

namespace {

using namespace fuzz;
using qxpdu::Transcript;

constexpr std::size_t c_longest = 4096;

/// The numbers of the lines that have to be answered.
std::vector<std::size_t> AnsweredLines(const std::string& log) {
    Transcript transcript;
    std::vector<std::size_t> answered;
    std::istringstream lines(log);
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        const Transcript::Line kind = transcript.Take(line, ++number);
        const auto& heading = transcript.LastHeading();
        Require(kind != Transcript::Line::Orphan || heading.has_value(), "an orphan has its heading");
        Require(!heading || kind == Transcript::Line::Chatter || heading->line < number,
                "a heading stands in front of its PDU");
        Require(kind == Transcript::Line::Pdu ||
                    line.find_first_not_of("0123456789ABCDEFabcdef") != std::string::npos || line.empty(),
                "digits are a PDU");
        if (kind == Transcript::Line::Pdu)
            answered.push_back(number);
        else if (kind == Transcript::Line::Orphan)
            answered.push_back(heading->line);
    }
    if (transcript.Finish())
        answered.push_back(transcript.LastHeading()->line);
    return answered;
}

/// What the tool writes, and nothing on standard error.
std::string Decoded(const std::string& log, const std::vector<std::string>& arguments) {
    std::istringstream in(log);
    std::ostringstream out;
    std::ostringstream err;
    qxpdu::RunTool(arguments, {in, out, err});
    Require(err.str().empty(), "JSON Lines hold the errors");
    return out.str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string log = Input(data, size).Octets(c_longest);
    const std::vector<std::size_t> answered = AnsweredLines(log);
    std::istringstream objects(Decoded(log, {"decode", "--jsonl"}));
    std::size_t count = 0;
    for (std::string line; std::getline(objects, line); ++count) {
        const nlohmann::json object = nlohmann::json::parse(line, nullptr, false);
        Require(object.is_object(), "each line is an object");
        Require(count < answered.size() && object["line"] == answered[count],
                "each line with a PDU has its object, in order");
    }
    Require(count == answered.size(), "no line is left without its object");
    const std::string joined = Decoded(log, {"decode", "--jsonl", "--join"});
    Require(static_cast<std::size_t>(std::count(joined.begin(), joined.end(), '\n')) <= answered.size(),
            "joining does not make more of the lines");
    return 0;
}
