// PDUs that several of the tool's tests give it.
#ifndef TESTS_QXPDU_SAMPLES_H
#define TESTS_QXPDU_SAMPLES_H

namespace tests {

/// 19 octets of a TPDU stand before the user data.
inline constexpr const char* c_hello = "0791214365870921040B912143658709F100002120312143658005C8329BFD06";
inline constexpr const char* c_escapePart =
    "0791214365870921440B912143658709F100002120312143658009050003050201C21B";
inline constexpr const char* c_codePart =
    "0791214365870921440B912143658709F100002120312143658009050003050202CA62";
inline constexpr const char* c_submit = "0001070491214300000161";
inline constexpr const char* c_report = "00060704912143212031214365802120312143658000";
inline constexpr const char* c_cellPage = "403211120111C8329BFD06";

} // namespace tests

#endif
