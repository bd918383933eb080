// CBMDecoder::Decode. Input: flags (1 the length is given by the octets), the length (four octets), the
// octets. Lengths between c_longest and the point from which std::bad_alloc is required are left out: they
// would only ask for gigabytes.
#include <algorithm>
#include <new>
#include <vector>

#include "Encoding/CBMDecoder.h"
#include "Input.h"
#include "Record.h"

namespace {

using namespace Encoding;
using namespace fuzz;

constexpr unsigned int c_headerSize = 6;
constexpr unsigned int c_longest = 0x1000;
constexpr unsigned int c_mostContent = 0x7FFFFFFF;

/// The bits of the content, seven by seven.
std::vector<unsigned char> Septets(const Pdu& page, unsigned int count) {
    std::vector<unsigned char> septets(count);
    for (unsigned int bit = 0; bit < count * 7; ++bit) {
        const unsigned int octet = c_headerSize + bit / 8;
        if (octet < Pdu::CAPACITY && (page.m_Bytes[octet] >> bit % 8 & 1) != 0)
            septets[bit / 7] = static_cast<unsigned char>(septets[bit / 7] | 1 << bit % 7);
    }
    return septets;
}

std::wstring Without(const std::wstring& text, const wchar_t* around) {
    const std::size_t first = text.find_first_not_of(around);
    return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(around) - first + 1);
}

/// True where decoding ended with a text, false where the length asks for more than there can be.
bool Decode(CBMDecoder& decoder, const Toolkit::smart_ptr<Pdu>& page) {
    try {
        Require(decoder.Decode(page), "a page is decoded");
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void RequireSame(const CBMDecoder& left, const CBMDecoder& right, const char* property) {
    Require(left.m_SerialNumber == right.m_SerialNumber &&
                left.m_MessageIdentifier == right.m_MessageIdentifier &&
                left.m_DataCodingScheme == right.m_DataCodingScheme &&
                left.m_PageParameter == right.m_PageParameter && left.m_Text == right.m_Text,
            property);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int flags = input.Octet();
    const unsigned int length = input.Word(4);
    const Toolkit::smart_ptr<Pdu> page = input.Pdu();
    if ((flags & 1) == 0)
        page->m_Length = length;
    const unsigned int content = page->m_Length - c_headerSize;
    if (content > c_longest && content <= c_mostContent)
        return 0;

    CBMDecoder decoder;
    decoder.m_Text = L"before";
    const bool isDecoded = Decode(decoder, page);
    Require(isDecoded == (content <= c_mostContent), "exactly a length that no memory holds is refused");
    const auto word = [&page](unsigned int at) { return page->m_Bytes[at] << 8 | page->m_Bytes[at + 1]; };
    Require(decoder.m_SerialNumber == word(0) && decoder.m_MessageIdentifier == word(2) &&
                decoder.m_DataCodingScheme == page->m_Bytes[4] && decoder.m_PageParameter == page->m_Bytes[5],
            "the header is read in any case");
    if (!isDecoded) {
        Require(decoder.m_Text == L"before", "a refused page leaves the text");
        return 0;
    }

    GSMCharSet charSet;
    std::wstring expected = charSet.GsmToUnicode(Septets(*page, content).data(), content);
    for (const wchar_t* around : {L" \t", L"\r", L" \t", L"\n"})
        expected = Without(expected, around);
    Require(decoder.m_Text == expected, "the text is what the septets say, without what surrounds it");

    CBMDecoder reused;
    Decode(reused, new Pdu(TString<char>("1112003201115072614E0F1BC966B49AED86CBC162B21BEC0FB3E7")));
    Decode(reused, page);
    RequireSame(decoder, reused, "a reused decoder reads what a fresh one does");
    if (page->m_Length <= Pdu::CAPACITY) {
        CBMDecoder fromText;
        Decode(fromText, new Pdu(page->GetString()));
        Pdu zeroBehind(page->m_Bytes, page->m_Length);
        if (std::equal(zeroBehind.m_Bytes, zeroBehind.m_Bytes + Pdu::CAPACITY, page->m_Bytes))
            RequireSame(decoder, fromText, "the page's text decodes to the same");
    }
    return 0;
}
