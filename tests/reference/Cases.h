// Runs random cases, the library beside the model.
//
// QX_SEED repeats a run; without it every run has a seed of its own, which is printed. QX_CASES is the number
// of cases of all tests of this program together.
#ifndef TESTS_REFERENCE_CASES_H
#define TESTS_REFERENCE_CASES_H

#include <functional>
#include <optional>
#include <string>

#include "Random.h"

namespace reference {

/// How many of a million cases each test takes. What decoders and encoders do has the largest share.
enum Share : unsigned {
    GSM_BYTES = 70'000,
    GSM_TO_UNICODE = 70'000,
    GSM_STRINGS = 50'000,
    TRANSLATION = 30'000,
    UCS2_HEX = 50'000,
    PDU_BUFFER = 60'000,
    PDU_HEX = 40'000,
    ADDRESSES = 110'000,
    TIME_STAMPS = 60'000,
    FRESH_DECODER = 160'000,
    REUSED_DECODER = 40'000,
    CELL_BROADCAST = 50'000,
    TEXT_DECODER = 30'000,
    NUMBERS = 60'000,
    PART_COUNTS = 30'000,
    SUB_STRINGS = 30'000,
    ENCODER = 60'000,
};
static_assert(GSM_BYTES + GSM_TO_UNICODE + GSM_STRINGS + TRANSLATION + UCS2_HEX + PDU_BUFFER + PDU_HEX +
                      ADDRESSES + TIME_STAMPS + FRESH_DECODER + REUSED_DECODER + CELL_BROADCAST +
                      TEXT_DECODER + NUMBERS + PART_COUNTS + SUB_STRINGS + ENCODER ==
                  1'000'000,
              "the shares are those of a million cases");

/// Nothing when library and model agree; else the case's input and what the two made of it.
using Difference = std::optional<std::string>;

/// What a comparison found: the input when there are lines that tell a difference.
inline Difference Between(const std::string& lines, const std::string& input) {
    return lines.empty() ? std::nullopt : Difference("input: " + input + "\n" + lines);
}

/// Runs the share's cases of the calling test, and fails for those with a difference.
void RunCases(Share share, const std::function<Difference(Random&)>& run);

} // namespace reference

#endif
