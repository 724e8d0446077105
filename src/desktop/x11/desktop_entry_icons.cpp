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

std::string DesktopEntryIcons::iconNameOf(const RunningApplication& application) {
    const auto* entry =
        application.bundleIdentifier
            ? activeWindows_.identity().entries().withId(*application.bundleIdentifier)
            : nullptr;
    return entry ? entry->icon : "";
}

std::vector<IconPicture> DesktopEntryIcons::iconPicturesOf(const RunningApplication& application) {
    for (const auto window : activeWindows_.windowsOf(application.processIdentifier)) {
        XPropertyRequest property(connection_, window, connection_.atoms()._NET_WM_ICON,
                                  kMaxPixels);
        if (auto pictures = iconPictures(property.numbers()); !pictures.empty()) {
            return pictures;
        }
    }
    return {};
}

} // namespace panewright
