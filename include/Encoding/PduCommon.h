/// @file
/// The record of SMS fields that the encoder and the decoders share.
#ifndef ENCODING_PDUCOMMON_H
#define ENCODING_PDUCOMMON_H

#include "Encoding/Export.h"
#include "Encoding/Fields.h"
#include "Encoding/GSMCharSet.h"
#include "Toolkit/DateTime.h"
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"

namespace Encoding {

/// The fields of one message. The order of the members is binding. Nothing is reset between two uses of one
/// object except what the encoder or decoder says that it resets. Numbers in parentheses are clauses of
/// 3GPP TS 23.040.
///
/// Threads: one object is used by one thread at a time. Every use of `m_CharSet` goes through a copy of the
/// pointer, so a character set shared with other objects is never freed while it is in use.
class ENCODING_API PduCommon {
public:
    PduCommon();                                      ///< no text, no numbers, a character set of its own
    PduCommon(const PduCommon&) = default;            ///< the copy shares the character set and the times
    PduCommon& operator=(const PduCommon&) = default; ///< as the copy
    virtual ~PduCommon();

    /// The value of two hexadecimal digits, 0 to 255. Ends early at a NUL: "A" gives 0xA0. A character that
    /// is no digit counts as 0. `digits` must have two characters, or a NUL among them.
    static unsigned int HexaToInt(const unsigned char* digits);

    /// The value of a semi-octet pair, low semi-octet first: 0x21 gives 12. The semi-octets are not checked
    /// to be decimal digits: 0xF1 gives 25.
    static int SwapNumber(unsigned char octet);

    TString<wchar_t> m_Smsc;       ///< service-centre number
    TString<wchar_t> m_Originator; ///< TP-OA (9.2.3.7), of an SMS-DELIVER
    TString<wchar_t> m_Recipient;  ///< TP-DA (9.2.3.8) or, of an SMS-STATUS-REPORT, TP-RA (9.2.3.14)

    NumberingPlan::NPI m_SmscNpi;   ///< of the service-centre number
    TypeOfNumber::TON m_SmscTon;    ///< of the service-centre number
    NumberingPlan::NPI m_NumberNpi; ///< of the originating, destination or recipient address
    TypeOfNumber::TON m_NumberTon;  ///< of the originating, destination or recipient address

    MessageTypeIndicator::TP_MTI_Type m_SmsType; ///< TP-MTI (9.2.3.1)
    int m_ReplyPath;                             ///< TP-RP (9.2.3.17), 0 or 1
    int m_HasUserDataHeader;                     ///< TP-UDHI (9.2.3.23) as decoded, 0 or 1
    int m_StatusReport;                          ///< TP-SRR (9.2.3.5), 0 or 1
    int m_ValidityFormat;                        ///< 0 none, 1 relative, 2 enhanced, 3 absolute
    int m_RejectDuplicates;                      ///< TP-RD (9.2.3.25), 0 or 1
    int m_MessageReference;                      ///< TP-MR (9.2.3.6); the low 8 bits go on the wire
    int m_ProtocolId;                            ///< TP-PID (9.2.3.9); the low 8 bits go on the wire
    int m_DataCoding;                            ///< TP-DCS (9.2.3.10) as decoded, 0 to 255
    int m_ValidityPeriod;                        ///< TP-VP (9.2.3.12), octet of the relative format

    Toolkit::smart_ptr<Toolkit::DateTime> m_ValidityTime;      ///< TP-VP, absolute; may be null
    Toolkit::smart_ptr<Toolkit::DateTime> m_DischargeTime;     ///< TP-DT (9.2.3.13); may be null
    Toolkit::smart_ptr<Toolkit::DateTime> m_ServiceCentreTime; ///< TP-SCTS (9.2.3.11); may be null

    int m_UserDataLength;                  ///< TP-UDL (9.2.3.16) as decoded, 0 to 255 septets or octets
    DeliveryStatus::TP_ST_Status m_Status; ///< TP-ST (9.2.3.15)
    int m_CodingGroup;                     ///< coding group of TP-DCS, 0 to 4; see PduDecoder::ReadDCS
    MessageClass::Class m_Class;           ///< from TP-DCS
    Alphabet::Encoding m_Alphabet;         ///< from TP-DCS

    TString<wchar_t> m_Text;     ///< the message, as the host set it or as decoded
    TString<wchar_t> m_WorkText; ///< the text that is really being encoded

    int m_ConcatReference; ///< concatenation reference; the low 8 bits go on the wire
    int m_ConcatTotal;     ///< number of parts; 0 means no user-data header when encoding
    int m_ConcatSequence;  ///< number of this part, from 1

    Toolkit::smart_ptr<GSMCharSet> m_CharSet; ///< never null; every new object has one of its own
};

} // namespace Encoding

#endif
