// What every target demands of the code beyond not crashing.
#ifndef FUZZ_PROPERTY_H
#define FUZZ_PROPERTY_H

#include <cstdio>
#include <cstdlib>

namespace fuzz {

/// Ends the process, so that the input is kept as a finding, where a property does not hold. `property` says
/// what should have been so.
inline void Require(bool holds, const char* property, const char* file = __builtin_FILE(),
                    int line = __builtin_LINE()) {
    if (holds)
        return;
    std::fprintf(stderr, "\n%s:%d: property violated: %s\n", file, line, property);
    std::abort();
}

} // namespace fuzz

#endif
