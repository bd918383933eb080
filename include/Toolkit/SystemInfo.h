/// @file
/// What the codecs ask about the machine.
#ifndef TOOLKIT_SYSTEMINFO_H
#define TOOLKIT_SYSTEMINFO_H

#include "Toolkit/Export.h"
#include "Toolkit/smart_ptr.h"

namespace Toolkit {

/// Facts about the host. Any thread may ask; a caller holds a share of the instance while it does.
class TOOLKIT_API SystemInfo {
public:
    /// The process-wide instance, valid before the static construction of any library that uses it.
    static smart_ptr<SystemInfo>* s_pInstance;

    SystemInfo();
    ~SystemInfo();
    SystemInfo(const SystemInfo&) = delete;
    SystemInfo& operator=(const SystemInfo&) = delete;

    /// The byte order of the host: 1 big-endian, 0 little-endian.
    static int GetEndian();
};

} // namespace Toolkit

#endif
