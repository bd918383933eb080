// A library that needs the support library and is loaded late.
#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"

using Toolkit::ILogger;

extern "C" TOOLKIT_API void LogFromPlugin(const char* text);

void LogFromPlugin(const char* text) {
    Toolkit::LibModule module;
    const Toolkit::smart_ptr<Toolkit::LibModuleManager> manager(*Toolkit::LibModuleManager::s_pInstance);
    if (!manager->Register(&module) || !manager->Unregister(&module))
        return;
    **ILogger::s_pInstance << Toolkit::SetSeverity(1) << TString<char>(text) << ILogger::c_strLogToken3;
}
