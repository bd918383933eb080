// How a check ends the program: for tests and for fuzzing alike.
#ifndef MESSAGES_C_REQUIRE_H
#define MESSAGES_C_REQUIRE_H

#include <cstdlib>
#include <iostream>

namespace tests {

/// Ends the program with a word on what does not hold.
inline void Require(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << what << " is not in C what it has to be\n";
    std::abort();
}

} // namespace tests

#endif
