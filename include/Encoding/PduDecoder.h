/// @file
/// Decoding of SMS-DELIVER, SMS-SUBMIT and SMS-STATUS-REPORT, 3GPP TS 23.040.
#ifndef ENCODING_PDUDECODER_H
#define ENCODING_PDUDECODER_H

#include "Encoding/Export.h"
#include "Encoding/Pdu.h"
#include "Encoding/PduCommon.h"

namespace Encoding {

/// Fills the members of PduCommon from a PDU; the host reads them.
///
/// A member is written only when its field is present, and keeps what an earlier PDU left otherwise; a host
/// that wants a clean result takes a fresh decoder for each PDU. Whatever the PDU, its lengths and the
/// offsets given, nothing outside its 512 octets is read: such an octet counts as 0.
///
/// Threads: one decoder is used by one thread at a time, distinct decoders on distinct threads. A Pdu may be
/// read by several decoders at once.
/// Failure: results only; what the allocator throws passes through.
class ENCODING_API PduDecoder : public PduCommon {
public:
    /// What a field reader returns when the field cannot be read.
    static constexpr unsigned int FIELD_FAILED = 0xFFFFFFFF;

    /// Decodes one PDU. `noSmsc`: the PDU begins with the TPDU's first octet, not with the service-centre
    /// address. `ignoreTimeZone`: times carry no offset. Returns 1 when the PDU was decoded, 0 when it was
    /// rejected; members written before a rejection keep their new values.
    ///
    /// Every field but TP-ST and the user data must be followed by at least one more octet. The user data are
    /// not checked against the length of the PDU.
    int Decode(Toolkit::smart_ptr<Pdu> pdu, bool noSmsc, bool ignoreTimeZone);

    /// Reads the address field at `offset`: length, type of address, digits (clause 9.1.2.5). `semiOctets`
    /// true: the length counts digits, as in a TPDU; false: the octets that follow, as for the service
    /// centre. An international number begins with "+". The semi-octets 10 to 14 read as ":;<=>", a low
    /// semi-octet 15 as "?"; an alphanumeric address is not looked up in the alphabet and ends at its first
    /// septet 0.
    ///
    /// Returns the offset after the field, which may be the length of the PDU, or FIELD_FAILED when the
    /// field does not lie within the PDU: `number` is then empty, `npi` 0 and `ton` 1. A null `pdu` fails
    /// without touching them.
    unsigned int ReadNumber(Toolkit::smart_ptr<Pdu> pdu, unsigned int offset, bool semiOctets,
                            TString<wchar_t>& number, NumberingPlan::NPI& npi, TypeOfNumber::TON& ton);

    /// Reads the seven octets of a time stamp at `offset` (clause 9.2.3.11) into a new DateTime, releasing
    /// the one held before. The zone reaches it in whole hours, a remainder is dropped; a zone of 0 or of one
    /// negative quarter counts as none.
    ///
    /// Returns offset + 7, or FIELD_FAILED, with `time` unchanged, when the PDU does not go on after the
    /// field. A time out of range (month over 12, day over 31, hour over 24, minute or second over 59) is
    /// skipped: `time` is unchanged, the result offset + 7.
    unsigned int ReadTimeStamp(Toolkit::smart_ptr<Pdu> pdu, unsigned int offset,
                               Toolkit::smart_ptr<Toolkit::DateTime>& time, bool ignoreTimeZone);

    /// TP-MTI of a first octet.
    MessageTypeIndicator::TP_MTI_Type ReadSmsType(int firstOctet);

    /// Coding group of a TP-DCS (3GPP TS 23.038 clause 4): 0 general (0x00 to 0xBF), 1 message waiting,
    /// discard (0xC0), 2 message waiting, store, default alphabet (0xD0), 3 the same, UCS2 (0xE0), 4 data
    /// coding / message class (0xF0).
    int ReadDCS(int dcs);

    /// Message class of a TP-DCS whose coding group `m_CodingGroup` holds already.
    MessageClass::Class ReadClass(int dcs);

    /// Alphabet of a TP-DCS whose coding group `m_CodingGroup` holds already.
    Alphabet::Encoding ReadAlphabet(int dcs);

    /// Outcome that a TP-ST octet stands for.
    DeliveryStatus::TP_ST_Status ReadStatus(unsigned char status);
};

} // namespace Encoding

#endif
