#include "Encoding/EncodingModule.h"

#include "Toolkit/LibModuleManager.h"
#include "Toolkit/smart_ptr.h"

Encoding::EncodingModule* encodingModule = nullptr;

namespace Encoding {

EncodingModule::~EncodingModule() = default;

void EncodingModule::Initialize() {}

void EncodingModule::Release() {}

} // namespace Encoding

void DllencodingModuleLoad() {
    encodingModule = new Encoding::EncodingModule;
    const Toolkit::smart_ptr<Toolkit::LibModuleManager> manager(*Toolkit::LibModuleManager::s_pInstance);
    manager->Register(encodingModule);
}

void DllencodingModuleUnload() {
    {
        const Toolkit::smart_ptr<Toolkit::LibModuleManager> manager(*Toolkit::LibModuleManager::s_pInstance);
        manager->Unregister(encodingModule);
    }
    delete encodingModule; // the global keeps the address, as is required
}

namespace {

/// Ties the module's life to the library's. No other object of the library is constructed at load time. What
/// is thrown then must not leave through the loader, which would keep its locks.
const struct ModuleLife {
    ModuleLife() noexcept { DllencodingModuleLoad(); }
    ~ModuleLife() { DllencodingModuleUnload(); }
    ModuleLife(const ModuleLife&) = delete;
    ModuleLife& operator=(const ModuleLife&) = delete;
} s_moduleLife;

} // namespace
