/// @file
/// The reference-counting pointer that every shared object travels in.
///
/// Threads: the reference count is read and changed only under the reference block's mutex, so copies of one
/// smart_ptr may be made and released on several threads at once. One smart_ptr object, and the object that
/// it points to, are not guarded.
#ifndef TOOLKIT_SMART_PTR_H
#define TOOLKIT_SMART_PTR_H

#include "Toolkit/Export.h"
#include "Toolkit/MutexInternal.h"

namespace Toolkit {

/// Wait without limit, as MutexInternal::Lock understands it.
constexpr unsigned int c_waitForever = 0xFFFFFFFFU;

/// Deletion policy: the object was made by plain `new`.
struct smart_ptr_policy {
    /// Frees the object; null is nothing to free.
    template <class T>
    static void Free(T* pObject) {
        delete pObject;
    }
};

/// Deletion policy: the object is an array made by `new[]`; its elements are destroyed last one first.
struct smart_ptr_array_policy {
    /// Frees the array; null is nothing to free.
    template <class T>
    static void Free(T* pObject) {
        delete[] pObject;
    }
};

/// Something to be told when a shared object dies. Attached by smart_ptr::AttachHook, and owned by the
/// reference block from then on. Both operations run with the block's mutex held, so they must not touch
/// any smart_ptr of the same block.
struct TOOLKIT_API ReleaseHook {
    ReleaseHook* m_Next = nullptr; ///< the next hook of the chain, null at its end

    ReleaseHook() = default;
    ReleaseHook(const ReleaseHook&) = delete;
    ReleaseHook& operator=(const ReleaseHook&) = delete;

    virtual ~ReleaseHook() = default;
    virtual void BeforeRelease() = 0; ///< the object is about to be freed
    virtual void AfterRelease() = 0;  ///< the object has been freed; the hook is deleted next
};

/// What all copies of one smart_ptr share. The order of the members is binding.
struct TOOLKIT_API ReferenceBlock {
    int m_Count = 1;                 ///< shares
    MutexInternal m_Mutex{false};    ///< guards the other two
    ReleaseHook* m_pHooks = nullptr; ///< owned, the one attached last comes first
};

/// A counted share of an object. Two words: the object and the reference block; the order is binding.
/// A smart_ptr that points to nothing owns a share of a block as well.
///
/// Allocation: making one from a raw pointer, or assigning a raw pointer, allocates exactly one reference
/// block; copies allocate nothing. The pointer given belongs to the smart_ptr from the call on: should the
/// block's allocation fail, the object is freed and the exception propagates. A smart_ptr whose assignment
/// failed so points to nothing and has no block; it can be destroyed, assigned to and copied.
template <class T, class Policy = smart_ptr_policy>
class TOOLKIT_API smart_ptr {
public:
    /// Points to nothing.
    smart_ptr() : smart_ptr(static_cast<T*>(nullptr)) {}
    /// The first share of an object, which belongs to the shares from now on.
    smart_ptr(T* pObject) : m_pObject(pObject), m_pBlock(MakeBlock(pObject)) {}
    /// One more share of the same object.
    smart_ptr(const smart_ptr& other) : m_pObject(other.m_pObject), m_pBlock(other.m_pBlock) { TakeShare(); }
    ~smart_ptr() { ReleaseRef(); }

    /// Sources are told apart by address, not by block: assigning a smart_ptr to itself does nothing.
    smart_ptr& operator=(const smart_ptr& other) {
        if (this != &other) {
            ReleaseRef();
            m_pObject = other.m_pObject;
            m_pBlock = other.m_pBlock;
            TakeShare();
        }
        return *this;
    }

    /// Releases first and stores then, without a look at what is held, as is required: assigning the pointer
    /// that this smart_ptr alone already owns frees the object and keeps a dangling pointer.
    smart_ptr& operator=(T* pObject) {
        ReleaseRef();
        m_pObject = nullptr;
        m_pBlock = nullptr;
        m_pBlock = MakeBlock(pObject);
        m_pObject = pObject;
        return *this;
    }

    /// Gives up this share; the last one frees the object by the policy, between the hooks' two calls, and
    /// then the block. Both words stay as they were: the caller overwrites them or ends this smart_ptr's
    /// life.
    void ReleaseRef() {
        if (m_pBlock == nullptr)
            return;
        m_pBlock->m_Mutex.Lock(c_waitForever);
        if (--m_pBlock->m_Count != 0) {
            m_pBlock->m_Mutex.Unlock();
            return;
        }
        for (ReleaseHook* pHook = m_pBlock->m_pHooks; pHook != nullptr; pHook = pHook->m_Next)
            pHook->BeforeRelease();
        Policy::Free(m_pObject);
        while (ReleaseHook* const pHook = m_pBlock->m_pHooks) {
            pHook->AfterRelease();
            ReleaseHook* const pNext = pHook->m_Next;
            delete pHook; // still the chain's head, as is required
            m_pBlock->m_pHooks = pNext;
        }
        m_pBlock->m_Mutex.Unlock();
        delete m_pBlock;
    }

    /// Puts a hook, made by plain `new` and owned by the block from now on, at the head of the chain.
    /// REQUIRES: this smart_ptr has a block.
    void AttachHook(ReleaseHook* pHook) {
        const int locked = m_pBlock->m_Mutex.Lock(c_waitForever);
        pHook->m_Next = m_pBlock->m_pHooks;
        m_pBlock->m_pHooks = pHook;
        if (locked != 0)
            m_pBlock->m_Mutex.Unlock();
    }

    T* operator->() const { return m_pObject; } ///< REQUIRES: it points to an object
    T& operator*() const { return *m_pObject; } ///< REQUIRES: it points to an object
    T* get() const { return m_pObject; }        ///< the object, or null

private:
    friend struct Instances; // of the default support library, which renews locks in a child of fork()

    static ReferenceBlock* MakeBlock(T* pObject) {
        try {
            return new ReferenceBlock;
        } catch (...) {
            Policy::Free(pObject);
            throw;
        }
    }

    /// A count of 0 stays 0: a copy of a pointer whose object is gone does not bring it back to life.
    void TakeShare() {
        if (m_pBlock == nullptr)
            return;
        const int locked = m_pBlock->m_Mutex.Lock(c_waitForever);
        if (m_pBlock->m_Count != 0)
            ++m_pBlock->m_Count;
        if (locked != 0)
            m_pBlock->m_Mutex.Unlock();
    }

    T* m_pObject;
    ReferenceBlock* m_pBlock;
};

} // namespace Toolkit

#endif
