// Ties the two libraries together: where no row of docs/departures.md is met both read the same values, and
// where they differ a row says why. On random PDUs, sound and damaged.
#include <fstream>
#include <functional>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "Encoding/PduDecoder.h"
#include "Inputs.h"
#include "Messages/Read.h"
#include "reference/Cases.h"

namespace {

using namespace Messages;
using Encoding::Pdu;
using Encoding::PduDecoder;

constexpr auto c_allCases = static_cast<reference::Share>(1'000'000);

/// A message as both libraries have read it.
struct Message {
    OctetView octets;
    Reading standard;
    PduDecoder encoding;
    int result = 0;

    bool Has(RemarkCode code) const {
        return std::any_of(standard.remarks.begin(), standard.remarks.end(),
                           [&](const Remark& remark) { return remark.code == code; });
    }
    bool Has(RemarkCode code, Field field) const {
        return std::any_of(standard.remarks.begin(), standard.remarks.end(), [&](const Remark& remark) {
            return remark.code == code && remark.field == field;
        });
    }
    bool HasRepeated(RemarkCode code, std::uint32_t number) const {
        return std::any_of(standard.remarks.begin(), standard.remarks.end(), [&](const Remark& remark) {
            return remark.code == code && remark.number == number;
        });
    }
    std::uint8_t FirstOctet() const {
        return octets[standard.serviceCentre ? 1U + standard.serviceCentre->length : 0U];
    }
    const Address& Party() const { return *PartyOf(standard.tpdu); }
    const UserData& Data() const {
        static const UserData none;
        const UserData* const data = UserDataOf(standard.tpdu);
        return data == nullptr || IsReport() ? none : *data;
    }
    DataCoding Coding() const {
        const auto* const coding = CodingOf(standard.tpdu);
        return coding == nullptr ? DataCoding() : *coding;
    }
    bool IsReport() const { return standard.Type() == TpduType::StatusReport; }
    bool HasElement(ElementId id) const {
        const auto& elements = Data().elements;
        return std::any_of(elements.begin(), elements.end(),
                           [&](const HeaderElement& element) { return element.Is(id); });
    }
    /// Octets of the header with its length; 0 without one.
    unsigned int HeaderOctets() const { return Data().hasHeader ? 1U + Data().octets[0] : 0U; }
};

bool HasLetters(const std::string& name) {
    return name.find_first_not_of(
               "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 !\"#%&'()*+,-./:;<=>?\n\r") !=
           std::string::npos;
}

bool IsFilledEarly(const Address& address, std::size_t semiOctets) {
    return !address.IsAlphanumeric() && address.text.size() < semiOctets;
}

struct Row {
    const char* name;
    std::function<bool(const Message&)> isMet;
};

bool HasZone(const Message& message, const std::function<bool(int)>& is) {
    const auto isOf = [&](const Timestamp& time) { return time.isValid && is(time.quarters); };
    const Timestamp* const time = TimestampOf(message.standard.tpdu);
    const auto* const report = std::get_if<StatusReport>(&message.standard.tpdu);
    const auto* const submit = std::get_if<Submit>(&message.standard.tpdu);
    return (time != nullptr && isOf(*time)) || (report != nullptr && isOf(report->discharge)) ||
           (submit != nullptr && isOf(submit->validity.Absolute()));
}

bool IsEnhanced(const Message& m) {
    constexpr std::uint8_t formatBits = 0x18;
    constexpr std::uint8_t enhanced = 0x08;
    return m.standard.Type() == TpduType::Submit && (m.FirstOctet() & formatBits) == enhanced;
}

bool IsBarePlus(const Address& address) {
    return address.Type() == TypeOfNumber::International && address.text.empty();
}

const Row c_address[] = {
    {"address-letters",
     [](const Message& m) {
         return m.Party().IsAlphanumeric() &&
                (HasLetters(m.Party().text) || m.Has(RemarkCode::UnknownEscape) ||
                 m.Has(RemarkCode::EscapeAtEnd) || m.Has(RemarkCode::ControlEscape));
     }},
    {"address-at",
     [](const Message& m) {
         return m.Party().IsAlphanumeric() && m.Party().text.find('@') != std::string::npos;
     }},
    {"address-signs",
     [](const Message& m) {
         return !m.Party().IsAlphanumeric() && m.Party().text.find_first_of("*#abc") != std::string::npos;
     }},
    {"address-count", [](const Message& m) { return m.Has(RemarkCode::FillerMissing); }},
    {"address-filler", [](const Message& m) { return IsFilledEarly(m.Party(), m.Party().length); }},
};
/// What may follow a number or a name, which itself is the same but for the rows above.
const Row c_afterNumber[] = {
    {"address-plus", [](const Message& m) { return IsBarePlus(m.Party()); }},
    {"address-overrun", [](const Message& m) { return m.Party().IsAlphanumeric(); }},
    {"address-count", [](const Message& m) { return m.Has(RemarkCode::FillerMissing); }},
    {"address-filler", [](const Message& m) { return IsFilledEarly(m.Party(), m.Party().length); }},
};
const Row c_serviceCentre[] = {
    {"address-plus", [](const Message& m) { return IsBarePlus(*m.standard.serviceCentre); }},
    {"service-centre-letters", [](const Message& m) { return m.standard.serviceCentre->IsAlphanumeric(); }},
    {"address-signs",
     [](const Message& m) {
         return m.standard.serviceCentre->text.find_first_of("*#abc") != std::string::npos;
     }},
    {"address-filler",
     [](const Message& m) { return m.Has(RemarkCode::FillerInside, Field::ServiceCentre); }},
};
const Row c_type[] = {
    {"address-type",
     [](const Message& m) {
         const auto type = m.Party().Type();
         return type != TypeOfNumber::Unknown && type != TypeOfNumber::International &&
                type != TypeOfNumber::Alphanumeric && type != TypeOfNumber::Reserved;
     }},
};
const Row c_plan[] = {
    {"address-plan",
     [](const Message& m) {
         return m.Party().Plan() == NumberingPlan::ServiceCentreSpecific5 ||
                m.Party().Plan() == NumberingPlan::ServiceCentreSpecific6;
     }},
};
const Row c_time[] = {
    {"zone-zero", [](const Message& m) { return HasZone(m, [](int quarters) { return quarters == 0; }); }},
    {"zone-minus-quarter",
     [](const Message& m) { return HasZone(m, [](int quarters) { return quarters == -1; }); }},
    {"zone-hours",
     [](const Message& m) { return HasZone(m, [](int quarters) { return quarters % 4 != 0; }); }},
    {"time-digits", [](const Message& m) { return m.Has(RemarkCode::TimeSemiOctet); }},
    {"time-range",
     [](const Message& m) { return m.Has(RemarkCode::TimeOutOfRange) || m.Has(RemarkCode::TimeAllZero); }},
    {"time-skipped", [](const Message& m) { return m.Has(RemarkCode::TimeOutOfRange); }},
};
const Row c_coding[] = {
    {"coding-reserved", [](const Message& m) { return m.Coding().group == CodingGroup::Reserved; }},
    {"alphabet-reserved",
     [](const Message& m) { return m.Coding().value < 0xC0 && (m.Coding().value & 0x0C) == 0x0C; }},
};
const Row c_status[] = {
    {"status-quality",
     [](const Message& m) { return std::get<StatusReport>(m.standard.tpdu).status == 0x44; }},
    {"status-temporary",
     [](const Message& m) {
         const std::uint8_t status = std::get<StatusReport>(m.standard.tpdu).status;
         return status >= 0x60 && status <= 0x65;
     }},
    {"status-reserved",
     [](const Message& m) {
         const std::uint8_t status = std::get<StatusReport>(m.standard.tpdu).status;
         return (status & 0x1F) > (status < 0x20 ? 2 : status < 0x40 ? 5 : 9) || status >= 0x66;
     }},
};
const Row c_parts[] = {
    {"element-length", [](const Message& m) { return m.Has(RemarkCode::ElementLength); }},
    {"element-concatenation", [](const Message& m) { return m.Has(RemarkCode::ConcatenationInvalid); }},
    {"element-waiting", [](const Message& m) { return m.HasElement(ElementId::SpecialMessageIndication); }},
    {"header-overrun",
     [](const Message& m) { return m.Has(RemarkCode::HeaderOverrun) || m.Has(RemarkCode::HeaderLeftOver); }},
    {"header-past-text",
     [](const Message& m) {
         return m.Has(RemarkCode::HeaderBeyondUserData) || m.Has(RemarkCode::HeaderMissing) ||
                m.HeaderOctets() > m.Data().length;
     }},
};
/// Where it fails, and where the standards' reading goes on.
const Row c_result[] = {
    {"reserved-type", [](const Message& m) { return m.Has(RemarkCode::ReservedType); }},
    {"alphabet-reserved", c_coding[1].isMet},
    {"header-empty", [](const Message& m) { return m.HeaderOctets() == 1; }},
    {"header-overrun", c_parts[3].isMet},
    {"header-past-text", c_parts[4].isMet},
    {"validity-enhanced", IsEnhanced},
    {"report-rest", [](const Message& m) { return m.IsReport(); }},
};
const Row c_text[] = {
    {"small-cedilla", [](const Message& m) { return m.Data().text.find("Ç") != std::string::npos; }},
    {"double-escape", [](const Message& m) { return m.HasRepeated(RemarkCode::UnknownEscape, 0x1B); }},
    {"escaped-return", [](const Message& m) { return m.Has(RemarkCode::ControlEscape); }},
    {"national-languages",
     [](const Message& m) {
         return m.Data().tables.locking != Language::Default || m.Data().tables.single != Language::Default;
     }},
    {"compressed", [](const Message& m) { return m.Coding().isCompressed; }},
    {"coding-reserved", c_coding[0].isMet},
    {"text-past-end", [](const Message& m) { return m.Has(RemarkCode::UserDataMissing); }},
    {"octets-as-text", [](const Message& m) { return m.Coding().alphabet == Alphabet::Data; }},
    {"odd-ucs2", [](const Message& m) { return m.Has(RemarkCode::OddOctet); }},
    {"header-fill",
     [](const Message& m) {
         const unsigned int fill = m.HasElement(ElementId::Concatenation8) ? 1 : 0;
         return m.Data().hasHeader && m.Coding().CountsSeptets() &&
                (7 - 8 * m.HeaderOctets() % 7) % 7 != fill;
     }},
    {"header-septets", [](const Message& m) { return m.Coding().CountsSeptets() && m.HeaderOctets() > 7; }},
};

template <std::size_t Count>
bool IsAnyMet(const Row (&rows)[Count], const Message& message) {
    return std::any_of(std::begin(rows), std::end(rows), [&](const Row& row) { return row.isMet(message); });
}

/// Surrogates that belong together are joined, as is expected of a host.
std::string ToUtf8(const TString<wchar_t>& wide) {
    std::vector<std::uint8_t> units;
    for (const wchar_t character : wide) {
        units.push_back(static_cast<std::uint8_t>(static_cast<unsigned int>(character) >> 8U));
        units.push_back(static_cast<std::uint8_t>(character));
    }
    std::string text;
    AppendUcs2Text(units, text);
    return text;
}

std::string TimeOf(const Toolkit::smart_ptr<Toolkit::DateTime>& time) {
    return time.get() == nullptr ? std::string() : std::string(time->ToString());
}

int TypeIn(const Address& address) {
    switch (address.Type()) {
    case TypeOfNumber::International:
        return Encoding::TypeOfNumber::TON_INTERNATIONAL;
    case TypeOfNumber::Alphanumeric:
        return Encoding::TypeOfNumber::TON_ALPHANUMERIC;
    case TypeOfNumber::Reserved:
        return Encoding::TypeOfNumber::TON_RESERVED;
    case TypeOfNumber::Unknown:
        return Encoding::TypeOfNumber::TON_UNKNOWN;
    default:
        return -1;
    }
}

int PlanIn(const Address& address) {
    constexpr int plans[] = {0, 1, 0, 2, 3, -1, -1, 0, 4, 5, 6, 0, 0, 0, 0, 7};
    return plans[static_cast<std::size_t>(address.Plan())];
}

/// The outcome of a status that both know; -1 where libQX_Encoding has none.
int OutcomeOf(std::uint8_t status) {
    if (status <= 0x02)
        return status;
    if (status >= 0x20 && status <= 0x25)
        return status - 0x20 + 3;
    if (status >= 0x40 && status <= 0x43)
        return status - 0x40 + 9;
    return status >= 0x45 && status <= 0x49 ? status - 0x45 + 13 : -1;
}

/// Compares member by member, and keeps what no row explains.
class Comparison {
public:
    explicit Comparison(const Message& message) : m_Message(message) {}

    template <class Value, std::size_t Count>
    void Of(const char* member, const Value& encoding, const Value& standard, const Row (&rows)[Count]) {
        if (encoding != standard && !IsAnyMet(rows, m_Message))
            m_Unexplained << member << ": " << encoding << " by libQX_Encoding, " << standard
                          << " by the standard\n";
    }
    template <class Value>
    void Of(const char* member, const Value& encoding, const Value& standard) {
        if (encoding != standard)
            m_Unexplained << member << ": " << encoding << " by libQX_Encoding, " << standard
                          << " by the standard\n";
    }

    std::string Unexplained() const { return m_Unexplained.str(); }

private:
    const Message& m_Message;
    std::ostringstream m_Unexplained;
};

void CompareAddresses(const Message& message, Comparison& compare) {
    const PduDecoder& encoding = message.encoding;
    if (message.standard.serviceCentre)
        compare.Of("m_Smsc", ToUtf8(encoding.m_Smsc), message.standard.serviceCentre->ToString(),
                   c_serviceCentre);
    const bool isDeliver = message.standard.Type() == TpduType::Deliver;
    const std::string number = ToUtf8(isDeliver ? encoding.m_Originator : encoding.m_Recipient);
    const std::string party = message.Party().ToString();
    compare.Of("number", number.substr(0, party.size()), party, c_address);
    if (number.size() > party.size())
        compare.Of("after the number", number.substr(party.size()), std::string(), c_afterNumber);
    compare.Of<int>("m_NumberTon", encoding.m_NumberTon, TypeIn(message.Party()), c_type);
    compare.Of<int>("m_NumberNpi", encoding.m_NumberNpi, PlanIn(message.Party()), c_plan);
}

void CompareUserData(const Message& message, Comparison& compare) {
    const PduDecoder& encoding = message.encoding;
    const UserData& data = message.Data();
    const Concatenation parts = data.concatenation.value_or(Concatenation{});
    compare.Of("m_UserDataLength", encoding.m_UserDataLength, int{data.length});
    compare.Of("m_DataCoding", encoding.m_DataCoding, int{message.Coding().value});
    compare.Of<int>("m_Alphabet", encoding.m_Alphabet, static_cast<int>(message.Coding().alphabet), c_coding);
    compare.Of<int>("m_Class", encoding.m_Class, message.Coding().messageClass.value_or(4), c_coding);
    compare.Of("m_ConcatReference", encoding.m_ConcatReference, int{parts.reference}, c_parts);
    compare.Of("m_ConcatTotal", encoding.m_ConcatTotal, int{parts.total}, c_parts);
    compare.Of("m_ConcatSequence", encoding.m_ConcatSequence, int{parts.part}, c_parts);
    compare.Of("m_Text", ToUtf8(encoding.m_Text), data.text, c_text);
}

void CompareType(const Deliver& deliver, const PduDecoder& encoding, Comparison& compare) {
    compare.Of("m_SmsType", int{encoding.m_SmsType}, int{Encoding::MessageTypeIndicator::TP_MTI_SMS_DELIVER});
    compare.Of("m_ReplyPath", encoding.m_ReplyPath, int{deliver.replyPath});
    compare.Of("m_ProtocolId", encoding.m_ProtocolId, int{deliver.protocol});
    compare.Of("m_ServiceCentreTime", TimeOf(encoding.m_ServiceCentreTime), deliver.timestamp.ToString(),
               c_time);
}

void CompareType(const Submit& submit, const PduDecoder& encoding, Comparison& compare) {
    constexpr int formats[] = {0, 2, 1, 3};
    compare.Of("m_SmsType", int{encoding.m_SmsType}, int{Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT});
    compare.Of("m_ReplyPath", encoding.m_ReplyPath, int{submit.replyPath});
    compare.Of("m_RejectDuplicates", encoding.m_RejectDuplicates, int{submit.rejectDuplicates});
    compare.Of("m_StatusReport", encoding.m_StatusReport, int{submit.statusReportRequest});
    compare.Of("m_MessageReference", encoding.m_MessageReference, int{submit.reference});
    compare.Of("m_ProtocolId", encoding.m_ProtocolId, int{submit.protocol});
    compare.Of("m_ValidityFormat", encoding.m_ValidityFormat,
               formats[static_cast<int>(submit.validity.format)]);
    if (submit.validity.format == ValidityFormat::Relative)
        compare.Of("m_ValidityPeriod", encoding.m_ValidityPeriod, int{submit.validity.octets[0]});
    compare.Of("m_ValidityTime", TimeOf(encoding.m_ValidityTime), submit.validity.Absolute().ToString(),
               c_time);
}

void CompareType(const StatusReport& report, const PduDecoder& encoding, Comparison& compare) {
    compare.Of("m_SmsType", int{encoding.m_SmsType},
               int{Encoding::MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT});
    compare.Of("m_MessageReference", encoding.m_MessageReference, int{report.reference});
    compare.Of("m_ServiceCentreTime", TimeOf(encoding.m_ServiceCentreTime), report.timestamp.ToString(),
               c_time);
    compare.Of("m_DischargeTime", TimeOf(encoding.m_DischargeTime), report.discharge.ToString(), c_time);
    compare.Of<int>("m_Status", encoding.m_Status, OutcomeOf(report.status), c_status);
}

template <class Other>
void CompareType(const Other&, const PduDecoder&, Comparison&) {}

std::string Unexplained(const Message& message) {
    Comparison compare(message);
    compare.Of("result", message.result, message.standard.fault ? 0 : 1, c_result);
    // What a decoder wrote before it failed is worth nothing; and what follows an enhanced period is taken
    // from elsewhere.
    const bool isElsewhere = c_result[5].isMet(message) || c_result[0].isMet(message);
    if (message.result == 0 || message.standard.fault || isElsewhere)
        return compare.Unexplained();
    CompareAddresses(message, compare);
    if (!message.IsReport())
        CompareUserData(message, compare);
    std::visit([&](const auto& tpdu) { CompareType(tpdu, message.encoding, compare); },
               message.standard.tpdu);
    return compare.Unexplained();
}

/// The direction whose type libQX_Encoding takes a PDU for (the row "direction").
Direction DirectionOf(const plain::Octets& octets, bool hasServiceCentre) {
    constexpr std::uint8_t submit = 1;
    const std::size_t offset = hasServiceCentre && !octets.empty() ? 1U + octets[0] : 0U;
    return offset < octets.size() && (octets[offset] & 0x03U) == submit ? Direction::FromMobile
                                                                        : Direction::ToMobile;
}

Message ReadByBoth(const plain::Input& input) {
    const bool hasServiceCentre = input.centre != plain::Known::NO;
    Message message;
    message.octets = input.octets;
    const Direction direction = DirectionOf(input.octets, hasServiceCentre);
    message.standard = Read(message.octets, {hasServiceCentre ? Presence::Yes : Presence::No, direction,
                                             Presence::Unknown, std::nullopt});
    Toolkit::smart_ptr<Pdu> pdu(new Pdu());
    pdu->SetBytes(input.octets.data(), static_cast<unsigned int>(input.octets.size()));
    message.result = message.encoding.Decode(pdu, !hasServiceCentre, false);
    return message;
}

TEST(BothLibraries, ReadTheSameWhereNoRowOfTheDeparturesIsMet) {
    reference::RunCases(c_allCases, [](reference::Random& random) -> reference::Difference {
        const plain::Input input = plain::RandomInput(random);
        if (input.octets.size() > Pdu::CAPACITY)
            return std::nullopt;
        const Message message = ReadByBoth(input);
        return reference::Between(Unexplained(message), ToHex(message.octets));
    });
}

TEST(BothLibraries, AreExplainedByRowsThatThereAre) {
    std::ifstream file(QX_DEPARTURES);
    std::stringstream page;
    page << file.rdbuf();
    const auto check = [&](const auto& rows) {
        for (const Row& row : rows)
            EXPECT_NE(page.str().find("<a id=\"" + std::string(row.name) + "\">"), std::string::npos)
                << row.name;
    };
    check(c_address);
    check(c_afterNumber);
    check(c_serviceCentre);
    check(c_type);
    check(c_plan);
    check(c_time);
    check(c_coding);
    check(c_status);
    check(c_parts);
    check(c_result);
    check(c_text);
}

} // namespace
