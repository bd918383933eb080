// The decoders again, slow and step by step, with a cursor and a phase where the library works on words.
// Shares nothing with the library but the record, the time value and the alphabet.
#ifndef TESTS_DECODER_PLAINREADING_H
#define TESTS_DECODER_PLAINREADING_H

#include "Encoding/CBMDecoder.h"
#include "Encoding/Pdu.h"
#include "Encoding/PduCommon.h"

namespace tests {

/// PduDecoder::Decode() into any record.
int PlainDecode(const Encoding::Pdu& pdu, bool noSmsc, bool ignoreTimeZone, Encoding::PduCommon& record);

/// The text of a cell broadcast page of six octets or more.
TString<wchar_t> PlainPageText(const Encoding::Pdu& page);

} // namespace tests

#endif
