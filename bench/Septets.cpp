// Packing and unpacking of 160 septets: each way that the library has, and another library's.
#include <cstring>
#include <numeric>

#include <benchmark/benchmark.h>

#include "peers/OsmoSeptets.h"
#include "wire/SeptetGroups.h"

namespace {

using namespace Wire;

constexpr unsigned int c_septets = 160;
constexpr unsigned int c_octets = 140;

/// 160 septets, and the octets that they fill.
struct Sample {
    unsigned char septets[c_septets];
    unsigned char octets[c_octets + c_groupReach] = {};
    Sample() {
        for (unsigned int i = 0; i < c_septets; ++i) {
            septets[i] = static_cast<unsigned char>(i % 26 + 'a');
            for (unsigned int bit = 0; bit < 7; ++bit)
                if ((septets[i] >> bit & 1) != 0)
                    octets[(7 * i + bit) / 8] |= static_cast<unsigned char>(1 << (7 * i + bit) % 8);
        }
    }
};

template <class Unpack>
void Unpacking(benchmark::State& state, Unpack unpack) {
    const Sample sample;
    unsigned char septets[c_septets];
    unpack(sample.octets, septets);
    if (std::memcmp(septets, sample.septets, c_septets) != 0)
        state.SkipWithError("unpacked wrongly");
    for ([[maybe_unused]] const auto _ : state) {
        unpack(sample.octets, septets);
        benchmark::ClobberMemory();
    }
}

template <class Pack>
void Packing(benchmark::State& state, Pack pack) {
    const Sample sample;
    unsigned char octets[c_octets + c_groupReach];
    pack(sample.septets, octets);
    if (std::memcmp(octets, sample.octets, c_octets) != 0)
        state.SkipWithError("packed wrongly");
    for ([[maybe_unused]] const auto _ : state) {
        pack(sample.septets, octets);
        benchmark::ClobberMemory();
    }
}

/// What a plain loop costs that moves one septet after the other.
void UnpackOneByOne(const unsigned char* octets, unsigned char* septets) {
    unsigned int bits = 0;
    unsigned int pending = 0;
    for (unsigned int i = 0; i < c_septets; ++i) {
        if (bits < 7) {
            pending |= static_cast<unsigned int>(*octets++) << bits;
            bits += 8;
        }
        septets[i] = static_cast<unsigned char>(pending & 0x7F);
        pending >>= 7;
        bits -= 7;
    }
}

void PackOneByOne(const unsigned char* septets, unsigned char* octets) {
    unsigned int bits = 0;
    unsigned int pending = 0;
    for (unsigned int i = 0; i < c_septets; ++i) {
        pending |= static_cast<unsigned int>(septets[i]) << bits;
        bits += 7;
        if (bits >= 8) {
            *octets++ = static_cast<unsigned char>(pending);
            pending >>= 8;
            bits -= 8;
        }
    }
}

const bool s_registered = [] {
    const auto add = [](const std::string& name, const SeptetGroups& groups) {
        benchmark::RegisterBenchmark(("Unpacking/" + name).c_str(), [&groups](benchmark::State& state) {
            Unpacking(state, [&groups](const unsigned char* octets, unsigned char* septets) {
                groups.unpack(octets, 0, c_septets / c_groupSeptets, septets);
            });
        });
        benchmark::RegisterBenchmark(("Packing/" + name).c_str(), [&groups](benchmark::State& state) {
            Packing(state, [&groups](const unsigned char* septets, unsigned char* octets) {
                groups.pack(septets, c_septets / c_groupSeptets, 0, octets);
            });
        });
    };
    add("portable", c_portableGroups);
    if (BitDepositGroups() != nullptr)
        add("bit deposit", *BitDepositGroups());
    benchmark::RegisterBenchmark("Unpacking/one by one",
                                 [](benchmark::State& state) { Unpacking(state, UnpackOneByOne); });
    benchmark::RegisterBenchmark("Packing/one by one",
                                 [](benchmark::State& state) { Packing(state, PackOneByOne); });
    benchmark::RegisterBenchmark("Unpacking/libosmocore",
                                 [](benchmark::State& state) { Unpacking(state, bench::OsmoUnpack160); });
    benchmark::RegisterBenchmark("Packing/libosmocore",
                                 [](benchmark::State& state) { Packing(state, bench::OsmoPack160); });
    return true;
}();

} // namespace
