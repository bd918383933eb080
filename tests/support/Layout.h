// Binding layouts as the tests look at them: words, offsets, virtual slots.
#ifndef TESTS_SUPPORT_LAYOUT_H
#define TESTS_SUPPORT_LAYOUT_H

#include <cstddef>

#include "Toolkit/smart_ptr.h"

namespace tests {

/// The two words of a smart_ptr.
template <class T>
struct SmartPtrWords {
    T* m_pObject;
    Toolkit::ReferenceBlock* m_pBlock;
};

template <class T, class Policy>
SmartPtrWords<T>& WordsOf(Toolkit::smart_ptr<T, Policy>& pointer) {
    static_assert(sizeof(pointer) == 2 * sizeof(void*));
    return reinterpret_cast<SmartPtrWords<T>&>(pointer);
}

/// How many bytes after the start of an object a part of it lies.
inline std::ptrdiff_t Offset(const void* part, const void* object) {
    return static_cast<const char*>(part) - static_cast<const char*>(object);
}

/// Calls a virtual operation without arguments and result by its slot.
inline void CallSlot(void* object, std::size_t slot) {
    using Operation = void (*)(void*);
    const Operation* const slots = *static_cast<Operation* const*>(object);
    slots[slot](object);
}

} // namespace tests

#endif
