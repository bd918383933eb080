// What is read without a remark is written back, octet for octet.
#include <iostream>

#include <gtest/gtest.h>

#include "../Cases.h"
#include "Bridge.h"
#include "Inputs.h"
#include "Messages/Write.h"
#include "VectorText.h"
#include "Vectors.h"

namespace plain {
namespace {

using reference::Difference;
using reference::Random;

constexpr auto c_cases = static_cast<reference::Share>(50'000);

/// Counts the PDUs that were read without a remark, and tells of one that is not written as it was.
class WrittenBack {
public:
    std::string DifferenceOf(const Input& input) {
        const Messages::Reading reading = Messages::Read(input.octets, OptionsOf(input));
        if (reading.fault || !reading.remarks.empty())
            return {};
        ++m_Count;
        const Messages::Written written = Messages::Write(reading.tpdu, reading.serviceCentre);
        if (!written.fault && written.octets == input.octets)
            return {};
        return Hex(input.octets) + " is written as " + Hex(written.octets);
    }
    std::size_t Count() const { return m_Count; }

private:
    std::size_t m_Count = 0;
};

TEST(WrittenBack, AreTheVectors) {
    WrittenBack back;
    for (const VectorFile& file : WrittenFiles())
        for (const Vector& vector : file.vectors)
            EXPECT_EQ(back.DifferenceOf(vector.input), "") << file.name << ": " << vector.name;
    for (const Json& vector : VectorsOf("by-hand"))
        EXPECT_EQ(back.DifferenceOf(InputOf(vector)), "") << vector;
    EXPECT_GT(back.Count(), 500U);
}

TEST(WrittenBack, AreRandomPdus) {
    WrittenBack back;
    reference::RunCases(c_cases, [&](Random& random) -> Difference {
        Input input;
        input.centre = Known::NO;
        input.octets = RandomTpdu(random, input.direction);
        return reference::Between(back.DifferenceOf(input), Hex(input.octets));
    });
    std::cout << "[  COUNT   ] " << back.Count() << " without a remark\n";
}

} // namespace
} // namespace plain
