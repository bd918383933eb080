#include "Messages/Tpdu.h"

#include "tpdu/Members.h"

namespace Messages {

const Address* PartyOf(const Tpdu& tpdu) noexcept {
    return std::visit([](const auto& one) { return PartyIn(one); }, tpdu);
}

const UserData* UserDataOf(const Tpdu& tpdu) noexcept {
    return std::visit([](const auto& one) { return UserDataIn(one); }, tpdu);
}

const DataCoding* CodingOf(const Tpdu& tpdu) noexcept {
    return std::visit(
        [](const auto& one) -> const DataCoding* {
            if constexpr (requires { one.coding; })
                return PointerTo(one.coding);
            else
                return nullptr;
        },
        tpdu);
}

const Timestamp* TimestampOf(const Tpdu& tpdu) noexcept {
    return std::visit(
        [](const auto& one) -> const Timestamp* {
            if constexpr (requires { one.timestamp; })
                return &one.timestamp;
            else
                return nullptr;
        },
        tpdu);
}

} // namespace Messages
