// libQX_Encoding as a host loads it that was not linked against it.
#ifndef TESTS_MODULE_LOADEDLIBRARY_H
#define TESTS_MODULE_LOADEDLIBRARY_H

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

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

/// Why a test is left out.
constexpr const char* c_noMappedFiles = "the mapped files are not listed here; /proc has to be mounted";

inline bool AreMappedFilesListed() {
    return std::ifstream("/proc/self/maps").is_open();
}

/// Whether a list of mapped files, a line each, has one of this name, or with a version after it; the folder
/// that it is in does not matter.
inline bool IsListed(std::istream& maps, std::string_view name) {
    for (std::string line; std::getline(maps, line);)
        if (std::string_view(line).substr(line.rfind('/') + 1).substr(0, name.size()) == name)
            return true;
    return false;
}

inline bool IsMapped(std::string_view name) {
    std::ifstream maps("/proc/self/maps");
    return IsListed(maps, name);
}

inline bool IsLibraryMapped() {
    if (!IsMapped("libQX_Toolkit.so"))
        throw std::runtime_error("the list of mapped files is not what it should be");
    return IsMapped("libQX_Encoding.so");
}

} // namespace tests

#endif
