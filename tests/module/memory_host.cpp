// A program that loads a library while memory is out: one allocation after the other fails, each in a child.
// It prints what becomes of the children, the last of which has memory enough.
#include <iostream>
#include <string>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/Allocations.h"

namespace {

/// Of a child in which the n-th allocation fails.
[[noreturn]] void Load(const char* library, unsigned long n) {
    // Declared to throw nothing, so that a compiler may or may not end the process for what comes out.
    void* (*const volatile load)(const char*, int) = dlopen;
    try {
        const tests::FailAllocation failure(n);
        const bool isLoaded = load(library, RTLD_NOW | RTLD_LOCAL) != nullptr;
        _exit(!isLoaded ? 1 : failure.Happened() ? 2 : 0);
    } catch (...) {
        _exit(3);
    }
}

std::string OutcomeOf(int status) {
    if (WIFSIGNALED(status))
        return WTERMSIG(status) == SIGABRT ? "ended by std::terminate" : "crashed";
    constexpr const char* c_outcomes[] = {"loaded", "not loaded", "loaded all the same",
                                          "an exception came out"};
    return c_outcomes[WEXITSTATUS(status) % 4];
}

} // namespace

int main(int, char* arguments[]) {
    close(STDERR_FILENO);
    std::string outcome;
    for (unsigned long n = 1; outcome != "loaded"; ++n) {
        const pid_t child = fork();
        if (child == 0)
            Load(arguments[1], n);
        int status = 0;
        if (waitpid(child, &status, 0) != child)
            return 1;
        outcome = OutcomeOf(status);
        std::cout << outcome << '\n';
    }
}
