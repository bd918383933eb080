#include "Instances.h"

#include <memory>
#include <new>

#include <pthread.h>

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

void Instances::RenewLocks() {
    std::construct_at(&m_LineLock);
    if (auto* const pLogger = dynamic_cast<StderrLogger*>(m_Logger.get()))
        pLogger->StartAnew();
    RenewLock(m_Logger);
    RenewLock(m_SystemInfo);
    RenewLock(m_LibModuleManager);
}

template <class T>
void Instances::RenewLock(smart_ptr<T>& shared) {
    if (shared.m_pBlock != nullptr)
        std::construct_at(&shared.m_pBlock->m_Mutex, false);
}

namespace {

void MakeInstances() {
    Instances::s_pInstances = new Instances;
    ILogger::s_pInstance = &Instances::s_pInstances->m_Logger;
    SystemInfo::s_pInstance = &Instances::s_pInstances->m_SystemInfo;
    LibModuleManager::s_pInstance = &Instances::s_pInstances->m_LibModuleManager;

    // Forgotten again, by itself, when this library is unloaded.
    if (pthread_atfork(nullptr, nullptr, [] { Instances::s_pInstances->RenewLocks(); }) != 0)
        throw std::bad_alloc();
}

/// What is thrown here must not leave through the loader, which would keep its locks.
[[gnu::constructor]] void Load() noexcept {
    MakeInstances();
}

[[gnu::destructor]] void Unload() {
    delete Instances::s_pInstances;
}

} // namespace
} // namespace Toolkit
