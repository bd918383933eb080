// What a support library that a test put in the place of the default one has been asked for.
#ifndef TESTS_MODULE_RECORDING_H
#define TESTS_MODULE_RECORDING_H

#include <bit>
#include <string>
#include <vector>

#include "Toolkit/Export.h"
#include "Toolkit/LibModule.h"

namespace tests {

struct Recording {
    std::vector<std::string> m_Events;
    std::vector<Toolkit::LibModule*> m_Registered;
    std::vector<Toolkit::LibModule*> m_Unregistered;
    std::vector<int> m_ManagerShares; ///< the manager's reference count in each Register() and Unregister()
    std::vector<int> m_SystemShares;  ///< the system information's reference count in each GetEndian()

    // What the library does:
    int m_LockResult = 1;
    int m_Endian = std::endian::native == std::endian::big ? 1 : 0;
    bool m_MutexThrows = false;
    bool m_RegisterThrows = false;
};

/// The one recording of the process.
TOOLKIT_API Recording& TheRecording();

} // namespace tests

#endif
