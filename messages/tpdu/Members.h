// Which member of a type a field is, for those who read fields and those who write them.
#ifndef TPDU_MEMBERS_H
#define TPDU_MEMBERS_H

#include <type_traits>

#include "Messages/Remarks.h"
#include "Messages/Tpdu.h"

namespace Messages {

/// Like `Type`, constant where it is.
template <class Member, class Type>
using MemberOf = std::conditional_t<std::is_const_v<Type>, const Member, Member>;

/// The address of the other party; null where the type has none.
template <class Type>
MemberOf<Address, Type>* PartyIn(Type& tpdu) noexcept {
    if constexpr (requires { tpdu.originator; })
        return &tpdu.originator;
    else if constexpr (requires { tpdu.destination; })
        return &tpdu.destination;
    else if constexpr (requires { tpdu.recipient; })
        return &tpdu.recipient;
    else
        return nullptr;
}

template <class Value>
Value* PointerTo(Value& value) noexcept {
    return &value;
}
template <class Value>
Value* PointerTo(std::optional<Value>& value) noexcept {
    return value ? &*value : nullptr;
}
template <class Value>
const Value* PointerTo(const std::optional<Value>& value) noexcept {
    return value ? &*value : nullptr;
}

/// The user data, or a command's data; null where there is none.
template <class Type>
MemberOf<UserData, Type>* UserDataIn(Type& tpdu) noexcept {
    if constexpr (requires { tpdu.userData; })
        return PointerTo(tpdu.userData);
    else if constexpr (requires { tpdu.data; })
        return &tpdu.data;
    else
        return nullptr;
}

// Each calls `visit(member)` where the type has the field.

/// Flags of the first octet.
template <class Type, class Visit>
void VisitBits(Type& tpdu, Field field, Visit visit) {
    if constexpr (requires { tpdu.moreMessages; })
        if (field == Field::MoreMessages)
            visit(tpdu.moreMessages);
    if constexpr (requires { tpdu.loopPrevention; })
        if (field == Field::LoopPrevention)
            visit(tpdu.loopPrevention);
    if constexpr (requires { tpdu.rejectDuplicates; })
        if (field == Field::RejectDuplicates)
            visit(tpdu.rejectDuplicates);
    if constexpr (requires { tpdu.statusReportIndication; })
        if (field == Field::StatusReportIndication)
            visit(tpdu.statusReportIndication);
    if constexpr (requires { tpdu.statusReportRequest; })
        if (field == Field::StatusReportRequest)
            visit(tpdu.statusReportRequest);
    if constexpr (requires { tpdu.isForCommand; })
        if (field == Field::StatusReportQualifier)
            visit(tpdu.isForCommand);
    if constexpr (requires { tpdu.replyPath; })
        if (field == Field::ReplyPath)
            visit(tpdu.replyPath);
}

/// TP-MMS alone says by 0 what its member says by true.
constexpr bool IsTrueAsZero(Field field) {
    return field == Field::MoreMessages;
}

/// Fields of one octet, some of which may be missing.
template <class Type, class Visit>
void VisitOctet(Type& tpdu, Field field, Visit visit) {
    if constexpr (requires { tpdu.reference; })
        if (field == Field::MessageReference)
            visit(tpdu.reference);
    if constexpr (requires { tpdu.protocol; })
        if (field == Field::ProtocolIdentifier)
            visit(tpdu.protocol);
    if constexpr (requires { tpdu.coding; })
        if (field == Field::DataCodingScheme)
            visit(tpdu.coding);
    if constexpr (requires { tpdu.status; })
        if (field == Field::Status)
            visit(tpdu.status);
    if constexpr (requires { tpdu.failureCause; })
        if (field == Field::FailureCause)
            visit(tpdu.failureCause);
    if constexpr (requires { tpdu.parameterIndicator; })
        if (field == Field::ParameterIndicator)
            visit(tpdu.parameterIndicator);
    if constexpr (requires { tpdu.commandType; })
        if (field == Field::CommandType)
            visit(tpdu.commandType);
    if constexpr (requires { tpdu.messageNumber; })
        if (field == Field::MessageNumber)
            visit(tpdu.messageNumber);
}

template <class Type, class Visit>
void VisitTime(Type& tpdu, Field field, Visit visit) {
    if constexpr (requires { tpdu.timestamp; })
        if (field == Field::ServiceCentreTimestamp)
            visit(tpdu.timestamp);
    if constexpr (requires { tpdu.discharge; })
        if (field == Field::DischargeTime)
            visit(tpdu.discharge);
}

} // namespace Messages

#endif
