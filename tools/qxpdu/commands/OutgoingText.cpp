#include "commands/OutgoingText.h"

#include <array>

#include <fmt/format.h>

#include "characters/InputError.h"
#include "show/CodeUnits.h"

namespace qxpdu {

namespace {

using Encoding::PduDecoder;
using Encoding::PduEncoder;

constexpr unsigned int c_maxParts = 255; ///< the header counts them in one octet

bool IsGsm(const PduDecoder& part) {
    return part.m_Alphabet == Encoding::Alphabet::ALPHABET_GSM7;
}

} // namespace

Pdus EncodeText(PduEncoder& encoder, const TString<wchar_t>& text) {
    const unsigned int parts = encoder.GetPduCount(text);
    if (parts > c_maxParts)
        throw InputError(fmt::format("the text needs {} parts, {} at most", parts, c_maxParts));
    encoder.SetText(text);
    Pdus pdus;
    encoder.Encode(pdus);
    if (pdus.empty())
        throw InputError("the text is too long");
    return pdus;
}

GsmCharacter ToGsm(char32_t character, Encoding::GSMCharSet& charSet) {
    GsmCharacter gsm;
    gsm.codes = charSet.UnicodeToGsmString(show::Units({&character, 1}));
    gsm.received = charSet.GsmToUnicode(reinterpret_cast<const unsigned char*>(gsm.codes.data()),
                                        static_cast<unsigned int>(gsm.codes.size()));
    return gsm;
}

std::vector<std::size_t> LostWithGreek(const std::u32string& text) {
    Encoding::GSMCharSet charSet;
    charSet.AddTranslateTable(Encoding::TranslateTable::GREEK);
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const TString<wchar_t> received = ToGsm(text[i], charSet).received;
        const bool isGreek = text[i] >= 0x370 && text[i] <= 0x3FF;
        if (received.empty() || (received != show::Units({&text[i], 1}) && !isGreek))
            positions.push_back(i + 1);
    }
    return positions;
}

std::string_view AlphabetName(Encoding::Alphabet::Encoding alphabet) {
    constexpr std::array<std::string_view, 4> c_names = {"GSM 7-bit", "8-bit data", "UCS2",
                                                         "reserved alphabet"};
    return c_names[static_cast<unsigned int>(alphabet) & 3];
}

const char* UnitsOf(const PduDecoder& part) {
    return IsGsm(part) ? "septets" : "characters";
}

unsigned int TextLength(const PduDecoder& part) {
    const bool hasHeader = part.m_HasUserDataHeader != 0;
    if (IsGsm(part)) {
        const int header = hasHeader ? PduEncoder::_7BITDATA_HEADER_SIZE : 0;
        return static_cast<unsigned int>(part.m_UserDataLength - header);
    }
    const int header = hasHeader ? PduEncoder::USER_DATA_HEADER_SIZE : 0;
    return static_cast<unsigned int>(part.m_UserDataLength - header) / 2;
}

} // namespace qxpdu
