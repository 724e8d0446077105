#pragma once

#include "desktop/shared/application_icon_source.h"
#include "platform/application_icons.h"

namespace panewright {

/// Icons from the icon theme, else from what the program's windows carry.
class QtApplicationIcons : public ApplicationIcons {
public:
    explicit QtApplicationIcons(ApplicationIconSource& source) : source_(source) {}

    ImagePtr iconOf(const RunningApplication& application) override;
    ImagePtr iconForBundleIdentifier(const std::string& bundleIdentifier) override;

private:
    ImagePtr namedIcon(const std::string& bundleIdentifier);

    ApplicationIconSource& source_;
};

} // namespace panewright
