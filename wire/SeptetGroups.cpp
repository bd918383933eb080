#include "wire/SeptetGroups.h"

#include <bit>
#include <cstring>
#include <string_view>

#ifdef __x86_64__
#include <cpuid.h>
#include <immintrin.h>
#endif

namespace Wire {
namespace {

constexpr unsigned int c_groupBits = 56;

/// Eight octets as one word, the first of them in the low-order bits on every machine.
std::uint64_t LoadWord(const unsigned char* octets) {
    std::uint64_t word = 0;
    std::memcpy(&word, octets, sizeof word);
    return std::endian::native == std::endian::big ? __builtin_bswap64(word) : word;
}

void StoreWord(std::uint64_t word, unsigned char* octets) {
    if (std::endian::native == std::endian::big)
        word = __builtin_bswap64(word);
    std::memcpy(octets, &word, sizeof word);
}

/// Moves eight septets that stand side by side in the low 56 bits to an octet each: halves apart first, then
/// quarters, then septets.
std::uint64_t Spread(std::uint64_t septets) {
    septets = (septets & 0x000000000FFFFFFF) | (septets & 0x00FFFFFFF0000000) << 4;
    septets = (septets & 0x00003FFF00003FFF) | (septets & 0x0FFFC0000FFFC000) << 2;
    return (septets & 0x007F007F007F007F) | (septets & 0x3F803F803F803F80) << 1;
}

/// The way back: one septet an octet becomes eight septets side by side.
std::uint64_t Gather(std::uint64_t octets) {
    octets = (octets & 0x007F007F007F007F) | (octets & 0x7F007F007F007F00) >> 1;
    octets = (octets & 0x00003FFF00003FFF) | (octets & 0x3FFF00003FFF0000) >> 2;
    return (octets & 0x000000000FFFFFFF) | (octets & 0x0FFFFFFF00000000) >> 4;
}

// Inlined everywhere, so that each caller's instruction set holds for the loop as well.
template <auto SpreadGroup>
[[gnu::always_inline]] inline void Unpack(const unsigned char* octets, unsigned int startBit,
                                          std::size_t groups, unsigned char* septets) {
    for (; groups != 0; --groups) {
        StoreWord(SpreadGroup(LoadWord(octets) >> startBit), septets);
        octets += c_groupOctets;
        septets += c_groupSeptets;
    }
}

template <auto GatherGroup>
[[gnu::always_inline]] inline std::uint64_t Pack(const unsigned char* septets, std::size_t groups,
                                                 unsigned int startBit, unsigned char* octets) {
    std::uint64_t pending = 0;
    for (; groups != 0; --groups) {
        pending |= GatherGroup(LoadWord(septets)) << startBit;
        StoreWord(pending, octets);
        pending >>= c_groupBits;
        septets += c_groupSeptets;
        octets += c_groupOctets;
    }
    return pending;
}

void UnpackPortably(const unsigned char* octets, unsigned int startBit, std::size_t groups,
                    unsigned char* septets) {
    Unpack<Spread>(octets, startBit, groups, septets);
}

std::uint64_t PackPortably(const unsigned char* septets, std::size_t groups, unsigned int startBit,
                           unsigned char* octets) {
    return Pack<Gather>(septets, groups, startBit, octets);
}

#ifdef __x86_64__

#define BY_BIT_DEPOSIT [[gnu::target("bmi2")]]

constexpr std::uint64_t c_septetBits = 0x7F7F7F7F7F7F7F7F;
constexpr unsigned int c_cpuidModel = 1;
constexpr unsigned int c_cpuidFeatures = 7;

BY_BIT_DEPOSIT inline std::uint64_t Deposit(std::uint64_t septets) {
    return _pdep_u64(septets, c_septetBits);
}

BY_BIT_DEPOSIT inline std::uint64_t Extract(std::uint64_t octets) {
    return _pext_u64(octets, c_septetBits);
}

BY_BIT_DEPOSIT void UnpackByDeposit(const unsigned char* octets, unsigned int startBit, std::size_t groups,
                                    unsigned char* septets) {
    Unpack<Deposit>(octets, startBit, groups, septets);
}

BY_BIT_DEPOSIT std::uint64_t PackByExtract(const unsigned char* septets, std::size_t groups,
                                           unsigned int startBit, unsigned char* octets) {
    return Pack<Extract>(septets, groups, startBit, octets);
}

constexpr SeptetGroups c_bitDepositGroups = {UnpackByDeposit, PackByExtract};

/// Whether pdep and pext are there and fast. Processors that name themselves so took hundreds of cycles for
/// one before family 19h.
bool HasFastBitDeposit() {
    unsigned int highest = 0;
    unsigned int a = 0;
    unsigned int b = 0;
    unsigned int c = 0;
    unsigned int d = 0;
    if (__get_cpuid(0, &highest, &b, &c, &d) == 0 || highest < c_cpuidFeatures)
        return false;
    char maker[12];
    std::memcpy(maker, &b, 4);
    std::memcpy(maker + 4, &d, 4);
    std::memcpy(maker + 8, &c, 4);
    const std::string_view name(maker, sizeof maker);

    __get_cpuid(c_cpuidModel, &a, &b, &c, &d);
    const unsigned int family = (a >> 8 & 0x0F) + (a >> 20 & 0xFF);
    const bool isSlow = (name == "AuthenticAMD" || name == "HygonGenuine") && family < 0x19;

    __get_cpuid_count(c_cpuidFeatures, 0, &a, &b, &c, &d);
    return (b & bit_BMI2) != 0 && !isSlow;
}

#endif

} // namespace

constexpr SeptetGroups c_portableGroups = {UnpackPortably, PackPortably};

const SeptetGroups* BitDepositGroups() {
#ifdef __x86_64__
    return HasFastBitDeposit() ? &c_bitDepositGroups : nullptr;
#else
    return nullptr;
#endif
}

const SeptetGroups& FastestGroups() {
    static const SeptetGroups* const groups = BitDepositGroups();
    return groups != nullptr ? *groups : c_portableGroups;
}

} // namespace Wire
