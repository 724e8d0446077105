#pragma once

namespace panewright {

/// Whether what is drawn transparent shows what lies behind the window. Main thread only.
class Compositing {
public:
    virtual ~Compositing() = default;

    /// As it is now; it may start and end at any time.
    virtual bool isActive() const = 0;
};

} // namespace panewright
