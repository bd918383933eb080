// Reading of SMS-DELIVER, SMS-SUBMIT and SMS-STATUS-REPORT (3GPP TS 23.040) and of cell broadcast pages
// (3GPP TS 23.041).
#ifndef TESTS_REFERENCE_MODEL_DECODER_H
#define TESTS_REFERENCE_MODEL_DECODER_H

#include <optional>

#include "model/Pdu.h"
#include "model/Types.h"

namespace model {

struct Time {
    unsigned int year, month, day, hour, minute, second;
    std::optional<int> offset; ///< hours
    bool operator==(const Time&) const = default;
};

/// Everything that a decoder shows to its host.
struct Record {
    Text smsc, originator, recipient;
    int smscNpi = 0, smscTon = 1;
    int numberNpi = 0, numberTon = 1;
    int smsType = 0;
    int replyPath = 0, hasUserDataHeader = 0, statusReport = 0, validityFormat = 0, rejectDuplicates = 0;
    int messageReference = 0, protocolId = 0, dataCoding = 0, validityPeriod = 0;
    std::optional<Time> validityTime, dischargeTime, serviceCentreTime;
    int userDataLength = 0;
    int status = 0;
    int codingGroup = 0, messageClass = 4, alphabet = 0;
    Text text, workText;
    int concatReference = 0, concatTotal = 0, concatSequence = 0;
    bool operator==(const Record&) const = default;
};

std::uint32_t ReadNumber(const Pdu* pdu, std::uint32_t offset, bool semiOctets, Text& number, int& npi,
                         int& ton);
std::uint32_t ReadTimeStamp(const Pdu* pdu, std::uint32_t offset, std::optional<Time>& time,
                            bool ignoreTimeZone);

int ReadSmsType(int firstOctet);
int ReadDcs(int dcs);
int ReadClass(int codingGroup, int dcs);
int ReadAlphabet(int codingGroup, int dcs);
int ReadStatus(int status);

/// Decodes into a record that may hold an earlier message.
int Decode(Record& record, const Pdu* pdu, bool noSmsc, bool ignoreTimeZone);

struct CellBroadcastPage {
    unsigned int serialNumber = 0, messageIdentifier = 0, dataCodingScheme = 0, pageParameter = 0;
    Text text;
    bool operator==(const CellBroadcastPage&) const = default;
};

enum class PageOutcome { Rejected, Decoded, OutOfMemory };
PageOutcome DecodePage(CellBroadcastPage& page, const Pdu* pdu);

} // namespace model

#endif
