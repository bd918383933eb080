// The words of remarks and faults, and the names that programs know them by.
#include "Messages/Words.h"

#include <gtest/gtest.h>

namespace {

using namespace Messages;

template <class Case, std::size_t Count>
void ExpectCodesAndSentences(const Case (&cases)[Count]) {
    for (const Case& one : cases) {
        EXPECT_EQ(CodeOf(one.fault.code), one.code);
        EXPECT_EQ(MeaningOf(one.fault), one.meaning);
    }
}

struct RemarkCase {
    Remark remark;
    const char* code;
    const char* meaning;
};

class Remarks : public testing::TestWithParam<RemarkCase> {};

TEST_P(Remarks, HaveACodeAndASentence) {
    EXPECT_EQ(CodeOf(GetParam().remark.code), GetParam().code);
    EXPECT_EQ(MeaningOf(GetParam().remark), GetParam().meaning);
}

constexpr Remark Of(RemarkCode code, std::uint32_t number = 0, std::uint32_t other = 0) {
    return {code, Field::UserDataLength, 7, number, other};
}

INSTANTIATE_TEST_SUITE_P(
    All, Remarks,
    testing::Values(
        RemarkCase{
            Of(RemarkCode::TypeGuessed), "type-guessed",
            "no direction is known, and of the types that TP-MTI allows only the less likely one is sound"},
        RemarkCase{Of(RemarkCode::ReservedType), "reserved-type",
                   "TP-MTI 3 is reserved; it is read as an SMS-DELIVER"},
        RemarkCase{Of(RemarkCode::LengthDisagrees, 1, 25), "length-disagrees",
                   "1 octet announced for the TPDU, 25 found"},
        RemarkCase{Of(RemarkCode::UnusedBitsSet, 0x10), "unused-bits-set",
                   "bits 10 of the first octet are set, which the type does not use"},
        RemarkCase{Of(RemarkCode::SurplusOctets, 2), "surplus-octets", "2 octets after the TPDU"},
        RemarkCase{Of(RemarkCode::ExtensionBitClear), "extension-bit-clear",
                   "bit 7 of the type of address is 0"},
        RemarkCase{Of(RemarkCode::ReservedTypeOfNumber), "reserved-type-of-number",
                   "type of number 7 is reserved"},
        RemarkCase{Of(RemarkCode::ReservedNumberingPlan, 2), "reserved-numbering-plan",
                   "numbering plan 2 is reserved"},
        RemarkCase{Of(RemarkCode::AddressTooLong, 21), "address-too-long",
                   "21 semi-octets in the address, more than 20"},
        RemarkCase{Of(RemarkCode::FillerInside, 3), "filler-inside",
                   "a filler as semi-octet 3 ends the digits"},
        RemarkCase{Of(RemarkCode::FillerMissing, 0xA), "filler-missing",
                   "A after an odd number of digits, where a filler belongs"},
        RemarkCase{Of(RemarkCode::PossibleFilling), "possible-filling",
                   "the last septet of the name is 0: an @, or filling"},
        RemarkCase{Of(RemarkCode::AddressBitsLeft), "address-bits-left",
                   "bits after the last septet of the name are set"},
        RemarkCase{Of(RemarkCode::TimeSemiOctet, 6), "time-semi-octet",
                   "octet 6 of the time has a semi-octet above 9"},
        RemarkCase{Of(RemarkCode::TimeOutOfRange, 1), "time-out-of-range",
                   "octet 1 of the time is out of range"},
        RemarkCase{Of(RemarkCode::TimeAllZero), "time-all-zero", "all octets of the time are 0"},
        RemarkCase{Of(RemarkCode::ReservedValidity, 0x04), "reserved-validity",
                   "the functionality indicator 04 has a reserved format or reserved bits"},
        RemarkCase{Of(RemarkCode::ValidityExtension, 0x81), "validity-extension",
                   "the functionality indicator 81 says that another one follows"},
        RemarkCase{Of(RemarkCode::ValiditySecondsZero), "validity-seconds-zero", "0 seconds are reserved"},
        RemarkCase{Of(RemarkCode::ValidityOctetsSet), "validity-octets-set", "unused octets are not 0"},
        RemarkCase{Of(RemarkCode::ReservedProtocol, 0x80), "reserved-protocol", "TP-PID 80 is reserved"},
        RemarkCase{Of(RemarkCode::ReservedDataCoding, 0x0C), "reserved-data-coding", "TP-UDL 0C is reserved"},
        RemarkCase{Of(RemarkCode::ReservedStatus, 0xFF), "reserved-status", "TP-ST FF is reserved"},
        RemarkCase{Of(RemarkCode::ReservedFailureCause, 0x83), "reserved-failure-cause",
                   "TP-FCS 83 is reserved"},
        RemarkCase{Of(RemarkCode::ReservedCommandType, 0x04), "reserved-command-type",
                   "TP-CT 04 is reserved"},
        RemarkCase{Of(RemarkCode::ReservedParameterBits, 0x78), "reserved-parameter-bits",
                   "reserved bits 78 of TP-PI are set"},
        RemarkCase{Of(RemarkCode::ExtendedParameterIndicator, 2), "extended-parameter-indicator",
                   "TP-PI has 2 octets"},
        RemarkCase{Of(RemarkCode::UserDataMissing, 5, 2), "user-data-missing",
                   "TP-UDL announces 5, and 2 are there"},
        RemarkCase{Of(RemarkCode::UserDataTooLong, 141, 140), "user-data-too-long",
                   "141 octets of user data, where at most 140 fit"},
        RemarkCase{Of(RemarkCode::Compressed), "compressed", "the text is compressed, and is not made"},
        RemarkCase{Of(RemarkCode::SpareBitsSet), "spare-bits-set", "bits after the last septet are set"},
        RemarkCase{Of(RemarkCode::FillBitsSet), "fill-bits-set", "fill bits are set"},
        RemarkCase{Of(RemarkCode::HeaderMissing), "header-missing",
                   "TP-UDL announces a user-data header, and there is no user data"},
        RemarkCase{Of(RemarkCode::HeaderBeyondUserData, 6, 2), "header-beyond-user-data",
                   "the header takes 6 octets, and 2 of user data are there"},
        RemarkCase{Of(RemarkCode::HeaderOverrun, 1), "header-overrun",
                   "the header lacks 1 octet of its last element, and is ignored"},
        RemarkCase{Of(RemarkCode::HeaderLeftOver, 1), "header-left-over",
                   "1 octet left over in the header, which is ignored"},
        RemarkCase{Of(RemarkCode::HeaderNotCounted, 6, 7), "header-not-counted",
                   "TP-UDL announces 6 septets, and the header with its fill bits takes 7"},
        RemarkCase{Of(RemarkCode::ElementRepeated, 0x08), "element-repeated",
                   "element 08 (concatenation, 16-bit reference) may stand once; the last valid one holds"},
        RemarkCase{Of(RemarkCode::ElementsExclusive, 0x05, 0x04), "elements-exclusive",
                   "element 05 (application ports, 16-bit) excludes 04 (application ports, 8-bit); the last "
                   "valid one holds"},
        RemarkCase{Of(RemarkCode::ElementLength, 0x00, 2), "element-length",
                   "element 00 (concatenation, 8-bit reference) has 2 octets, which its kind does not have"},
        RemarkCase{Of(RemarkCode::ReservedElement, 0x02), "reserved-element", "element 02 is reserved"},
        RemarkCase{Of(RemarkCode::ConcatenationInvalid, 3, 2), "concatenation-invalid",
                   "part 3 of 2 cannot be; the element is ignored"},
        RemarkCase{
            Of(RemarkCode::UnknownLanguage, 14, 0x24), "unknown-language",
            "there is no language 14 for element 24 (national language single shift), which is ignored"},
        RemarkCase{Of(RemarkCode::EscapeAtEnd), "escape-at-end", "a lone escape ends the text"},
        RemarkCase{Of(RemarkCode::UnknownEscape, 0x41), "unknown-escape",
                   "escape and 41 have no character in the single shift table"},
        RemarkCase{Of(RemarkCode::ControlEscape, 0x0D), "control-escape",
                   "escape and 0D are a control code, which shows nothing"},
        RemarkCase{Of(RemarkCode::NoCharacter, 0x0C), "no-character",
                   "septet 0C has no character in the locking table"},
        RemarkCase{Of(RemarkCode::UnpairedSurrogate, 0xD83D), "unpaired-surrogate",
                   "D83D is half of a character, without the other half"},
        RemarkCase{Of(RemarkCode::OddOctet, 0x04), "odd-octet",
                   "octet 04 is half a unit of UCS2 text, and is passed over"},
        RemarkCase{Of(RemarkCode::PageSurplus, 2), "page-surplus", "2 octets after the end"},
        RemarkCase{Of(RemarkCode::PageParameterZero, 0x01), "page-parameter-zero",
                   "half of the page parameter 01 is 0; it is read as page 1 of 1"},
        RemarkCase{Of(RemarkCode::PageBeyondTotal, 3, 2), "page-beyond-total", "page 3 of 2 cannot be"},
        RemarkCase{Of(RemarkCode::ReservedCellType, 2), "reserved-cell-type",
                   "message type 02 is not that of a CBS message"},
        RemarkCase{Of(RemarkCode::ReservedPageCount, 16), "reserved-page-count",
                   "16 pages, where a message has 1 to 15"},
        RemarkCase{Of(RemarkCode::PagesMissing, 2, 1), "pages-missing", "2 pages announced, 1 wholly there"},
        RemarkCase{Of(RemarkCode::ReservedPageLength, 83), "reserved-page-length",
                   "83 octets are said to be used, where a page has 1 to 82"},
        RemarkCase{Of(RemarkCode::LanguageMissing), "language-missing",
                   "no language stands before the text, where the coding has one"},
        RemarkCase{Of(RemarkCode::PagePossibleFilling, 1), "page-possible-filling",
                   "the text ends in 1 septet of 0: @, or filling"},
        RemarkCase{Of(RemarkCode::NoWarningIdentifier, 4370), "no-warning-identifier",
                   "message identifier 4370 is none of ETWS"},
        RemarkCase{Of(RemarkCode::ReservedWarningType, 5), "reserved-warning-type",
                   "warning type 5 is reserved"},
        RemarkCase{Of(RemarkCode::WarningFillingSet, 1), "warning-filling-set",
                   "filling bits 01 of the warning type are set"},
        RemarkCase{Of(RemarkCode::WarningSecurityMissing), "warning-security-missing",
                   "there is neither a time nor a signature"}));

TEST(Faults, HaveACodeAndASentence) {
    const struct {
        Fault fault;
        const char* code;
        const char* meaning;
    } cases[] = {
        {{FaultCode::Empty, Field::MessageType, 0, 1, 0}, "empty", "there is not one octet"},
        {{FaultCode::FieldCut, Field::ServiceCentreTimestamp, 15, 7, 3},
         "field-cut",
         "the octets end in TP-SCTS, which takes 7 octets: 3 are there"},
        {{FaultCode::ReservedType, Field::MessageType, 0, 1, 1},
         "reserved-type",
         "TP-MTI 3 from the mobile is reserved"},
        {{FaultCode::NotHexadecimal, Field::MessageType, 4, 1, 0},
         "not-hexadecimal",
         "octet 4 is no pair of hexadecimal digits"},
    };
    ExpectCodesAndSentences(cases);
}

TEST(WriteFaults, HaveACodeAndASentence) {
    const auto of = [](WriteFaultCode code, std::uint32_t number = 0, std::uint32_t other = 0) {
        return WriteFault{code, Field::ServiceCentreTimestamp, number, other};
    };
    const struct {
        WriteFault fault;
        const char* code;
        const char* meaning;
    } cases[] = {
        {of(WriteFaultCode::NoType), "no-type", "there is no message to write"},
        {of(WriteFaultCode::ExtensionBitClear), "extension-bit-clear",
         "TP-SCTS: bit 7 of the type of address is 0"},
        {of(WriteFaultCode::AddressCharacter, 0xE9, 2), "address-character", "TP-SCTS cannot hold U+00E9"},
        {of(WriteFaultCode::AddressCharacter, c_notUtf8, 2), "address-character",
         "TP-SCTS cannot hold octets that are not UTF-8"},
        {of(WriteFaultCode::AddressTooLong, 21, 20), "address-too-long",
         "TP-SCTS takes 21 semi-octets, more than 20"},
        {of(WriteFaultCode::NoTime), "no-time", "the octets of TP-SCTS are no time"},
        {of(WriteFaultCode::TimeDisagrees), "time-disagrees",
         "the octets of TP-SCTS are another time than its members"},
        {of(WriteFaultCode::ValidityInvalid, 2), "validity-invalid",
         "octet 2 of TP-SCTS is reserved or out of range"},
        {of(WriteFaultCode::FailureCauseTooLow, 0x7F), "failure-cause-too-low",
         "TP-FCS 7F is below 80, and would be taken for TP-PI"},
        {of(WriteFaultCode::ReservedParameterBits, 0x88), "reserved-parameter-bits",
         "reserved bits 88 of TP-PI are set"},
        {of(WriteFaultCode::UserDataLength, 1, 2), "user-data-length",
         "TP-SCTS announces 1 octet, and 2 are there"},
        {of(WriteFaultCode::UserDataTooLong, 141, 140), "user-data-too-long",
         "141 octets of user data, where at most 140 fit"},
        {of(WriteFaultCode::HeaderInvalid), "header-invalid", "the user-data header does not add up"},
        {of(WriteFaultCode::TextDisagrees), "text-disagrees",
         "the octets of the user data say something else than its members"},
    };
    ExpectCodesAndSentences(cases);
}

TEST(CutFaults, HaveACodeAndASentence) {
    const struct {
        CutFault fault;
        const char* code;
        const char* meaning;
    } cases[] = {
        {{CutFaultCode::NotUtf8, 12, 0}, "not-utf8", "octet 12 of the text is not UTF-8"},
        {{CutFaultCode::NoCharacter, 7, 0x1F600},
         "no-character",
         "octet 7 of the text: what may be used does not hold U+1F600"},
        {{CutFaultCode::NoRoom, 0, 0}, "no-room", "the user-data header leaves no room for a text"},
        {{CutFaultCode::TooManyParts, 0, 0}, "too-many-parts", "more than 255 parts"},
        {{CutFaultCode::Reference, 0, 0}, "reference", "a concatenation reference of 8 bits is at most 255"},
        {{CutFaultCode::NoRandom, 0, 0}, "no-random", "the system gives no random concatenation reference"},
    };
    ExpectCodesAndSentences(cases);
}

TEST(JoinOutcomes, HaveACodeAndASentence) {
    const struct {
        JoinOutcome outcome;
        const char* code;
        const char* meaning;
    } cases[] = {
        {JoinOutcome::Complete, "complete", "all of its parts are there"},
        {JoinOutcome::Duplicate, "duplicate", "it came before, with the same octets"},
        {JoinOutcome::Replaced, "replaced", "a part came again with other octets, and began a new message"},
        {JoinOutcome::TimedOut, "timed-out", "it has waited too long for the parts that are missing"},
        {JoinOutcome::Displaced, "displaced", "other messages needed the room"},
        {JoinOutcome::Finished, "finished", "no more parts come"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(CodeOf(one.outcome), one.code);
        EXPECT_EQ(MeaningOf(one.outcome), one.meaning);
    }
}

} // namespace
