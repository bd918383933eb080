// Memory whose last octet is the last of its page, so that whoever reads past it is stopped.
#ifndef TESTS_SUPPORT_GUARDED_H
#define TESTS_SUPPORT_GUARDED_H

#include <algorithm>
#include <cstddef>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace tests {

/// A copy of values, right before a page that nobody may touch.
template <class T>
class Guarded {
public:
    Guarded(const T* values, std::size_t count) : m_Page(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        const std::size_t bytes = count * sizeof(T);
        m_Size = (bytes + m_Page - 1) / m_Page * m_Page + m_Page;
        m_Memory = mmap(nullptr, m_Size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (m_Memory == MAP_FAILED)
            throw std::bad_alloc();
        unsigned char* const guard = static_cast<unsigned char*>(m_Memory) + m_Size - m_Page;
        mprotect(guard, m_Page, PROT_NONE);
        m_Values = reinterpret_cast<T*>(guard - bytes);
        std::copy_n(values, count, m_Values);
    }
    Guarded(const Guarded&) = delete;
    Guarded& operator=(const Guarded&) = delete;
    ~Guarded() { munmap(m_Memory, m_Size); }

    T* Data() const { return m_Values; }

private:
    std::size_t m_Page;
    std::size_t m_Size;
    void* m_Memory;
    T* m_Values;
};

} // namespace tests

#endif
