// Groups of eight septets, which fill seven octets: the bulk of every 7-bit text.
//
// There is a portable way and, on x86-64, one by the processor's bit-deposit instruction. Both do the same.
#ifndef WIRE_SEPTETGROUPS_H
#define WIRE_SEPTETGROUPS_H

#include <cstddef>
#include <cstdint>

namespace Wire {

constexpr unsigned int c_groupSeptets = 8;
constexpr unsigned int c_groupOctets = 7;
/// Octets that are read or written for a group: the last of them belongs to the next one.
constexpr unsigned int c_groupReach = 8;

/// One way to work on groups.
struct SeptetGroups {
    /// Takes `groups` groups out of octets, one septet an octet. The first septet begins at bit `startBit`,
    /// 0 to 7, of the first octet.
    void (*unpack)(const unsigned char* octets, unsigned int startBit, std::size_t groups,
                   unsigned char* septets);

    /// Lays `groups` groups into octets, after `startBit` bits of zero. Returns the bits that belong to the
    /// octet after them.
    std::uint64_t (*pack)(const unsigned char* septets, std::size_t groups, unsigned int startBit,
                          unsigned char* octets);
};

extern const SeptetGroups c_portableGroups;

/// The way by bit deposit; null where the processor has no such instruction, or only a slow one.
const SeptetGroups* BitDepositGroups();

/// The fastest way that this machine has.
const SeptetGroups& FastestGroups();

} // namespace Wire

#endif
