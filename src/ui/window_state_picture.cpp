#include "ui/window_state_picture.h"

#include "base/narrowed.h"

#include <cmath>

namespace panewright {
namespace {

constexpr double kWidth = kDefaultCanvas.width;
/// Of the frame that a window stands in.
constexpr double kInset = 1;
/// What a maximised window may leave of its display's height, such as a menu bar.
constexpr double kFullHeightSlack = 35;
constexpr Colour kWindowColour{0.766, 0.811, 0.84, 1};

bool isUsable(double length) {
    return std::isfinite(length) && length > 0;
}

bool isUsable(Size display) {
    return isUsable(display.width) && isUsable(display.height);
}

bool fillsDisplay(Size window, Size display) {
    return window == display ||
           (window.width == display.width && display.height - window.height < kFullHeightSlack);
}

/// In 32 bits, as the states' pictures have always been.
double flooredShare(double scale, double length) {
    return std::floor(narrowed(scale * length));
}

} // namespace

Size canvasFor(Size display) {
    if (!isUsable(display)) {
        return kDefaultCanvas;
    }
    const auto height = narrowed(display.height / display.width * kWidth);
    return {kWidth, std::ceil(height)};
}

Rect windowArea(const Rect& window, const Rect& display) {
    const Size canvas = canvasFor(display.size());
    if (fillsDisplay(window.size(), display.size())) {
        return makeRect({}, canvas);
    }
    if (!isUsable(display.size())) {
        return {};
    }
    const Size inner{canvas.width - 2 * kInset, canvas.height - 2 * kInset};
    return {(window.x - display.x) * (inner.width / display.width) + kInset,
            (window.y - display.y) * (inner.height / display.height) + kInset,
            window.width / display.width * inner.width,
            window.height / display.height * inner.height};
}

Rect scaledWindowArea(Size windowScale) {
    const Size size{flooredShare(windowScale.width, kDefaultCanvas.width),
                    flooredShare(windowScale.height, kDefaultCanvas.height)};
    return {windowScale.width < 1 ? (kDefaultCanvas.width - size.width) * 0.5 : 0,
            windowScale.height < 1 ? (kDefaultCanvas.height - size.height) * 0.5 : 0, size.width,
            size.height};
}

Picture windowStatePicture(Size canvas, const Rect& windowArea) {
    const Rect whole = makeRect({}, canvas);
    return {canvas,
            {{PictureShape::Kind::kFill, whole, grey(1)},
             {PictureShape::Kind::kFill, windowArea, kWindowColour},
             {PictureShape::Kind::kStroke, whole, grey(0)}}};
}

} // namespace panewright
