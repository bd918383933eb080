/// @file
/// The module object of libQX_Encoding, and the entry points that make and unmake it.
#ifndef ENCODING_ENCODINGMODULE_H
#define ENCODING_ENCODINGMODULE_H

#include "Encoding/Export.h"
#include "Toolkit/LibModule.h"

namespace Encoding {

/// What the library registers with the process-wide Toolkit::LibModuleManager. It has no state and does no
/// work; the codecs are used directly. The order of the virtual operations is that of the base.
class ENCODING_API EncodingModule : public Toolkit::LibModule {
public:
    ~EncodingModule() override;
    void Initialize() override; ///< does nothing
    void Release() override;    ///< does nothing
};

} // namespace Encoding

extern "C" {

/// The one module object from load to unload, null before. After unloading it still holds the address of the
/// object that is gone, as is required.
extern ENCODING_API Encoding::EncodingModule* encodingModule;

/// Makes the module object, stores it in `encodingModule` whatever that held before, and registers it. Runs
/// once by itself when the library is loaded; a further call makes and registers a further object. What the
/// allocation or the manager throws passes through to who calls it by name; thrown while the library is being
/// loaded it ends the process by std::terminate.
ENCODING_API void DllencodingModuleLoad();

/// Unregisters and deletes the module object. Runs once by itself when the library is unloaded; must not be
/// called twice for one load. Neither entry point may run while the other does.
ENCODING_API void DllencodingModuleUnload();
}

#endif
