// Where the parts of messages came from, how many are held, and which messages status reports are about.
#include <gtest/gtest.h>

#include "commands/Join.h"
#include "support/Octets.h"

namespace {

using qxpdu::Input;
using qxpdu::PartJoiner;
using qxpdu::SentMessages;
using ReadPart = std::shared_ptr<const show::ComparedMessage>;

/// In UCS2, of two parts under a reference of 16 bits.
ReadPart Part(unsigned int reference, unsigned int number, const std::string& unit,
              const std::string& sender = "0B912143658709F1") {
    const auto pair = [](unsigned int value) { return tests::Hex({static_cast<unsigned char>(value)}); };
    auto read = std::make_shared<show::ComparedMessage>();
    read->message.reading =
        Messages::ReadHex("079121436587092144" + sender + "00082120312143658009060804" +
                          pair(reference >> 8U) + pair(reference & 0xFFU) + "02" + pair(number) + unit);
    return read;
}

Input Line(std::size_t number, std::string_view file = {}) {
    return {Input::Source::Line, number, {}, std::nullopt, file};
}

/// "line 1, line 2", of a message the inputs of its parts.
std::string SourcesOf(const show::JoinedMessage& message) {
    std::string sources;
    for (const show::JoinedPart& part : message.parts)
        sources += (sources.empty() ? "" : ", ") + part.source;
    return sources;
}

TEST(PartJoiner, NamesWhereEachPartStood) {
    PartJoiner joiner;
    EXPECT_TRUE(joiner.Take(Line(3), Part(1, 2, "0062")).messages.empty());
    const auto whole = joiner.Take({Input::Source::Argument, 1, {}}, Part(1, 1, "0061"));
    ASSERT_EQ(whole.messages.size(), 1U);
    EXPECT_EQ(whole.messages[0].content.text, "ab");
    EXPECT_EQ(SourcesOf(whole.messages[0]), "argument 1, line 3");
    EXPECT_TRUE(whole.messages[0].parts[0].isArgument);
    EXPECT_FALSE(whole.messages[0].parts[1].isArgument);
    joiner.Take(Line(7, "a.log"), Part(2, 1, "0061"));
    const auto rest = joiner.Take(Line(7, "b.log"), Part(2, 2, "0062"));
    EXPECT_EQ(SourcesOf(rest.messages.at(0)), "a.log: line 7, b.log: line 7");
    EXPECT_EQ(rest.messages.at(0).parts[1].file, "b.log");
    EXPECT_EQ(joiner.Take(Line(8, "b.log"), Part(2, 1, "0061")).duplicateOf, "a.log: line 7");
    EXPECT_EQ(joiner.Take(Line(9), Part(1, 1, "0061")).duplicateOf, "argument 1");
    EXPECT_TRUE(joiner.TakeRest().empty());
}

TEST(PartJoiner, TellsPartsOfOneLineApart) {
    PartJoiner joiner;
    const ReadPart a = Part(1, 1, "0061");
    const ReadPart b = Part(2, 1, "0061");
    const ReadPart c = Part(2, 2, "0061");
    joiner.Take(Line(1), a);
    joiner.Take(Line(1), b);
    EXPECT_EQ(joiner.Take(Line(1), b).duplicateOf, "line 1");
    const auto whole = joiner.Take(Line(1), c);
    ASSERT_EQ(whole.messages.size(), 1U);
    EXPECT_EQ(whole.messages[0].parts[0].message, b);
    EXPECT_EQ(whole.messages[0].parts[1].message, c);
    EXPECT_EQ(joiner.TakeRest().at(0).parts[0].message, a);
}

TEST(PartJoiner, TellsPartsOfOneLineApartByTheirSenders) {
    const std::string another = "0B912143658709F2";
    PartJoiner joiner;
    joiner.Take(Line(1), Part(1, 1, "0061"));
    const ReadPart first = Part(1, 1, "0061", another);
    joiner.Take(Line(1), first);
    const auto whole = joiner.Take(Line(1), Part(1, 2, "0062", another));
    ASSERT_EQ(whole.messages.size(), 1U);
    EXPECT_EQ(whole.messages[0].parts[0].message, first);
}

TEST(PartJoiner, TellsPartsOfOneLineApartThatHaveNoSender) {
    const auto report = [](unsigned int number) {
        auto read = std::make_shared<show::ComparedMessage>(*Part(1, number, "0061"));
        Messages::DeliverReport withoutSender;
        withoutSender.coding = *Messages::CodingOf(read->message.reading.tpdu);
        withoutSender.userData = *Messages::UserDataOf(read->message.reading.tpdu);
        read->message.reading.tpdu = withoutSender;
        return read;
    };
    PartJoiner joiner;
    const ReadPart second = report(2);
    joiner.Take(Line(1), second);
    const auto whole = joiner.Take(Line(1), report(1));
    ASSERT_EQ(whole.messages.size(), 1U);
    EXPECT_EQ(whole.messages[0].parts[1].message, second);
}

TEST(PartJoiner, TellsPartsOfOneLineApartByTheirTypes) {
    const auto sent = [](unsigned int number) {
        auto read = std::make_shared<show::ComparedMessage>(*Part(1, number, "0061"));
        const auto received = std::get<Messages::Deliver>(read->message.reading.tpdu);
        Messages::Submit submit;
        submit.destination = received.originator;
        submit.coding = received.coding;
        submit.userData = received.userData;
        read->message.reading.tpdu = submit;
        read->message.reading.direction = Messages::Direction::FromMobile;
        return read;
    };
    PartJoiner joiner;
    joiner.Take(Line(1), Part(1, 1, "0061"));
    const ReadPart first = sent(1);
    joiner.Take(Line(1), first);
    const auto whole = joiner.Take(Line(1), sent(2));
    ASSERT_EQ(whole.messages.size(), 1U);
    EXPECT_EQ(whole.messages[0].parts[0].message, first);
}

TEST(PartJoiner, GivesUpTheOldestMessageAndKeepsNothingOfIt) {
    const ReadPart part = Part(0, 1, "0061");
    PartJoiner joiner;
    joiner.Take(Line(1), part);
    EXPECT_EQ(part.use_count(), 2);
    for (unsigned int i = 1; i < 4096; ++i)
        EXPECT_TRUE(joiner.Take(Line(i + 1), Part(i, 1, "0061")).messages.empty());
    const auto taken = joiner.Take(Line(4097), Part(4096, 1, "0061"));
    ASSERT_EQ(taken.messages.size(), 1U);
    EXPECT_EQ(SourcesOf(taken.messages[0]), "line 1");
    EXPECT_EQ(part.use_count(), 2) << "of what was given up";
    EXPECT_EQ(joiner.TakeRest().size(), 4096U);
}

TEST(PartJoiner, KeepsNothingOfCompleteMessagesButTheirNames) {
    PartJoiner joiner;
    for (unsigned int i = 0; i < 5000; ++i) {
        const ReadPart first = Part(i, 1, "0061");
        const ReadPart second = Part(i, 2, "0062");
        joiner.Take(Line(2 * i + 1), first);
        ASSERT_EQ(joiner.Take(Line(2 * i + 2), second).messages.size(), 1U);
        ASSERT_EQ(first.use_count(), 1);
        ASSERT_EQ(second.use_count(), 1);
    }
    EXPECT_EQ(joiner.Take(Line(10001), Part(4999, 1, "0061")).duplicateOf, "line 9999");
    EXPECT_TRUE(joiner.TakeRest().empty());
}

TEST(PartJoiner, GapsSayWhatIsMissing) {
    PartJoiner joiner;
    joiner.Take(Line(1), Part(1, 2, "00E9"));
    joiner.Take(Line(2), Part(2, 1, "00E9"));
    const auto rest = joiner.TakeRest();
    ASSERT_EQ(rest.size(), 2U);
    ASSERT_EQ(rest[0].content.gaps.size(), 1U);
    EXPECT_EQ(rest[0].content.gaps[0].characters, 0U);
    EXPECT_EQ(rest[0].content.gaps[0].missing, std::vector<int>{1});
    EXPECT_EQ(rest[1].content.gaps[0].characters, 1U) << "of two octets";
    EXPECT_EQ(rest[1].content.gaps[0].missing, std::vector<int>{2});
    EXPECT_TRUE(rest[1].hasWideReference);
    EXPECT_EQ(rest[1].reference, 2);
    EXPECT_EQ(rest[1].total, 2);
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
    for (int i = 0; i < 4098; ++i)
        sent.Add("+1", i, {1, {}});
    EXPECT_FALSE(sent.Find("+1", 0));
    EXPECT_FALSE(sent.Find("+1", 1));
    EXPECT_TRUE(sent.Find("+1", 2));
    EXPECT_TRUE(sent.Find("+1", 4097));
}

TEST(SentMessages, MessageThatGoesOutAgainIsTheNewest) {
    SentMessages sent;
    for (const int reference : {0, 1, 0})
        sent.Add("+1", reference, {1, {}});
    for (int i = 2; i < 4097; ++i)
        sent.Add("+1", i, {1, {}});
    EXPECT_TRUE(sent.Find("+1", 0));
    EXPECT_FALSE(sent.Find("+1", 1));
    EXPECT_TRUE(sent.Find("+1", 2));
}

TEST(SentMessages, PlusSignMakesNoDifference) {
    SentMessages sent;
    sent.Add("+12", 1, {1, {}});
    sent.Add("12", 2, {1, {}});
    EXPECT_TRUE(sent.Find("12", 1));
    EXPECT_TRUE(sent.Find("+12", 2));
    EXPECT_FALSE(sent.Find("2", 1));
}

} // namespace
