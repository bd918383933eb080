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
#include "Messages/Parts.h"
#include "Messages/Remarks.h"
#include "Messages/Time.h"
#include "Messages/Tpdu.h"
#include "Messages/Write.h"

namespace Messages {

/// All views are of constant text and stay valid for as long as the library is loaded. None of these
/// operations has state. An enumerator is given as its header names it.
/// @{

/// "SMS-DELIVER"; empty for none. TS 23.040 clause 9.2.2.
MESSAGES_API std::string_view NameOf(TpduType type) noexcept;
/// "TP-OA"; "header element" and the like where the standard has no such name. TS 23.040 clause 9.2.3.
MESSAGES_API std::string_view NameOf(Field field) noexcept;
/// "originating address".
MESSAGES_API std::string_view DescriptionOf(Field field) noexcept;
/// "Turkish"; "default alphabet". REQUIRES a language that has a table. TS 23.038 clause 6.2.1.2.4.
MESSAGES_API std::string_view NameOf(Language language) noexcept;
/// "GSM 7-bit", "8-bit data", "UCS2". TS 23.038 clause 6.2.
MESSAGES_API std::string_view NameOf(Alphabet alphabet) noexcept;
/// "international". TS 23.040 clause 9.1.2.5, as numbering plans are.
MESSAGES_API std::string_view NameOf(TypeOfNumber type) noexcept;
/// "ISDN or telephone (E.164)"; of bits 3 to 0.
MESSAGES_API std::string_view NameOfNumberingPlan(std::uint8_t plan) noexcept;
/// Of TP-PID, TS 23.040 clause 9.2.3.9: "internet e-mail".
MESSAGES_API std::string_view MeaningOfProtocol(std::uint8_t pid) noexcept;
/// Of TP-ST, TS 23.040 clause 9.2.3.15: "validity period expired".
MESSAGES_API std::string_view MeaningOfStatus(std::uint8_t status) noexcept;
/// Of TP-ST: "completed", "temporary error, the service centre tries on", "permanent error", "temporary
/// error, the service centre tries no more", "reserved".
MESSAGES_API std::string_view ClassOfStatus(std::uint8_t status) noexcept;
/// Of TP-FCS, TS 23.040 clause 9.2.3.22: "memory full".
MESSAGES_API std::string_view MeaningOfFailureCause(std::uint8_t cause) noexcept;
/// Of TP-CT, TS 23.040 clause 9.2.3.19: "delete a message".
MESSAGES_API std::string_view MeaningOfCommandType(std::uint8_t type) noexcept;
/// Of an element of the user-data header, TS 23.040 clause 9.2.3.24: "hyperlink".
MESSAGES_API std::string_view NameOfElement(std::uint8_t identifier) noexcept;
/// Who has the port, by the range that it is in, TS 23.040 clauses 9.2.3.24.3 and 9.2.3.24.4: "assigned by
/// IANA". Empty for one that the element cannot hold.
MESSAGES_API std::string_view MeaningOfPort(const Ports& ports, std::uint16_t port) noexcept;
/// Of a message class, 0 to 3, TS 23.038 clause 4: "immediate display".
MESSAGES_API std::string_view MeaningOfClass(std::uint8_t messageClass) noexcept;
/// "voice", "fax", "e-mail", "other". TS 23.038 clause 4.
MESSAGES_API std::string_view NameOf(WaitingType type) noexcept;

/// The name that programs know a remark by, which stays as it is: "filler-inside" for FillerInside.
MESSAGES_API std::string_view CodeOf(RemarkCode code) noexcept;
/// The same of faults: "field-cut".
MESSAGES_API std::string_view CodeOf(FaultCode code) noexcept;
/// The same of what keeps a PDU from being written: "no-time".
MESSAGES_API std::string_view CodeOf(WriteFaultCode code) noexcept;
/// The same of what keeps a text from being cut: "no-character".
MESSAGES_API std::string_view CodeOf(CutFaultCode code) noexcept;
/// The same of why a message is handed back: "timed-out".
MESSAGES_API std::string_view CodeOf(JoinOutcome outcome) noexcept;
/// Why a message is handed back, without a full stop: "all of its parts are there".
MESSAGES_API std::string_view MeaningOf(JoinOutcome outcome) noexcept;
/// @}

/// Whole sentences without a full stop. Throw std::bad_alloc alone.
/// @{

/// "GSM 7-bit, class 0: immediate display". TS 23.038 clause 4.
MESSAGES_API std::string MeaningOf(const DataCoding& coding);
/// "relative, 3 hours". TS 23.040 clause 9.2.3.12.
MESSAGES_API std::string MeaningOf(const Validity& validity);
/// "2 octets after the TPDU".
MESSAGES_API std::string MeaningOf(const Remark& remark);
/// "the octets end in TP-SCTS, which takes 7 octets: 3 are there".
MESSAGES_API std::string MeaningOf(const Fault& fault);
/// "the octets of TP-SCTS are no time".
MESSAGES_API std::string MeaningOf(const WriteFault& fault);
/// "octet 12 of the text: what may be used does not hold U+1F600".
MESSAGES_API std::string MeaningOf(const CutFault& fault);
/// @}

} // namespace Messages

#endif
