// Members that several types have, whatever their names.
#ifndef TPDU_MEMBERS_H
#define TPDU_MEMBERS_H

#include <type_traits>

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

} // namespace Messages

#endif
