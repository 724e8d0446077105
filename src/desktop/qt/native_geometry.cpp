#include "desktop/qt/native_geometry.h"

#include <QGuiApplication>

#include <cmath>

namespace panewright {
namespace {

Rect nativeGeometryOf(const QScreen& screen) {
    const auto geometry = screen.geometry();
    return makeRect({static_cast<double>(geometry.x()), static_cast<double>(geometry.y())},
                    toNative(geometry.size(), screen));
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

QPoint fromNative(Point native, const QScreen& screen) {
    const auto origin = screen.geometry().topLeft();
    const auto ratio = screen.devicePixelRatio();
    return {origin.x() + static_cast<int>(std::lround((native.x - origin.x()) / ratio)),
            origin.y() + static_cast<int>(std::lround((native.y - origin.y()) / ratio))};
}

Rect toNative(const QRect& rect, const QScreen& screen) {
    const auto origin = screen.geometry().topLeft();
    const auto ratio = screen.devicePixelRatio();
    return makeRect({origin.x() + (rect.x() - origin.x()) * ratio,
                     origin.y() + (rect.y() - origin.y()) * ratio},
                    toNative(rect.size(), screen));
}

Size toNative(const QSize& size, const QScreen& screen) {
    const auto ratio = screen.devicePixelRatio();
    return {size.width() * ratio, size.height() * ratio};
}

} // namespace panewright
