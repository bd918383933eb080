/// @file
/// The octets of one protocol data unit.
#ifndef ENCODING_PDU_H
#define ENCODING_PDU_H

#include "Encoding/Export.h"
#include "Toolkit/TString.h"

namespace Encoding {

/// Up to 512 octets held inside the object: an SMS TPDU, with or without the service-centre address before
/// it, or a cell broadcast page. It travels as Toolkit::smart_ptr<Pdu>.
///
/// Threads: one object is used by one thread at a time.
/// Failure: nothing is reported; a call that does not fit changes nothing. Only GetString() allocates.
class ENCODING_API Pdu {
public:
    static constexpr unsigned int CAPACITY = 512;     ///< octets that the object holds
    static constexpr unsigned int APPEND_LIMIT = 511; ///< octets up to which Write() appends, as is required

    unsigned char m_Bytes[CAPACITY]; ///< the contents; those from m_Length on are no part of the PDU
    unsigned int m_Length;           ///< octets in the PDU; may exceed CAPACITY, see the constructor

    /// An empty PDU, all octets zero.
    Pdu();

    /// Copies the first min(length, 512) octets. A null `data` gives an empty PDU. A `length` above 512 is
    /// kept in m_Length as given, as is required: a reader never trusts m_Length alone.
    Pdu(const unsigned char* data, unsigned int length);

    /// Reads a plain run of hexadecimal digit pairs, either case, no separators. Nothing is skipped: a
    /// character that is no digit counts as 0 in its place. A last odd character is ignored, as is what
    /// follows the first 1,024 characters.
    explicit Pdu(const TString<char>& hex);

    /// Replaces the contents by `length` octets, 1 to 512; ignored for null and for any other length. The
    /// octets after the new contents keep what they held.
    void SetBytes(const unsigned char* data, unsigned int length);

    /// Appends `length` octets; ignored whole for null, for 0, and when the PDU would exceed 511 octets.
    void Write(const unsigned char* data, unsigned int length);

    /// Appends one octet; ignored when the PDU would exceed 511 octets.
    void Write(unsigned char octet);

    /// An empty PDU again, all octets zero.
    void Clear();

    /// Two upper-case hexadecimal digits for each octet, nothing between them; at most 512 octets.
    TString<char> GetString() const;
};

} // namespace Encoding

#endif
