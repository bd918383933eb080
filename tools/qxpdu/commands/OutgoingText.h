// A text on its way out, as the encoder cuts it.
#ifndef QXPDU_OUTGOINGTEXT_H
#define QXPDU_OUTGOINGTEXT_H

#include <string>
#include <string_view>
#include <vector>

#include "Encoding/GSMCharSet.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"

namespace qxpdu {

using Pdus = std::vector<Toolkit::smart_ptr<Encoding::Pdu>>;

/// The PDUs of the text with the settings of the encoder. Throws InputError where they are too many.
Pdus EncodeText(Encoding::PduEncoder& encoder, const TString<wchar_t>& text);

/// A character in GSM 7-bit: its codes, none where it has none, and what the receiver reads for them.
struct GsmCharacter {
    TString<char> codes;
    TString<wchar_t> received;
};
GsmCharacter ToGsm(char32_t character, Encoding::GSMCharSet& charSet);

/// Positions, from 1, of the characters that the receiver of a text in GSM 7-bit with the Greek table does
/// not read, but for the Greek letters in place of which capitals stand.
std::vector<std::size_t> LostWithGreek(const std::u32string& text);

std::string_view AlphabetName(Encoding::Alphabet::Encoding alphabet);

/// "septets" or "characters": what the text of this part is counted in.
const char* UnitsOf(const Encoding::PduDecoder& part);

/// The text of this part in these units, without the header.
unsigned int TextLength(const Encoding::PduDecoder& part);

} // namespace qxpdu

#endif
