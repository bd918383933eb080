// Whether tests can have a terminal. A bare chroot has none until /dev/pts is mounted in it.
#ifndef TESTS_SUPPORT_PSEUDOTERMINAL_H
#define TESTS_SUPPORT_PSEUDOTERMINAL_H

#include <array>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace tests {

/// Why a test is left out.
constexpr const char* c_noPseudoTerminals = "no pseudo-terminals here; /dev/pts has to be mounted";

inline bool HasPseudoTerminals() {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0)
        return false;
    std::array<char, 64> name{};
    const bool has = grantpt(terminal) == 0 && unlockpt(terminal) == 0 &&
                     ptsname_r(terminal, name.data(), name.size()) == 0 &&
                     access(name.data(), R_OK | W_OK) == 0;
    close(terminal);
    return has;
}

} // namespace tests

#endif
