/// @file
/// Decoding of one page of a cell broadcast message, 3GPP TS 23.041, GSM page format.
#ifndef ENCODING_CBMDECODER_H
#define ENCODING_CBMDECODER_H

#include "Encoding/Export.h"
#include "Encoding/Pdu.h"
#include "Encoding/PduCommon.h"

namespace Encoding {

/// Reads the six header octets as raw numbers and the content as text, into `m_Text`. The content is always
/// read as the GSM 7-bit default alphabet, whatever the data coding scheme announces.
///
/// Threads: one decoder is used by one thread at a time, distinct decoders on distinct threads.
class ENCODING_API CBMDecoder : public PduCommon {
public:
    unsigned short m_SerialNumber = 0;      ///< octets 0 and 1: scope, message code, update number
    unsigned short m_MessageIdentifier = 0; ///< octets 2 and 3
    unsigned char m_DataCodingScheme = 0;   ///< octet 4
    unsigned char m_PageParameter = 0;      ///< octet 5: page number, number of pages

    /// Decodes one page, of 88 octets as a rule. As many characters are read as there are content octets, not
    /// 8/7 of that. Blanks (space, tab) and carriage returns around the text are removed, and after that
    /// blanks and line feeds, once each in this order.
    ///
    /// Returns false, with nothing changed, when `pdu` is null, and true otherwise. A page shorter than six
    /// octets throws std::bad_alloc, and so does one with over 0x7FFFFFFF content octets; on a 32-bit host
    /// one with 0x10000000 or more may throw std::length_error. The header members have been written by then,
    /// `m_Text` has not.
    bool Decode(Toolkit::smart_ptr<Pdu> pdu);
};

} // namespace Encoding

#endif
