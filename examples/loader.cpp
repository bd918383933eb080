// A host that opens libQX_Encoding at run time and closes it again. Usage: loader [FILE]
//
// It is linked with libQX_Toolkit alone. While the library is open, its module is known to the module
// manager; afterwards nothing of it is left in the process.
#include <dlfcn.h>

#include <cstdlib>
#include <iostream>

#include "Encoding/EncodingModule.h"
#include "Toolkit/LibModuleManager.h"

namespace {

bool IsRegistered(const Toolkit::LibModule* module) {
    return (*Toolkit::LibModuleManager::s_pInstance)->IsRegistered(module);
}

bool IsLoaded(const char* file) {
    void* const library = dlopen(file, RTLD_NOW | RTLD_NOLOAD);
    if (library != nullptr)
        dlclose(library);
    return library != nullptr;
}

int Fail() {
    std::cerr << dlerror() << '\n'; // NOLINT(concurrency-mt-unsafe): each thread has a text of its own
    return EXIT_FAILURE;
}

} // namespace

int main(int count, char** arguments) {
    const char* const file = count > 1 ? arguments[1] : "libQX_Encoding.so.1";
    void* const library = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        return Fail();
    const auto ppModule = static_cast<Encoding::EncodingModule**>(dlsym(library, "encodingModule"));
    if (ppModule == nullptr)
        return Fail();
    const Toolkit::LibModule* const module = *ppModule;
    std::cout << std::boolalpha;
    std::cout << "open: loaded " << IsLoaded(file) << ", registered " << IsRegistered(module) << '\n';
    dlclose(library);
    std::cout << "closed: loaded " << IsLoaded(file) << ", registered " << IsRegistered(module) << '\n';
}
