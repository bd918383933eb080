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

#define QX_FINDING(code, enumerator, sentence)                                                               \
    { code::enumerator, #enumerator, sentence }

/// In the order of the enumerators.
constexpr FindingWords<RemarkCode> c_remarkWords[] = {
    QX_FINDING(RemarkCode, TypeGuessed,
               "no direction is known, and of the types that TP-MTI allows only the less likely one is "
               "sound"),
    QX_FINDING(RemarkCode, ReservedType, "TP-MTI 3 is reserved; it is read as an SMS-DELIVER"),
    QX_FINDING(RemarkCode, LengthDisagrees, "{n:octet} announced for the TPDU, {o} found"),
    QX_FINDING(RemarkCode, UnusedBitsSet,
               "bits {n:x} of the first octet are set, which the type does not use"),
    QX_FINDING(RemarkCode, SurplusOctets, "{n:octet} after the TPDU"),
    QX_FINDING(RemarkCode, ExtensionBitClear, "bit 7 of the type of address is 0"),
    QX_FINDING(RemarkCode, ReservedTypeOfNumber, "type of number 7 is reserved"),
    QX_FINDING(RemarkCode, ReservedNumberingPlan, "numbering plan {n} is reserved"),
    QX_FINDING(RemarkCode, AddressTooLong, "{n:semi-octet} in the address, more than 20"),
    QX_FINDING(RemarkCode, FillerInside, "a filler as semi-octet {n} ends the digits"),
    QX_FINDING(RemarkCode, FillerMissing, "{n:x1} after an odd number of digits, where a filler belongs"),
    QX_FINDING(RemarkCode, PossibleFilling, "the last septet of the name is 0: an @, or filling"),
    QX_FINDING(RemarkCode, AddressBitsLeft, "bits after the last septet of the name are set"),
    QX_FINDING(RemarkCode, TimeSemiOctet, "octet {n} of the time has a semi-octet above 9"),
    QX_FINDING(RemarkCode, TimeOutOfRange, "octet {n} of the time is out of range"),
    QX_FINDING(RemarkCode, TimeAllZero, "all octets of the time are 0"),
    QX_FINDING(RemarkCode, ReservedValidity,
               "the functionality indicator {n:x} has a reserved format or reserved bits"),
    QX_FINDING(RemarkCode, ValidityExtension,
               "the functionality indicator {n:x} says that another one follows"),
    QX_FINDING(RemarkCode, ValiditySecondsZero, "0 seconds are reserved"),
    QX_FINDING(RemarkCode, ValidityOctetsSet, "unused octets are not 0"),
    QX_FINDING(RemarkCode, ReservedProtocol, "TP-PID {n:x} is reserved"),
    QX_FINDING(RemarkCode, ReservedDataCoding, "{f} {n:x} is reserved"),
    QX_FINDING(RemarkCode, ReservedStatus, "TP-ST {n:x} is reserved"),
    QX_FINDING(RemarkCode, ReservedFailureCause, "TP-FCS {n:x} is reserved"),
    QX_FINDING(RemarkCode, ReservedCommandType, "TP-CT {n:x} is reserved"),
    QX_FINDING(RemarkCode, ReservedParameterBits, "reserved bits {n:x} of TP-PI are set"),
    QX_FINDING(RemarkCode, ExtendedParameterIndicator, "TP-PI has {n:octet}"),
    QX_FINDING(RemarkCode, UserDataMissing, "{f} announces {n}, and {o} are there"),
    QX_FINDING(RemarkCode, UserDataTooLong, "{n:octet} of user data, where at most {o} fit"),
    QX_FINDING(RemarkCode, Compressed, "the text is compressed, and is not made"),
    QX_FINDING(RemarkCode, SpareBitsSet, "bits after the last septet are set"),
    QX_FINDING(RemarkCode, FillBitsSet, "fill bits are set"),
    QX_FINDING(RemarkCode, HeaderMissing, "{f} announces a user-data header, and there is no user data"),
    QX_FINDING(RemarkCode, HeaderBeyondUserData,
               "the header takes {n:octet}, and {o} of user data are there"),
    QX_FINDING(RemarkCode, HeaderOverrun, "the header lacks {n:octet} of its last element, and is ignored"),
    QX_FINDING(RemarkCode, HeaderLeftOver, "{n:octet} left over in the header, which is ignored"),
    QX_FINDING(RemarkCode, ElementRepeated, "element {n:element} may stand once; the last valid one holds"),
    QX_FINDING(RemarkCode, ElementsExclusive,
               "element {n:element} excludes {o:element}; the last valid one holds"),
    QX_FINDING(RemarkCode, ElementLength, "element {n:element} has {o:octet}, which its kind does not have"),
    QX_FINDING(RemarkCode, ReservedElement, "element {n:x} is reserved"),
    QX_FINDING(RemarkCode, ConcatenationInvalid, "part {n} of {o} cannot be; the element is ignored"),
    QX_FINDING(RemarkCode, UnknownLanguage,
               "there is no language {n} for element {o:element}, which is ignored"),
    QX_FINDING(RemarkCode, EscapeAtEnd, "a lone escape ends the text"),
    QX_FINDING(RemarkCode, UnknownEscape, "escape and {n:x} have no character in the single shift table"),
    QX_FINDING(RemarkCode, ControlEscape, "escape and {n:x} are a control code, which shows nothing"),
    QX_FINDING(RemarkCode, NoCharacter, "septet {n:x} has no character in the locking table"),
    QX_FINDING(RemarkCode, UnpairedSurrogate, "{n:x4} is half of a character, without the other half"),
    QX_FINDING(RemarkCode, OddOctet, "octet {n:x} is half a unit of UCS2 text, and is passed over"),
    QX_FINDING(RemarkCode, HeaderNotCounted,
               "{f} announces {n:septet}, and the header with its fill bits takes {o}"),
    QX_FINDING(RemarkCode, PageSurplus, "{n:octet} after the end"),
    QX_FINDING(RemarkCode, PageParameterZero,
               "half of the page parameter {n:x} is 0; it is read as page 1 of 1"),
    QX_FINDING(RemarkCode, PageBeyondTotal, "page {n} of {o} cannot be"),
    QX_FINDING(RemarkCode, ReservedCellType, "message type {n:x} is not that of a CBS message"),
    QX_FINDING(RemarkCode, ReservedPageCount, "{n:page}, where a message has 1 to 15"),
    QX_FINDING(RemarkCode, PagesMissing, "{n:page} announced, {o} wholly there"),
    QX_FINDING(RemarkCode, ReservedPageLength, "{n:octet} are said to be used, where a page has 1 to 82"),
    QX_FINDING(RemarkCode, LanguageMissing, "no language stands before the text, where the coding has one"),
    QX_FINDING(RemarkCode, PagePossibleFilling, "the text ends in {n:septet} of 0: @, or filling"),
    QX_FINDING(RemarkCode, NoWarningIdentifier, "message identifier {n} is none of ETWS"),
    QX_FINDING(RemarkCode, ReservedWarningType, "warning type {n} is reserved"),
    QX_FINDING(RemarkCode, WarningFillingSet, "filling bits {n:x} of the warning type are set"),
    QX_FINDING(RemarkCode, WarningSecurityMissing, "there is neither a time nor a signature"),
};

/// In the order of the enumerators. The numbers are the octets that were expected and found.
constexpr FindingWords<FaultCode> c_faultWords[] = {
    QX_FINDING(FaultCode, Empty, "there is not one octet"),
    QX_FINDING(FaultCode, FieldCut, "the octets end in {f}, which takes {n:octet}: {o} are there"),
    QX_FINDING(FaultCode, ReservedType, "TP-MTI 3 from the mobile is reserved"),
    QX_FINDING(FaultCode, NotHexadecimal, "octet {p} is no pair of hexadecimal digits"),
};

/// In the order of the enumerators.
constexpr FindingWords<WriteFaultCode> c_writeFaultWords[] = {
    QX_FINDING(WriteFaultCode, NoType, "there is no message to write"),
    QX_FINDING(WriteFaultCode, ExtensionBitClear, "{f}: bit 7 of the type of address is 0"),
    QX_FINDING(WriteFaultCode, AddressCharacter, "{f} cannot hold {n:character}"),
    QX_FINDING(WriteFaultCode, AddressTooLong, "{f} takes {n:semi-octet}, more than {o}"),
    QX_FINDING(WriteFaultCode, NoTime, "the octets of {f} are no time"),
    QX_FINDING(WriteFaultCode, TimeDisagrees, "the octets of {f} are another time than its members"),
    QX_FINDING(WriteFaultCode, ValidityInvalid, "octet {n} of {f} is reserved or out of range"),
    QX_FINDING(WriteFaultCode, FailureCauseTooLow, "TP-FCS {n:x} is below 80, and would be taken for TP-PI"),
    QX_FINDING(WriteFaultCode, ReservedParameterBits, "reserved bits {n:x} of TP-PI are set"),
    QX_FINDING(WriteFaultCode, UserDataLength, "{f} announces {n:octet}, and {o} are there"),
    QX_FINDING(WriteFaultCode, UserDataTooLong, "{n:octet} of user data, where at most {o} fit"),
    QX_FINDING(WriteFaultCode, HeaderInvalid, "the user-data header does not add up"),
    QX_FINDING(WriteFaultCode, TextDisagrees,
               "the octets of the user data say something else than its members"),
};

/// In the order of the enumerators.
constexpr FindingWords<CutFaultCode> c_cutFaultWords[] = {
    QX_FINDING(CutFaultCode, NotUtf8, "octet {p} of the text is not UTF-8"),
    QX_FINDING(CutFaultCode, NoCharacter,
               "octet {p} of the text: what may be used does not hold {n:character}"),
    QX_FINDING(CutFaultCode, NoRoom, "the user-data header leaves no room for a text"),
    QX_FINDING(CutFaultCode, TooManyParts, "more than 255 parts"),
    QX_FINDING(CutFaultCode, Reference, "a concatenation reference of 8 bits is at most 255"),
    QX_FINDING(CutFaultCode, NoRandom, "the system gives no random concatenation reference"),
};

/// In the order of the enumerators.
constexpr FindingWords<JoinOutcome> c_joinOutcomeWords[] = {
    QX_FINDING(JoinOutcome, Complete, "all of its parts are there"),
    QX_FINDING(JoinOutcome, Duplicate, "it came before, with the same octets"),
    QX_FINDING(JoinOutcome, Replaced, "a part came again with other octets, and began a new message"),
    QX_FINDING(JoinOutcome, TimedOut, "it has waited too long for the parts that are missing"),
    QX_FINDING(JoinOutcome, Displaced, "other messages needed the room"),
    QX_FINDING(JoinOutcome, Finished, "no more parts come"),
};

#undef QX_FINDING

} // namespace Messages

#endif
