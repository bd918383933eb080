// Linked into the tool, takes the place of the C library's memory: one piece is not to be had, the one with
// the number that the environment names, counted from the executable's first own object on.
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>

extern "C" {
void* __libc_malloc(std::size_t size) noexcept;
void* __libc_calloc(std::size_t count, std::size_t size) noexcept;
void* __libc_realloc(void* memory, std::size_t size) noexcept;
}

namespace {

std::atomic<long> s_left = 0; ///< pieces up to the one that is not to be had

[[gnu::constructor(101)]] void BeginToCount() {
    const char* const number = std::getenv("QXPDU_MISSING_PIECE");
    s_left = number == nullptr ? 0 : std::atol(number);
}

bool IsMissing() {
    if (s_left.load() <= 0 || s_left.fetch_sub(1) != 1)
        return false;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {

[[gnu::visibility("default")]] void* malloc(std::size_t size) noexcept {
    return IsMissing() ? nullptr : __libc_malloc(size);
}

[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t size) noexcept {
    return IsMissing() ? nullptr : __libc_calloc(count, size);
}

[[gnu::visibility("default")]] void* realloc(void* memory, std::size_t size) noexcept {
    return IsMissing() ? nullptr : __libc_realloc(memory, size);
}
}
