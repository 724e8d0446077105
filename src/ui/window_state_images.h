#pragma once

#include "model/window_state.h"
#include "platform/application_icons.h"
#include "platform/images.h"

#include <map>
#include <memory>
#include <string>

namespace panewright {

/// The picture of a state that has a frame, as that is now.
ImagePtr windowStateImageForCustomState(const WindowState& state, Images& images);

/// The picture of a built-in state: whenever it is painted, it shows the share of the display that
/// the state covers then, and none once the state is gone.
ImagePtr windowStateImageForDefaultState(const std::shared_ptr<WindowState>& state, Images& images);

/// The images of window states, each made when it is first asked for and kept by its state. The
/// icon of a program is sought once until icons are forgotten, however many states the program
/// has. Main thread only.
class WindowStateImages {
public:
    /// Both must outlive it.
    WindowStateImages(Images& images, ApplicationIcons& icons) : images_(images), icons_(icons) {}

    /// Never null.
    ImagePtr windowStateImage(const std::shared_ptr<WindowState>& state);

    /// The icon of the state's application, of kAppIconSize (ui/composite_image.h); null if there
    /// is none.
    ImagePtr appIconImage(WindowState& state);

    /// Both side by side, or the picture alone while there is no icon, which is not kept, so that
    /// an icon that turns up later is shown.
    ImagePtr appIconAndWindowStateImage(const std::shared_ptr<WindowState>& state);

    /// From now on icons are sought again, those too that were not found.
    void forgetIcons() { sought_.clear(); }

private:
    ImagePtr iconFor(const std::string& bundleIdentifier);

    Images& images_;
    ApplicationIcons& icons_;
    /// Null where there is none.
    std::map<std::string, ImagePtr> sought_;
};

} // namespace panewright
