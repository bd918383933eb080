// A support library of a host's own: the headers are those of the default one, the rest is not. It records
// what it is asked for, locks nothing, and serves one thread.
#include "Recording.h"

#include <cstdio>
#include <stdexcept>

#include "Toolkit/ILogger.h"
#include "Toolkit/LibModuleManager.h"
#include "Toolkit/SystemInfo.h"
#include "support/Layout.h"

using tests::TheRecording;
using tests::WordsOf;

namespace tests {

Recording& TheRecording() {
    static Recording& recording =
        *new Recording; // for ever: libraries that are unloaded at exit still record
    return recording;
}

} // namespace tests

namespace {

void Record(const char* event) {
    TheRecording().m_Events.emplace_back(event);
}

} // namespace

namespace Toolkit {

MutexInternal::MutexInternal(bool recursive) {
    if (TheRecording().m_MutexThrows)
        throw std::runtime_error("no mutex left");
    Record(recursive ? "MutexInternal(true)" : "MutexInternal(false)");
}

MutexInternal::~MutexInternal() {
    Record("~MutexInternal");
}

int MutexInternal::Lock(unsigned int timeout) {
    char event[16];
    std::snprintf(event, sizeof event, "Lock(%X)", timeout);
    Record(event);
    return TheRecording().m_LockResult;
}

void MutexInternal::Unlock() {
    Record("Unlock");
}

LibModule::LibModule() {
    Record("LibModule");
}

LibModule::~LibModule() {
    Record("~LibModule");
}

void LibModule::Initialize() {
    Record("Initialize");
}

void LibModule::Release() {
    Record("Release");
}

LibModuleManager::LibModuleManager() : m_Mutex(false) {}
LibModuleManager::~LibModuleManager() = default;

bool LibModuleManager::Register(LibModule* pModule) {
    Record("Register");
    TheRecording().m_Registered.push_back(pModule);
    TheRecording().m_ManagerShares.push_back(WordsOf(*s_pInstance).m_pBlock->m_Count);
    if (TheRecording().m_RegisterThrows)
        throw std::runtime_error("no module wanted");
    return false;
}

bool LibModuleManager::Unregister(LibModule* pModule) {
    Record("Unregister");
    TheRecording().m_Unregistered.push_back(pModule);
    TheRecording().m_ManagerShares.push_back(WordsOf(*s_pInstance).m_pBlock->m_Count);
    return false;
}

SystemInfo::SystemInfo() = default;
SystemInfo::~SystemInfo() = default;

int SystemInfo::GetEndian() {
    Record("GetEndian");
    TheRecording().m_SystemShares.push_back(WordsOf(*s_pInstance).m_pBlock->m_Count);
    return TheRecording().m_Endian;
}

const TString<wchar_t> ILogger::c_strLogToken1(L"<1>");
const TString<wchar_t> ILogger::c_strLogToken2(L"<2>");
const TString<wchar_t> ILogger::c_strLogToken3(L"<3>");

SetSeverity::SetSeverity(int severity) : m_Severity(severity) {}

int SetSeverity::Get() const {
    return m_Severity;
}

ILogger::ILogger(int level) : m_Level(level), m_Severity(0) {}
ILogger::~ILogger() = default;

TString<wchar_t> ILogger::GetTime() {
    return L"now";
}

ILogger& ILogger::operator<<(const TString<char>&) {
    return **s_pInstance;
}

ILogger& ILogger::operator<<(const TString<wchar_t>&) {
    return **s_pInstance;
}

ILogger& ILogger::operator<<(const int&) {
    return **s_pInstance;
}

ILogger& ILogger::operator<<(const SetSeverity& severity) {
    m_Severity = severity.Get();
    return **s_pInstance;
}

namespace {

struct SilentLogger : ILogger {
    SilentLogger() : ILogger(0) {}
    void Write(const TString<wchar_t>&) override {}
};

} // namespace

smart_ptr<LibModuleManager>* LibModuleManager::s_pInstance =
    new smart_ptr<LibModuleManager>(new LibModuleManager);
smart_ptr<SystemInfo>* SystemInfo::s_pInstance = new smart_ptr<SystemInfo>(new SystemInfo);
smart_ptr<ILogger>* ILogger::s_pInstance = new smart_ptr<ILogger>(new SilentLogger);

} // namespace Toolkit
