// The random numbers of one case.
#ifndef TESTS_REFERENCE_RANDOM_H
#define TESTS_REFERENCE_RANDOM_H

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace reference {

/// The same sequence for the same seed on every machine, and cheap to start, so that every case has its own.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_State(seed) {}

    /// SplitMix64.
    std::uint64_t Next() {
        m_State += 0x9E3779B97F4A7C15U;
        std::uint64_t z = m_State;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }

    /// 0 to bound - 1; bound is not 0.
    std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>((Next() >> 32U) % bound); }
    /// Both ends included.
    std::uint32_t Between(std::uint32_t low, std::uint32_t high) { return low + Below(high - low + 1); }
    std::uint8_t Octet() { return static_cast<std::uint8_t>(Next()); }
    bool Chance(unsigned int percent) { return Below(100) < percent; }

    template <class T>
    const T& Of(const std::vector<T>& choices) {
        return choices[Below(static_cast<std::uint32_t>(choices.size()))];
    }

    /// Any int, small ones and those at the edges of an octet more often.
    int Number() {
        static const std::vector<int> edges = {
            -1, 0, 1, 127, 128, 255, 256, 257, 65535, -2147483647 - 1, 2147483647};
        if (Chance(20))
            return Of(edges);
        return Chance(90) ? static_cast<int>(Below(256))
                          : static_cast<int>(static_cast<std::int32_t>(Next() >> 32U));
    }

private:
    std::uint64_t m_State;
};

} // namespace reference

#endif
