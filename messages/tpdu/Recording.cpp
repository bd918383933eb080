#include "tpdu/Recording.h"

#include <utility>

#include "tpdu/Members.h"

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
            VisitBits(tpdu, field, [&](bool& member) { member = isSet != IsTrueAsZero(field); });
        },
        m_Reading.tpdu);
}

void Recording::OnOctet(Field field, std::uint8_t value) {
    const auto set = [&](auto& member) {
        using Member = std::remove_reference_t<decltype(member)>;
        if constexpr (std::is_assignable_v<Member&, std::uint8_t>)
            member = value;
        else
            member = DataCoding(value);
    };
    std::visit([&](auto& tpdu) { VisitOctet(tpdu, field, set); }, m_Reading.tpdu);
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
    std::visit([&](auto& tpdu) { VisitTime(tpdu, field, [&](Timestamp& member) { member = time; }); },
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
    UserDataKeeping(*m_UserData).OnElement(element);
}

void Recording::OnUserData(const UserDataHead& head) {
    UserDataKeeping(*m_UserData).OnUserData(head);
}

void Recording::OnText(std::string_view text) {
    UserDataKeeping(*m_UserData).OnText(text);
}

void UserDataHeadKeeping::OnElement(const HeaderElement& element) {
    m_UserData.elements.push_back(element);
}

void UserDataHeadKeeping::OnUserData(const UserDataHead& head) {
    m_UserData.length = head.length;
    m_UserData.octets.assign(head.octets.begin(), head.octets.end());
    m_UserData.hasHeader = head.hasHeader;
    m_UserData.isHeaderIgnored = head.isHeaderIgnored;
    m_UserData.concatenation = head.concatenation;
    m_UserData.ports = head.ports;
    m_UserData.tables = head.tables;
    m_UserData.textOffset = static_cast<std::uint16_t>(head.textOffset);
    m_UserData.fillBits = static_cast<std::uint8_t>(head.fillBits);
    m_UserData.textUnits = static_cast<std::uint16_t>(head.textUnits);
}

void UserDataKeeping::OnText(std::string_view text) {
    m_UserData.text = text;
}

} // namespace Messages
