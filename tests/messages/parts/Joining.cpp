// Parts joined: in any order, cut by any encoder, within limits.
#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "Messages/Parts.h"
#include "Messages/Write.h"

namespace {

using namespace Messages;

using Octets = std::vector<std::uint8_t>;

const Timestamp c_time = *MakeTimestamp(2026, 3, 14, 15, 9, 26);

/// As if it had been read.
Reading Delivered(const UserData& userData, const DataCoding& coding = {}, std::string_view from = "+12345",
                  const Timestamp& time = c_time) {
    Deliver deliver;
    EXPECT_FALSE(ToNumber(from, deliver.originator));
    deliver.timestamp = time;
    deliver.coding = coding;
    deliver.userData = userData;
    const Written written = Write(deliver);
    EXPECT_FALSE(written.fault);
    ReadOptions options;
    options.serviceCentre = Presence::No;
    options.direction = Direction::ToMobile;
    return Read(written.octets, options);
}

/// A part with septets, or with octets.
Reading Part(unsigned int reference, unsigned int total, unsigned int number, const Octets& content,
             std::uint8_t coding = 0) {
    const Octets header = {0x00, 0x03, static_cast<std::uint8_t>(reference), static_cast<std::uint8_t>(total),
                           static_cast<std::uint8_t>(number)};
    return Delivered(*MakeUserData(DataCoding(coding), header, content), DataCoding(coding));
}

Octets Septets(std::string_view text) {
    return {text.begin(), text.end()};
}

/// "complete 2/2 TEXT [TAGS]", messages with a semicolon between them.
std::string Shown(const std::vector<Joined>& all) {
    static constexpr const char* outcomes[] = {"complete",  "duplicate", "replaced",
                                               "timed out", "displaced", "finished"};
    std::string shown;
    for (const Joined& one : all) {
        shown += (shown.empty() ? "" : "; ") + std::string(outcomes[static_cast<int>(one.outcome)]) + ' ' +
                 std::to_string(one.parts.size()) + '/' + std::to_string(one.total) + ' ' + one.text +
                 ToHex(one.data) + " [";
        for (const JoinedPart& part : one.parts)
            shown += (shown.back() == '[' ? "" : " ") + std::to_string(part.tag);
        shown += ']';
    }
    return shown;
}

TEST(Joiner, HandsBackAtOnceWhatIsNoPart) {
    Joiner joiner;
    EXPECT_EQ(Shown(joiner.Add(Delivered(CutIntoParts("Hello").parts[0]), 0, 7)), "complete 1/1 Hello [7]");
    Reading report;
    report.tpdu = DeliverReport{};
    EXPECT_EQ(Shown(joiner.Add(report, 0, 8)), "complete 1/1  [8]");
    EXPECT_EQ(Shown(joiner.Finish()), "");
}

TEST(Joiner, JoinsInWhateverOrderPartsCome) {
    Joiner joiner;
    EXPECT_EQ(Shown(joiner.Add(Part(1, 3, 3, Septets("!")), 0, 30)), "");
    EXPECT_EQ(Shown(joiner.Add(Part(1, 3, 1, Septets("Hel")), 0, 10)), "");
    EXPECT_EQ(Shown(joiner.Add(Part(1, 3, 2, Septets("lo")), 0, 20)), "complete 3/3 Hello! [10 20 30]");
    EXPECT_EQ(Shown(joiner.Finish()), "");
}

TEST(Joiner, KeepsApartWhatHasAnotherKey) {
    Joiner joiner;
    joiner.Add(Part(1, 2, 1, Septets("a")), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(2, 2, 2, Septets("b")), 0)), "") << "the reference";
    EXPECT_EQ(Shown(joiner.Add(Part(1, 3, 2, Septets("b")), 0)), "") << "the total";
    const UserData second = *MakeUserData(DataCoding(0), Octets{0, 3, 1, 2, 2}, Septets("b"));
    EXPECT_EQ(Shown(joiner.Add(Delivered(second, {}, "+54321"), 0)), "") << "the number";
    EXPECT_EQ(Shown(joiner.Add(Delivered(second, {}, "12345"), 0)), "") << "its type";
    const UserData wide = *MakeUserData(DataCoding(0), Octets{8, 4, 0, 1, 2, 2}, Septets("b"));
    EXPECT_EQ(Shown(joiner.Add(Delivered(wide), 0)), "") << "the width";
    Reading sent = Delivered(second);
    sent.direction = Direction::FromMobile;
    EXPECT_EQ(Shown(joiner.Add(sent, 0)), "") << "the direction";
    EXPECT_EQ(Shown(joiner.Add(Delivered(second), 0)), "complete 2/2 ab [0 0]");
    EXPECT_EQ(joiner.Finish().size(), 6U);
}

TEST(Joiner, HealsPairsThatWereCut) {
    Joiner joiner;
    joiner.Add(Part(1, 2, 1, {0x61, 0x1B}), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(1, 2, 2, {0x65, 0x62}), 0)), "complete 2/2 a€b [0 0]");
    joiner.Add(Part(2, 2, 1, {0x61, 0x1B}), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(2, 2, 2, {0x1B, 0x65, 0x62}), 0)), "complete 2/2 a€b [0 0]")
        << "the escape came twice";
    joiner.Add(Part(3, 2, 1, {0x61, 0x1B, 0x1B}), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(3, 2, 2, {0x1B, 0x65}), 0)), "complete 2/2 a € [0 0]")
        << "two escapes are a pair of their own";
    joiner.Add(Part(4, 2, 1, {0xD8, 0x3D}, 8), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(4, 2, 2, {0xDE, 0x00, 0x00, 0x41}, 8), 0)), "complete 2/2 😀A [0 0]");
    joiner.Add(Part(5, 2, 1, {0x00, 0x41, 0x00}, 8), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(5, 2, 2, {0x00, 0x42}, 8), 0)), "complete 2/2 AB [0 0]")
        << "half a unit is passed over";
}

TEST(Joiner, DecodesApartWhatIsWrittenOtherwise) {
    Joiner joiner;
    joiner.Add(Part(1, 3, 1, {0x61, 0x1B}), 0);
    joiner.Add(Part(1, 3, 2, {0x00, 0x42}, 8), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(1, 3, 3, {0xAB, 0xCD}, 4), 0)), "complete 3/3 aBABCD [0 0 0]");
    const Octets turkish = {0, 3, 2, 2, 1, 0x25, 1, 1};
    joiner.Add(Delivered(*MakeUserData(DataCoding(0), turkish, Octets{0x1D})), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(2, 2, 2, {0x1D}), 0)), "complete 2/2 şæ [0 0]");
    joiner.Add(Part(3, 3, 1, {0x61, 0x1B}), 0);
    joiner.Add(Part(3, 3, 3, {0x65}), 0);
    EXPECT_EQ(Shown(joiner.Finish()), "finished 2/3 ae [0 0]") << "a part is missing between them";
}

TEST(Joiner, TellsDuplicates) {
    Joiner joiner;
    joiner.Add(Part(1, 2, 1, Septets("a")), 0, 1);
    EXPECT_EQ(Shown(joiner.Add(Part(1, 2, 1, Septets("a")), 0, 2)), "duplicate 1/2 a [2]");
    EXPECT_EQ(Shown(joiner.Add(Part(1, 2, 2, Septets("b")), 0, 3)), "complete 2/2 ab [1 3]");
    EXPECT_EQ(Shown(joiner.Add(Part(1, 2, 2, Septets("b")), 0, 4)), "duplicate 1/2 b [4]")
        << "afterwards too";
    const UserData again = *MakeUserData(DataCoding(0), Octets{0, 3, 1, 2, 2}, Septets("b"));
    const Timestamp later = *MakeTimestamp(2026, 3, 14, 15, 9, 27);
    EXPECT_EQ(Shown(joiner.Add(Delivered(again, {}, "+12345", later), 0, 5)), "")
        << "of another time it begins a new message";
    EXPECT_EQ(Shown(joiner.Finish()), "finished 1/2 b [5]");
}

TEST(Joiner, NamesThePartThatADuplicateIsOf) {
    Joiner joiner;
    joiner.Add(Part(1, 3, 2, Septets("a")), 0, 7);
    joiner.Add(Part(1, 3, 1, Septets("a")), 0, 8);
    const std::vector<Joined> again = joiner.Add(Part(1, 3, 2, Septets("a")), 0, 9);
    ASSERT_EQ(again.size(), 1U);
    EXPECT_EQ(again[0].before, 7U);
    EXPECT_TRUE(again[0].gaps.empty());
    joiner.Add(Part(1, 3, 3, Septets("a")), 0, 10);
    EXPECT_EQ(joiner.Add(Part(1, 3, 1, Septets("a")), 0, 11).at(0).before, 8U) << "of a complete one too";
}

/// "1-2 at 0/0", of each gap the numbers and the offsets in text and data.
std::string GapsOf(const Joined& joined) {
    std::string gaps;
    for (const JoinedGap& gap : joined.gaps)
        gaps += (gaps.empty() ? "" : ", ") + std::to_string(gap.first) + '-' + std::to_string(gap.last) +
                " at " + std::to_string(gap.textOffset) + '/' + std::to_string(gap.dataOffset);
    return gaps;
}

TEST(Joiner, TellsWhereWhatHasNotComeBelongs) {
    Joiner joiner;
    joiner.Add(Part(1, 9, 3, {0x61, 0x65, 0x1B}), 0); // with half a pair
    joiner.Add(Part(1, 9, 4, {0x65}), 0);
    joiner.Add(Part(1, 9, 6, {0xAB, 0xCD}, 4), 0);
    joiner.Add(Part(1, 9, 7, {0x62}), 0);
    const std::vector<Joined> all = joiner.Finish();
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].text, "ae€b");
    EXPECT_EQ(GapsOf(all[0]), "1-2 at 0/0, 5-5 at 5/0, 8-9 at 6/2");
    joiner.Add(Part(2, 2, 1, Septets("a")), 0);
    EXPECT_EQ(GapsOf(joiner.Add(Part(2, 2, 2, Septets("b")), 0).at(0)), "");
    EXPECT_EQ(GapsOf(joiner.Add(Delivered(CutIntoParts("Hello").parts[0]), 0).at(0)), "");
    Reading report;
    report.tpdu = DeliverReport{};
    EXPECT_EQ(GapsOf(joiner.Add(report, 0).at(0)), "");
    joiner.Add(Part(3, 255, 1, Septets("a")), 0);
    EXPECT_EQ(GapsOf(joiner.Finish().at(0)), "2-255 at 1/0");
    joiner.Add(Part(4, 3, 1, {0xD8, 0x3D}, 8), 0);
    joiner.Add(Part(4, 3, 3, {0xDE, 0x00}, 8), 0);
    EXPECT_EQ(Shown(joiner.Finish()), "finished 2/3 \uFFFD\uFFFD [0 0]") << "nothing is healed across a gap";
}

TEST(Joiner, CopyGoesOnByItself) {
    Joiner joiner(JoinLimits{2, 1000, 60});
    joiner.Add(Part(1, 2, 1, Septets("a")), 0, 1);
    joiner.Add(Part(2, 2, 1, Septets("b")), 0, 2);
    Joiner copy = joiner;
    EXPECT_EQ(joiner.Finish().size(), 2U);
    EXPECT_EQ(Shown(copy.Add(Part(3, 2, 1, Septets("c")), 0, 3)), "displaced 1/2 a [1]");
    EXPECT_EQ(Shown(copy.Add(Part(2, 2, 2, Septets("B")), 0, 4)), "complete 2/2 bB [2 4]");
}

TEST(Joiner, APartWithOtherOctetsBeginsANewMessage) {
    Joiner joiner;
    joiner.Add(Part(1, 2, 1, Septets("a")), 0, 1);
    EXPECT_EQ(Shown(joiner.Add(Part(1, 2, 1, Septets("x")), 0, 2)), "replaced 1/2 a [1]");
    EXPECT_EQ(Shown(joiner.Add(Part(1, 2, 2, Septets("b")), 0, 3)), "complete 2/2 xb [2 3]");
    EXPECT_EQ(Shown(joiner.Add(Part(1, 2, 2, Septets("c")), 0, 4)), "") << "the whole one was handed back";
    EXPECT_EQ(Shown(joiner.Finish()), "finished 1/2 c [4]");
}

TEST(Joiner, GivesUpWhatHasWaitedTooLong) {
    Joiner joiner(JoinLimits{10, 1000, 60});
    joiner.Add(Part(1, 2, 1, Septets("a")), 100, 1);
    joiner.Add(Part(2, 2, 1, Septets("b")), 130, 2);
    EXPECT_EQ(Shown(joiner.Expire(160)), "") << "60 seconds are not too long";
    EXPECT_EQ(Shown(joiner.Expire(161)), "timed out 1/2 a [1]");
    EXPECT_EQ(Shown(joiner.Add(Part(3, 2, 1, Septets("c")), 191, 3)), "timed out 1/2 b [2]");
    EXPECT_EQ(Shown(joiner.Expire(-5)), "") << "a clock that goes back";
    EXPECT_EQ(Shown(joiner.Expire(INT64_MAX)), "timed out 1/2 c [3]");
}

TEST(Joiner, HoldsSoManyMessages) {
    Joiner joiner(JoinLimits{2, 1000, 60});
    joiner.Add(Part(1, 2, 1, Septets("a")), 0, 1);
    joiner.Add(Part(2, 2, 1, Septets("b")), 0, 2);
    EXPECT_EQ(Shown(joiner.Add(Part(3, 2, 1, Septets("c")), 0, 3)), "displaced 1/2 a [1]");
    EXPECT_EQ(Shown(joiner.Add(Part(2, 2, 2, Septets("B")), 0, 4)), "complete 2/2 bB [2 4]");
    EXPECT_EQ(Shown(joiner.Add(Part(4, 2, 1, Septets("d")), 0, 5)), "") << "the whole one goes first";
    EXPECT_EQ(Shown(joiner.Finish()), "finished 1/2 c [3]; finished 1/2 d [5]");
    joiner.Add(Part(1, 2, 1, Septets("a")), 0, 6);
    joiner.Add(Part(2, 1, 1, Septets("b")), 0, 7);
    EXPECT_EQ(Shown(joiner.Add(Part(3, 2, 1, Septets("c")), 0, 8)), "") << "though it began later";
    EXPECT_EQ(Shown(joiner.Finish()), "finished 1/2 a [6]; finished 1/2 c [8]");
}

TEST(Joiner, HoldsSoManyOctets) {
    // Each part has 6 octets of header and 1 of text.
    Joiner joiner(JoinLimits{10, 14, 60});
    joiner.Add(Part(1, 3, 1, Septets("a")), 0, 1);
    joiner.Add(Part(1, 3, 2, Septets("b")), 0, 2);
    EXPECT_EQ(Shown(joiner.Add(Part(2, 2, 1, Septets("c")), 0, 3)), "displaced 2/3 ab [1 2]");
    EXPECT_EQ(Shown(joiner.Finish()), "finished 1/2 c [3]");
    Joiner none(JoinLimits{0, 0, 0});
    EXPECT_EQ(Shown(none.Add(Part(1, 2, 1, Septets("a")), 0, 1)), "displaced 1/2 a [1]");
}

TEST(Joiner, GetsBackWhatWasCut) {
    std::mt19937 random(20261122); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time
    const auto below = [&](unsigned int bound) { return static_cast<unsigned int>(random() % bound); };
    const std::vector<std::string_view> characters = {"a", "€", "ş", "न", "😀", "é", "[", "Á"};
    Joiner joiner;
    for (unsigned int round = 0; round < 300; ++round) {
        std::string text;
        const auto kinds = 1 + below(static_cast<unsigned int>(characters.size()));
        for (auto length = below(600); length != 0; --length)
            text += characters[below(kinds)];
        CutOptions options;
        options.choice.languages = below(2) == 0 ? Languages() : Languages::All();
        options.choice.room.hasWideReference = below(2) == 0;
        options.reference = static_cast<std::uint16_t>(round % 256);
        const CutText cut = CutIntoParts(text, options);
        ASSERT_FALSE(cut.fault);
        std::vector<UserData> parts = cut.parts;
        std::shuffle(parts.begin(), parts.end(), random);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const std::vector<Joined> joined = joiner.Add(Delivered(parts[i], cut.coding), round);
            if (i + 1 < parts.size()) {
                ASSERT_TRUE(joined.empty() || joined[0].outcome == JoinOutcome::Replaced);
                continue;
            }
            ASSERT_EQ(joined.size(), 1U);
            ASSERT_EQ(joined[0].outcome, JoinOutcome::Complete);
            ASSERT_EQ(joined[0].text, text);
        }
    }
}

TEST(Joiner, JoinsEveryType) {
    Joiner joiner;
    const auto data = [](std::uint8_t number, std::uint8_t coding) {
        return *MakeUserData(DataCoding(coding), Octets{0, 3, 9, 2, number}, Octets{0x41});
    };
    Reading reading;
    reading.direction = Direction::FromMobile;
    Command command;
    command.data = data(1, 4);
    reading.tpdu = command;
    joiner.Add(reading, 0);
    command.data = data(2, 4);
    reading.tpdu = command;
    EXPECT_EQ(Shown(joiner.Add(reading, 0)), "complete 2/2 4141 [0 0]");
    EXPECT_EQ(Shown(joiner.Add(reading, 0)), "duplicate 1/2 41 [0]") << "it has no time";
    DeliverReport report;
    report.userData = data(1, 0);
    Reading acknowledgement;
    acknowledgement.tpdu = report;
    joiner.Add(acknowledgement, 0);
    EXPECT_EQ(Shown(joiner.Finish()), "finished 1/2 A [0]");
    const UserData part = data(1, 0);
    joiner.Add(Delivered(part), 0);
    joiner.Add(Delivered(data(2, 0)), 0);
    Submit submit;
    ToNumber("+12345", submit.destination);
    submit.userData = part;
    Reading sent;
    sent.direction = Direction::ToMobile;
    sent.tpdu = submit;
    EXPECT_EQ(Shown(joiner.Add(sent, 0)), "duplicate 1/2 A [0]");
}

TEST(Joiner, KeepsTheOctetsOfCompressedText) {
    Joiner joiner;
    joiner.Add(Part(1, 3, 1, {0x41}), 0);
    joiner.Add(Part(1, 3, 2, {0x12}, 0x20), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(1, 3, 3, {0x34}, 0x28), 0)), "complete 3/3 A1234 [0 0 0]");
    joiner.Add(Part(2, 2, 1, {}), 0);
    EXPECT_EQ(Shown(joiner.Add(Part(2, 2, 2, {0x41}), 0)), "complete 2/2 A [0 0]") << "nothing in the first";
}

} // namespace
