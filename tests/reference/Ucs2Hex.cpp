// UCS2Encoding and TextDecoder beside the model.
#include "model/Ucs2Hex.h"

#include <gtest/gtest.h>

#include "Bridge.h"
#include "Cases.h"
#include "Encoding/TextDecoder.h"
#include "Encoding/UCS2Encoding.h"
#include "Inputs.h"
#include "support/CapturingLogger.h"

namespace reference {
namespace {

using Encoding::UCS2Encoding;

model::Text WidenedOctets(const std::string& octets) {
    model::Text text;
    for (const char c : octets)
        text += static_cast<unsigned char>(c);
    return text;
}

TEST(ReferenceUcs2Hex, BothWays) {
    RunCases(UCS2_HEX, [](Random& random) {
        const model::Text text = RandomText(random);
        const std::string hex = random.Chance(30) ? model::ToUcs2(text) : RandomHexText(random, 200);
        const model::Text wideHex = random.Chance(80) ? WidenedOctets(hex) : RandomShortText(random);
        const std::string narrowedHex = model::Utf8(wideHex);
        return Between(
            Line("IsUCS2", UCS2Encoding::IsUCS2(TString<char>(hex)), model::IsUcs2(hex)) +
                Line("IsUCS2 wide", UCS2Encoding::IsUCS2(Wide(wideHex)), model::IsUcs2(narrowedHex)) +
                Line("ToUString", TextOf(UCS2Encoding::ToUString(TString<char>(hex))), model::FromUcs2(hex)) +
                Line("ToUString wide", TextOf(UCS2Encoding::ToUString(Wide(wideHex))),
                     model::FromUcs2(narrowedHex)) +
                Line("ToUCS2S", std::string(UCS2Encoding::ToUCS2S(Wide(text))), model::ToUcs2(text)) +
                Line("ToUCS2", TextOf(UCS2Encoding::ToUCS2(Wide(text))), WidenedOctets(model::ToUcs2(text))),
            Show(text) + " hex " + Show(hex) + " wide " + Show(wideHex));
    });
}

TEST(ReferenceUcs2Hex, TextDecoderDecodesAndLogs) {
    tests::InstalledLogger logger(2);
    RunCases(TEXT_DECODER, [&logger](Random& random) {
        const int alphabet = random.Chance(90) ? static_cast<int>(random.Below(6)) : random.Number();
        const bool isHex = random.Chance(40);
        const model::Text text = isHex ? WidenedOctets(RandomHexText(random, 200)) : RandomShortText(random);
        logger->m_Pieces.clear();
        const Encoding::TextDecoder decoder(Wide(text), alphabet);
        model::Text line;
        for (const TString<wchar_t>& piece : logger->m_Pieces)
            line += TextOf(piece);
        if (text.empty())
            return Between(Line("log line", line, model::Text()), "empty text, alphabet " + Show(alphabet));
        const model::Text message = WidenedOctets(model::TextDecoderMessage(text, alphabet));
        return Between(Line("text", TextOf(decoder.m_DecodedText), model::DecodeText(text, alphabet)) +
                           (line.find(message) == model::Text::npos ? Line("log line", line, message) : ""),
                       Show(text) + " alphabet " + Show(alphabet));
    });
}

} // namespace
} // namespace reference
