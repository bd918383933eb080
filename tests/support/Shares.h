// Stands in for the support library's byte order and locks, and shows who takes which share. A definition in
// a program comes before those of the shared libraries, so a program with Shares.cpp in it is linked with
// -rdynamic.
#ifndef TESTS_SUPPORT_SHARES_H
#define TESTS_SUPPORT_SHARES_H

#include <bit>
#include <limits>

#include "Toolkit/smart_ptr.h"

namespace tests {

/// How the byte order is told, and how it was asked for. Assigning one begins anew.
struct ByteOrder {
    int m_Answer = std::endian::native == std::endian::big ? 1 : 0; ///< as it is, or as a test has it
    int m_Asked = 0;
    int m_FewestShares = std::numeric_limits<int>::max(); ///< of the system information while it was asked
};
extern ByteOrder s_byteOrder;

/// Watches the shares of one object for as long as it lives; one object at a time. Expects every lock to have
/// been released by then.
class Watch {
public:
    template <class T>
    explicit Watch(const Toolkit::smart_ptr<T>& pointer) {
        struct Words {
            T* m_pObject;
            Toolkit::ReferenceBlock* m_pBlock;
        };
        Begin(reinterpret_cast<const Words&>(pointer).m_pBlock);
    }
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    mutable int m_Locks = 0;
    mutable int m_Unlocks = 0;
    mutable int m_MostShares = 0;        ///< at the end of any lock; 0 without one
    mutable bool m_WaitedForever = true; ///< for the locks of other objects as well

private:
    void Begin(const Toolkit::ReferenceBlock* pBlock);
};

} // namespace tests

#endif
