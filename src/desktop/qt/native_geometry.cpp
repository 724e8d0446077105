#include "desktop/qt/native_geometry.h"

#include <QGuiApplication>

namespace panewright {
namespace {

/// The screen's top left is the same in both.
Rect nativeGeometryOf(const QScreen& screen) {
    const auto geometry = screen.geometry();
    const auto ratio = screen.devicePixelRatio();
    return {static_cast<double>(geometry.x()), static_cast<double>(geometry.y()),
            geometry.width() * ratio, geometry.height() * ratio};
}

} // namespace

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
    const auto ratio = screen.devicePixelRatio();
    return {origin.x() + (rect.x() - origin.x()) * ratio,
            origin.y() + (rect.y() - origin.y()) * ratio, rect.width() * ratio,
            rect.height() * ratio};
}

PopoverAnchor fromNative(const PopoverAnchor& anchor, const QScreen& screen) {
    const auto origin = screen.geometry().topLeft();
    const auto ratio = screen.devicePixelRatio();
    const auto converted = [&](const Rect& native) -> Rect {
        return {origin.x() + (native.x - origin.x()) / ratio,
                origin.y() + (native.y - origin.y()) / ratio, native.width / ratio,
                native.height / ratio};
    };
    return {converted(anchor.rect), converted(anchor.workArea)};
}

} // namespace panewright
