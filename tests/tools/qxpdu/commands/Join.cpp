// What is held of concatenated messages, and how long.
#include <gtest/gtest.h>

#include "commands/Join.h"

namespace {

using qxpdu::ConcatenationKey;
using qxpdu::Concatenations;
using qxpdu::MessagePart;
using qxpdu::PartContent;
using qxpdu::SentMessages;

ConcatenationKey Key(int reference) {
    return {0, "+1", true, reference, 2};
}

/// In the default alphabet, where letters are their own codes.
PartContent Septets(std::string_view text) {
    return {Messages::Alphabet::Gsm7, {}, {text.begin(), text.end()}};
}

TEST(Concatenations, OldestMessageGoesWhenTooManyPartsWait) {
    Concatenations concatenations;
    for (int i = 0; i < 4096; ++i)
        EXPECT_TRUE(concatenations.Take(Key(i), 1, {"line", 1, Septets("a"), ""}).messages.empty());
    const auto taken = concatenations.Take(Key(4096), 1, {"line", 1, Septets("a"), ""});
    ASSERT_EQ(taken.messages.size(), 1U);
    EXPECT_EQ(taken.messages[0].key.reference, 0);
    EXPECT_EQ(concatenations.TakeOldest()->key.reference, 1);
}

TEST(Concatenations, PartsOfCompleteMessagesNoLongerWait) {
    Concatenations concatenations;
    for (int i = 0; i < 5000; ++i) {
        EXPECT_TRUE(concatenations.Take(Key(i), 2, {"line", 1, Septets("b"), ""}).messages.empty());
        EXPECT_EQ(concatenations.Take(Key(i), 1, {"line", 1, Septets("a"), ""}).messages.at(0).Content().text,
                  "ab");
    }
    EXPECT_FALSE(concatenations.TakeOldest());
}

TEST(Concatenations, OtherTextUnderTheSameNumberBeginsANewMessage) {
    Concatenations concatenations;
    concatenations.Take(Key(1), 1, {"line 1", 1, Septets("a"), ""});
    const auto taken = concatenations.Take(Key(1), 1, {"line 2", 2, Septets("b"), ""});
    EXPECT_FALSE(taken.duplicateOf);
    ASSERT_EQ(taken.messages.size(), 1U);
    EXPECT_EQ(taken.messages[0].Content().text, "a");
    EXPECT_EQ(concatenations.TakeOldest()->Content().text, "b");
}

TEST(Concatenations, SameTextOfAnotherTimeBeginsANewMessageOnceTheOldOneIsComplete) {
    Concatenations concatenations;
    concatenations.Take(Key(1), 1, {"line 1", 1, Septets("a"), "10:00"});
    EXPECT_EQ(concatenations.Take(Key(1), 1, {"line 2", 2, Septets("a"), "10:01"}).duplicateOf, "line 1");
    EXPECT_EQ(
        concatenations.Take(Key(1), 2, {"line 3", 3, Septets("b"), "10:00"}).messages.at(0).Content().text,
        "ab");
    EXPECT_EQ(concatenations.Take(Key(1), 1, {"line 4", 4, Septets("a"), "10:00"}).duplicateOf, "line 1");
    EXPECT_FALSE(concatenations.Take(Key(1), 1, {"line 5", 5, Septets("a"), "12:00"}).duplicateOf);
    EXPECT_EQ(
        concatenations.Take(Key(1), 2, {"line 6", 6, Septets("c"), "12:00"}).messages.at(0).Content().text,
        "ac");
}

/// Each part shares a message, of which is counted who keeps it.
TEST(Concatenations, KeepNoMoreInMemoryThanTheirPartsOfEachKind) {
    const auto message = std::make_shared<const show::ComparedMessage>();
    const auto take = [&message](Concatenations& concatenations, int reference, int number) {
        concatenations.Take(Key(reference), number, {"line", 1, Septets("a"), "", message});
    };
    Concatenations open;
    for (int i = 0; i < 5000; ++i)
        take(open, i, 1);
    EXPECT_EQ(message.use_count(), 1 + 4096);
    open = {};
    Concatenations complete;
    for (int i = 0; i < 3000; ++i) {
        take(complete, i, 1);
        take(complete, i, 2);
    }
    EXPECT_EQ(message.use_count(), 1 + 4096);
    for (int i = 0; i < 5000; ++i)
        take(complete, 3000 + i, 1);
    EXPECT_EQ(message.use_count(), 1 + 4096 + 4096);
}

/// The text of three parts, of which those that are empty have not come.
std::string JoinedText(const std::vector<PartContent>& contents) {
    Concatenations concatenations;
    ConcatenationKey key = Key(1);
    key.total = 4; // so that it stays incomplete
    for (std::size_t i = 0; i < contents.size(); ++i) {
        if (!contents[i].units.empty())
            concatenations.Take(key, static_cast<int>(i) + 1, {"line", 1, contents[i], ""});
    }
    return concatenations.TakeOldest()->Content().text;
}

TEST(Concatenations, EscapeOfAPartIsHealedOnlyByTheNextPart) {
    EXPECT_EQ(JoinedText({Septets("a\x1B"), Septets("e")}), "a\u20AC");
    EXPECT_EQ(JoinedText({Septets("a\x1B"), {}, Septets("e")}), "ae");
    EXPECT_EQ(JoinedText({Septets("a\x1B"), Septets("\x1B"
                                                    "e")}),
              "a\u20AC")
        << "networks send it twice";
    EXPECT_EQ(JoinedText({Septets("a\x1B\x1B"), Septets("e")}), "a e") << "two escapes are a space";
}

TEST(Concatenations, PartsOfOtherTablesAreReadWithTheirOwn) {
    PartContent turkish = Septets("\x1B");
    turkish.tables.single = Messages::Language::Turkish;
    PartContent more = Septets("S");
    EXPECT_EQ(JoinedText({turkish, more}), "S");
    more.tables.single = Messages::Language::Turkish;
    EXPECT_EQ(JoinedText({turkish, more}), "\u015E");
}

TEST(Concatenations, HalvesOfACharacterAreJoinedAcrossParts) {
    const PartContent high{Messages::Alphabet::Ucs2, {}, {0xD8, 0x3D}};
    const PartContent low{Messages::Alphabet::Ucs2, {}, {0xDE, 0x00}};
    EXPECT_EQ(JoinedText({high, low}), "\U0001F600");
    EXPECT_EQ(JoinedText({high, {}, low}), "\uFFFD\uFFFD");
    EXPECT_EQ(JoinedText({high, Septets("a"), low}), "\uFFFD"
                                                     "a"
                                                     "\uFFFD");
}

TEST(SentMessages, LastMessageUnderAReferenceIsFound) {
    SentMessages sent;
    sent.Add("+1", 7, {1, {}});
    sent.Add("+1", 7, {2, "a.log"});
    ASSERT_TRUE(sent.Find("+1", 7));
    EXPECT_EQ(sent.Find("+1", 7)->number, 2U);
    EXPECT_EQ(sent.Find("+1", 7)->file, "a.log");
    EXPECT_FALSE(sent.Find("+2", 7));
    EXPECT_FALSE(sent.Find("+1", 8));
}

TEST(SentMessages, OldestIsForgotten) {
    SentMessages sent;
    for (int i = 0; i < 4097; ++i)
        sent.Add("+1", i, {1, {}});
    EXPECT_FALSE(sent.Find("+1", 0));
    EXPECT_TRUE(sent.Find("+1", 1));
    EXPECT_TRUE(sent.Find("+1", 4096));
}

} // namespace
