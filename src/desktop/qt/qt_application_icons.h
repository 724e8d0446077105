#pragma once

#include "base/lifetime.h"
#include "desktop/qt/icon_file.h"
#include "desktop/shared/application_icon_source.h"
#include "platform/application_icons.h"
#include "platform/main_loop.h"

#include <optional>

namespace panewright {

/// Icons from the icon theme, else from what the program's windows carry.
class QtApplicationIcons : public ApplicationIcons {
public:
    QtApplicationIcons(ApplicationIconSource& source, MainLoop& mainLoop)
        : source_(source), mainLoop_(mainLoop) {}

    ImagePtr iconOf(const RunningApplication& application) override;
    ImagePtr iconForBundleIdentifier(const std::string& bundleIdentifier) override;

private:
    IconThemeFiles& themeFiles();
    ImagePtr namedIcon(const std::string& bundleIdentifier);

    ApplicationIconSource& source_;
    MainLoop& mainLoop_;
    /// While icons are being asked for: a menu wants many at once.
    std::optional<IconThemeFiles> themeFiles_;
    Lifetime lifetime_;
};

} // namespace panewright
