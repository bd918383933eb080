// Every truncation of every sample: whether it is decoded, and which members have been written by then.
#include <gtest/gtest.h>

#include "Encoding/PduDecoder.h"
#include "decoder/Record.h"
#include "decoder/Samples.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;

/// What is different at this length from one octet less; at the first length, from a record not written to.
struct Step {
    std::size_t length;
    int result;
    const char* changes;
};

/// Lengths that are not among the steps give what the length before gave. Octets after the end of a
/// truncated PDU are zero in its array, and user data are read from there all the same.
void ExpectSteps(const Bytes& whole, bool noSmsc, const std::vector<Step>& steps) {
    PduDecoder untouched;
    tests::MarkMembers(untouched);
    std::vector<std::string> before = tests::Members(untouched);
    int result = 0;
    auto step = steps.begin();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        PduDecoder decoder;
        tests::MarkMembers(decoder);
        const int decoded = decoder.Decode(
            tests::MakePdu(Bytes(whole.begin(), whole.begin() + static_cast<long>(length))), noSmsc, false);
        const bool isStep = step != steps.end() && step->length == length;
        const std::vector<std::string> after = tests::Members(decoder);
        EXPECT_EQ(tests::Changes(before, after), isStep ? step->changes : "");
        if (isStep)
            result = step++->result;
        EXPECT_EQ(decoded, result);
        before = after;
    }
    EXPECT_EQ(step, steps.end()) << "the table tells of more octets than there are";
}

TEST(Truncations, Deliver) {
    ExpectSteps(tests::Octets(tests::c_deliver), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {8, 0, "Smsc=+123456789012 SmscNpi=1 SmscTon=2"},
                 {9, 0, "SmsType=2 ReplyPath=0 HasUserDataHeader=0"},
                 {10, 0, "Originator= NumberNpi=0 NumberTon=1"},
                 {17, 0, "Originator=+12345678901 NumberNpi=1 NumberTon=2"},
                 {18, 0, "ProtocolId=0"},
                 {19, 0, "DataCoding=0"},
                 {20, 0, "CodingGroup=0 Class=4 Alphabet=0"},
                 {27, 1, "ServiceCentreTime=2012-02-13T12:34:56+02:00 UserDataLength=5 Text="},
                 {28, 1, "Text=H£@@@"},
                 {29, 1, "Text=He@@@"},
                 {30, 1, "Text=Helè@"},
                 {31, 1, "Text=Hellå"},
                 {32, 1, "Text=Hello"}});
}

TEST(Truncations, DeliverWithoutServiceCentre) {
    const Bytes whole = tests::Octets(tests::c_deliver);
    ExpectSteps(
        Bytes(whole.begin() + 8, whole.end()), true,
        {{0, 0, "SmsType=2 ReplyPath=0 HasUserDataHeader=0"}, // no length check before the first octet
         {2, 0, "Originator= NumberNpi=0 NumberTon=1"},
         {9, 0, "Originator=+12345678901 NumberNpi=1 NumberTon=2"},
         {10, 0, "ProtocolId=0"},
         {11, 0, "DataCoding=0"},
         {12, 0, "CodingGroup=0 Class=4 Alphabet=0"},
         {19, 1, "ServiceCentreTime=2012-02-13T12:34:56+02:00 UserDataLength=5 Text="},
         {20, 1, "Text=H£@@@"},
         {21, 1, "Text=He@@@"},
         {22, 1, "Text=Helè@"},
         {23, 1, "Text=Hellå"},
         {24, 1, "Text=Hello"}});
}

TEST(Truncations, DeliverFromLetters) {
    ExpectSteps(tests::Octets(tests::c_deliverFromLetters), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0, "SmsType=2 ReplyPath=1 HasUserDataHeader=0"},
                 {3, 0, "Originator= NumberNpi=0 NumberTon=1"},
                 {7, 0, "Originator=ABC NumberTon=5"},
                 {8, 0, "ProtocolId=64"},
                 {9, 0, "DataCoding=246"},
                 {10, 0, "CodingGroup=4 Class=2 Alphabet=1"},
                 {17, 1, "ServiceCentreTime=2012-02-13T12:34:56-06:00 UserDataLength=2 Text="},
                 {18, 1, "Text=H<00>"},
                 {19, 1, "Text=Hi"}});
}

TEST(Truncations, SubmitWithRelativeValidityPeriod) {
    ExpectSteps(tests::Octets(tests::c_submit), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0,
                  "SmsType=1 ReplyPath=1 HasUserDataHeader=0 StatusReport=1 ValidityFormat=1 "
                  "RejectDuplicates=1"},
                 {3, 0, "MessageReference=42"},
                 {4, 0, "Recipient= NumberNpi=0 NumberTon=1"},
                 {9, 0, "Recipient=+4179123 NumberNpi=1 NumberTon=2"},
                 {10, 0, "ProtocolId=127"},
                 {11, 0, "DataCoding=25"},
                 {12, 0, "ValidityPeriod=167 CodingGroup=0 Class=1 Alphabet=2"},
                 {13, 1, "UserDataLength=4 Text="},
                 {14, 1, "Text=<00><00>"},
                 {15, 1, "Text=H<00>"},
                 {17, 1, "Text=Hi"}});
}

TEST(Truncations, SubmitWithAbsoluteValidityPeriod) {
    ExpectSteps(tests::Octets(tests::c_submitAbsolute), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0,
                  "SmsType=1 ReplyPath=0 HasUserDataHeader=0 StatusReport=0 ValidityFormat=3 "
                  "RejectDuplicates=0"},
                 {3, 0, "MessageReference=0"},
                 {4, 0, "Recipient= NumberNpi=0 NumberTon=1"},
                 {7, 0, "Recipient=1234 NumberNpi=1"},
                 {8, 0, "ProtocolId=0"},
                 {9, 0, "DataCoding=4"},
                 {10, 0, "CodingGroup=0 Class=4 Alphabet=1"},
                 {17, 1, "ValidityTime=2012-02-13T12:34:56+02:00 UserDataLength=2 Text="},
                 {18, 1, "Text=H<00>"},
                 {19, 1, "Text=Hi"}});
}

TEST(Truncations, SubmitWithEnhancedValidityPeriod) {
    ExpectSteps(tests::Octets(tests::c_submitEnhanced), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0,
                  "SmsType=1 ReplyPath=0 HasUserDataHeader=0 StatusReport=0 ValidityFormat=2 "
                  "RejectDuplicates=0"},
                 {3, 0, "MessageReference=7"},
                 {4, 0, "Recipient= NumberNpi=0 NumberTon=1"},
                 {7, 0, "Recipient=1234 NumberNpi=1"},
                 {8, 0, "ProtocolId=0"},
                 {9, 0, "DataCoding=4"},
                 {10, 1, "UserDataLength=2 CodingGroup=0 Class=4 Alphabet=1 Text="},
                 {11, 1, "Text=H<00>"},
                 {12, 1, "Text=Hi"}});
}

TEST(Truncations, StatusReport) {
    ExpectSteps(tests::Octets(tests::c_report), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0, "SmsType=3"},
                 {3, 0, "MessageReference=42"},
                 {4, 0, "Recipient= NumberNpi=0 NumberTon=1"},
                 {9, 0, "Recipient=+4179123 NumberNpi=1 NumberTon=2"},
                 {17, 0, "ServiceCentreTime=2012-02-13T12:34:56+02:00"},
                 {24, 1, "DischargeTime=2012-02-13T12:44:00+02:00 Status=12"}});
}

TEST(Truncations, ReservedType) {
    ExpectSteps(tests::Octets(tests::c_reserved), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0, "SmsType=0"},
                 {3, 0, "Originator= NumberNpi=0 NumberTon=1"},
                 {6, 0, "Originator=1234 NumberNpi=1"},
                 {7, 1, ""}});
}

TEST(Truncations, PartWith8BitReference) {
    ExpectSteps(tests::Octets(tests::c_part), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0, "SmsType=2 ReplyPath=0 HasUserDataHeader=1"},
                 {3, 0, "Originator= NumberNpi=0 NumberTon=1"},
                 {6, 0, "Originator=1234 NumberNpi=1"},
                 {7, 0, "ProtocolId=0"},
                 {8, 0, "DataCoding=0"},
                 {9, 0, "CodingGroup=0 Class=4 Alphabet=0"},
                 {16, 1, "ServiceCentreTime=2012-02-13T12:34:56 UserDataLength=11 Text="},
                 // Zeros are elements without data, and the third one overruns a header of five octets.
                 {17, 0, "Text=before ConcatReference=0 ConcatTotal=0 ConcatSequence=0"},
                 {19, 1, "Text=@@@@"},
                 {20, 1, "ConcatReference=42"},
                 {21, 1, "ConcatTotal=3"},
                 {22, 1, "ConcatSequence=2"},
                 {23, 1, "Text=e@@@"},
                 {24, 1, "Text=el@@"},
                 {25, 1, "Text=ell¥"},
                 {26, 1, "Text=ello"}});
}

TEST(Truncations, PartWith16BitReference) {
    ExpectSteps(tests::Octets(tests::c_part16), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0, "SmsType=2 ReplyPath=0 HasUserDataHeader=1"},
                 {3, 0, "Originator= NumberNpi=0 NumberTon=1"},
                 {6, 0, "Originator=1234 NumberNpi=1"},
                 {7, 0, "ProtocolId=0"},
                 {8, 0, "DataCoding=0"},
                 {9, 0, "CodingGroup=0 Class=4 Alphabet=0"},
                 {16, 1, "ServiceCentreTime=2012-02-13T12:34:56 UserDataLength=13 Text="},
                 // Three elements of zeros fill the header.
                 {17, 1, "Text=@@@@@ ConcatReference=0 ConcatTotal=0 ConcatSequence=0"},
                 {20, 1, "ConcatReference=4608"},
                 {21, 1, "ConcatReference=4660"},
                 {22, 1, "ConcatTotal=3"},
                 {23, 1, "ConcatSequence=1"},
                 {24, 1, "Text=H£@@@"},
                 {25, 1, "Text=He@@@"},
                 {26, 1, "Text=Helè@"},
                 {27, 1, "Text=Hellå"},
                 {28, 1, "Text=Hello"}});
}

TEST(Truncations, SubmitPartWithSeveralElements) {
    ExpectSteps(tests::Octets(tests::c_submitPart), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0,
                  "SmsType=1 ReplyPath=0 HasUserDataHeader=1 StatusReport=0 ValidityFormat=0 "
                  "RejectDuplicates=0"},
                 {3, 0, "MessageReference=0"},
                 {4, 0, "Recipient= NumberNpi=0 NumberTon=1"},
                 {7, 0, "Recipient=1234 NumberNpi=1"},
                 {8, 0, "ProtocolId=0"},
                 {9, 0, "DataCoding=8"},
                 {10, 1, "UserDataLength=16 CodingGroup=0 Class=4 Alphabet=2 Text="},
                 {11, 0, "Text=before ConcatReference=0 ConcatTotal=0 ConcatSequence=0"},
                 {19, 1, "Text=<00><00>"},
                 {20, 1, "ConcatReference=1"},
                 {21, 1, "ConcatTotal=2"},
                 {22, 1, "ConcatSequence=1"},
                 {24, 1, "Text=H<00>"},
                 {26, 1, "Text=Hi"}});
}

TEST(Truncations, WaitingMessages) {
    ExpectSteps(tests::Octets(tests::c_waiting), false,
                {{0, 0, "Smsc= SmscNpi=0 SmscTon=1"},
                 {2, 0, "SmsType=2 ReplyPath=0 HasUserDataHeader=1"},
                 {3, 0, "Originator= NumberNpi=0 NumberTon=1"},
                 {6, 0, "Originator=1234 NumberNpi=1"},
                 {7, 0, "ProtocolId=0"},
                 {8, 0, "DataCoding=208"},
                 {9, 0, "CodingGroup=2 Class=4 Alphabet=0"},
                 {16, 1, "ServiceCentreTime=2012-02-13T12:34:56 UserDataLength=8 Text="},
                 {17, 1, "Text=@@ ConcatReference=0 ConcatTotal=0 ConcatSequence=0"},
                 {19, 1, "ConcatReference=before ConcatSequence=before"},
                 {21, 1, "ConcatTotal=5"},
                 {22, 1, "Text=H£"},
                 {23, 1, "Text=Hi"}});
}

} // namespace
