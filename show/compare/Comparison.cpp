#include "show/compare/Comparison.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <type_traits>

#include <fmt/format.h>

#include "Encoding/PduDecoder.h"
#include "show/CodeUnits.h"

namespace show {

namespace {

using Encoding::PduCommon;
using Encoding::PduDecoder;
using Messages::Deliver;
using Messages::Field;
using Messages::StatusReport;
using Messages::Submit;
using Messages::Timestamp;
using Time = Toolkit::smart_ptr<Toolkit::DateTime>;

/// Of an enumerator of the record where it has none for what was sent.
constexpr int c_noEnumerator = -1;

/// Whether wide text is ASCII, and the same; looks at all of it, so that the compiler takes many characters
/// together.
bool IsSameAscii(const std::wstring& units, std::string_view text) {
    if (units.size() != text.size())
        return false;
    std::uint32_t all = 0;
    std::uint32_t others = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<std::uint32_t>(units[i]);
        all |= unit;
        others |= unit ^ static_cast<unsigned char>(text[i]);
    }
    return others == 0 && all < 0x80;
}

/// Whether wide text holds the same characters as text in UTF-8.
bool IsSame(const std::wstring& units, std::string_view text) {
    return IsSameAscii(units, text) || ToUtf8(units) == text;
}

bool IsSame(const std::wstring& number, const Messages::Address* address) {
    return IsSame(number, address != nullptr ? address->ToString() : std::string());
}

bool IsSame(const Time& time, const Timestamp& sent, bool isZoneIgnored) {
    const Toolkit::DateTime* const host = time.get();
    if (host == nullptr || !sent.isValid)
        return host == nullptr && !sent.isValid;
    constexpr int c_quarters = 4; ///< of an hour
    const bool isSameZone = isZoneIgnored
                                ? !host->HasOffset()
                                : host->HasOffset() && host->GetOffset() * c_quarters == sent.quarters;
    return isSameZone && host->GetYear() == sent.year && host->GetMonth() == sent.month &&
           host->GetDay() == sent.day && host->GetHour() == sent.hour && host->GetMinute() == sent.minute &&
           host->GetSecond() == sent.second;
}

/// The units of 8-bit data are octets.
bool IsSame(const std::wstring& units, Messages::OctetView octets) {
    return std::equal(units.begin(), units.end(), octets.begin(), octets.end(),
                      [](wchar_t unit, std::uint8_t octet) { return unit == static_cast<wchar_t>(octet); });
}

int TypeOf(const Messages::Address* address) {
    using Encoding::TypeOfNumber;
    if (address == nullptr)
        return TypeOfNumber::TON_UNKNOWN;
    switch (address->Type()) {
    case Messages::TypeOfNumber::Unknown:
        return TypeOfNumber::TON_UNKNOWN;
    case Messages::TypeOfNumber::International:
        return TypeOfNumber::TON_INTERNATIONAL;
    case Messages::TypeOfNumber::Alphanumeric:
        return TypeOfNumber::TON_ALPHANUMERIC;
    case Messages::TypeOfNumber::Reserved:
        return TypeOfNumber::TON_RESERVED;
    default:
        return c_noEnumerator;
    }
}

int PlanOf(const Messages::Address* address) {
    using Encoding::NumberingPlan;
    if (address == nullptr)
        return NumberingPlan::NPI_UNKNOWN;
    switch (address->Plan()) {
    case Messages::NumberingPlan::Unknown:
        return NumberingPlan::NPI_UNKNOWN;
    case Messages::NumberingPlan::Isdn:
        return NumberingPlan::NPI_ISDN;
    case Messages::NumberingPlan::Data:
        return NumberingPlan::NPI_DATA;
    case Messages::NumberingPlan::Telex:
        return NumberingPlan::NPI_TELEX;
    case Messages::NumberingPlan::National:
        return NumberingPlan::NPI_NATIONAL;
    case Messages::NumberingPlan::Private:
        return NumberingPlan::NPI_PRIVATE;
    case Messages::NumberingPlan::Ermes:
        return NumberingPlan::NPI_ERMES;
    case Messages::NumberingPlan::ReservedForExtension:
        return NumberingPlan::NPI_RESERVED;
    default:
        return c_noEnumerator;
    }
}

int TypeOf(const Messages::Reading& reading) {
    using Encoding::MessageTypeIndicator;
    switch (reading.Type()) {
    case Messages::TpduType::Deliver:
        return MessageTypeIndicator::TP_MTI_SMS_DELIVER;
    case Messages::TpduType::Submit:
        return MessageTypeIndicator::TP_MTI_SMS_SUBMIT;
    case Messages::TpduType::StatusReport:
        return MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT;
    default:
        return c_noEnumerator;
    }
}

struct StatusRow {
    std::uint8_t octet;
    Encoding::DeliveryStatus::TP_ST_Status status;
};

/// The outcomes that have an enumerator of their own.
constexpr StatusRow c_statuses[] = {
    {0x00, Encoding::DeliveryStatus::ST_RECEIVED},
    {0x01, Encoding::DeliveryStatus::ST_FORWARDED_UNCONFIRMED},
    {0x02, Encoding::DeliveryStatus::ST_REPLACED},
    {0x20, Encoding::DeliveryStatus::ST_CONGESTION},
    {0x21, Encoding::DeliveryStatus::ST_SME_BUSY},
    {0x22, Encoding::DeliveryStatus::ST_NO_RESPONSE},
    {0x23, Encoding::DeliveryStatus::ST_SERVICE_REJECTED},
    {0x24, Encoding::DeliveryStatus::ST_QUALITY_OF_SERVICE_UNAVAILABLE},
    {0x25, Encoding::DeliveryStatus::ST_ERROR_IN_SME},
    {0x40, Encoding::DeliveryStatus::ST_REMOTE_PROCEDURE_ERROR},
    {0x41, Encoding::DeliveryStatus::ST_INCOMPATIBLE_DESTINATION},
    {0x42, Encoding::DeliveryStatus::ST_CONNECTION_REJECTED},
    {0x43, Encoding::DeliveryStatus::ST_NOT_OBTAINABLE},
    {0x45, Encoding::DeliveryStatus::ST_NO_INTERWORKING},
    {0x46, Encoding::DeliveryStatus::ST_VALIDITY_PERIOD_EXPIRED},
    {0x47, Encoding::DeliveryStatus::ST_DELETED_BY_ORIGINATING_SME},
    {0x48, Encoding::DeliveryStatus::ST_DELETED_BY_ADMINISTRATION},
    {0x49, Encoding::DeliveryStatus::ST_MESSAGE_DOES_NOT_EXIST},
};

int StatusOf(std::uint8_t octet) {
    const auto* const row = std::find_if(std::begin(c_statuses), std::end(c_statuses),
                                         [octet](const StatusRow& each) { return each.octet == octet; });
    return row != std::end(c_statuses) ? static_cast<int>(row->status) : c_noEnumerator;
}

int AlphabetOf(const Messages::DataCoding& coding) {
    switch (coding.alphabet) {
    case Messages::Alphabet::Data:
        return Encoding::Alphabet::ALPHABET_8BIT;
    case Messages::Alphabet::Ucs2:
        return Encoding::Alphabet::ALPHABET_UCS2;
    case Messages::Alphabet::Gsm7:
        break;
    }
    return Encoding::Alphabet::ALPHABET_GSM7;
}

/// In the record's numbers; see PduDecoder::ReadDCS.
int GroupOf(const Messages::DataCoding& coding) {
    switch (coding.group) {
    case Messages::CodingGroup::General:
        return 0;
    case Messages::CodingGroup::WaitingDiscard:
        return 1;
    case Messages::CodingGroup::WaitingStore:
        return 2;
    case Messages::CodingGroup::WaitingStoreUcs2:
        return 3;
    case Messages::CodingGroup::DataCodingAndClass:
        return 4;
    default:
        return c_noEnumerator;
    }
}

int FormatOf(const Messages::Validity& validity) {
    constexpr std::array<int, 4> c_formats = {0, 2, 1, 3}; // by TP-VPF: none, enhanced, relative, absolute
    return c_formats[static_cast<std::size_t>(validity.format) & 3];
}

/// What the members of the record would be by the standard.
class Sent {
public:
    explicit Sent(const Message& message)
        : m_Message(message),
          m_Deliver(std::get_if<Deliver>(&message.reading.tpdu)),
          m_Submit(std::get_if<Submit>(&message.reading.tpdu)),
          m_Report(std::get_if<StatusReport>(&message.reading.tpdu)),
          m_UserData(Messages::UserDataOf(message.reading.tpdu)),
          m_Coding(Messages::CodingOf(message.reading.tpdu)) {}

    const Messages::Address* ServiceCentre() const {
        return m_Message.reading.serviceCentre ? &*m_Message.reading.serviceCentre : nullptr;
    }
    const Messages::Address* Party() const { return Messages::PartyOf(m_Message.reading.tpdu); }
    const Messages::Address* Originator() const { return m_Deliver != nullptr ? Party() : nullptr; }
    const Messages::Address* Recipient() const { return m_Deliver == nullptr ? Party() : nullptr; }
    int Type() const { return TypeOf(m_Message.reading); }
    int ReplyPath() const {
        return NumberIn([](const auto& tpdu) -> decltype(tpdu.replyPath) { return tpdu.replyPath; });
    }
    int HasHeader() const { return m_UserData != nullptr && HeaderIndicator() != 0; }
    int StatusReportRequest() const {
        return NumberIn(
            [](const auto& tpdu) -> decltype(tpdu.statusReportRequest) { return tpdu.statusReportRequest; });
    }
    int ValidityFormat() const { return m_Submit != nullptr ? FormatOf(m_Submit->validity) : 0; }
    int RejectDuplicates() const { return m_Submit != nullptr && m_Submit->rejectDuplicates; }
    int Reference() const {
        return NumberIn([](const auto& tpdu) -> decltype(tpdu.reference) { return tpdu.reference; });
    }
    int Protocol() const {
        return NumberIn([](const auto& tpdu) -> decltype(tpdu.protocol) { return tpdu.protocol; });
    }
    int Coding() const { return m_Coding != nullptr ? m_Coding->value : 0; }
    int ValidityPeriod() const {
        const bool isRelative =
            m_Submit != nullptr && m_Submit->validity.format == Messages::ValidityFormat::Relative;
        return isRelative ? m_Submit->validity.octets[0] : 0;
    }
    Timestamp ValidityTime() const {
        return m_Submit != nullptr ? m_Submit->validity.Absolute() : Timestamp();
    }
    Timestamp Discharge() const { return m_Report != nullptr ? m_Report->discharge : Timestamp(); }
    Timestamp ServiceCentreTime() const {
        const Timestamp* time = Messages::TimestampOf(m_Message.reading.tpdu);
        return time != nullptr ? *time : Timestamp();
    }
    int UserDataLength() const { return m_UserData != nullptr ? m_UserData->length : 0; }
    int Status() const {
        return m_Report != nullptr ? StatusOf(m_Report->status) : int{Encoding::DeliveryStatus::ST_RECEIVED};
    }
    int Group() const { return m_Coding != nullptr ? GroupOf(*m_Coding) : 0; }
    int Class() const {
        const bool hasClass = m_Coding != nullptr && m_Coding->messageClass.has_value();
        return hasClass ? *m_Coding->messageClass : int{Encoding::MessageClass::CLASS_NONE};
    }
    int Alphabet() const {
        return m_Coding != nullptr ? AlphabetOf(*m_Coding) : int{Encoding::Alphabet::ALPHABET_GSM7};
    }
    bool IsText(const std::wstring& text) const {
        if (m_UserData == nullptr)
            return text.empty();
        const bool isCompressed = m_Coding != nullptr && m_Coding->isCompressed;
        return IsData(m_Message.reading.tpdu) && !isCompressed ? IsSame(text, m_UserData->Content())
                                                               : IsSame(text, m_UserData->text);
    }
    Messages::Concatenation Concatenation() const {
        const bool hasOne = m_UserData != nullptr && m_UserData->concatenation.has_value();
        return hasOne ? *m_UserData->concatenation : Messages::Concatenation();
    }
    bool IsZoneIgnored() const { return m_Message.isZoneIgnored; }

private:
    /// A member that types of TPDU have in common; 0 where this one lacks it.
    template <class Member>
    int NumberIn(Member member) const {
        return std::visit(
            [&](const auto& tpdu) -> int {
                if constexpr (!std::is_invocable_v<Member, decltype(tpdu)>)
                    return 0;
                else if constexpr (std::is_convertible_v<decltype(member(tpdu)), int>)
                    return member(tpdu);
                else
                    return member(tpdu).value_or(0);
            },
            m_Message.reading.tpdu);
    }

    unsigned int HeaderIndicator() const {
        for (const Messages::FieldPlace& place : m_Message.reading.places) {
            if (place.field == Field::UserDataHeaderIndicator)
                return place.value;
        }
        return 0;
    }

    const Message& m_Message;
    const Deliver* m_Deliver;
    const Submit* m_Submit;
    const StatusReport* m_Report;
    const Messages::UserData* m_UserData;
    const Messages::DataCoding* m_Coding;
};

/// A member of the record: its value, and whether that is what was sent. One without the latter says nothing
/// about the message.
struct MemberRow {
    std::string_view name;
    Field field;
    void (*renew)(PduCommon&, const PduCommon& fresh);
    MemberValue (*value)(const PduCommon&);
    bool (*isSame)(const PduCommon&, const Sent&);
    std::span<const std::string_view> enumerators = {}; ///< by their values
};

constexpr std::string_view c_numberTypes[] = {
    "", "TON_UNKNOWN", "TON_INTERNATIONAL", "", "", "TON_ALPHANUMERIC", "", "TON_RESERVED"};
constexpr std::string_view c_plans[] = {"NPI_UNKNOWN",  "NPI_ISDN",    "NPI_DATA",  "NPI_TELEX",
                                        "NPI_NATIONAL", "NPI_PRIVATE", "NPI_ERMES", "NPI_RESERVED"};
constexpr std::string_view c_types[] = {"TP_MTI_UNKNOWN", "TP_MTI_SMS_SUBMIT", "TP_MTI_SMS_DELIVER",
                                        "TP_MTI_SMS_STATUS_REPORT"};
constexpr std::string_view c_classes[] = {"CLASS_0", "CLASS_1", "CLASS_2", "CLASS_3", "CLASS_NONE"};
constexpr std::string_view c_alphabets[] = {"ALPHABET_GSM7", "ALPHABET_8BIT", "ALPHABET_UCS2",
                                            "ALPHABET_RESERVED"};
constexpr std::string_view c_outcomes[] = {"ST_RECEIVED",
                                           "ST_FORWARDED_UNCONFIRMED",
                                           "ST_REPLACED",
                                           "ST_CONGESTION",
                                           "ST_SME_BUSY",
                                           "ST_NO_RESPONSE",
                                           "ST_SERVICE_REJECTED",
                                           "ST_QUALITY_OF_SERVICE_UNAVAILABLE",
                                           "ST_ERROR_IN_SME",
                                           "ST_REMOTE_PROCEDURE_ERROR",
                                           "ST_INCOMPATIBLE_DESTINATION",
                                           "ST_CONNECTION_REJECTED",
                                           "ST_NOT_OBTAINABLE",
                                           "ST_NO_INTERWORKING",
                                           "ST_VALIDITY_PERIOD_EXPIRED",
                                           "ST_DELETED_BY_ORIGINATING_SME",
                                           "ST_DELETED_BY_ADMINISTRATION",
                                           "ST_MESSAGE_DOES_NOT_EXIST",
                                           "ST_UNKNOWN"};

using Enumerators = std::span<const std::string_view>;

/// Most times are null, and stay so without a share being taken.
template <auto Member>
void Renew(PduCommon& record, const PduCommon& fresh) {
    if constexpr (std::is_same_v<decltype(Member), Time PduCommon::*>) {
        if ((record.*Member).get() == nullptr)
            return;
    }
    record.*Member = fresh.*Member;
}

MemberValue TextOf(const std::wstring& text) {
    return ToUtf8(text);
}

MemberValue TimeOf(const Time& time) {
    return time.get() != nullptr ? MemberValue(time->ToString()) : MemberValue();
}

/// Members that are numbers.
template <auto Member, auto SentNumber>
constexpr MemberRow NumberRow(std::string_view name, Field field, Enumerators enumerators = {}) {
    return {name,
            field,
            Renew<Member>,
            [](const PduCommon& record) { return MemberValue(static_cast<int>(record.*Member)); },
            [](const PduCommon& record, const Sent& sent) {
                return static_cast<int>(record.*Member) == (sent.*SentNumber)();
            },
            enumerators};
}

/// Members that are addresses.
template <auto Member, auto SentAddress>
constexpr MemberRow AddressRow(std::string_view name, Field field) {
    return {name, field, Renew<Member>, [](const PduCommon& record) { return TextOf(record.*Member); },
            [](const PduCommon& record, const Sent& sent) {
                return IsSame(record.*Member, (sent.*SentAddress)());
            }};
}

/// Members that are times.
template <auto Member, auto SentTime>
constexpr MemberRow TimeRow(std::string_view name, Field field) {
    return {name, field, Renew<Member>, [](const PduCommon& record) { return TimeOf(record.*Member); },
            [](const PduCommon& record, const Sent& sent) {
                return IsSame(record.*Member, (sent.*SentTime)(), sent.IsZoneIgnored());
            }};
}

/// Members that are of an address, by one of the functions above.
template <auto Member, auto SentAddress, int (*Of)(const Messages::Address*)>
constexpr MemberRow AddressBitsRow(std::string_view name, Field field, Enumerators enumerators) {
    return {name,
            field,
            Renew<Member>,
            [](const PduCommon& record) { return MemberValue(static_cast<int>(record.*Member)); },
            [](const PduCommon& record, const Sent& sent) {
                return static_cast<int>(record.*Member) == Of((sent.*SentAddress)());
            },
            enumerators};
}

/// Members that are of the concatenation.
template <auto Member, auto SentNumber>
constexpr MemberRow ConcatenationRow(std::string_view name) {
    return {name, Field::HeaderElement, Renew<Member>,
            [](const PduCommon& record) { return MemberValue(record.*Member); },
            [](const PduCommon& record, const Sent& sent) {
                return record.*Member == static_cast<int>(sent.Concatenation().*SentNumber);
            }};
}

using R = PduCommon;

/// In the order of the header.
constexpr MemberRow c_members[] = {
    AddressRow<&R::m_Smsc, &Sent::ServiceCentre>("m_Smsc", Field::ServiceCentre),
    AddressRow<&R::m_Originator, &Sent::Originator>("m_Originator", Field::OriginatingAddress),
    AddressRow<&R::m_Recipient, &Sent::Recipient>("m_Recipient", Field::DestinationAddress),
    AddressBitsRow<&R::m_SmscNpi, &Sent::ServiceCentre, PlanOf>("m_SmscNpi", Field::ServiceCentre, c_plans),
    AddressBitsRow<&R::m_SmscTon, &Sent::ServiceCentre, TypeOf>("m_SmscTon", Field::ServiceCentre,
                                                                c_numberTypes),
    AddressBitsRow<&R::m_NumberNpi, &Sent::Party, PlanOf>("m_NumberNpi", Field::OriginatingAddress, c_plans),
    AddressBitsRow<&R::m_NumberTon, &Sent::Party, TypeOf>("m_NumberTon", Field::OriginatingAddress,
                                                          c_numberTypes),
    NumberRow<&R::m_SmsType, &Sent::Type>("m_SmsType", Field::MessageType, c_types),
    NumberRow<&R::m_ReplyPath, &Sent::ReplyPath>("m_ReplyPath", Field::ReplyPath),
    NumberRow<&R::m_HasUserDataHeader, &Sent::HasHeader>("m_HasUserDataHeader",
                                                         Field::UserDataHeaderIndicator),
    NumberRow<&R::m_StatusReport, &Sent::StatusReportRequest>("m_StatusReport", Field::StatusReportRequest),
    NumberRow<&R::m_ValidityFormat, &Sent::ValidityFormat>("m_ValidityFormat", Field::ValidityFormat),
    NumberRow<&R::m_RejectDuplicates, &Sent::RejectDuplicates>("m_RejectDuplicates", Field::RejectDuplicates),
    NumberRow<&R::m_MessageReference, &Sent::Reference>("m_MessageReference", Field::MessageReference),
    NumberRow<&R::m_ProtocolId, &Sent::Protocol>("m_ProtocolId", Field::ProtocolIdentifier),
    NumberRow<&R::m_DataCoding, &Sent::Coding>("m_DataCoding", Field::DataCodingScheme),
    NumberRow<&R::m_ValidityPeriod, &Sent::ValidityPeriod>("m_ValidityPeriod", Field::ValidityPeriod),
    TimeRow<&R::m_ValidityTime, &Sent::ValidityTime>("m_ValidityTime", Field::ValidityPeriod),
    TimeRow<&R::m_DischargeTime, &Sent::Discharge>("m_DischargeTime", Field::DischargeTime),
    TimeRow<&R::m_ServiceCentreTime, &Sent::ServiceCentreTime>("m_ServiceCentreTime",
                                                               Field::ServiceCentreTimestamp),
    NumberRow<&R::m_UserDataLength, &Sent::UserDataLength>("m_UserDataLength", Field::UserDataLength),
    NumberRow<&R::m_Status, &Sent::Status>("m_Status", Field::Status, c_outcomes),
    NumberRow<&R::m_CodingGroup, &Sent::Group>("m_CodingGroup", Field::DataCodingScheme),
    NumberRow<&R::m_Class, &Sent::Class>("m_Class", Field::DataCodingScheme, c_classes),
    NumberRow<&R::m_Alphabet, &Sent::Alphabet>("m_Alphabet", Field::DataCodingScheme, c_alphabets),
    {"m_Text", Field::UserData, Renew<&R::m_Text>, [](const R& record) { return TextOf(record.m_Text); },
     [](const R& record, const Sent& sent) { return sent.IsText(record.m_Text); }},
    {"m_WorkText", Field::UserData, Renew<&R::m_WorkText>,
     [](const R& record) { return TextOf(record.m_WorkText); }, [](const R&, const Sent&) { return true; }},
    ConcatenationRow<&R::m_ConcatReference, &Messages::Concatenation::reference>("m_ConcatReference"),
    ConcatenationRow<&R::m_ConcatTotal, &Messages::Concatenation::total>("m_ConcatTotal"),
    ConcatenationRow<&R::m_ConcatSequence, &Messages::Concatenation::part>("m_ConcatSequence"),
};

RecordMember MemberOf(const MemberRow& row, const PduCommon& record) {
    RecordMember member{row.name, row.field, row.value(record)};
    if (const int* number = std::get_if<int>(&member.value)) {
        const auto index = static_cast<std::size_t>(*number);
        member.enumerator = index < row.enumerators.size() ? row.enumerators[index] : std::string_view();
    }
    return member;
}

/// What a thread decodes with. A decoder's character set takes longer to make than many a message to read; so
/// there is one, and its members are made new for every message.
struct Bench {
    PduDecoder fresh;
    PduDecoder decoder = fresh; // which shares the character set
    Toolkit::smart_ptr<Encoding::Pdu> pdu{new Encoding::Pdu};
};

/// What the decoder of the thread holds until it decodes again.
struct Host {
    const PduCommon& record;
    bool isRejected;
};

Host Decode(const Message& message) {
    thread_local Bench bench;
    for (const MemberRow& row : c_members)
        row.renew(bench.decoder, bench.fresh);
    const auto length =
        static_cast<unsigned int>(std::min<std::size_t>(message.octets.size(), Encoding::Pdu::CAPACITY));
    *bench.pdu = Encoding::Pdu(message.octets.data(), length);
    const int result = bench.decoder.Decode(bench.pdu, !message.hasServiceCentre, message.isZoneIgnored);
    return {bench.decoder, result == 0};
}

} // namespace

HostReading ReadAsHost(const Message& message) {
    const Host host = Decode(message);
    HostReading reading{host.isRejected, {}};
    for (const MemberRow& row : c_members)
        reading.members.push_back(MemberOf(row, host.record));
    return reading;
}

HostReading CompareWithHost(const Message& message) {
    const Host host = Decode(message);
    HostReading reading{host.isRejected, {}};
    if (host.isRejected)
        return reading;
    const Sent sent(message);
    for (const MemberRow& row : c_members) {
        if (!row.isSame(host.record, sent))
            reading.members.push_back(MemberOf(row, host.record));
    }
    return reading;
}

std::string ValueText(const RecordMember& member) {
    if (const int* number = std::get_if<int>(&member.value)) {
        const std::string_view separator = member.enumerator.empty() ? "" : ": ";
        return fmt::format("{}{}{}", *number, separator, member.enumerator);
    }
    if (const std::string* text = std::get_if<std::string>(&member.value))
        return fmt::format("\"{}\"", Printable(*text));
    return "null";
}

void WriteValue(const RecordMember& member, JsonText& object) {
    if (const int* number = std::get_if<int>(&member.value))
        object.Member(member.name, *number);
    else if (const std::string* text = std::get_if<std::string>(&member.value))
        object.Member(member.name, std::string_view(*text));
    else
        object.Null(member.name);
}

void WriteDifferences(const HostReading& host, bool isFault, JsonText& object) {
    const bool differs = host.isRejected != isFault || !host.members.empty();
    if (!differs)
        return;
    object.Object("libQX_Encoding", [&] {
        if (host.isRejected)
            return object.Bool("rejected", true);
        if (isFault)
            object.Member("result", 1);
        for (const RecordMember& member : host.members)
            WriteValue(member, object);
    });
}

} // namespace show
