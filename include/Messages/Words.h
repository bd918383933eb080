/// @file
/// English for what the other headers have as numbers. Nothing else in the library holds a word.
#ifndef MESSAGES_WORDS_H
#define MESSAGES_WORDS_H

#include <cstdint>
#include <string>
#include <string_view>

#include "Messages/Address.h"
#include "Messages/Alphabet.h"
#include "Messages/DataCoding.h"
#include "Messages/Export.h"
#include "Messages/Remarks.h"
#include "Messages/Time.h"
#include "Messages/Tpdu.h"

namespace Messages {

/// All views are of constant text and stay valid for as long as the library is loaded. None of these
/// operations has state.
/// @{

MESSAGES_API std::string_view NameOf(TpduType type) noexcept; ///< "SMS-DELIVER"
MESSAGES_API std::string_view
NameOf(Field field) noexcept; ///< "TP-OA"; "user-data header" and the like where there is no TP name
MESSAGES_API std::string_view DescriptionOf(Field field) noexcept; ///< "originating address"
MESSAGES_API std::string_view NameOf(Language language) noexcept;  ///< "Turkish"
MESSAGES_API std::string_view NameOf(Alphabet alphabet) noexcept;  ///< "GSM 7-bit", "8-bit data", "UCS2"
MESSAGES_API std::string_view NameOf(TypeOfNumber type) noexcept;  ///< "international"
MESSAGES_API std::string_view
NameOfNumberingPlan(std::uint8_t plan) noexcept; ///< "ISDN/telephone (E.164)"; 0 to 15
MESSAGES_API std::string_view MeaningOfProtocol(std::uint8_t pid) noexcept;  ///< TP-PID
MESSAGES_API std::string_view MeaningOfStatus(std::uint8_t status) noexcept; ///< TP-ST
MESSAGES_API std::string_view
ClassOfStatus(std::uint8_t status) noexcept; ///< "completed", "temporary, the service centre tries on", …
MESSAGES_API std::string_view MeaningOfFailureCause(std::uint8_t cause) noexcept; ///< TP-FCS
MESSAGES_API std::string_view MeaningOfCommandType(std::uint8_t type) noexcept;   ///< TP-CT
MESSAGES_API std::string_view NameOfElement(std::uint8_t identifier) noexcept;    ///< of a user-data header
MESSAGES_API std::string_view MeaningOfPort(const Ports& ports,
                                            std::uint16_t port) noexcept;         ///< the range that it is in
MESSAGES_API std::string_view MeaningOfClass(std::uint8_t messageClass) noexcept; ///< 0 to 3
MESSAGES_API std::string_view NameOf(WaitingType type) noexcept;

/// Stable names for programs, in kebab case: "filler-inside", "field-cut".
MESSAGES_API std::string_view CodeOf(RemarkCode code) noexcept;
MESSAGES_API std::string_view CodeOf(FaultCode code) noexcept;
/// @}

/// Whole sentences without a full stop. Throw std::bad_alloc alone.
/// @{
MESSAGES_API std::string MeaningOf(const DataCoding& coding); ///< "GSM 7-bit, class 0: immediate display"
MESSAGES_API std::string MeaningOf(const Validity& validity); ///< "relative, 3 hours"
MESSAGES_API std::string MeaningOf(const Remark& remark);
MESSAGES_API std::string MeaningOf(const Fault& fault);
/// @}

} // namespace Messages

#endif
