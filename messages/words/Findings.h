// A sentence for each remark, fault and outcome. In braces: n and o, its numbers, p, its octet, and f, the
// name of its field; after a colon what the number is: x an octet in hexadecimal digits, x1 and x4 one and
// four of them, element the identifier of an element with its name, character one of Unicode; anything else
// is counted.
#ifndef WORDS_FINDINGS_H
#define WORDS_FINDINGS_H

#include <string_view>

#include "Messages/Parts.h"
#include "Messages/Remarks.h"
#include "Messages/Write.h"

namespace Messages {

template <class Code>
struct FindingWords {
    Code code;
    std::string_view enumerator; ///< names it to programs, in kebab case
    std::string_view sentence;
};

#define QX_REMARK(enumerator, sentence)                                                                      \
    { RemarkCode::enumerator, #enumerator, sentence }

/// In the order of the enumerators.
constexpr FindingWords<RemarkCode> c_remarkWords[] = {
    QX_REMARK(TypeGuessed,
              "no direction is known, and of the types that TP-MTI allows only the less likely one is "
              "sound"),
    QX_REMARK(ReservedType, "TP-MTI 3 is reserved; it is read as an SMS-DELIVER"),
    QX_REMARK(LengthDisagrees, "{n:octet} announced for the TPDU, {o} found"),
    QX_REMARK(UnusedBitsSet, "bits {n:x} of the first octet are set, which the type does not use"),
    QX_REMARK(SurplusOctets, "{n:octet} after the TPDU"),
    QX_REMARK(ExtensionBitClear, "bit 7 of the type of address is 0"),
    QX_REMARK(ReservedTypeOfNumber, "type of number 7 is reserved"),
    QX_REMARK(ReservedNumberingPlan, "numbering plan {n} is reserved"),
    QX_REMARK(AddressTooLong, "{n:semi-octet} in the address, more than 20"),
    QX_REMARK(FillerInside, "a filler as semi-octet {n} ends the digits"),
    QX_REMARK(FillerMissing, "{n:x1} after an odd number of digits, where a filler belongs"),
    QX_REMARK(PossibleFilling, "the last septet of the name is 0: an @, or filling"),
    QX_REMARK(AddressBitsLeft, "bits after the last septet of the name are set"),
    QX_REMARK(TimeSemiOctet, "octet {n} of the time has a semi-octet above 9"),
    QX_REMARK(TimeOutOfRange, "octet {n} of the time is out of range"),
    QX_REMARK(TimeAllZero, "all octets of the time are 0"),
    QX_REMARK(ReservedValidity, "the functionality indicator {n:x} has a reserved format or reserved bits"),
    QX_REMARK(ValidityExtension, "the functionality indicator {n:x} says that another one follows"),
    QX_REMARK(ValiditySecondsZero, "0 seconds are reserved"),
    QX_REMARK(ValidityOctetsSet, "unused octets are not 0"),
    QX_REMARK(ReservedProtocol, "TP-PID {n:x} is reserved"),
    QX_REMARK(ReservedDataCoding, "{f} {n:x} is reserved"),
    QX_REMARK(ReservedStatus, "TP-ST {n:x} is reserved"),
    QX_REMARK(ReservedFailureCause, "TP-FCS {n:x} is reserved"),
    QX_REMARK(ReservedCommandType, "TP-CT {n:x} is reserved"),
    QX_REMARK(ReservedParameterBits, "reserved bits {n:x} of TP-PI are set"),
    QX_REMARK(ExtendedParameterIndicator, "TP-PI has {n:octet}"),
    QX_REMARK(UserDataMissing, "{f} announces {n}, and {o} are there"),
    QX_REMARK(UserDataTooLong, "{n:octet} of user data, where at most {o} fit"),
    QX_REMARK(Compressed, "the text is compressed, and is not made"),
    QX_REMARK(SpareBitsSet, "bits after the last septet are set"),
    QX_REMARK(FillBitsSet, "fill bits are set"),
    QX_REMARK(HeaderMissing, "{f} announces a user-data header, and there is no user data"),
    QX_REMARK(HeaderBeyondUserData, "the header takes {n:octet}, and {o} of user data are there"),
    QX_REMARK(HeaderOverrun, "the header lacks {n:octet} of its last element, and is ignored"),
    QX_REMARK(HeaderLeftOver, "{n:octet} left over in the header, which is ignored"),
    QX_REMARK(ElementRepeated, "element {n:element} may stand once; the last valid one holds"),
    QX_REMARK(ElementsExclusive, "element {n:element} excludes {o:element}; the last valid one holds"),
    QX_REMARK(ElementLength, "element {n:element} has {o:octet}, which its kind does not have"),
    QX_REMARK(ReservedElement, "element {n:x} is reserved"),
    QX_REMARK(ConcatenationInvalid, "part {n} of {o} cannot be; the element is ignored"),
    QX_REMARK(UnknownLanguage, "there is no language {n} for element {o:element}, which is ignored"),
    QX_REMARK(EscapeAtEnd, "a lone escape ends the text"),
    QX_REMARK(UnknownEscape, "escape and {n:x} have no character in the single shift table"),
    QX_REMARK(ControlEscape, "escape and {n:x} are a control code, which shows nothing"),
    QX_REMARK(NoCharacter, "septet {n:x} has no character in the locking table"),
    QX_REMARK(UnpairedSurrogate, "{n:x4} is half of a character, without the other half"),
    QX_REMARK(OddOctet, "octet {n:x} is half a unit of UCS2 text, and is passed over"),
    QX_REMARK(HeaderNotCounted, "{f} announces {n:septet}, and the header with its fill bits takes {o}"),
    QX_REMARK(PageSurplus, "{n:octet} after the end"),
    QX_REMARK(PageParameterZero, "half of the page parameter {n:x} is 0; it is read as page 1 of 1"),
    QX_REMARK(PageBeyondTotal, "page {n} of {o} cannot be"),
    QX_REMARK(ReservedCellType, "message type {n:x} is not that of a CBS message"),
    QX_REMARK(ReservedPageCount, "{n:page}, where a message has 1 to 15"),
    QX_REMARK(PagesMissing, "{n:page} announced, {o} wholly there"),
    QX_REMARK(ReservedPageLength, "{n:octet} are said to be used, where a page has 1 to 82"),
    QX_REMARK(LanguageMissing, "no language stands before the text, where the coding has one"),
    QX_REMARK(PagePossibleFilling, "the text ends in {n:septet} of 0: @, or filling"),
    QX_REMARK(NoWarningIdentifier, "message identifier {n} is none of ETWS"),
    QX_REMARK(ReservedWarningType, "warning type {n} is reserved"),
    QX_REMARK(WarningFillingSet, "filling bits {n:x} of the warning type are set"),
    QX_REMARK(WarningSecurityMissing, "there is neither a time nor a signature"),
};

#undef QX_REMARK

#define QX_FAULT(enumerator, sentence)                                                                       \
    { FaultCode::enumerator, #enumerator, sentence }

/// In the order of the enumerators. The numbers are the octets that were expected and found.
constexpr FindingWords<FaultCode> c_faultWords[] = {
    QX_FAULT(Empty, "there is not one octet"),
    QX_FAULT(FieldCut, "the octets end in {f}, which takes {n:octet}: {o} are there"),
    QX_FAULT(ReservedType, "TP-MTI 3 from the mobile is reserved"),
    QX_FAULT(NotHexadecimal, "octet {p} is no pair of hexadecimal digits"),
};

#undef QX_FAULT

#define QX_WRITE_FAULT(enumerator, sentence)                                                                 \
    { WriteFaultCode::enumerator, #enumerator, sentence }

/// In the order of the enumerators.
constexpr FindingWords<WriteFaultCode> c_writeFaultWords[] = {
    QX_WRITE_FAULT(NoType, "there is no message to write"),
    QX_WRITE_FAULT(ExtensionBitClear, "{f}: bit 7 of the type of address is 0"),
    QX_WRITE_FAULT(AddressCharacter, "{f} cannot hold {n:character}"),
    QX_WRITE_FAULT(AddressTooLong, "{f} takes {n:semi-octet}, more than {o}"),
    QX_WRITE_FAULT(NoTime, "the octets of {f} are no time"),
    QX_WRITE_FAULT(TimeDisagrees, "the octets of {f} are another time than its members"),
    QX_WRITE_FAULT(ValidityInvalid, "octet {n} of {f} is reserved or out of range"),
    QX_WRITE_FAULT(FailureCauseTooLow, "TP-FCS {n:x} is below 80, and would be taken for TP-PI"),
    QX_WRITE_FAULT(ReservedParameterBits, "reserved bits {n:x} of TP-PI are set"),
    QX_WRITE_FAULT(UserDataLength, "{f} announces {n:octet}, and {o} are there"),
    QX_WRITE_FAULT(UserDataTooLong, "{n:octet} of user data, where at most {o} fit"),
    QX_WRITE_FAULT(HeaderInvalid, "the user-data header does not add up"),
    QX_WRITE_FAULT(TextDisagrees, "the octets of the user data say something else than its members"),
};

#undef QX_WRITE_FAULT

#define QX_CUT_FAULT(enumerator, sentence)                                                                   \
    { CutFaultCode::enumerator, #enumerator, sentence }

/// In the order of the enumerators.
constexpr FindingWords<CutFaultCode> c_cutFaultWords[] = {
    QX_CUT_FAULT(NotUtf8, "octet {p} of the text is not UTF-8"),
    QX_CUT_FAULT(NoCharacter, "octet {p} of the text: what may be used does not hold {n:character}"),
    QX_CUT_FAULT(NoRoom, "the user-data header leaves no room for a text"),
    QX_CUT_FAULT(TooManyParts, "more than 255 parts"),
    QX_CUT_FAULT(Reference, "a concatenation reference of 8 bits is at most 255"),
    QX_CUT_FAULT(NoRandom, "the system gives no random concatenation reference"),
};

#undef QX_CUT_FAULT

#define QX_JOIN_OUTCOME(enumerator, sentence)                                                                \
    { JoinOutcome::enumerator, #enumerator, sentence }

/// In the order of the enumerators.
constexpr FindingWords<JoinOutcome> c_joinOutcomeWords[] = {
    QX_JOIN_OUTCOME(Complete, "all of its parts are there"),
    QX_JOIN_OUTCOME(Duplicate, "it came before, with the same octets"),
    QX_JOIN_OUTCOME(Replaced, "a part came again with other octets, and began a new message"),
    QX_JOIN_OUTCOME(TimedOut, "it has waited too long for the parts that are missing"),
    QX_JOIN_OUTCOME(Displaced, "other messages needed the room"),
    QX_JOIN_OUTCOME(Finished, "no more parts come"),
};

#undef QX_JOIN_OUTCOME

} // namespace Messages

#endif
