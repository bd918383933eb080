/// @file
/// Decoding of a text that arrives as a wide string of GSM codes or of UCS2 hex digits.
#ifndef ENCODING_TEXTDECODER_H
#define ENCODING_TEXTDECODER_H

#include "Encoding/Export.h"
#include "Encoding/GSMCharSet.h"
#include "Toolkit/TString.h"

namespace Encoding {

/// Does all its work when it is made; the result is `m_DecodedText`.
///
/// Threads: an object belongs to the thread that makes it. What a conversion, the allocator or the logger
/// throws passes through.
class ENCODING_API TextDecoder {
    GSMCharSet m_CharSet;

public:
    /// Decodes `text`. With the alphabet 0 (Alphabet::ALPHABET_GSM7) or 4, the low 8 bits of each character
    /// are a GSM code; with any other value, the text is UCS2 hex. Writes one line to the process-wide
    /// logger, severity 2, with the alphabet and each character as eight hexadecimal digits. An empty text
    /// gives an empty result and no line.
    TextDecoder(TString<wchar_t> text, int alphabet);
    ~TextDecoder();
    TextDecoder(const TextDecoder&) = delete;
    TextDecoder& operator=(const TextDecoder&) = delete;

    TString<wchar_t> m_DecodedText; ///< the result
};

} // namespace Encoding

#endif
