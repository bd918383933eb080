// The log of a modem, or a list of PDUs. Input: the log, which the reader takes line by line and the tool
// decodes as a whole.
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Input.h"
#include "Property.h"
#include "characters/Dump.h"
#include "commands/CommandLine.h"
#include "log/LogReader.h"

namespace {

using namespace fuzz;
using qxpdu::Heading;
using qxpdu::LogEntry;
using qxpdu::LogReader;

constexpr std::size_t c_longest = 4096;

void CheckEntry(const LogEntry& entry, std::size_t lines) {
    Require(entry.line >= 1 && entry.line <= lines, "an entry stands in a line");
    if (!entry.heading)
        return;
    Require(entry.heading->line <= entry.line, "a heading stands before its PDU");
    Require(std::all_of(entry.text.begin(), entry.text.end(),
                        [](char digit) {
                            return std::string_view("0123456789ABCDEFabcdef").find(digit) !=
                                   std::string_view::npos;
                        }),
            "an entry of a log is made of digits");
}

/// Whether lines of the list may make one PDU together. In UTF-16 that has NUL characters and a mark in it.
bool IsDumped(std::string list) {
    constexpr std::size_t c_mark = 2;
    std::erase(list, '\0');
    std::istringstream pieces(list);
    for (std::string line; std::getline(pieces, line);) {
        std::istringstream returned(line);
        for (std::string piece; std::getline(returned, piece, '\r');) {
            if (qxpdu::ReadDumpLine(piece, 0) ||
                qxpdu::ReadDumpLine(piece.substr(std::min(piece.size(), c_mark)), 0))
                return true;
        }
    }
    return false;
}

/// The lines of the entries that have to be answered. Every line is accounted for once.
std::vector<std::size_t> AnsweredLines(const std::string& log) {
    LogReader reader;
    std::vector<std::size_t> answered;
    std::istringstream lines(log);
    std::size_t number = 0;
    const auto take = [&] {
        while (const auto entry = reader.Next()) {
            CheckEntry(*entry, number);
            if (!entry->heading || entry->heading->kind != Heading::Kind::Reference)
                answered.push_back(entry->line);
        }
    };
    for (std::string line; std::getline(lines, line); take())
        reader.Take(line, ++number);
    reader.Finish();
    take();
    const auto& counts = reader.Counts();
    Require(counts.lines == number, "every line is counted");
    Require(counts.lines == counts.entries + counts.textModes + counts.passedOver, "and counted once");
    Require(counts.strayDigits <= counts.passedOver, "stray digits are passed over");
    Require(reader.IsLog() || IsDumped(log) || answered.size() >= counts.entries,
            "a list has an entry a line, or several");
    return answered;
}

/// What the tool writes. On standard error stands no more than warnings, and what is wrong with the whole.
std::string Decoded(const std::string& log, const std::vector<std::string>& arguments) {
    std::istringstream in(log);
    std::ostringstream out;
    std::ostringstream err;
    qxpdu::RunTool(arguments, {in, out, err});
    std::istringstream messages(err.str());
    for (std::string message; std::getline(messages, message);)
        Require(message.starts_with("qxpdu: standard input: warning: ") ||
                    message.starts_with("qxpdu: standard input: the log of a modem without a message"),
                "JSON Lines hold the errors");
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
                "each entry has its object, in order");
    }
    Require(count == answered.size(), "no entry is left without its object");
    const std::string joined = Decoded(log, {"decode", "--jsonl", "--join"});
    Require(static_cast<std::size_t>(std::count(joined.begin(), joined.end(), '\n')) <= answered.size(),
            "joining does not make more of the entries");
    return 0;
}
