#include "show/FieldBits.h"

#include <algorithm>
#include <array>
#include <bit>

#include <fmt/format.h>

#include "show/Meanings.h"

namespace qxpdu {

namespace {

/// Coding groups of TP-DCS by its four highest bits.
constexpr unsigned int c_groupReserved = 0x8;
constexpr unsigned int c_groupWaiting = 0xC;
constexpr unsigned int c_groupClass = 0xF;

std::string_view ClassMeaning(unsigned int bits) {
    constexpr std::array<std::string_view, 4> c_classes = {"shown at once, not stored",
                                                           "stored in the device", "stored on the SIM",
                                                           "passed on to the terminal equipment"};
    return c_classes[bits & 3];
}

std::string_view GeneralGroup(unsigned int dcs) {
    constexpr std::array<std::string_view, 3> c_groups = {"general data coding", "automatic deletion",
                                                          "reserved, read as general data coding"};
    return c_groups[dcs >> 6];
}

std::string_view WaitingGroup(unsigned int dcs) {
    constexpr std::array<std::string_view, 3> c_groups = {
        "message waiting, discard", "message waiting, store", "message waiting, store, UCS2"};
    return c_groups[(dcs >> 4) - c_groupWaiting];
}

} // namespace

OctetBits BitsIn(unsigned int octet, unsigned int mask, std::string name, std::string_view meaning) {
    return {mask, std::move(name), (octet & mask) >> std::countr_zero(mask), std::string(meaning)};
}

std::vector<OctetBits> TypeOfAddressBits(unsigned int octet) {
    return {BitsIn(octet, 0x80, "extension", (octet & 0x80) != 0 ? "none" : "another octet"),
            BitsIn(octet, 0x70, "type of number", TypeOfNumberMeaning(octet >> 4)),
            BitsIn(octet, 0x0F, "numbering plan", NumberingPlanMeaning(octet))};
}

std::vector<std::string> TypeOfAddressFaults(unsigned int octet) {
    std::vector<std::string> faults;
    if ((octet & 0x80) == 0)
        faults.emplace_back("bit 7 is 0; the decoder reads no further octet");
    for (const OctetBits& bits : TypeOfAddressBits(octet)) {
        if (bits.meaning.find("reserved") != std::string::npos)
            faults.push_back(fmt::format("a reserved {}", bits.name));
    }
    return faults;
}

std::vector<OctetBits> ProtocolBits(unsigned int pid) {
    constexpr std::array<std::string_view, 4> c_groups = {"by the next bit", "kinds of short messages",
                                                          "reserved", "service-centre specific"};
    std::vector<OctetBits> bits = {BitsIn(pid, 0xC0, "group", c_groups[pid >> 6])};
    if (pid >> 6 != 0) {
        bits.push_back(BitsIn(pid, 0x3F, "value", ""));
        return bits;
    }
    const bool isTelematic = (pid & 0x20) != 0;
    bits.push_back(BitsIn(pid, 0x20, "interworking", isTelematic ? "telematic" : "none"));
    bits.push_back(BitsIn(pid, 0x1F, isTelematic ? "device" : "protocol", ""));
    return bits;
}

std::vector<OctetBits> DataCodingBits(const DataCodingValue& coding) {
    const unsigned int dcs = coding.number;
    const unsigned int group = dcs >> 4;
    const bool hasClass = coding.messageClass != Encoding::MessageClass::CLASS_NONE;
    const std::string_view messageClass = hasClass ? ClassMeaning(dcs) : "";
    if (group < c_groupWaiting) {
        return {BitsIn(dcs, 0xC0, "group", GeneralGroup(dcs)),
                group < c_groupReserved
                    ? BitsIn(dcs, 0x20, "compression", (dcs & 0x20) != 0 ? "compressed" : "none")
                    : BitsIn(dcs, 0x20, "without meaning", ""),
                BitsIn(dcs, 0x10, "class", hasClass ? "in the two lowest bits" : "none"),
                BitsIn(dcs, 0x0C, "alphabet", AlphabetName(coding.alphabet)),
                BitsIn(dcs, 0x03, hasClass ? "class" : "without meaning", messageClass)};
    }
    if (group < c_groupClass) {
        return {BitsIn(dcs, 0xF0, "group", WaitingGroup(dcs)),
                BitsIn(dcs, 0x08, "indication", (dcs & 0x08) != 0 ? "active" : "inactive"),
                BitsIn(dcs, 0x04, "reserved", ""), BitsIn(dcs, 0x03, "kind", WaitingKind(dcs))};
    }
    return {BitsIn(dcs, 0xF0, "group", "data coding, message class"), BitsIn(dcs, 0x08, "reserved", ""),
            BitsIn(dcs, 0x04, "alphabet", AlphabetName(coding.alphabet)),
            BitsIn(dcs, 0x03, "class", messageClass)};
}

std::vector<std::string> DataCodingFaults(unsigned int dcs) {
    std::vector<std::string> faults;
    const unsigned int group = dcs >> 4;
    if (group >= c_groupReserved && group < c_groupWaiting)
        faults.emplace_back("a reserved coding group");
    if (group < c_groupReserved && (dcs & 0x10) == 0 && (dcs & 0x03) != 0)
        faults.emplace_back("reserved bits are set, as there is no class");
    if (group < c_groupReserved && (dcs & 0x20) != 0)
        faults.emplace_back(
            "compressed text, of which TP-UDL counts the octets; the decoder takes it for text as it is");
    if (group < c_groupWaiting && (dcs & 0x0C) == 0x0C)
        faults.emplace_back("the reserved alphabet");
    const unsigned int reserved = group == c_groupClass ? 0x08 : 0x04;
    if (group >= c_groupWaiting && (dcs & reserved) != 0)
        faults.emplace_back("a reserved bit is set");
    return faults;
}

bool IsReservedStatus(unsigned int status) {
    constexpr std::array<unsigned int, 4> c_lastReasons = {0x02, 0x25, 0x49, 0x65};
    constexpr unsigned int c_specific = 0x10; ///< set where the service centre gives the meaning
    return status >= 0x80 || ((status & c_specific) == 0 && status > c_lastReasons[status >> 5]);
}

void AddUnusedBits(std::vector<OctetBits>& bits, unsigned int octet, unsigned int unused) {
    while (unused != 0) {
        const unsigned int run = unused & ~(unused + (1U << std::countr_zero(unused)));
        bits.push_back(BitsIn(octet, run, "unused", ""));
        unused &= ~run;
    }
    std::sort(bits.begin(), bits.end(),
              [](const OctetBits& a, const OctetBits& b) { return a.mask > b.mask; });
}

} // namespace qxpdu
