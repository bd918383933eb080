// Logs as programs of many kinds print them, and what stands in each: logs.jsonl.
#include <fstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "Found.h"

namespace {

using nlohmann::json;
using qxpdu::LogEntry;
using tests::LogOutcome;
using tests::ReadLog;

std::string WayOf(const LogEntry& entry) {
    if (!entry.heading || entry.heading->direction == Messages::Direction::Unknown)
        return "";
    return entry.heading->direction == Messages::Direction::ToMobile ? "to" : "from";
}

json ToJson(const LogEntry& entry) {
    return {{"line", entry.line},
            {"name", entry.heading ? std::string(entry.heading->name) : std::string()},
            {"way", WayOf(entry)},
            {"digits", entry.text}};
}

json ToJson(const std::vector<LogEntry>& entries) {
    json array = json::array();
    for (const LogEntry& entry : entries)
        array.push_back(ToJson(entry));
    return array;
}

/// The text with each character, U+0000 to U+00FF, as one byte.
std::string Bytes(const std::string& utf8) {
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        bytes += lead < 0x80 ? utf8[i] : static_cast<char>((lead & 3) << 6 | (utf8[++i] & 0x3F));
    }
    return bytes;
}

TEST(Logs, EachGivesWhatStandsInIt) {
    std::ifstream rows(QX_LOGS);
    std::size_t kinds = 0;
    for (std::string row; std::getline(rows, row); ++kinds) {
        const json log = json::parse(row);
        const std::string raw = log["raw"];
        const LogOutcome outcome = ReadLog(log.value("latin1", false) ? Bytes(raw) : raw);
        EXPECT_EQ(ToJson(outcome.entries), log["found"]) << log["kind"] << '\n' << raw;
        EXPECT_EQ(outcome.counts.textModes, log["text_modes"]) << log["kind"] << '\n' << raw;
        EXPECT_EQ(outcome.counts.lines,
                  outcome.counts.entries + outcome.counts.textModes + outcome.counts.passedOver)
            << log["kind"];
    }
    EXPECT_GE(kinds, 60U);
}

} // namespace
