// A text on its way out, as the encoder cuts it.
#ifndef QXPDU_SENDING_H
#define QXPDU_SENDING_H

#include <string>
#include <vector>

#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"

namespace qxpdu {

using Pdus = std::vector<Toolkit::smart_ptr<Encoding::Pdu>>;

/// The PDUs of the text with the settings of the encoder. Throws InputError where they are too many.
Pdus EncodeText(Encoding::PduEncoder& encoder, const TString<wchar_t>& text);

/// Positions, from 1, of the characters that have no code in GSM 7-bit, not even through the Greek table.
std::vector<std::size_t> WithoutCode(const std::u32string& text);

/// "septets" or "characters": what the text of this part is counted in.
const char* UnitsOf(const Encoding::PduDecoder& part);

/// The text of this part in these units, without the header.
unsigned int TextLength(const Encoding::PduDecoder& part);

} // namespace qxpdu

#endif
