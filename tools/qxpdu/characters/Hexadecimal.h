// Octets as hexadecimal text, checked before the codecs see them.
#ifndef QXPDU_HEXADECIMAL_H
#define QXPDU_HEXADECIMAL_H

#include <string_view>
#include <vector>

namespace qxpdu {

/// The text without the blanks, tabs and carriage returns around it.
std::string_view Trimmed(std::string_view text);

/// The octets of hexadecimal digits as they are pasted: blanks, quotation marks and brackets may stand
/// anywhere among them, `0x`, `\x` and `, ; : -` between octets, a label before them; or they
/// are dumped, with offsets before and characters after them. Throws InputError for any other character,
/// which it names with its position from 1 in `text` as given, for an odd number of digits and for none.
std::vector<unsigned char> ReadHex(std::string_view text);

/// The same of a PDU; throws InputError also for more octets than a PDU of libQX_Encoding holds.
std::vector<unsigned char> ReadPduOctets(std::string_view text);

} // namespace qxpdu

#endif
