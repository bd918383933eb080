// A program whose static object outlives the static objects of a library that main() loads.
#include <dlfcn.h>

namespace {

struct Late {
    ~Late() {
        if (m_pLog != nullptr)
            m_pLog("logged by a static object of the host at exit");
    }
    void (*m_pLog)(const char*) = nullptr;
} s_late;

} // namespace

int main(int, char* arguments[]) {
    void* const pLibrary = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (pLibrary == nullptr)
        return 1;
    s_late.m_pLog = reinterpret_cast<void (*)(const char*)>(dlsym(pLibrary, "LogFromPlugin"));
    return s_late.m_pLog == nullptr ? 2 : 0;
}
