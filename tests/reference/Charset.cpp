// GSMCharSet beside the model.
#include "model/Charset.h"
#include "Encoding/GSMCharSet.h"

#include <gtest/gtest.h>

#include "Bridge.h"
#include "Cases.h"
#include "Inputs.h"

namespace reference {
namespace {

using Encoding::GSMCharSet;
using Encoding::TranslateTable;

/// A character set of the library and one of the model, with the same tables selected.
struct CharsetPair {
    explicit CharsetPair(const std::vector<int>& tables) {
        m_Model.m_Selected = tables;
        for (const int table : tables)
            m_Library.AddTranslateTable(static_cast<TranslateTable::TT>(table));
    }

    std::string Lines() const { return Line("translated", m_Library.m_Translated, m_Model.m_Translated); }

    GSMCharSet m_Library;
    model::Charset m_Model;
};

std::string Tables(const std::vector<int>& tables) {
    std::string text = " tables";
    for (const int table : tables)
        text += " " + std::to_string(table);
    return text;
}

std::uint32_t RandomByteLength(Random& random, const model::Text& text) {
    const auto whole = static_cast<std::uint32_t>(4 * text.size());
    return random.Chance(80) ? whole : random.Below(whole + 1);
}

TEST(ReferenceCharset, GetGsmBytesCountsAndFillsAlike) {
    RunCases(GSM_BYTES, [](Random& random) {
        const std::vector<int> tables = RandomTables(random);
        CharsetPair pair(tables);
        const model::Text text = RandomText(random);
        const std::uint32_t srcBytes = RandomByteLength(random, text);
        const TString<wchar_t> wide = Wide(text);
        const auto* const src = reinterpret_cast<const unsigned char*>(wide.data());

        unsigned int length = 12345;
        std::uint32_t expectedLength = 12345;
        const bool counted = pair.m_Library.GetGsmBytes(src, srcBytes, &length, nullptr);
        const bool expectedCounted = pair.m_Model.GetGsmBytes(text, srcBytes, expectedLength, nullptr);
        std::string lines =
            Line("counted", counted, expectedCounted) + Line("count", length, expectedLength) + pair.Lines();
        if (lines.empty() && counted) {
            // A buffer may be larger than the count; what lies after the codes is zeroed.
            const std::uint32_t room = expectedLength + (random.Chance(20) ? random.Below(4) : 0);
            model::Octets codes(room, 0xAA);
            model::Octets expectedCodes(room, 0xAA);
            unsigned char* out = codes.data();
            length = expectedLength = room;
            const bool filled = pair.m_Library.GetGsmBytes(src, srcBytes, &length, &out);
            const bool expectedFilled =
                pair.m_Model.GetGsmBytes(text, srcBytes, expectedLength, &expectedCodes);
            lines = Line("filled", filled, expectedFilled) + Line("length", length, expectedLength) +
                    Line("codes", codes, expectedCodes) + pair.Lines();
        }
        return Between(lines, Show(text) + " bytes " + Show(srcBytes) + Tables(tables));
    });
}

TEST(ReferenceCharset, GsmToUnicodeReadsCodes) {
    RunCases(GSM_TO_UNICODE, [](Random& random) {
        CharsetPair pair(RandomTables(random));
        const model::Octets codes = RandomGsmCodes(random);
        const auto count = static_cast<unsigned int>(codes.size());
        return Between(Line("bytes", TextOf(pair.m_Library.GsmToUnicode(codes.data(), count)),
                            pair.m_Model.GsmToUnicode(codes)) +
                           Line("string", TextOf(pair.m_Library.GsmToUnicode(Narrow(codes))),
                                pair.m_Model.GsmStringToUnicode(codes)),
                       Show(codes));
    });
}

TEST(ReferenceCharset, UnicodeToGsmStringDropsWhatHasNoCode) {
    RunCases(GSM_STRINGS, [](Random& random) {
        const std::vector<int> tables = RandomTables(random);
        CharsetPair pair(tables);
        const model::Text text = RandomText(random);
        const model::Octets codes = OctetsOf(pair.m_Library.UnicodeToGsmString(Wide(text)));
        const model::Octets expected = pair.m_Model.UnicodeToGsmString(text);
        return Between(Line("codes", codes, expected) + pair.Lines(), Show(text) + Tables(tables));
    });
}

TEST(ReferenceCharset, SingleCharactersAndSelectedTables) {
    RunCases(TRANSLATION, [](Random& random) {
        const std::vector<int> tables = RandomTables(random);
        CharsetPair pair(tables);
        const std::uint16_t unicode = RandomCharacter(random);
        const std::uint8_t code = random.Octet();
        const int table = random.Chance(50) ? static_cast<int>(random.Below(3)) : random.Number();
        const GSMCharSet& library = pair.m_Library;
        model::Charset& expected = pair.m_Model;
        std::string lines =
            Line("UnicodeToGsm", library.UnicodeToGsm(unicode), expected.UnicodeToGsm(unicode));
        lines += pair.Lines();
        lines += Line("Translate", library.Translate(unicode), expected.Translate(unicode));
        lines += pair.Lines();
        lines += Line("GreekToUnicode", library.GreekToUnicode(unicode), expected.GreekToUnicode(unicode));
        lines += Line("FindUnicodeCharFromEscapeChar", library.FindUnicodeCharFromEscapeChar(code),
                      expected.FindUnicodeCharFromEscapeChar(code));
        lines += Line("FindTable", library.FindTable(static_cast<TranslateTable::TT>(table)),
                      expected.FindTable(table));
        return Between(lines, Show(model::Text(1, unicode)) + " code " + Show(code) + " table " +
                                  Show(table) + Tables(tables));
    });
}

/// Random characters would hardly meet each of the 65,536.
TEST(ReferenceCharset, EveryCharacterWithAndWithoutTheGreekTable) {
    for (const bool isGreek : {false, true}) {
        CharsetPair pair(isGreek ? std::vector<int>{model::GREEK} : std::vector<int>{});
        for (unsigned int unicode = 0; unicode <= 0xFFFF; ++unicode) {
            const auto character = static_cast<std::uint16_t>(unicode);
            ASSERT_EQ(pair.m_Library.UnicodeToGsm(character), pair.m_Model.UnicodeToGsm(character))
                << unicode;
            ASSERT_EQ(pair.m_Library.Translate(character), pair.m_Model.Translate(character)) << unicode;
        }
    }
}

} // namespace
} // namespace reference
