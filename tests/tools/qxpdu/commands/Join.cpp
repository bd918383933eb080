// What is held of concatenated messages, and how long.
#include <gtest/gtest.h>

#include "commands/Join.h"

namespace {

using qxpdu::ConcatenationKey;
using qxpdu::Concatenations;
using qxpdu::MessagePart;
using qxpdu::SentMessages;

ConcatenationKey Key(int reference) {
    return {0, "+1", true, reference, 2};
}

TEST(Concatenations, OldestMessageGoesWhenTooManyPartsWait) {
    Concatenations concatenations;
    for (int i = 0; i < 4096; ++i)
        EXPECT_TRUE(concatenations.Take(Key(i), 1, {"line", 1, L"a", ""}).messages.empty());
    const auto taken = concatenations.Take(Key(4096), 1, {"line", 1, L"a", ""});
    ASSERT_EQ(taken.messages.size(), 1U);
    EXPECT_EQ(taken.messages[0].key.reference, 0);
    EXPECT_EQ(concatenations.TakeOldest()->key.reference, 1);
}

TEST(Concatenations, PartsOfCompleteMessagesNoLongerWait) {
    Concatenations concatenations;
    for (int i = 0; i < 5000; ++i) {
        EXPECT_TRUE(concatenations.Take(Key(i), 2, {"line", 1, L"b", ""}).messages.empty());
        EXPECT_EQ(concatenations.Take(Key(i), 1, {"line", 1, L"a", ""}).messages.at(0).Text(), L"ab");
    }
    EXPECT_FALSE(concatenations.TakeOldest());
}

TEST(Concatenations, OtherTextUnderTheSameNumberBeginsANewMessage) {
    Concatenations concatenations;
    concatenations.Take(Key(1), 1, {"line 1", 1, L"a", ""});
    const auto taken = concatenations.Take(Key(1), 1, {"line 2", 2, L"b", ""});
    EXPECT_FALSE(taken.duplicateOf);
    ASSERT_EQ(taken.messages.size(), 1U);
    EXPECT_EQ(taken.messages[0].Text(), L"a");
    EXPECT_EQ(concatenations.TakeOldest()->Text(), L"b");
}

TEST(Concatenations, SameTextOfAnotherTimeBeginsANewMessageOnceTheOldOneIsComplete) {
    Concatenations concatenations;
    concatenations.Take(Key(1), 1, {"line 1", 1, L"a", "10:00"});
    EXPECT_EQ(concatenations.Take(Key(1), 1, {"line 2", 2, L"a", "10:01"}).duplicateOf, "line 1");
    EXPECT_EQ(concatenations.Take(Key(1), 2, {"line 3", 3, L"b", "10:00"}).messages.at(0).Text(), L"ab");
    EXPECT_EQ(concatenations.Take(Key(1), 1, {"line 4", 4, L"a", "10:00"}).duplicateOf, "line 1");
    EXPECT_FALSE(concatenations.Take(Key(1), 1, {"line 5", 5, L"a", "12:00"}).duplicateOf);
    EXPECT_EQ(concatenations.Take(Key(1), 2, {"line 6", 6, L"c", "12:00"}).messages.at(0).Text(), L"ac");
}

TEST(Concatenations, EscapeOfAPartIsHealedOnlyByTheNextPart) {
    Concatenations concatenations;
    ConcatenationKey key = Key(1);
    key.total = 3;
    concatenations.Take(key, 1, {"", 1, L"a", "", true, 0});
    concatenations.Take(key, 3, {"", 1, L"e", "", false, L'\u20AC'});
    EXPECT_EQ(concatenations.TakeOldest()->Text(), L"ae");
}

TEST(SentMessages, LastMessageUnderAReferenceIsFound) {
    SentMessages sent;
    sent.Add("+1", 7, 1);
    sent.Add("+1", 7, 2);
    EXPECT_EQ(sent.Find("+1", 7), 2U);
    EXPECT_FALSE(sent.Find("+2", 7));
    EXPECT_FALSE(sent.Find("+1", 8));
}

TEST(SentMessages, OldestIsForgotten) {
    SentMessages sent;
    for (int i = 0; i < 4097; ++i)
        sent.Add("+1", i, 1);
    EXPECT_FALSE(sent.Find("+1", 0));
    EXPECT_TRUE(sent.Find("+1", 1));
    EXPECT_TRUE(sent.Find("+1", 4096));
}

} // namespace
