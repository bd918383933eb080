// The choice of the alphabet, and the cutting of a text into parts.
#include <algorithm>
#include <cstdint>

#include "Encoding/PduEncoder.h"
#include "charset/WideCharacter.h"
#include "pdu/Octets.h"

namespace Encoding {
namespace {

constexpr unsigned int c_unitSize = 2; ///< octets of a UCS2 character

constexpr auto c_unitsAlone = static_cast<unsigned int>(PduEncoder::MAX_DATA_LEN) / c_unitSize;
constexpr auto c_unitsPerPart = static_cast<unsigned int>(PduEncoder::MAX_DATA_LEN_WITH_HEADER) / c_unitSize;
constexpr auto c_septetsAlone = static_cast<unsigned int>(PduEncoder::MAX_7BITDATA_LEN);
constexpr auto c_septetsPerPart = static_cast<unsigned int>(PduEncoder::MAX_GSM_LEN_WITH_HEADER);

} // namespace

unsigned int PduEncoder::GetPduCount(const TString<wchar_t>& text) {
    m_PartCapacity = MAX_DATA_LEN;
    m_Alphabet = Alphabet::ALPHABET_UCS2;
    m_WorkText = text;
    if (text.empty())
        return 1;
    const auto textBytes = static_cast<unsigned int>(text.size() * c_wideSize);
    if (static_cast<std::int32_t>(textBytes) < 1)
        return 0;

    ChooseAlphabet(text, textBytes);

    const bool isGsm = m_Alphabet == Alphabet::ALPHABET_GSM7;
    const unsigned int length = isGsm ? m_GsmLength : static_cast<unsigned int>(m_WorkText.size());
    const unsigned int alone = isGsm ? c_septetsAlone : c_unitsAlone;
    const unsigned int perPart = isGsm ? c_septetsPerPart : c_unitsPerPart;
    if (length <= alone) {
        m_PartCapacity = alone;
        return 1;
    }
    m_PartCapacity = perPart;
    return (length + perPart - 1) / perPart;
}

/// A text goes out as GSM exactly when every character survives the way to GSM and back; UCS2 stays
/// otherwise.
void PduEncoder::ChooseAlphabet(const TString<wchar_t>& text, unsigned int textBytes) {
    m_GsmBytes.reset();
    const Toolkit::smart_ptr<GSMCharSet> charSet(m_CharSet);
    const auto* octets = reinterpret_cast<const unsigned char*>(text.data());
    charSet->GetGsmBytes(octets, textBytes, &m_GsmLength, nullptr);
    if (m_GsmLength == 0)
        return;
    m_GsmBytes = MakeOctets(m_GsmLength + 1ULL);
    unsigned char* codes = m_GsmBytes.get();
    charSet->GetGsmBytes(octets, textBytes, &m_GsmLength, &codes);
    const TString<wchar_t> survived = charSet->GsmToUnicode(codes, m_GsmLength);
    // The table is looked up by the flag's value, not by the table that was used, as is required: a
    // transliterated text (1, the Greek table) is taken as it came back, and so is any other text when a
    // table 0 is selected.
    if (charSet->FindTable(static_cast<TranslateTable::TT>(charSet->m_Translated)))
        m_WorkText = survived;
    if (survived == m_WorkText)
        m_Alphabet = Alphabet::ALPHABET_GSM7;
}

int PduEncoder::GetSubString(const TString<wchar_t>& text, unsigned int start, unsigned int count,
                             unsigned int* length, unsigned char** bytes) {
    *bytes = nullptr;
    *length = 0;
    if (start >= text.size() || count == 0)
        return 0;

    unsigned char* octets = MakeOctets(c_unitSize * (count + 1ULL)).release();
    *bytes = octets;
    *length = c_unitSize * count;
    const SystemShare system;
    const auto* character = reinterpret_cast<const unsigned char*>(text.data() + start);
    for (std::size_t left = std::min<std::size_t>(count, text.size() - start); left != 0; --left) {
        const unsigned int unit = LowUnit(character, system.GetEndian()); // asked for each, as is required
        octets[0] = static_cast<unsigned char>(unit >> 8);
        octets[1] = static_cast<unsigned char>(unit);
        octets += c_unitSize;
        character += c_wideSize;
    }
    return 1;
}

} // namespace Encoding
