// Pdu, and PduCommon's digits, beside the model.
#include "Encoding/Pdu.h"
#include "model/Pdu.h"

#include <gtest/gtest.h>

#include "Bridge.h"
#include "Cases.h"
#include "Encoding/PduCommon.h"
#include "Inputs.h"

namespace reference {
namespace {

/// One random call on both.
std::string Call(Random& random, Encoding::Pdu& library, model::Pdu& expected) {
    const model::Octets octets = RandomOctets(random, random.Chance(70) ? 20 : 520);
    const auto length = static_cast<unsigned int>(octets.size());
    switch (random.Below(8)) {
    case 0:
        library.Clear();
        expected.Clear();
        return "Clear";
    case 1:
        library.SetBytes(octets.data(), length);
        expected.SetBytes(octets);
        return "SetBytes " + Show(octets);
    case 2:
    case 3: {
        const std::uint8_t octet = random.Octet();
        library.Write(octet);
        expected.Write(octet);
        return "Write octet " + Show(octet);
    }
    default:
        library.Write(octets.data(), length);
        expected.Write(octets);
        return "Write " + Show(octets);
    }
}

TEST(ReferencePdu, KeepsWhatIsWrittenAndNoMore) {
    RunCases(PDU_BUFFER, [](Random& random) {
        const model::Octets octets = RandomOctets(random, random.Chance(80) ? 40 : 700);
        const auto length = static_cast<std::uint32_t>(octets.size());
        Encoding::Pdu library(octets.data(), length);
        model::Pdu expected = model::Pdu::FromOctets(octets, length);
        std::string input = "constructor " + Show(octets);
        for (std::uint32_t calls = random.Below(6); calls > 0; --calls)
            input += "; " + Call(random, library, expected);
        return Between(Line("contents", PduOf(library), expected) +
                           Line("text", std::string(library.GetString()), expected.GetString()),
                       input);
    });
}

TEST(ReferencePdu, ReadsHexadecimalText) {
    RunCases(PDU_HEX, [](Random& random) {
        const std::string hex = RandomHexText(random, random.Chance(95) ? 400 : 1100);
        const Encoding::Pdu library{TString<char>(hex)};
        const model::Pdu expected = model::Pdu::FromHex(hex);
        return Between(Line("contents", PduOf(library), expected) +
                           Line("text", std::string(library.GetString()), expected.GetString()),
                       Show(hex));
    });
}

TEST(ReferencePdu, EveryPairOfDigits) {
    for (int first = 0; first < 256; ++first) {
        const auto octet = static_cast<unsigned char>(first);
        EXPECT_EQ(Encoding::PduCommon::SwapNumber(octet), model::SwapNumber(octet)) << first;
        for (int second = 0; second < 256; ++second) {
            const unsigned char digits[2] = {octet, static_cast<unsigned char>(second)};
            ASSERT_EQ(Encoding::PduCommon::HexaToInt(digits),
                      model::HexaToInt(static_cast<char>(first), static_cast<char>(second)))
                << first << ' ' << second;
        }
    }
}

} // namespace
} // namespace reference
