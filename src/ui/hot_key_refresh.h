#pragma once

namespace panewright {

/// Who keeps the hot keys in step with what is set.
class HotKeyRefresh {
public:
    virtual ~HotKeyRefresh() = default;

    /// Installs the hot keys of all states that apply now, and the one that moves to the next
    /// display, in place of those installed before.
    virtual void addEventHandlers() = 0;
};

} // namespace panewright
