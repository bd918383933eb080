// Texts of every length through the encoder and back through the decoder, in every alphabet, with extension
// characters at every position around each part boundary.
#include <algorithm>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;

/// Septets of a text in the characters that the tests use: letters and digits stand for themselves.
Bytes SeptetsOf(const TString<wchar_t>& text) {
    static const std::map<wchar_t, Bytes> others = {
        {L'€', {0x1B, 0x65}}, {L'{', {0x1B, 0x28}}, {L'@', {0x00}}};
    Bytes septets;
    for (const wchar_t character : text) {
        const auto other = others.find(character);
        const Bytes one =
            other != others.end() ? other->second : Bytes{static_cast<unsigned char>(character)};
        septets.insert(septets.end(), one.begin(), one.end());
    }
    return septets;
}

/// What a receiver reads in one part: an escape at its end gives nothing, a code without its escape is
/// itself.
TString<wchar_t> TextOf(const Bytes& septets) {
    TString<wchar_t> text;
    for (std::size_t i = 0; i < septets.size(); ++i) {
        if (septets[i] == 0x1B) {
            if (++i == septets.size())
                break;
            text += septets[i] == 0x65 ? L'€' : L'{';
        } else {
            text += septets[i] == 0x00 ? L'@' : static_cast<wchar_t>(septets[i]);
        }
    }
    return text;
}

/// Cuts a sequence as a sender must: all of it, or parts of the size that leaves room for the header.
template <class Sequence>
std::vector<Sequence> Cut(const Sequence& whole, std::size_t alone, std::size_t perPart) {
    if (whole.size() <= alone)
        return {whole};
    std::vector<Sequence> parts;
    for (std::size_t at = 0; at < whole.size(); at += perPart)
        parts.emplace_back(whole.begin() + static_cast<long>(at),
                           whole.begin() + static_cast<long>(std::min(at + perPart, whole.size())));
    return parts;
}

std::vector<TString<wchar_t>> GsmParts(const TString<wchar_t>& text) {
    std::vector<TString<wchar_t>> texts;
    for (const Bytes& septets : Cut(SeptetsOf(text), 160, 153))
        texts.push_back(TextOf(septets));
    return texts;
}

/// Encodes, decodes each PDU as it is and from its hexadecimal text, and compares the parts.
void Check(PduEncoder& encoder, const TString<wchar_t>& text, const std::vector<TString<wchar_t>>& parts,
           int dcs) {
    encoder.RemoveHeader();
    encoder.SetText(text);
    std::vector<Toolkit::smart_ptr<Pdu>> pdus;
    encoder.Encode(pdus);
    ASSERT_EQ(pdus.size(), parts.size());
    int reference = -1;
    for (std::size_t i = 0; i < pdus.size(); ++i) {
        for (const bool fromText : {false, true}) {
            PduDecoder decoder;
            const Toolkit::smart_ptr<Pdu> pdu = fromText ? new Pdu(pdus[i]->GetString()) : new Pdu(*pdus[i]);
            ASSERT_EQ(decoder.Decode(pdu, false, false), 1);
            ASSERT_EQ(decoder.m_Text, parts[i]);
            ASSERT_EQ(decoder.m_Recipient, L"+4179123");
            ASSERT_EQ(decoder.m_DataCoding, dcs);
            ASSERT_EQ(decoder.m_HasUserDataHeader, pdus.size() > 1 ? 1 : 0);
            if (pdus.size() == 1)
                continue;
            ASSERT_EQ(decoder.m_ConcatTotal, static_cast<int>(pdus.size()));
            ASSERT_EQ(decoder.m_ConcatSequence, static_cast<int>(i) + 1);
            ASSERT_TRUE(reference == -1 || decoder.m_ConcatReference == reference);
            reference = decoder.m_ConcatReference;
        }
    }
}

class RoundTrip : public testing::Test {
protected:
    RoundTrip() { m_Encoder.SetRecipient(L"+4179123"); }
    PduEncoder m_Encoder{MessageTypeIndicator::TP_MTI_SMS_SUBMIT};
};

/// a to z over and over.
TString<wchar_t> Letters(std::size_t count) {
    TString<wchar_t> text;
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<wchar_t>('a' + i % 26);
    return text;
}

TEST_F(RoundTrip, GsmTextOfEveryLength) {
    for (std::size_t length = 1; length <= 1000; ++length) {
        SCOPED_TRACE(length);
        TString<wchar_t> text = Letters(length);
        text[length / 2] = L'@';
        Check(m_Encoder, text, GsmParts(text), 0x00);
    }
}

TEST_F(RoundTrip, ExtensionTextOfEveryLength) {
    for (std::size_t length = 1; length <= 1000; ++length) {
        SCOPED_TRACE(length);
        TString<wchar_t> text = Letters(length);
        for (std::size_t i = 0; i < length; i += 3)
            text[i] = i % 2 == 0 ? L'€' : L'{';
        Check(m_Encoder, text, GsmParts(text), 0x00);
    }
}

TEST_F(RoundTrip, ExtensionCharacterAtEveryPositionAroundEveryBoundary) {
    for (const std::size_t boundary : {160U, 153U, 306U, 459U, 612U, 765U, 918U}) {
        for (std::size_t position = boundary - 4; position <= boundary + 4; ++position) {
            for (std::size_t length = position + 1; length <= position + 12; ++length) {
                SCOPED_TRACE(position);
                TString<wchar_t> text = Letters(length);
                text[position] = L'€';
                Check(m_Encoder, text, GsmParts(text), 0x00);
            }
        }
    }
}

TEST_F(RoundTrip, Ucs2TextOfEveryLength) {
    for (std::size_t length = 1; length <= 1000; ++length) {
        SCOPED_TRACE(length);
        TString<wchar_t> text;
        for (std::size_t i = 0; i < length; ++i)
            text += static_cast<wchar_t>(0x4E00 + i);
        Check(m_Encoder, text, Cut(text, 70, 67), 0x08);
    }
}

TEST_F(RoundTrip, SurrogatesAtEveryPositionOfAPart) {
    for (std::size_t length = 2; length <= 150; ++length) {
        for (std::size_t position = 0; position + 2 <= length; position += 7) {
            TString<wchar_t> text = Letters(length);
            text[position] = 0xD83D;
            text[position + 1] = 0xDE00;
            Check(m_Encoder, text, Cut(text, 70, 67), 0x08);
        }
    }
}

TEST_F(RoundTrip, GreekTextOfEveryLength) {
    for (std::size_t length = 1; length <= 1000; ++length) {
        SCOPED_TRACE(length);
        TString<wchar_t> greek;
        TString<wchar_t> transliterated;
        for (std::size_t i = 0; i < length; ++i) {
            greek += L"αβγσω"[i % 5];
            transliterated += L"ABΓΣΩ"[i % 5];
        }
        m_Encoder.ClearTranslateTable();
        Check(m_Encoder, greek, Cut(greek, 70, 67), 0x08);
        m_Encoder.AddTranslateTable(TranslateTable::GREEK);
        Check(m_Encoder, greek, Cut(transliterated, 160, 153), 0x00);
    }
}

TEST_F(RoundTrip, EmptyTextIsOnePduWithoutText) {
    std::vector<Toolkit::smart_ptr<Pdu>> pdus;
    m_Encoder.Encode(pdus);
    ASSERT_EQ(pdus.size(), 1U);
    PduDecoder decoder;
    decoder.m_Text = L"before";
    EXPECT_EQ(decoder.Decode(pdus.front(), false, false), 1);
    EXPECT_EQ(decoder.m_Text, L"");
    EXPECT_EQ(decoder.m_DataCoding, 0x08);
}

TEST_F(RoundTrip, EveryCharacterThatHasACode) {
    for (unsigned int code = 0; code < 0x80; ++code) {
        if (code == 0x1B) // decodes to U+0000, which encodes as the escape and does not come back
            continue;
        const auto character = static_cast<wchar_t>(GSMCharSet::m_GsmDefaultTable[code]);
        const TString<wchar_t> text = TString<wchar_t>(L"<") + character + L">";
        Check(m_Encoder, text, {text}, 0x00);
    }
    const TString<wchar_t> extension = L"\f^{}\\[~]|€";
    Check(m_Encoder, extension, {extension}, 0x00);
}

} // namespace
