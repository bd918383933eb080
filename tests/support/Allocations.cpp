// The executable's operators take the place of the standard library's for the whole process, so that
// allocations inside the shared libraries pass here as well.
#include "support/Allocations.h"

#include <cstdlib>
#include <new>

namespace {

thread_local unsigned long s_allocations = 0;
thread_local unsigned long s_deallocations = 0;
thread_local unsigned long s_bytes = 0;
thread_local unsigned long s_failAt = 0;
thread_local const tests::NoteDeallocations* s_pNotes = nullptr;

void* Allocate(std::size_t size) {
    ++s_allocations;
    s_bytes += size;
    if (s_failAt != 0 && s_allocations == s_failAt)
        throw std::bad_alloc();
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void Deallocate(void* memory) {
    if (memory == nullptr)
        return;
    ++s_deallocations;
    if (s_pNotes != nullptr && s_pNotes->m_Count < s_pNotes->m_Memory.size())
        s_pNotes->m_Memory[s_pNotes->m_Count++] = memory;
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    Deallocate(memory);
}
void operator delete[](void* memory) noexcept {
    Deallocate(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Deallocate(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Deallocate(memory);
}

namespace tests {

unsigned long Allocations() {
    return s_allocations;
}
unsigned long Deallocations() {
    return s_deallocations;
}
unsigned long AllocatedBytes() {
    return s_bytes;
}

FailAllocation::FailAllocation(unsigned long n) {
    s_failAt = s_allocations + n;
}
FailAllocation::~FailAllocation() {
    s_failAt = 0;
}
bool FailAllocation::Happened() const {
    return s_allocations >= s_failAt;
}

NoteDeallocations::NoteDeallocations() {
    s_pNotes = this;
}
NoteDeallocations::~NoteDeallocations() {
    s_pNotes = nullptr;
}

} // namespace tests
