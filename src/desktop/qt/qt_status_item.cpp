#include "desktop/qt/qt_status_item.h"

#include "desktop/qt/key_events.h"
#include "desktop/qt/native_geometry.h"
#include "desktop/qt/status_icon.h"
#include "desktop/shared/panel_brightness.h"

#include <QCursor>
#include <QGuiApplication>
#include <QTimer>

#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// Panels brighter than this get a dark icon.
constexpr double kBright = 0.5;
const QColor kLight(0xf2, 0xf2, 0xf2);
const QColor kDark(0x24, 0x24, 0x24);

/// When to look at the panel after the icon was shown: it takes its place some time later.
constexpr std::chrono::milliseconds kLooks[] = {100ms, 500ms, 2000ms};

} // namespace

QtStatusItem::QtStatusItem(const Trays& trays, const ScreenBrightness& brightness,
                           const Displays& displays, const WorkAreas& workAreas)
    : trays_(trays), brightness_(brightness), displays_(displays), workAreas_(workAreas) {}

QtStatusItem::~QtStatusItem() = default;

void QtStatusItem::show(const StatusItemLook& look,
                        std::function<void(const StatusItemClick&)> clicked) {
    look_ = look;
    clicked_ = std::move(clicked);
    // After what is going on now: the hot keys go first.
    QTimer::singleShot(0, this, [this] {
        busTrayChanges_ = trays_.onBus.onChange([this] { lookForPanel(); });
        windowTrayChanges_ = trays_.ofWindows.onChange([this] { lookForPanel(); });
        lookForPanel();
    });
}

/// Waits for what is to be known of the bus: the toolkit decides between the two kinds once.
void QtStatusItem::lookForPanel() {
    const auto isOnBus = trays_.onBus.isPresent();
    if (icon_) {
        suitPanel();
    } else if (isOnBus && (*isOnBus || trays_.ofWindows.isPresent().value_or(false))) {
        isOnBus_ = *isOnBus;
        showIcon();
    }
    if (std::exchange(wasShown_, isShown()) != isShown()) {
        shownChanged_.notify();
    }
}

bool QtStatusItem::isShown() const {
    return icon_ && (isOnBus_ ? trays_.onBus : trays_.ofWindows).isPresent().value_or(false);
}

void QtStatusItem::showIcon() {
    icon_ = std::make_unique<QSystemTrayIcon>();
    icon_->setToolTip(QString::fromStdString(look_.name));
    connect(icon_.get(), &QSystemTrayIcon::activated, this, &QtStatusItem::activated);
    suitPanel();
    if (isOnBus_ && trays_.onBus.onlyOpensMenus()) {
        announcedMenu_ = std::make_unique<QMenu>();
        icon_->setContextMenu(announcedMenu_.get());
    }
    icon_->show();
    for (const auto delay : kLooks) {
        QTimer::singleShot(delay, this, &QtStatusItem::suitPanel);
    }
}

/// Gives the icon the colour that can be seen on the panel.
void QtStatusItem::suitPanel() {
    const auto brightness = brightnessBehindIcon();
    icon_->setIcon(statusIcon(QString::fromStdString(look_.imageName),
                              {look_.imageSize.width, look_.imageSize.height}, look_.length,
                              brightness.value_or(0) > kBright ? kDark : kLight,
                              brightness ? Qt::transparent : kDark));
}

/// At the icon's corner, which the picture leaves free; a host on the bus does not say where that
/// is.
std::optional<double> QtStatusItem::brightnessBehindIcon() const {
    if (isOnBus_) {
        return panelBrightness(displays_, workAreas_, brightness_);
    }
    const auto geometry = trayGeometry();
    return geometry ? brightness_.brightnessAt({geometry->x + 1, geometry->y + 1}) : std::nullopt;
}

void QtStatusItem::activated(QSystemTrayIcon::ActivationReason reason) {
    if (reason != QSystemTrayIcon::Trigger && reason != QSystemTrayIcon::Context) {
        return;
    }
    const auto pointer = QCursor::pos();
    if (const auto* screen = QGuiApplication::screenAt(pointer)) {
        lastClick_ = makeRect(toNative(QRect(pointer, QSize()), *screen).origin(), {});
    }
    suitPanel();
    clicked_({reason == QSystemTrayIcon::Context, heldModifierFlags()});
}

std::optional<Rect> QtStatusItem::trayGeometry() const {
    const auto geometry = icon_ ? icon_->geometry() : QRect();
    const auto* screen = QGuiApplication::screenAt(geometry.center());
    if (!geometry.isValid() || geometry.isEmpty() || !screen) {
        return std::nullopt;
    }
    return toNative(geometry, *screen);
}

std::optional<Rect> QtStatusItem::frame() const {
    const auto geometry = trayGeometry();
    return geometry ? geometry : lastClick_;
}

} // namespace panewright
