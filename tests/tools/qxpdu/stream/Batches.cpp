// How much is read before it is converted.
#include <algorithm>
#include <chrono>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include "stream/Conversion.h"

namespace {

using qxpdu::Console;
using qxpdu::Input;

/// The most bytes that had been read and not converted.
std::size_t MostKept(const std::string& line, int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i)
        text += line + '\n';
    std::istringstream in(text);
    std::ostringstream out;
    std::ostringstream err;
    std::size_t converted = 0;
    std::size_t most = 0;
    qxpdu::ConvertAll({}, {in, out, err}, qxpdu::LineKind::Text, [&](const Input& input, Console&) {
        const auto unread = std::max<std::streamsize>(in.rdbuf()->in_avail(), 0);
        most = std::max(most, text.size() - static_cast<std::size_t>(unread) - converted);
        converted += input.text.size() + 1;
    });
    EXPECT_EQ(converted, text.size());
    return most;
}

TEST(Batches, HoldSoManyLinesAndEndWithTheOneThatReachesTheirBytes) {
    EXPECT_EQ(MostKept("a", 600), 256U * 2);
    EXPECT_EQ(MostKept(std::string(32766, 'a'), 9), 3U * 32767) << "two are two bytes short";
    EXPECT_EQ(MostKept(std::string(32767, 'a'), 9), 2U * 32768);
    EXPECT_EQ(MostKept(std::string(1U << 17, 'a'), 3), (1U << 17) + 1);
}

/// What stands on a terminal, or in a file, to which both results and messages go.
std::string Shown(bool outIsTerminal, bool errIsTerminal, std::optional<bool> progress) {
    std::istringstream in("a\nb\n");
    std::ostringstream shown;
    qxpdu::ConversionSettings settings;
    settings.progress = progress;
    settings.lineBuffered = true; // two batches
    const qxpdu::Streams streams{in, shown, shown, outIsTerminal, errIsTerminal};
    EXPECT_EQ(qxpdu::ConvertAll(settings, streams, qxpdu::LineKind::Text,
                                [](const Input& input, Console& console) { console.Line(input.text); }),
              0);
    return shown.str();
}

TEST(Batches, TellTheProgressToATerminalThatHasNoResults) {
    const auto isTold = [](bool outIsTerminal, bool errIsTerminal, std::optional<bool> progress) {
        return Shown(outIsTerminal, errIsTerminal, progress).find("2 lines, ") != std::string::npos;
    };
    EXPECT_TRUE(isTold(false, true, std::nullopt));
    EXPECT_FALSE(isTold(true, true, std::nullopt));
    EXPECT_FALSE(isTold(true, false, std::nullopt));
    EXPECT_FALSE(isTold(false, false, std::nullopt));
    EXPECT_FALSE(isTold(false, true, false)) << "unless the user says otherwise";
    EXPECT_TRUE(isTold(true, true, true));
}

TEST(Batches, TakeTheProgressAwayBeforeResultsOnATerminal) {
    EXPECT_NE(Shown(true, true, true).find("0 errors\r\033[Kb\n"), std::string::npos);
    EXPECT_NE(Shown(false, true, true).find("0 errorsb\n"), std::string::npos) << "they go elsewhere";
}

TEST(Batches, TellTheProgressWhatEachOfThemTook) {
    constexpr std::size_t c_lines = 256;
    std::string text;
    for (std::size_t i = 0; i < 3 * c_lines; ++i)
        text += "a\n";
    std::istringstream in(text);
    std::ostringstream out;
    std::ostringstream err;
    qxpdu::ConversionSettings settings;
    settings.progress = true;
    qxpdu::Streams streams{in, out, err};
    streams.inSize = text.size();
    qxpdu::ConvertAll(settings, streams, qxpdu::LineKind::Text, [](const Input& input, Console&) {
        if (input.number == c_lines + 1) // longer than nothing is shown
            std::this_thread::sleep_for(std::chrono::milliseconds(250));
    });
    const std::string shown = err.str();
    EXPECT_NE(shown.find("qxpdu: 256 lines, "), std::string::npos) << shown;
    EXPECT_NE(shown.find(" 33 %, "), std::string::npos) << shown;
    EXPECT_NE(shown.find("qxpdu: 512 lines, "), std::string::npos) << shown;
    EXPECT_NE(shown.find(" 67 %, "), std::string::npos) << shown;
    EXPECT_NE(shown.find("qxpdu: 768 lines, "), std::string::npos) << shown;
}

} // namespace
