// A program that uses the process-wide objects from its first static constructor to its last destructor.
#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/SystemInfo.h"

namespace {

using Toolkit::ILogger;

void Log(const char* text) {
    const Toolkit::smart_ptr<Toolkit::SystemInfo> info(*Toolkit::SystemInfo::s_pInstance);
    **ILogger::s_pInstance << Toolkit::SetSeverity(1) << TString<char>(text) << ILogger::c_strLogToken3;
}

struct Host {
    Host() {
        Log("constructor");
        (*Toolkit::LibModuleManager::s_pInstance)->Register(&m_Module);
    }
    ~Host() {
        (*Toolkit::LibModuleManager::s_pInstance)->Unregister(&m_Module);
        Log("destructor");
        **ILogger::s_pInstance << Toolkit::SetSeverity(1) << "cut short by the end of the process";
    }
    Toolkit::LibModule m_Module;
} s_host;

} // namespace

int main() {
    Log("main");
}
