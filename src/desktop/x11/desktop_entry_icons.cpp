#include "desktop/x11/desktop_entry_icons.h"

#include "desktop/x11/x_properties.h"

#include <cstddef>

namespace panewright {
namespace {

constexpr std::size_t kMaxPictures = 16;
/// Of one picture, in pixels.
constexpr std::uint32_t kMaxSide = 1024;
/// Of a whole property, in pixels: two of the largest pictures.
constexpr std::uint32_t kMaxPixels = 2 * kMaxSide * kMaxSide;

} // namespace

std::vector<IconPicture> iconPictures(const std::vector<std::uint32_t>& property) {
    std::vector<IconPicture> pictures;
    constexpr std::size_t kHeader = 2;
    for (std::size_t at = 0; property.size() - at > kHeader && pictures.size() < kMaxPictures;) {
        const auto width = property[at];
        const auto height = property[at + 1];
        at += kHeader;
        const auto count = std::uint64_t{width} * height;
        if (count == 0 || count > property.size() - at) {
            break; // where the next one would begin is not known
        }
        const auto first = property.begin() + static_cast<std::ptrdiff_t>(at);
        at += static_cast<std::size_t>(count);
        if (width <= kMaxSide && height <= kMaxSide) {
            pictures.push_back(
                {width, height, {first, property.begin() + static_cast<std::ptrdiff_t>(at)}});
        }
    }
    return pictures;
}

std::string DesktopEntryIcons::iconNameOf(const std::string& bundleIdentifier) {
    const auto* entry = activeWindows_.identity().entries().withId(bundleIdentifier);
    return entry ? entry->icon : "";
}

std::vector<IconPicture> DesktopEntryIcons::iconPicturesOf(ProcessId pid) {
    for (const auto window : activeWindows_.windowsOf(pid)) {
        if (auto found = pictures(window); !found.empty()) {
            return found;
        }
    }
    return {};
}

std::vector<IconPicture> DesktopEntryIcons::iconPicturesOf(const std::string& bundleIdentifier) {
    if (!windowsById_) {
        windowsById_.emplace();
        turnEnd_.await();
        for (const auto window : activeWindows_.allWindows()) {
            if (const auto id = activeWindows_.identity().applicationOf(window).bundleIdentifier) {
                windowsById_->emplace(*id, window);
            }
        }
    }
    const auto [first, last] = windowsById_->equal_range(bundleIdentifier);
    for (auto each = first; each != last; ++each) {
        if (auto found = pictures(each->second); !found.empty()) {
            return found;
        }
    }
    return {};
}

std::vector<IconPicture> DesktopEntryIcons::pictures(xcb_window_t window) {
    XPropertyRequest property(connection_, window, connection_.atoms()._NET_WM_ICON, kMaxPixels);
    return iconPictures(property.numbers());
}

} // namespace panewright
