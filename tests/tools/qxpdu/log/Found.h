// What the reader of logs finds in a text.
#ifndef TESTS_TOOLS_QXPDU_LOG_FOUND_H
#define TESTS_TOOLS_QXPDU_LOG_FOUND_H

#include <sstream>
#include <string>
#include <vector>

#include "log/LogReader.h"

namespace tests {

struct LogOutcome {
    std::vector<qxpdu::LogEntry> entries;
    qxpdu::LogCounts counts;
};

inline LogOutcome ReadLog(const std::string& text) {
    LogOutcome outcome;
    qxpdu::LogReader reader;
    std::istringstream lines(text);
    std::size_t number = 0;
    const auto take = [&] {
        while (auto entry = reader.Next())
            outcome.entries.push_back(std::move(*entry));
    };
    for (std::string line; std::getline(lines, line); take())
        reader.Take(line, ++number);
    reader.Finish();
    take();
    outcome.counts = reader.Counts();
    return outcome;
}

} // namespace tests

#endif
