#include "desktop/qt/native_geometry.h"

#include <QGuiApplication>

namespace panewright {
namespace {

bool nativeUnitIsPixel = true;

/// Of the program's points in one unit of the toolkit.
double ratioOf(const QScreen& screen) {
    return nativeUnitIsPixel ? screen.devicePixelRatio() : 1;
}

/// The screen's top left is the same in both.
Rect nativeGeometryOf(const QScreen& screen) {
    const auto geometry = screen.geometry();
    const auto ratio = ratioOf(screen);
    return {static_cast<double>(geometry.x()), static_cast<double>(geometry.y()),
            geometry.width() * ratio, geometry.height() * ratio};
}

} // namespace

void setNativeUnitIsPixel(bool isPixel) {
    nativeUnitIsPixel = isPixel;
}

QScreen* screenAt(const Rect& native) {
    const Point middle{native.x + native.width / 2, native.y + native.height / 2};
    for (auto* screen : QGuiApplication::screens()) {
        if (contains(nativeGeometryOf(*screen), middle)) {
            return screen;
        }
    }
    return QGuiApplication::primaryScreen();
}

Rect toNative(const QRect& rect, const QScreen& screen) {
    const auto origin = screen.geometry().topLeft();
    const auto ratio = ratioOf(screen);
    return {origin.x() + (rect.x() - origin.x()) * ratio,
            origin.y() + (rect.y() - origin.y()) * ratio, rect.width() * ratio,
            rect.height() * ratio};
}

PopoverAnchor fromNative(const PopoverAnchor& anchor, const QScreen& screen) {
    const auto origin = screen.geometry().topLeft();
    const auto ratio = ratioOf(screen);
    const auto converted = [&](const Rect& native) -> Rect {
        return {origin.x() + (native.x - origin.x()) / ratio,
                origin.y() + (native.y - origin.y()) / ratio, native.width / ratio,
                native.height / ratio};
    };
    return {converted(anchor.rect), converted(anchor.workArea)};
}

} // namespace panewright
