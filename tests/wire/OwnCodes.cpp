// Every way that this machine has to find and move characters that are their own codes.
#include "wire/OwnCodes.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Guarded.h"

namespace {

using tests::Guarded;
using Wire::BlockBits;

constexpr std::size_t c_block = 16;

/// All of them, from TS 23.038 clause 6.2.1.
const std::string c_own =
    "\n\r !\"#%&'()*+,-./0123456789:;<=>?ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

bool IsOwn(unsigned int character) {
    return character < 0x80 && c_own.find(static_cast<char>(character)) != std::string::npos;
}

struct Way {
    const char* name;
    BlockBits (*otherCodes)(const unsigned char*);
    bool (*areOwnCodes)(const unsigned char*);
    BlockBits (*otherCharacters)(const unsigned char*);
    void (*widen)(const unsigned char*, wchar_t*);
    void (*narrow)(const unsigned char*, unsigned char*);
    bool (*narrowAscii)(const wchar_t*, char*);
    bool (*anyOnPages)(const unsigned char*);
};

constexpr Way c_ways[] = {
    {"plainly", Wire::Plainly::OtherCodes, Wire::Plainly::AreOwnCodes, Wire::Plainly::OtherCharacters,
     Wire::Plainly::Widen, Wire::Plainly::Narrow, Wire::Plainly::NarrowAscii,
     Wire::Plainly::AnyOnPages<0x00, 0x03, 0x20>},
#ifdef __SSE2__
    {"by SSE2", Wire::BySse2::OtherCodes, Wire::BySse2::AreOwnCodes, Wire::BySse2::OtherCharacters,
     Wire::BySse2::Widen, Wire::BySse2::Narrow, Wire::BySse2::NarrowAscii,
     Wire::BySse2::AnyOnPages<0x00, 0x03, 0x20>},
#endif
};

/// A block of wide characters right before a page that nobody may touch.
class Wide {
public:
    explicit Wide(const std::vector<unsigned int>& characters)
        : m_Guarded(characters.data(), characters.size()) {}
    const unsigned char* Octets() const { return reinterpret_cast<const unsigned char*>(m_Guarded.Data()); }

private:
    Guarded<unsigned int> m_Guarded;
};

TEST(OwnCodes, AreTheSameInBothAlphabets) {
    for (unsigned int character = 0; character < 0x400; ++character)
        EXPECT_EQ(Wire::IsOwnCode(character), IsOwn(character)) << character;
}

TEST(OwnCodes, EveryWayFindsOtherCodesAtEveryPlace) {
    for (const Way& way : c_ways) {
        for (unsigned int code = 0; code < 0x100; ++code) {
            for (std::size_t place = 0; place < c_block; ++place) {
                std::vector<unsigned char> codes(c_block, 'a');
                codes[place] = static_cast<unsigned char>(code);
                const Guarded<unsigned char> guarded(codes.data(), c_block);
                ASSERT_EQ(way.otherCodes(guarded.Data()), IsOwn(code) ? 0U : 1U << place)
                    << way.name << " " << code;
            }
        }
    }
}

TEST(OwnCodes, EveryWayFindsAnotherAmongFourBlocks) {
    constexpr std::size_t blocks = 4 * c_block;
    for (const Way& way : c_ways)
        for (std::size_t place = 0; place < blocks; ++place) {
            std::vector<unsigned char> codes(blocks, 'a');
            const Guarded<unsigned char> guarded(codes.data(), blocks);
            for (unsigned int code = 0; code < 0x100; ++code) {
                guarded.Data()[place] = static_cast<unsigned char>(code);
                ASSERT_EQ(way.areOwnCodes(guarded.Data()), IsOwn(code)) << way.name << " " << code;
            }
        }
}

/// What lies above the 16 bits that count makes no difference.
TEST(OwnCodes, EveryWayFindsOtherCharactersAtEveryPlace) {
    std::vector<unsigned int> values = {0x0161, 0x0A61, 0x3041, 0x6161, 0x7F61,
                                        0x7FFF, 0x8000, 0x8061, 0xFF61, 0xFFFF};
    for (unsigned int value = 0; value < 0x100; ++value)
        values.push_back(value);
    for (const Way& way : c_ways) {
        for (const unsigned int value : values) {
            for (const unsigned int above : {0x00000000U, 0x00010000U, 0x80000000U, 0xFFFF0000U}) {
                for (std::size_t place = 0; place < c_block; ++place) {
                    std::vector<unsigned int> characters(c_block, 'a');
                    characters[place] = above | value;
                    const Wide wide(characters);
                    ASSERT_EQ(way.otherCharacters(wide.Octets()), IsOwn(value) ? 0U : 1U << place)
                        << way.name << " " << value;
                }
            }
        }
    }
}

TEST(OwnCodes, EveryWayTellsTheBitsApart) {
    for (const Way& way : c_ways) {
        EXPECT_EQ(way.otherCodes(reinterpret_cast<const unsigned char*>("$a@a[a]a^a_a`a{a")), 0x5555U)
            << way.name;
        EXPECT_EQ(way.otherCodes(reinterpret_cast<const unsigned char*>("$$$$$$$$$$$$$$$$")), 0xFFFFU)
            << way.name;
    }
}

TEST(OwnCodes, EveryWayMovesEachToItsPlace) {
    const std::string text = "Az09 \n\r!?#%'bcde";
    for (const Way& way : c_ways) {
        const Guarded<unsigned char> codes(reinterpret_cast<const unsigned char*>(text.data()), c_block);
        const Guarded<wchar_t> widened(std::wstring(c_block, L'?').data(), c_block);
        way.widen(codes.Data(), widened.Data());
        EXPECT_EQ(std::wstring(widened.Data(), c_block), std::wstring(text.begin(), text.end())) << way.name;

        std::vector<unsigned int> characters(text.begin(), text.end());
        for (unsigned int& character : characters)
            character |= 0xABCD0000;
        const Wide wide(characters);
        const Guarded<unsigned char> narrowed(reinterpret_cast<const unsigned char*>("????????????????"),
                                              c_block);
        way.narrow(wide.Octets(), narrowed.Data());
        EXPECT_EQ(std::string(narrowed.Data(), narrowed.Data() + c_block), text) << way.name;
    }
}

TEST(OwnCodes, EveryWayWidensEveryOctet) {
    for (const Way& way : c_ways) {
        for (unsigned int octet = 0; octet < 0x100; ++octet) {
            const std::vector<unsigned char> codes(c_block, static_cast<unsigned char>(octet));
            std::wstring wide(c_block, L'?');
            way.widen(codes.data(), wide.data());
            ASSERT_EQ(wide, std::wstring(c_block, static_cast<wchar_t>(octet))) << way.name;
        }
    }
}

TEST(OwnCodes, EveryWayNarrowsAsciiAlone) {
    std::vector<unsigned int> values = {0x0100,     0x0161,     0x7FFF,     0x8000,     0x8061,
                                        0xFF61,     0xFFFF,     0x00010061, 0x00800061, 0x7FFF0061,
                                        0x7FFFFFFF, 0x80000000, 0x80000061, 0xFFFF0061, 0xFFFFFF61,
                                        0xFFFFFF80, 0xFFFFFFFF};
    for (unsigned int value = 0; value < 0x100; ++value)
        values.push_back(value);
    const std::string text = "Az09@$[]{}~^abcd";
    for (const Way& way : c_ways) {
        for (const unsigned int value : values) {
            for (std::size_t place = 0; place < c_block; ++place) {
                std::wstring characters(text.begin(), text.end());
                characters[place] = static_cast<wchar_t>(value);
                const Guarded<wchar_t> wide(characters.data(), c_block);
                const Guarded<char> narrow("????????????????", c_block);
                ASSERT_EQ(way.narrowAscii(wide.Data(), narrow.Data()), value < 0x80)
                    << way.name << " " << value << " at " << place;
                if (value >= 0x80)
                    continue;
                std::string octets = text;
                octets[place] = static_cast<char>(value);
                ASSERT_EQ(std::string(narrow.Data(), c_block), octets) << way.name << " at " << place;
            }
        }
    }
}

TEST(OwnCodes, EveryWayKnowsThePages) {
    for (const Way& way : c_ways) {
        for (unsigned int page = 0; page < 0x100; ++page) {
            for (std::size_t place = 0; place < c_block; ++place) {
                std::vector<unsigned int> characters(c_block, 0xFFFF4E00);
                characters[place] = 0xFFFF0000 | page << 8 | (place % 2 == 0 ? 0xFF : 0x00);
                const Wide wide(characters);
                ASSERT_EQ(way.anyOnPages(wide.Octets()), page == 0x00 || page == 0x03 || page == 0x20)
                    << way.name << " " << page << " at " << place;
            }
        }
    }
}

} // namespace
