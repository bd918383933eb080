// What all calls of the C interface have in common: no exception leaves them.
#ifndef C_CALLS_H
#define C_CALLS_H

#include "c/Given.h"
#include "c/Results.h"

namespace Messages {

/// A call that neither takes memory nor hands anything out.
template <class Body>
qx_result Guarded(Body body) noexcept {
    try {
        return body();
    } catch (const Refusal&) {
        return QX_ARGUMENT;
    } catch (...) { // std::bad_alloc, or std::length_error of a text as long as memory
        return QX_NO_MEMORY;
    }
}

/// Whether a result tells of a fault.
template <class Result>
bool HasFault(const Result& result) noexcept {
    if constexpr (requires { result.fault; })
        return static_cast<bool>(result.fault);
    else if constexpr (requires { result.user_data; })
        return result.address == nullptr && result.user_data == nullptr;
    else if constexpr (requires { result.misfit; })
        return result.misfit != nullptr;
    else
        return false;
}

/// A call that hands out what `body(handle)` gives.
template <class Handle, class Result, class Body>
qx_result Handing(Handle* handle, const Result** handed, Body body) noexcept {
    if (handed != nullptr)
        *handed = nullptr;
    return Guarded([&] {
        Require(handle != nullptr && handed != nullptr);
        handle->results.Clear();
        const Result* const result = body(*handle);
        *handed = result;
        return HasFault(*result) ? QX_FAULT : QX_OK;
    });
}

/// A new handle, or null.
template <class Handle, class... Arguments>
Handle* NewHandle(const Arguments&... arguments) noexcept {
    try {
        return new Handle(arguments...);
    } catch (...) {
        return nullptr;
    }
}

} // namespace Messages

#endif
