// How much is read before it is converted.
#include <algorithm>
#include <sstream>

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

} // namespace
