// The line that tells how far the work is.
#include "stream/Progress.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using qxpdu::Progress;

/// The text with each rate as "#", which depends on the machine.
std::string WithoutRate(const std::string& text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t end = text.find_first_not_of("0123456789", i);
        const bool isRate = end != i && end != std::string::npos && text.compare(end, 9, " a second") == 0;
        shown += isRate ? '#' : text[i];
        i = isRate ? end - 1 : i;
    }
    return shown;
}

/// What the first Add() shows, which comes at once, so that nothing is left to wait for.
std::string FirstLine(std::optional<std::uint64_t> inSize, std::uint64_t lines, std::uint64_t bytes,
                      std::uint64_t errors) {
    std::ostringstream err;
    Progress progress(err, true, inSize);
    progress.Add(lines, bytes, errors);
    return WithoutRate(err.str());
}

TEST(Progress, TellsPercentAndRemainingTimeWhereTheSizeIsKnown) {
    EXPECT_EQ(FirstLine(std::nullopt, 2, 50, 1), "qxpdu: 2 lines, # a second, 1 error");
    EXPECT_EQ(FirstLine(200, 1, 50, 0), "qxpdu: 1 line, # a second, 0 errors, 25 %, 0 s left");
    EXPECT_EQ(FirstLine(200, 2, 200, 2), "qxpdu: 2 lines, # a second, 2 errors, 100 %, 0 s left");
    EXPECT_EQ(FirstLine(200, 2, 201, 2),
              "qxpdu: 2 lines, # a second, 2 errors, 100 %, 0 s left"); // it has grown
    EXPECT_EQ(FirstLine(200, 0, 0, 0), "qxpdu: 0 lines, # a second, 0 errors");
    EXPECT_EQ(FirstLine(0, 1, 1, 0), "qxpdu: 1 line, # a second, 0 errors");
}

TEST(ProgressFigures, RateAndRemainingTimeAreOfTheTimeGoneBy) {
    const struct {
        qxpdu::ProgressFigures figures;
        double seconds;
        const char* words;
    } rows[] = {
        {{"line", std::nullopt, 20, 100, 1}, 10, "20 lines, 2 a second, 1 error"},
        {{"line", 400, 20, 100, 0}, 10, "20 lines, 2 a second, 0 errors, 25 %, 30 s left"},
        {{"line", 400, 20, 300, 0}, 9, "20 lines, 2 a second, 0 errors, 75 %, 3 s left"},
        {{"line", 400, 20, 500, 0}, 10, "20 lines, 2 a second, 0 errors, 100 %, 0 s left"},
        {{"line", 2, 20, 1, 0}, 10, "20 lines, 2 a second, 0 errors, 50 %, 10 s left"},
        {{"line", 1, 20, 1, 0}, 10, "20 lines, 2 a second, 0 errors, 100 %, 0 s left"},
        {{"line", 0, 20, 1, 0}, 10, "20 lines, 2 a second, 0 errors"},
        {{"line", 400, 20, 0, 0}, 10, "20 lines, 2 a second, 0 errors"},
        {{"input", 400, 1, 0, 2}, 0, "1 input, 1000000 a second, 2 errors"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.figures.After(row.seconds), row.words);
}

TEST(Progress, CountsInTheUnitThatIsGiven) {
    std::ostringstream err;
    Progress(err, true, std::nullopt, "input").Add(2, 0, 0);
    EXPECT_EQ(WithoutRate(err.str()), "qxpdu: 2 inputs, # a second, 0 errors");
}

TEST(Progress, IsTakenAwayForAMessageAndLeavesTheWholeInTheEnd) {
    std::ostringstream err;
    Progress progress(err, true, 200);
    progress.Clear();
    EXPECT_EQ(err.str(), "") << "nothing is shown yet";
    progress.Add(1, 100, 0);
    progress.Add(2, 100, 3); // too soon to be shown
    progress.Clear();
    progress.Clear();
    progress.Finish();
    EXPECT_EQ(WithoutRate(err.str()), "qxpdu: 1 line, # a second, 0 errors, 50 %, 0 s left\r\033[K"
                                      "qxpdu: 3 lines, # a second, 3 errors\n");
}

TEST(Progress, SaysNothingWhenItIsOff) {
    std::ostringstream err;
    Progress progress(err, false, 200);
    progress.Add(1, 100, 0);
    progress.Clear();
    progress.Finish();
    EXPECT_EQ(err.str(), "");
}

} // namespace
