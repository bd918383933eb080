#include <utility>

#include "tpdu/Members.h"
#include "tpdu/Sinks.h"

namespace Messages {
namespace {

/// Empty, but with the memory that was used.
template <class Container>
Container Emptied(Container& used) noexcept {
    Container fresh = std::move(used);
    fresh.clear();
    return fresh;
}

/// As new, but with the memory that was used.
Address Renewed(Address& used) noexcept {
    Address fresh;
    fresh.text = Emptied(used.text);
    return fresh;
}

UserData Renewed(UserData& used) noexcept {
    UserData fresh;
    fresh.octets = Emptied(used.octets);
    fresh.elements = Emptied(used.elements);
    fresh.text = Emptied(used.text);
    return fresh;
}

void MakeEmpty(TpduType type, Tpdu& tpdu) noexcept {
    switch (type) {
    case TpduType::Deliver:
        tpdu.emplace<Deliver>();
        return;
    case TpduType::DeliverReport:
        tpdu.emplace<DeliverReport>();
        return;
    case TpduType::Submit:
        tpdu.emplace<Submit>();
        return;
    case TpduType::SubmitReport:
        tpdu.emplace<SubmitReport>();
        return;
    case TpduType::StatusReport:
        tpdu.emplace<StatusReport>();
        return;
    case TpduType::Command:
        tpdu.emplace<Command>();
        return;
    case TpduType::None:
        tpdu.emplace<std::monostate>();
        return;
    }
}

} // namespace

void Recording::OnServiceCentre(std::uint8_t length, std::uint8_t typeOfAddress, std::string_view text) {
    m_HasServiceCentre = true;
    if (!m_Reading.serviceCentre)
        m_Reading.serviceCentre.emplace();
    Address& address = *m_Reading.serviceCentre;
    address.length = length;
    address.typeOfAddress = typeOfAddress;
    address.text = text;
}

void Recording::OnType(TpduType type) {
    m_HasType = true;
    Address party;
    std::visit(
        [&](auto& used) {
            if (Address* const one = PartyIn(used))
                party = Renewed(*one);
            if (UserData* const one = UserDataIn(used))
                m_FreshUserData = Renewed(*one);
        },
        m_Reading.tpdu);
    MakeEmpty(type, m_Reading.tpdu);
    std::visit(
        [&](auto& fresh) {
            if (Address* const one = PartyIn(fresh))
                *one = std::move(party);
        },
        m_Reading.tpdu);
}

void Recording::Finish() {
    if (!m_HasServiceCentre)
        m_Reading.serviceCentre.reset();
    if (!m_HasType)
        m_Reading.tpdu.emplace<std::monostate>();
}

// Each sets what a field says in the types that have such a member.

void Recording::OnBits(Field field, std::uint8_t value) {
    const bool isSet = value != 0;
    std::visit(
        [&](auto& tpdu) {
            if constexpr (requires { tpdu.moreMessages; })
                if (field == Field::MoreMessages)
                    tpdu.moreMessages = !isSet;
            if constexpr (requires { tpdu.loopPrevention; })
                if (field == Field::LoopPrevention)
                    tpdu.loopPrevention = isSet;
            if constexpr (requires { tpdu.rejectDuplicates; })
                if (field == Field::RejectDuplicates)
                    tpdu.rejectDuplicates = isSet;
            if constexpr (requires { tpdu.statusReportIndication; })
                if (field == Field::StatusReportIndication)
                    tpdu.statusReportIndication = isSet;
            if constexpr (requires { tpdu.statusReportRequest; })
                if (field == Field::StatusReportRequest)
                    tpdu.statusReportRequest = isSet;
            if constexpr (requires { tpdu.isForCommand; })
                if (field == Field::StatusReportQualifier)
                    tpdu.isForCommand = isSet;
            if constexpr (requires { tpdu.replyPath; })
                if (field == Field::ReplyPath)
                    tpdu.replyPath = isSet;
        },
        m_Reading.tpdu);
}

void Recording::OnOctet(Field field, std::uint8_t value) {
    std::visit(
        [&](auto& tpdu) {
            if constexpr (requires { tpdu.reference; })
                if (field == Field::MessageReference)
                    tpdu.reference = value;
            if constexpr (requires { tpdu.protocol; })
                if (field == Field::ProtocolIdentifier)
                    tpdu.protocol = value;
            if constexpr (requires { tpdu.coding; })
                if (field == Field::DataCodingScheme)
                    tpdu.coding = DataCoding(value);
            if constexpr (requires { tpdu.status; })
                if (field == Field::Status)
                    tpdu.status = value;
            if constexpr (requires { tpdu.failureCause; })
                if (field == Field::FailureCause)
                    tpdu.failureCause = value;
            if constexpr (requires { tpdu.parameterIndicator; })
                if (field == Field::ParameterIndicator)
                    tpdu.parameterIndicator = value;
            if constexpr (requires { tpdu.commandType; })
                if (field == Field::CommandType)
                    tpdu.commandType = value;
            if constexpr (requires { tpdu.messageNumber; })
                if (field == Field::MessageNumber)
                    tpdu.messageNumber = value;
        },
        m_Reading.tpdu);
}

void Recording::OnAddress(std::uint8_t length, std::uint8_t typeOfAddress, std::string_view text) {
    std::visit(
        [&](auto& tpdu) {
            if (Address* const party = PartyIn(tpdu)) {
                party->length = length;
                party->typeOfAddress = typeOfAddress;
                party->text = text;
            }
        },
        m_Reading.tpdu);
}

void Recording::OnTime(Field field, const Timestamp& time) {
    std::visit(
        [&](auto& tpdu) {
            if constexpr (requires { tpdu.timestamp; })
                if (field == Field::ServiceCentreTimestamp)
                    tpdu.timestamp = time;
            if constexpr (requires { tpdu.discharge; })
                if (field == Field::DischargeTime)
                    tpdu.discharge = time;
        },
        m_Reading.tpdu);
}

void Recording::OnValidity(const Validity& validity) {
    if (Submit* const submit = std::get_if<Submit>(&m_Reading.tpdu))
        submit->validity = validity;
}

void Recording::OnUserDataThere() {
    m_UserData = std::visit(
        [&](auto& tpdu) -> UserData* {
            if constexpr (requires { tpdu.userData = std::move(m_FreshUserData); })
                tpdu.userData = std::move(m_FreshUserData);
            else if constexpr (requires { tpdu.data = std::move(m_FreshUserData); })
                tpdu.data = std::move(m_FreshUserData);
            return UserDataIn(tpdu);
        },
        m_Reading.tpdu);
}

void Recording::OnElement(const HeaderElement& element) {
    m_UserData->elements.push_back(element);
}

void Recording::OnUserData(const UserDataHead& head) {
    m_UserData->length = head.length;
    m_UserData->octets.assign(head.octets.begin(), head.octets.end());
    m_UserData->hasHeader = head.hasHeader;
    m_UserData->isHeaderIgnored = head.isHeaderIgnored;
    m_UserData->concatenation = head.concatenation;
    m_UserData->ports = head.ports;
    m_UserData->tables = head.tables;
    m_UserData->textOffset = static_cast<std::uint16_t>(head.textOffset);
    m_UserData->fillBits = static_cast<std::uint8_t>(head.fillBits);
    m_UserData->textUnits = static_cast<std::uint16_t>(head.textUnits);
}

void Recording::OnText(std::string_view text) {
    m_UserData->text = text;
}

} // namespace Messages
