#include "Messages/Header.h"

#include "tpdu/Addresses.h"

namespace Messages {
namespace {

constexpr std::uint16_t Wide(OctetView data, std::size_t offset) {
    return static_cast<std::uint16_t>(data[offset] << 8 | data[offset + 1]);
}

constexpr bool Is(std::uint8_t identifier, ElementId id) {
    return identifier == static_cast<std::uint8_t>(id);
}

} // namespace

std::optional<Concatenation> ReadConcatenation(std::uint8_t identifier, OctetView data) noexcept {
    if (Is(identifier, ElementId::Concatenation8) && data.size() == 3)
        return Concatenation{false, data[0], data[1], data[2]};
    if (Is(identifier, ElementId::Concatenation16) && data.size() == 4)
        return Concatenation{true, Wide(data, 0), data[2], data[3]};
    return std::nullopt;
}

std::optional<Ports> ReadPorts(std::uint8_t identifier, OctetView data) noexcept {
    if (Is(identifier, ElementId::Ports8) && data.size() == 2)
        return Ports{false, data[0], data[1]};
    if (Is(identifier, ElementId::Ports16) && data.size() == 4)
        return Ports{true, Wide(data, 0), Wide(data, 2)};
    return std::nullopt;
}

std::optional<SpecialMessageIndication> ReadSpecialMessageIndication(OctetView data) noexcept {
    if (data.size() != 2)
        return std::nullopt;
    SpecialMessageIndication indication;
    indication.isStored = (data[0] & 0x80) != 0;
    indication.profile = data[0] >> 5 & 0x03;
    indication.extendedType = data[0] >> 2 & 0x07;
    indication.type = data[0] & 0x03;
    indication.count = data[1];
    return indication;
}

std::optional<TextFormatting> ReadTextFormatting(OctetView data) noexcept {
    if (data.size() != 3 && data.size() != 4)
        return std::nullopt;
    const std::uint8_t mode = data[2];
    TextFormatting formatting;
    formatting.start = data[0];
    formatting.length = data[1];
    formatting.alignment = mode & 0x03;
    formatting.size = mode >> 2 & 0x03;
    formatting.isBold = (mode & 0x10) != 0;
    formatting.isItalic = (mode & 0x20) != 0;
    formatting.isUnderlined = (mode & 0x40) != 0;
    formatting.isStruck = (mode & 0x80) != 0;
    if (data.size() == 4)
        formatting.colour = data[3];
    return formatting;
}

std::optional<PredefinedObject> ReadPredefinedObject(OctetView data) noexcept {
    if (data.size() != 2)
        return std::nullopt;
    return PredefinedObject{data[0], data[1]};
}

std::optional<ObjectDistribution> ReadObjectDistribution(OctetView data) noexcept {
    if (data.size() != 2)
        return std::nullopt;
    return ObjectDistribution{data[0], (data[1] & 0x01) != 0};
}

std::optional<Hyperlink> ReadHyperlink(OctetView data) noexcept {
    if (data.size() != 4)
        return std::nullopt;
    return Hyperlink{Wide(data, 0), data[2], data[3]};
}

std::optional<Address> ReadReplyAddress(OctetView data) {
    if (!IsReplyAddress(data))
        return std::nullopt;
    AddressText text;
    Address address;
    address.length = data[0];
    address.typeOfAddress = data[1];
    address.text = text.Write(address.Type(), data.Sub(c_addressHeadOctets), data[0], [](auto...) {});
    return address;
}

std::optional<std::uint8_t> ReadSingleOctet(OctetView data) noexcept {
    if (data.size() != 1)
        return std::nullopt;
    return data[0];
}

} // namespace Messages
