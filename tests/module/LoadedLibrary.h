// libQX_Encoding as a host loads it that was not linked against it.
#ifndef TESTS_MODULE_LOADEDLIBRARY_H
#define TESTS_MODULE_LOADEDLIBRARY_H

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include <dlfcn.h>

#include "Toolkit/LibModule.h"

namespace tests {

class LoadedLibrary {
public:
    LoadedLibrary() : m_pHandle(dlopen(ENCODING_LIBRARY, RTLD_NOW | RTLD_LOCAL)) {
        if (m_pHandle == nullptr)
            throw std::runtime_error(dlerror());
        m_pModule = Symbol<Toolkit::LibModule*>("encodingModule");
    }
    ~LoadedLibrary() { Close(); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    void Close() {
        if (m_pHandle != nullptr && dlclose(m_pHandle) != 0)
            throw std::runtime_error(dlerror());
        m_pHandle = nullptr;
    }

    /// What the library exports under this very name, null if nothing.
    template <class T>
    T* Symbol(const char* name) const {
        return reinterpret_cast<T*>(dlsym(m_pHandle, name));
    }

    /// The global `encodingModule` of the library, seen as the base: what the program is not linked against
    /// it cannot know by type.
    Toolkit::LibModule*& Module() const { return *m_pModule; }
    void Load() const { Symbol<void()>("DllencodingModuleLoad")(); }
    void Unload() const { Symbol<void()>("DllencodingModuleUnload")(); }

private:
    void* m_pHandle;
    Toolkit::LibModule** m_pModule;
};

inline bool IsLibraryMapped() {
    std::ifstream maps("/proc/self/maps");
    std::stringstream text;
    text << maps.rdbuf();
    if (text.str().find("libQX_Toolkit") == std::string::npos)
        throw std::runtime_error("the list of mapped files is not what it should be");
    return text.str().find("libQX_Encoding") != std::string::npos;
}

} // namespace tests

#endif
