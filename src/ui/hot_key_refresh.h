#pragma once

namespace panewright {

/// Who keeps the hot keys in step with what is set.
class HotKeyRefresh {
public:
    virtual ~HotKeyRefresh() = default;

    /// The key that moves the window to the next display is another one, or none, from now on.
    virtual void settingsChanged() = 0;
};

} // namespace panewright
