#pragma once

namespace panewright {

/// The system's alert sound. Main thread only.
class Beeper {
public:
    virtual ~Beeper() = default;

    /// Returns at once; a system without sound stays silent.
    virtual void beep() = 0;
};

} // namespace panewright
