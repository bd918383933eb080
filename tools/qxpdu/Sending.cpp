#include "Sending.h"

#include <fmt/format.h>

#include "InputError.h"
#include "Unicode.h"

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

std::vector<std::size_t> WithoutCode(const std::u32string& text) {
    Encoding::GSMCharSet charSet;
    charSet.AddTranslateTable(Encoding::TranslateTable::GREEK);
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const TString<wchar_t> units = Units({&text[i], 1});
        if (units.size() > 1 || charSet.UnicodeToGsmString(units).empty())
            positions.push_back(i + 1);
    }
    return positions;
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
