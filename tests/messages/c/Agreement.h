// The C interface beside the C++ one, on any octets and texts. For tests and for fuzzing.
#ifndef MESSAGES_C_AGREEMENT_H
#define MESSAGES_C_AGREEMENT_H

#include <string_view>

#include "Messages/Cell.h"
#include "Messages/Parts.h"
#include "Messages/Read.h"

namespace tests {

/// Reads the octets both ways, compares every member, writes what was read both ways, and joins it. Ends the
/// program, with a word on why, where they differ.
void CheckCAgreement(Messages::OctetView pdu, const Messages::ReadOptions& options);

/// The same of cell broadcast.
void CheckCCellAgreement(Messages::OctetView octets, Messages::CellFormat format);

/// Explains and cuts a text both ways.
void CheckCCutAgreement(std::string_view text, const Messages::CutOptions& options);

/// Writes pages both ways.
void CheckCDraftAgreement(const Messages::CellDraft& draft);

/// Makes both ways what messages are written of.
/// @{
void CheckCAddressAgreement(std::string_view text);
void CheckCUserDataAgreement(std::uint8_t coding, Messages::OctetView elements, Messages::OctetView content);
void CheckCTimeAgreement(std::int64_t seconds, int quarters); ///< and periods, and a coding, of the seconds
void CheckCTimeAgreement(int year, int month, int day, int hour, int minute, int second, int quarters);
/// @}

} // namespace tests

#endif
