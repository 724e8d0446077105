#pragma once

#include <cerrno>

namespace panewright {

/// Repeats a call of the system that a signal interrupted.
template <class Call>
auto retried(Call call) {
    decltype(call()) result{};
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

} // namespace panewright
