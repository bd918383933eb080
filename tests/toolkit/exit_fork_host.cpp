// A program that forks after the support library was unloaded.
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

int main(int, char* arguments[]) {
    void* const pLibrary = dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
    if (pLibrary == nullptr || dlclose(pLibrary) != 0)
        return 1;
    if (dlopen(arguments[1], RTLD_NOW | RTLD_NOLOAD) != nullptr)
        return 2;
    const pid_t child = fork();
    if (child == 0)
        _exit(7);
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 7 ? 0 : 3;
}
