// How streams are cut into inputs, and what is ready to be read.
#include <sstream>

#include <gtest/gtest.h>

#include "stream/Inputs.h"
#include "tools/qxpdu/stream/Trickle.h"

namespace {

using qxpdu::Input;
using qxpdu::Inputs;
using tests::Trickle;
using Texts = std::vector<std::string>;

const Texts c_none;

/// Inputs of a text on standard input, and of arguments.
class Source {
public:
    explicit Source(const std::string& text, Inputs::Cut cut = Inputs::Cut::Lines, Texts arguments = {})
        : m_In(text), m_Arguments(std::move(arguments)), m_Inputs({m_Arguments, c_none, m_In}, cut) {}

    Inputs& operator*() { return m_Inputs; }
    Inputs* operator->() { return &m_Inputs; }

    /// "line 1: a", of those that are left.
    Texts Rest() {
        Texts rest;
        for (Input input; m_Inputs.Next(input);)
            rest.push_back(NameOf(input) + ": " + input.text);
        return rest;
    }

private:
    std::istringstream m_In;
    Texts m_Arguments;
    Inputs m_Inputs;
};

TEST(Sources, LinesAreCountedWithWhatTheyTook) {
    Source source("ab\n\nc");
    EXPECT_EQ(source.Rest(), (Texts{"line 1: ab", "line 2: ", "line 3: c"}));
    EXPECT_EQ(source->Lines(), 3U);
    EXPECT_EQ(source->Bytes(), 6U);
    EXPECT_EQ(source->StreamsOpened(), 1U);
    EXPECT_EQ(source->Unreadable(), Texts());
}

TEST(Sources, ArgumentsAreCountedAmongLines) {
    Source source("a\nb\n", Inputs::Cut::Lines, {"x", "-", "y"});
    EXPECT_EQ(source.Rest(), (Texts{"argument 1: x", "line 1: a", "line 2: b", "argument 3: y"}));
    EXPECT_EQ(source->Lines(), 4U);
    EXPECT_EQ(source->Bytes(), 4U);
    EXPECT_EQ(source->StreamsOpened(), 1U);
    Source arguments("a\n", Inputs::Cut::Lines, {"x"});
    EXPECT_EQ(arguments.Rest(), Texts{"argument 1: x"});
    EXPECT_EQ(arguments->StreamsOpened(), 0U);
}

TEST(Sources, StandardInputIsReadForADashWhereFilesAreGiven) {
    std::istringstream in("a\n");
    Input input;
    const Texts nothing = {"/dev/null"};
    Inputs files({c_none, nothing, in}, Inputs::Cut::Lines);
    EXPECT_FALSE(files.Next(input));
    const Texts dash = {"-"};
    Inputs standard({c_none, dash, in}, Inputs::Cut::Lines);
    EXPECT_TRUE(standard.Next(input));
    EXPECT_EQ(input.text, "a");
    EXPECT_FALSE(standard.Next(input));
    EXPECT_EQ(standard.StreamsOpened(), 1U);
}

TEST(Sources, WholeStreamIsOneInput) {
    EXPECT_EQ(Source("a\nb\n\n", Inputs::Cut::Whole).Rest(), Texts{"standard input: a\nb\n"});
    EXPECT_EQ(Source("a", Inputs::Cut::Whole).Rest(), Texts{"standard input: a"});
    EXPECT_EQ(Source("", Inputs::Cut::Whole).Rest(), Texts{"standard input: "}) << "though nothing comes";
}

TEST(Sources, LittleIsKeptOfWhatIsBeyondTheLongestLine) {
    const std::string most(Inputs::MAX_LINE, 'a');
    for (const auto cut : {Inputs::Cut::Lines, Inputs::Cut::LogLines, Inputs::Cut::Whole}) {
        for (const std::size_t more : {0U, 1U, 9000U}) {
            Source source(most + std::string(more, 'b') + "\n", cut);
            Input input;
            ASSERT_TRUE(source->Next(input));
            EXPECT_EQ(input.text.size() > Inputs::MAX_LINE, more > 0);
            EXPECT_LE(input.text.size(), Inputs::MAX_LINE + std::min<std::size_t>(more, 4096));
            EXPECT_FALSE(source->Next(input));
        }
    }
    Source whole(most + "ab", Inputs::Cut::Whole);
    EXPECT_EQ(whole.Rest().at(0).size(), std::string("standard input: ").size() + most.size() + 1);
}

TEST(Sources, CarriageReturnsEndLongLinesOfALog) {
    const std::string longTalk(80000, 'b');
    const std::string talk(50000, 'b');
    const std::string one = "line 1: ";
    const std::string two = "line 2: ";
    const auto log = [](const std::string& text) { return Source(text, Inputs::Cut::LogLines).Rest(); };
    EXPECT_EQ(log("a\r" + longTalk + "\nc\n"), (Texts{one + "a", one + longTalk, two + "c"}));
    EXPECT_EQ(log("a\rb\r" + longTalk + "\nc"), (Texts{one + "a\rb", one + longTalk, two + "c"}))
        << "the last that has come";
    EXPECT_EQ(log("a\r" + talk + "\nc\n"), (Texts{one + "a\r" + talk, two + "c"})) << "not long enough";
    EXPECT_EQ(log(longTalk + "\nc\n"), (Texts{one + longTalk, two + "c"}));
    EXPECT_EQ(Source("a\r" + longTalk + "\nc\n").Rest(), (Texts{one + "a\r" + longTalk, two + "c"}))
        << "no log";
}

TEST(Sources, WholeStreamThatHasEndedIsAnInput) {
    Trickle buffer({});
    buffer.hasCome = true;
    std::istream in(&buffer);
    Inputs inputs({c_none, c_none, in}, Inputs::Cut::Whole);
    Input input;
    EXPECT_TRUE(inputs.IsReady());
    ASSERT_TRUE(inputs.Next(input));
    EXPECT_EQ(input.text, "");
    EXPECT_FALSE(inputs.Next(input));
}

TEST(Sources, AreReadyWhereNothingIsToBeWaitedFor) {
    Trickle buffer({"a\nb\n", "c\n"});
    std::istream in(&buffer);
    const Texts arguments = {"-", "x"};
    Inputs inputs({arguments, c_none, in}, Inputs::Cut::Lines);
    Input input;
    EXPECT_FALSE(inputs.IsReady()) << "nothing has come";
    ASSERT_TRUE(inputs.Next(input));
    EXPECT_EQ(input.text, "a");
    EXPECT_TRUE(inputs.IsReady()) << "the second line has come with the first";
    ASSERT_TRUE(inputs.Next(input));
    EXPECT_FALSE(inputs.IsReady());
    buffer.hasCome = true;
    EXPECT_TRUE(inputs.IsReady());
    ASSERT_TRUE(inputs.Next(input));
    EXPECT_EQ(input.text, "c");
    EXPECT_FALSE(inputs.IsReady()) << "more may come";
    buffer.hasCome = true;
    EXPECT_TRUE(inputs.IsReady()) << "the end has come, and then the argument";
    ASSERT_TRUE(inputs.Next(input));
    EXPECT_EQ(input.text, "x");
    EXPECT_TRUE(inputs.IsReady()) << "that there is none can be told";
    EXPECT_FALSE(inputs.Next(input));
}

} // namespace
