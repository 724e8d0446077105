#include "ui/window_state_images.h"

#include "ui/composite_image.h"
#include "ui/window_state_picture.h"

namespace panewright {

ImagePtr windowStateImageForCustomState(const WindowState& state, Images& images) {
    const Rect& display = state.originalQuartzDisplayBounds();
    const Size canvas = canvasFor(display.size());
    const Rect area = windowArea(state.originalWindowRect(), display);
    return images.imageOfSize(canvas, [canvas, area] { return windowStatePicture(canvas, area); });
}

ImagePtr windowStateImageForDefaultState(const std::shared_ptr<WindowState>& state,
                                         Images& images) {
    return images.imageOfSize(kDefaultCanvas, [weak = std::weak_ptr<const WindowState>(state)] {
        const auto alive = weak.lock();
        return windowStatePicture(kDefaultCanvas,
                                  scaledWindowArea(alive ? alive->windowScale() : Size{}));
    });
}

ImagePtr WindowStateImages::windowStateImage(const std::shared_ptr<WindowState>& state) {
    if (!state->windowStateImage()) {
        state->setWindowStateImage(state->isDefault()
                                       ? windowStateImageForDefaultState(state, images_)
                                       : windowStateImageForCustomState(*state, images_));
    }
    return state->windowStateImage();
}

ImagePtr WindowStateImages::appIconImage(WindowState& state) {
    if (!state.appIconImage() && state.appBundleId()) {
        state.setAppIconImage(iconFor(*state.appBundleId()));
    }
    return state.appIconImage();
}

ImagePtr WindowStateImages::appIconAndWindowStateImage(const std::shared_ptr<WindowState>& state) {
    if (const auto& kept = state->appIconAndWindowStateImage()) {
        return kept;
    }
    const auto picture = windowStateImage(state);
    auto image = compositeImageWithAppIconImage(images_, picture, appIconImage(*state));
    if (image != picture) {
        state->setAppIconAndWindowStateImage(image);
    }
    return image;
}

ImagePtr WindowStateImages::iconFor(const std::string& bundleIdentifier) {
    const auto [place, isNew] = sought_.try_emplace(bundleIdentifier);
    if (isNew) {
        place->second =
            images_.resized(icons_.iconForBundleIdentifier(bundleIdentifier), kAppIconSize);
    }
    return place->second;
}

} // namespace panewright
