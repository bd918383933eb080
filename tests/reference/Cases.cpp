#include "Cases.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string_view>

#include <gtest/gtest.h>

namespace reference {

namespace {

/// Differences after which a test gives up.
constexpr unsigned int c_enough = 3;

std::optional<std::uint64_t> NumberFromEnvironment(const char* name) {
    const char* const text = std::getenv(name);
    if (text == nullptr || *text == '\0')
        return std::nullopt;
    if (std::string_view(text).find_first_not_of("0123456789") != std::string_view::npos)
        throw std::invalid_argument(std::string(name) + " is no number: " + text);
    return std::stoull(text);
}

std::uint64_t Seed() {
    static const std::uint64_t seed = NumberFromEnvironment("QX_SEED").value_or(std::random_device()());
    return seed;
}

std::uint64_t CaseCount(Share share) {
    const std::uint64_t total = NumberFromEnvironment("QX_CASES").value_or(QX_DEFAULT_CASES);
    return std::max<std::uint64_t>(1, (total * share + 999'999) / 1'000'000);
}

/// Where the random numbers of a test begin: apart from those of all other tests.
std::uint64_t SeedOf(std::string_view test) {
    std::uint64_t hash = 0xCBF29CE484222325U; // FNV-1a
    for (const char c : test)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return hash ^ Random(Seed()).Next();
}

} // namespace

void RunCases(Share share, const std::function<Difference(Random&)>& run) {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test.test_suite_name()) + "." + test.name();
    const std::uint64_t count = CaseCount(share);
    std::cout << "[   SEED   ] QX_SEED=" << Seed() << ", " << count << " cases" << std::endl;

    Random seeds(SeedOf(name));
    unsigned int differences = 0;
    for (std::uint64_t i = 0; i < count && differences < c_enough; ++i) {
        Random random(seeds.Next());
        if (const Difference difference = run(random)) {
            ++differences;
            ADD_FAILURE() << "seed " << Seed() << ", case " << i << "; again with QX_SEED=" << Seed()
                          << " --gtest_filter=" << name << "\n"
                          << *difference;
        }
    }
}

} // namespace reference
