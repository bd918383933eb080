#include "Encoding/TextDecoder.h"

#include <utility>

#include "Encoding/UCS2Encoding.h"
#include "Toolkit/ILogger.h"
#include "charset/WideCharacter.h"
#include "pdu/Octets.h"

namespace Encoding {
namespace {

constexpr int c_logSeverity = 2;
constexpr int c_logSourceLine = 49; ///< what the line names as its source, whatever moves in this file
constexpr int c_alphabetGsmToo = 4; ///< no alphabet of its own, and read like the 7-bit one, as is required

/// Each character as eight hexadecimal digits, most significant first.
TString<char> Dump(const TString<wchar_t>& text) {
    TString<char> dump;
    dump.reserve(text.size() * 2 * c_wideSize);
    for (const wchar_t character : text)
        for (int shift = 28; shift >= 0; shift -= 4)
            dump.push_back(UCS2Encoding::c_toHex[static_cast<unsigned int>(character) >> shift & 0x0F]);
    return dump;
}

void Log(const TString<wchar_t>& text, int alphabet) {
    using Toolkit::ILogger;
    const TString<char> dump = Dump(text);
    **ILogger::s_pInstance << Toolkit::SetSeverity(c_logSeverity) << Toolkit::LogSeverity(c_logSeverity)
                           << ILogger::c_strLogToken1 << ILogger::GetTime().c_str() << ILogger::c_strLogToken2
                           << c_logSourceLine << ILogger::c_strLogToken2 << "TextDecoder"
                           << ILogger::c_strLogToken2 << "TextDecoder( " << alphabet << ", " << dump << " )"
                           << ILogger::c_strLogToken3;
}

TString<wchar_t> FromGsm(GSMCharSet& charSet, const TString<wchar_t>& text) {
    const auto codes = MakeOctets(text.size() + 1ULL);
    const auto* character = reinterpret_cast<const unsigned char*>(text.data());
    for (std::size_t i = 0; i < text.size(); ++i, character += c_wideSize)
        codes[i] = LowOctet(character, SystemShare().GetEndian()); // a share each, as is required
    return charSet.GsmToUnicode(codes.get(), static_cast<unsigned int>(text.size()));
}

} // namespace

TextDecoder::TextDecoder(TString<wchar_t> text, int alphabet) : m_DecodedText(TString<wchar_t>::Empty()) {
    if (text.empty())
        return;
    Log(text, alphabet);
    if (alphabet == Alphabet::ALPHABET_GSM7 || alphabet == c_alphabetGsmToo)
        m_DecodedText = FromGsm(m_CharSet, text);
    else
        m_DecodedText = UCS2Encoding::ToUString(text);
}

TextDecoder::~TextDecoder() = default;

} // namespace Encoding
