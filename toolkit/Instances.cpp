#include "Instances.h"

#include "StderrLogger.h"

namespace Toolkit {

smart_ptr<ILogger>* ILogger::s_pInstance = nullptr;
smart_ptr<SystemInfo>* SystemInfo::s_pInstance = nullptr;
smart_ptr<LibModuleManager>* LibModuleManager::s_pInstance = nullptr;
Instances* Instances::s_pInstances = nullptr;

// Short enough to lie within the object, without memory of their own to free.
const TString<wchar_t> ILogger::c_strLogToken1(L" ");
const TString<wchar_t> ILogger::c_strLogToken2(L" | ");
const TString<wchar_t> ILogger::c_strLogToken3(L"\n");

Instances::Instances()
    : m_Logger(new StderrLogger(m_LineLock)),
      m_SystemInfo(new SystemInfo),
      m_LibModuleManager(new LibModuleManager) {}

namespace {

[[gnu::constructor]] void MakeInstances() {
    Instances::s_pInstances = new Instances;
    ILogger::s_pInstance = &Instances::s_pInstances->m_Logger;
    SystemInfo::s_pInstance = &Instances::s_pInstances->m_SystemInfo;
    LibModuleManager::s_pInstance = &Instances::s_pInstances->m_LibModuleManager;
}

[[gnu::destructor]] void DestroyInstances() {
    delete Instances::s_pInstances;
}

} // namespace
} // namespace Toolkit
