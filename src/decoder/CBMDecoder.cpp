#include "Encoding/CBMDecoder.h"

#include "pdu/Octets.h"
#include "pdu/Septets.h"

namespace Encoding {
namespace {

constexpr unsigned int c_pageHeaderSize = 6; ///< octets

unsigned short Number(const Pdu& page, unsigned int offset) {
    return static_cast<unsigned short>(OctetAt(page, offset) << 8 | OctetAt(page, offset + 1));
}

/// Erases what lies outside [first, last) of the text, the end before the beginning.
void Keep(TString<wchar_t>& text, std::size_t first, std::size_t last) {
    text.erase(last);
    text.erase(0, first);
}

/// Removes blanks around the text, and then runs of one character around what is left. Blanks that stood
/// inside those runs stay, as is required.
void Trim(TString<wchar_t>& text, wchar_t character) {
    static constexpr const wchar_t* blanks = L" \t";
    const std::size_t firstText = text.find_first_not_of(blanks);
    if (firstText == TString<wchar_t>::npos)
        text.clear();
    else
        Keep(text, firstText, text.find_last_not_of(blanks) + 1);

    const std::size_t firstOther = text.find_first_not_of(character);
    if (firstOther == TString<wchar_t>::npos)
        text.clear();
    else
        Keep(text, firstOther, text.find_last_not_of(character) + 1);
}

} // namespace

bool CBMDecoder::Decode(Toolkit::smart_ptr<Pdu> pdu) {
    if (pdu.get() == nullptr)
        return false;
    const Pdu& page = *pdu;
    m_SerialNumber = Number(page, 0);
    m_MessageIdentifier = Number(page, 2);
    m_DataCodingScheme = OctetAt(page, 4);
    m_PageParameter = OctetAt(page, 5);

    // As many characters as content octets, as is required. For a page shorter than its header the difference
    // wraps to a count that no memory holds.
    const unsigned int characters = page.m_Length - c_pageHeaderSize;
    const auto septets = MakeOctets(characters);
    UnpackSeptets(page, c_pageHeaderSize, 0, characters, septets.get());
    {
        const Toolkit::smart_ptr<GSMCharSet> charSet(m_CharSet);
        m_Text = charSet->GsmToUnicode(septets.get(), characters);
    }
    Trim(m_Text, L'\r');
    Trim(m_Text, L'\n');
    return true;
}

} // namespace Encoding
