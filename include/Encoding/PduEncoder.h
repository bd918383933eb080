/// @file
/// Encoding of SMS-SUBMIT, 3GPP TS 23.040, and of a reduced SMS-DELIVER.
#ifndef ENCODING_PDUENCODER_H
#define ENCODING_PDUENCODER_H

#include <memory>
#include <vector>

#include "Encoding/Export.h"
#include "Encoding/Pdu.h"
#include "Encoding/PduCommon.h"

namespace Encoding {

/// Turns a text, a number and a few options into one PDU, or into several concatenated ones.
///
/// Settings stay in force from one Encode() to the next, and so do the concatenation values: a single-part
/// message encoded after a multi-part one carries the old header until RemoveHeader().
///
/// Threads: one encoder is used by one thread at a time, distinct encoders on distinct threads.
/// Failure: setters never fail and check nothing. What the allocator throws passes through; nothing leaks and
/// the encoder stays usable.
class ENCODING_API PduEncoder : protected PduCommon {
public:
    static const int MAX_7BITDATA_LEN = 160;         ///< septets in a single-part GSM message
    static const int MAX_GSM_LEN_WITH_HEADER = 153;  ///< septets in a part of a longer GSM message
    static const int MAX_DATA_LEN = 140;             ///< octets of user data in one PDU
    static const int MAX_DATA_LEN_WITH_HEADER = 134; ///< octets of UCS2 text in a part of a longer message
    static const int USER_DATA_HEADER_SIZE = 6;      ///< the concatenation header in octets
    static const int _7BITDATA_HEADER_SIZE = 7;      ///< the concatenation header and its fill bit in septets

    /// An encoder for messages of this type. The concatenation reference counter starts at the low 8 bits of
    /// the calendar time.
    explicit PduEncoder(MessageTypeIndicator::TP_MTI_Type type);
    ~PduEncoder() override;
    PduEncoder(const PduEncoder&) = delete;
    PduEncoder& operator=(const PduEncoder&) = delete;

    /// TP-DCS message class; any value outside 0 to 3 means none.
    void SetClass(MessageClass::Class messageClass);
    /// TP-MTI. Only SMS-SUBMIT and SMS-DELIVER have a body; other types give the first octet alone.
    void SetSmSType(MessageTypeIndicator::TP_MTI_Type type);
    /// TP-VP, relative format, clause 9.2.3.12.1, as the octet; the low 8 bits count.
    void SetValidityPeriod(int octet);
    /// TP-VP, relative format; a value without a name gives the octet 0.
    void SetValidityPeriod(ValidityPeriod::TP_VP_Period period);
    /// TP-SRR, clause 9.2.3.5, asked for in the first part only.
    void SetRequireStatusReport(bool require);
    /// TP-RD, clause 9.2.3.25.
    void SetReject_Duplicates(bool reject);
    /// TP-RP, clause 9.2.3.17.
    void SetReplyPath(bool replyPath);
    /// TP-MR, clause 9.2.3.6; the low 8 bits count.
    void SetMessageReference(int reference);
    /// Concatenation values of a part that the host cuts itself; the low 8 bits of each count. A `total` of 0
    /// means no header. A text of several parts sets its own.
    void SetHeader(int reference, int total, int sequence);
    /// Ends the header: the total becomes 0, the other two values stay.
    void RemoveHeader();
    /// The message, in UTF-16 code units, one in each character; of each the low 16 bits count. An empty text
    /// is ignored: the earlier one stays.
    void SetText(const TString<wchar_t>& text);
    /// Replaces a message that is set already, and does nothing on an encoder without one, as is required.
    /// The alphabet is chosen anew by every Encode().
    void SetText(const TString<wchar_t>& text, Alphabet::Encoding alphabet);
    /// The service centre, see EncodeNumber() for `lenient`; an empty number is ignored together with the
    /// flag.
    void SetSmsc(const TString<wchar_t>& number, bool lenient);
    /// The destination, TP-DA; an empty number is ignored: the earlier one stays. The standard has 20 digits
    /// at most (clause 9.1.2.5), which is not checked.
    void SetRecipient(const TString<wchar_t>& number);

    /// GSMCharSet::FindTable() of this encoder's character set; 1 or 0.
    int FindTable(TranslateTable::TT table);
    /// GSMCharSet::AddTranslateTable() of this encoder's character set.
    void AddTranslateTable(TranslateTable::TT table);
    /// GSMCharSet::ClearTranslateTable() of this encoder's character set.
    void ClearTranslateTable();

    /// Address octets of a number: the type of address (0x91 after a leading '+', else 0x81), then the
    /// digits, low semi-octet first, an odd one filled with 0xF. Everything but decimal digits is skipped;
    /// with `lenient` a '+' acts as the digit 0 where a pair begins, and takes back the digit before it
    /// elsewhere, as is required. At most 255 octets: digits from the 508th on are dropped.
    ///
    /// Returns 1 with `*length` octets in `*bytes`, an array that the caller frees with delete[], and `ton`;
    /// returns 0, with null and 0, for an empty number.
    int EncodeNumber(const TString<wchar_t>& number, bool lenient, unsigned int* length,
                     unsigned char** bytes, TypeOfNumber::TON& ton);

    /// The number of PDUs that the text needs, at least 1. Chooses the alphabet: GSM 7-bit when every
    /// character survives the way to GSM and back, else UCS2. With the Greek table selected, a text of which
    /// a letter was transliterated goes out in GSM 7-bit whatever else it holds, and what has no code is left
    /// out, as is required. Encode() asks again by itself. A text of 2^29 characters or more gives 0 where
    /// its size in bytes is negative as a signed 32-bit number.
    unsigned int GetPduCount(const TString<wchar_t>& text);

    /// `count` characters of the text from `start` on, two octets each, high octet first; of each the low 16
    /// bits count. Returns 1 with 2 × count octets in `*bytes`, an array that the caller frees with delete[];
    /// two zero octets follow them. Characters past the end of the text count as U+0000. Returns 0,
    /// with null and 0, for an empty text, a count of 0, or a start at or past the end.
    int GetSubString(const TString<wchar_t>& text, unsigned int start, unsigned int count,
                     unsigned int* length, unsigned char** bytes);

    /// Empties the vector and appends the PDUs of the current settings and text in order, service-centre
    /// address included. An empty vector means that nothing could be encoded; should an allocation fail, the
    /// parts appended so far stay. Each multi-part message takes the next 8-bit concatenation reference.
    void Encode(std::vector<Toolkit::smart_ptr<Pdu>>& pdus);

protected:
    std::unique_ptr<unsigned char[]> m_SmscBytes; ///< service-centre address octets
    unsigned int m_SmscLength;                    ///< octets of it
    int m_SmscLenient;                            ///< the flag given to SetSmsc()

    std::unique_ptr<unsigned char[]> m_RecipientBytes; ///< destination address octets
    unsigned int m_RecipientLength;                    ///< octets of it

    std::unique_ptr<unsigned char[]> m_OriginatorBytes; ///< originating address octets (SMS-DELIVER)
    unsigned int m_OriginatorLength;                    ///< octets of it

    unsigned int m_PartCapacity; ///< septets (GSM) or characters (UCS2) in one part
    int m_UseConcatHeader; ///< 1: parts carry a concatenation header; 0: only message references count up

    unsigned int m_GsmLength;                    ///< septets of the text
    std::unique_ptr<unsigned char[]> m_GsmBytes; ///< the text, one septet a byte, escapes included

    unsigned char m_ReferenceCounter; ///< the concatenation reference given last

    std::unique_ptr<unsigned char[]> m_PartBytes; ///< user data of the part being built
    unsigned int m_PartLength;                    ///< septets (GSM) or octets (UCS2) of it

private:
    void ChooseAlphabet(const TString<wchar_t>& text, unsigned int textBytes);
    void NumberPart(unsigned int part, unsigned int parts);
    unsigned int CutPart(unsigned int offset);
    void WritePart(Pdu& pdu, bool isFirst);
    void WriteServiceCentre(Pdu& pdu);
    void WriteAddress(Pdu& pdu, const TString<wchar_t>& number, std::unique_ptr<unsigned char[]>& bytes,
                      unsigned int& length);
    unsigned int FirstOctet(bool isFirst) const;
    unsigned int DataCoding() const;
    void WriteValidityPeriod(Pdu& pdu) const;
    void WriteUserData(Pdu& pdu) const;
};

} // namespace Encoding

#endif
