// PDUs to cut off and to alter.
#ifndef TESTS_TOOLS_QXPDU_SAMPLES_H
#define TESTS_TOOLS_QXPDU_SAMPLES_H

#include <algorithm>
#include <iterator>
#include <random>

#include "Encoding/Pdu.h"
#include "support/Octets.h"

namespace tests {

constexpr const char* c_samplePdus[] = {
    "0791214365870921040B912143658709F100002120312143658005C8329BFD06",
    "00B52A0791149721F30019A70400480069",
    "001900049121430000212031214365800A0500038E0201F0783C01",
    "0041000491214300190A0608041234030100480069",
    "0041000491214300040C05010200030041424344",
    "00410004912143000010080A0300041025010341E19058341E9148",
    "00662A0B912143658709F1212031214365802120312143654A41",
    "000406D041E11000002120312143652205C8329BFD06",
    "00030491214300",
};

/// A sample or zeros with some octets altered, or noise.
inline Bytes RandomPdu(std::mt19937& random) {
    Bytes octets = Octets(c_samplePdus[random() % std::size(c_samplePdus)]);
    if (random() % 4 == 0)
        octets.assign(1 + random() % Encoding::Pdu::CAPACITY, 0);
    for (std::size_t changes = random() % 8; changes > 0; --changes)
        octets[random() % octets.size()] = static_cast<unsigned char>(random());
    if (random() % 16 == 0)
        std::generate(octets.begin(), octets.end(),
                      [&random] { return static_cast<unsigned char>(random()); });
    return octets;
}

} // namespace tests

#endif
