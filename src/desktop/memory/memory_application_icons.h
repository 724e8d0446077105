#pragma once

#include "platform/application_icons.h"

#include <map>
#include <set>
#include <string>
#include <utility>

namespace panewright {

/// An icon that shows whose it is.
class MemoryIcon : public Image {
public:
    explicit MemoryIcon(std::string identifier) : bundleIdentifier(std::move(identifier)) {}

    /// Of the program that the picture is the icon of; empty for any other picture and for null.
    static std::string identifierOf(const ImagePtr& image) {
        const auto* icon = dynamic_cast<const MemoryIcon*>(image.get());
        return icon ? icon->bundleIdentifier : std::string();
    }

    Size size() const override { return {32, 32}; }

    const std::string bundleIdentifier;
};

/// One picture for each bundle identifier, the same each time; none for a program without one.
class MemoryApplicationIcons : public ApplicationIcons {
public:
    ImagePtr iconOf(const RunningApplication& application) override {
        return application.bundleIdentifier ? iconForBundleIdentifier(*application.bundleIdentifier)
                                            : nullptr;
    }
    ImagePtr iconForBundleIdentifier(const std::string& bundleIdentifier) override {
        ++timesSought[bundleIdentifier];
        if (missing.contains(bundleIdentifier)) {
            return nullptr;
        }
        auto& icon = icons_[bundleIdentifier];
        if (!icon) {
            icon = std::make_shared<const MemoryIcon>(bundleIdentifier);
        }
        return icon;
    }

    /// Programs that have no icon.
    std::set<std::string> missing;
    std::map<std::string, int> timesSought;

private:
    std::map<std::string, ImagePtr> icons_;
};

} // namespace panewright
