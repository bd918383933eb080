// Characters that are looked at and copied many together give what each of them gives by itself, wherever
// others stand among them, and nothing after the end is read.
#include <gtest/gtest.h>

#include "Messages/Alphabet.h"
#include "support/Guarded.h"

namespace {

using namespace Messages;

using Octets = std::vector<std::uint8_t>;

constexpr std::size_t c_septets = 128;
constexpr std::uint8_t c_escape = 0x1B;

std::string TextOf(OctetView septets, SeptetTables tables) {
    std::string text;
    AppendSeptetText(septets, tables, text);
    return text;
}

/// Sixteen letters that stand where they do in ASCII, whatever the table, three times.
const Octets c_letters(48, 0x65);

TEST(Blocks, EachSeptetAtEachPlace) {
    for (std::size_t language = 0; language <= c_lastLanguage; ++language) {
        const SeptetTables tables{static_cast<Language>(language), Language::Default};
        const std::string letter = TextOf(Octets{c_letters[0]}, tables);
        for (std::uint8_t septet = 0; septet < c_septets; ++septet) {
            const std::string own = TextOf(Octets{septet}, tables);
            for (std::size_t place = 0; place < c_letters.size() && septet != c_escape; ++place) {
                Octets septets = c_letters;
                septets[place] = septet;
                std::string text;
                for (std::size_t i = 0; i < septets.size(); ++i)
                    text += i == place ? own : letter;
                ASSERT_EQ(TextOf(septets, tables), text) << language << ' ' << +septet << ' ' << place;
            }
        }
    }
}

TEST(Blocks, EachCharacterAtEachPlace) {
    for (std::size_t language = 0; language <= c_lastLanguage; ++language) {
        const SeptetTables tables{static_cast<Language>(language), Language::Default};
        for (int ascii = 0; ascii < 0x7F; ++ascii) {
            const auto character = static_cast<char>(ascii);
            Octets own;
            const bool isHeld = !AppendSeptets(std::string(1, character), tables, own);
            for (std::size_t place = 0; place < 40; ++place) {
                std::string text(40, ' '); // which all tables have
                text[place] = character;
                Octets expected(place, 0x20);
                expected.insert(expected.end(), own.begin(), own.end());
                expected.resize(own.size() + 39, 0x20);
                Octets septets;
                const auto misfit = AppendSeptets(text, tables, septets);
                ASSERT_EQ(misfit.has_value(), !isHeld);
                if (misfit)
                    ASSERT_EQ(misfit->offset, place);
                else
                    ASSERT_EQ(septets, expected) << language << ' ' << +character << ' ' << place;
            }
        }
    }
}

/// Around the lengths at which more of them are looked at together.
TEST(Blocks, OneOtherCharacterAtEachPlaceOfEachLength) {
    for (std::size_t length = 1; length <= 150; length += length < 60 || length > 84 ? 7 : 1)
        for (std::size_t place = 0; place < length; ++place) {
            std::string text(length, 'x');
            text[place] = '@';
            Octets expected(length, 0x78);
            expected[place] = 0x00;
            Octets septets;
            ASSERT_FALSE(AppendSeptets(text, {}, septets));
            ASSERT_EQ(septets, expected) << length << ' ' << place;
            ASSERT_EQ(TextOf(septets, {}), text) << length << ' ' << place;
        }
}

TEST(Blocks, OctetsThatAreNoCharactersAtEachPlace) {
    for (const int octet : {0x80, 0xA0, 0xC0, 0xC1, 0xE0, 0xEE, 0xF0, 0xF8, 0xFF})
        for (std::size_t place = 0; place < 40; ++place) {
            std::string text(40, 'a');
            text[place] = static_cast<char>(octet);
            Octets out;
            Choice choice;
            for (const auto& misfit :
                 {AppendSeptets(text, {}, out), AppendUcs2(text, out), Choose(text, {}, choice)}) {
                ASSERT_TRUE(misfit);
                EXPECT_EQ(misfit->offset, place);
                EXPECT_EQ(misfit->character, c_notUtf8);
            }
            EXPECT_TRUE(out.empty());
        }
}

TEST(Blocks, UnitsAndPartsOfATextWithOneOtherCharacter) {
    struct {
        const char* character;
        std::size_t septets;
        std::size_t units; ///< UTF-16; 0 where it is not needed
    } const others[] = {{"$", 1, 0}, {"@", 1, 0}, {"_", 1, 0},  {"`", 0, 1}, {"{", 2, 0},
                        {"é", 1, 0}, {"€", 2, 0}, {"中", 0, 1}, {"😀", 0, 2}};
    for (const auto& other : others)
        for (std::size_t place = 0; place < 40; ++place) {
            const std::string text = std::string(place, 'x') + other.character + std::string(39 - place, 'x');
            Choice choice;
            ASSERT_FALSE(Choose(text, {}, choice));
            EXPECT_EQ(choice.alphabet, other.units == 0 ? Alphabet::Gsm7 : Alphabet::Ucs2);
            EXPECT_EQ(choice.units, 39 + other.septets + other.units) << other.character << ' ' << place;
        }
}

TEST(Blocks, APartEndsWhereverAPairHasNoRoom) {
    // Of 153 septets; "{" takes two.
    for (std::size_t place = 140; place < 160; ++place) {
        const std::string text = std::string(place, 'x') + '{' + std::string(199 - place, 'x');
        Choice choice;
        ASSERT_FALSE(Choose(text, {}, choice));
        const std::size_t first = place <= 152 ? 152 : 153; // characters of the first part
        EXPECT_EQ(PartOffsets(text, choice, {}), (std::vector<std::size_t>{0, first})) << place;
    }
}

TEST(Blocks, OneOtherUnitAtEachPlaceOfUcs2) {
    const struct {
        Octets octets;
        std::string_view text;
    } others[] = {{{0x00, 0x00}, {"\0", 1}},
                  {{0x00, 0x41}, "A"},
                  {{0x00, 0xE9}, "é"},
                  {{0x07, 0xFF}, "\xDF\xBF"},
                  {{0x08, 0x00}, "\xE0\xA0\x80"},
                  {{0xD7, 0xFF}, "\xED\x9F\xBF"},
                  {{0xE0, 0x00}, "\xEE\x80\x80"},
                  {{0xFF, 0xFF}, "\xEF\xBF\xBF"},
                  {{0xD8, 0x3D, 0xDE, 0x00}, "😀"}};
    for (const auto& other : others)
        for (std::size_t place = 0; place <= 12; ++place) {
            Octets octets;
            std::string text;
            for (std::size_t i = 0; i <= 12; ++i) {
                const Octets one = i == place ? other.octets : Octets{0x4E, 0x2D};
                octets.insert(octets.end(), one.begin(), one.end());
                text += i == place ? other.text : "中";
            }
            std::string read;
            AppendUcs2Text(octets, read);
            EXPECT_EQ(read, text) << place;
            Octets written;
            EXPECT_FALSE(AppendUcs2(text, written));
            EXPECT_EQ(written, octets) << place;
            Choice choice;
            EXPECT_FALSE(Choose(text, {}, choice));
            EXPECT_EQ(choice.units, octets.size() / 2) << place;
        }
}

TEST(Blocks, NothingAfterTheEndIsRead) {
    for (std::size_t size = 0; size <= 50; ++size) {
        const Octets septets(size, 0x61);
        const std::string text(size, 'a');
        const tests::Guarded octets(septets.data(), size);
        EXPECT_EQ(TextOf({octets.Data(), size}, {}), text);
        const tests::Guarded characters(text.data(), size);
        const std::string_view atEnd(characters.Data(), size);
        Octets out;
        EXPECT_FALSE(AppendSeptets(atEnd, {}, out));
        EXPECT_EQ(out, septets);
        out.clear();
        EXPECT_FALSE(AppendUcs2(atEnd, out));
        EXPECT_EQ(out.size(), 2 * size);
        Choice choice;
        EXPECT_FALSE(Choose(atEnd, {}, choice));
        EXPECT_EQ(choice.units, size);
    }
}

TEST(Blocks, NothingAfterTheEndOfUcs2IsRead) {
    std::string text;
    for (Octets units; units.size() <= 20; units.insert(units.end(), {0x4E, 0x2D}), text += "中") {
        const tests::Guarded octets(units.data(), units.size());
        std::string read;
        AppendUcs2Text({octets.Data(), units.size()}, read);
        EXPECT_EQ(read, text);
        for (const std::string& cut : {text, text + '\xE4', text + "\xE4\xB8", text + "\xF0\x9F\x98"}) {
            const tests::Guarded characters(cut.data(), cut.size());
            Octets out;
            Choice choice;
            EXPECT_EQ(AppendUcs2({characters.Data(), cut.size()}, out).has_value(), cut != text);
            EXPECT_EQ(Choose({characters.Data(), cut.size()}, {}, choice).has_value(), cut != text);
        }
    }
}

} // namespace
