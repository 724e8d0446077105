#pragma once

#include <cstdint>

namespace panewright {

/// A key going down in one of our windows, modifier keys aside.
struct KeyEvent {
    /// Virtual key code: the physical key, whatever the layout.
    std::uint16_t keyCode = 0;
    /// Everything that is held, lock keys included, in the application's form.
    std::uint64_t modifierFlags = 0;
};

} // namespace panewright
