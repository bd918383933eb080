/// @file
/// Base of the module object that a library registers with the process.
#ifndef TOOLKIT_LIBMODULE_H
#define TOOLKIT_LIBMODULE_H

#include "Toolkit/Export.h"

namespace Toolkit {

/// One loadable library as the module manager knows it. The order of the virtual operations is binding.
/// The library that makes the object owns it and unregisters it before it is destroyed.
class TOOLKIT_API LibModule {
public:
    LibModule();
    LibModule(const LibModule&) = delete;
    LibModule& operator=(const LibModule&) = delete;
    virtual ~LibModule();

    /// Called once by the manager when the module is registered. The base does nothing.
    virtual void Initialize();

    /// Called once by the manager when the module is unregistered. The base does nothing.
    virtual void Release();
};

} // namespace Toolkit

#endif
