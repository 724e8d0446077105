#include "desktop/qt/qt_application_icons.h"

#include "desktop/qt/icon_file.h"
#include "desktop/qt/qt_image.h"

#include <QDir>
#include <QPixmap>

namespace panewright {
namespace {

/// Of the theme's files that which is sharp in a popover on a screen of high density.
constexpr int kWantedSize = 64;

/// What an icon that nobody has resized takes, in points.
constexpr Size kIconSize{32, 32};

QIcon namedIcon(const QString& name) {
    const QImage image =
        readIconFile(QDir::isAbsolutePath(name) ? name : iconThemeFile(name, kWantedSize));
    return image.isNull() ? QIcon() : QIcon(QPixmap::fromImage(image));
}

QIcon pictureIcon(const std::vector<IconPicture>& pictures) {
    QIcon icon;
    for (const auto& picture : pictures) {
        const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()),
                           static_cast<int>(picture.width), static_cast<int>(picture.height),
                           QImage::Format_ARGB32);
        icon.addPixmap(QPixmap::fromImage(image.copy()));
    }
    return icon;
}

bool canBeDrawn(const QIcon& icon) {
    return !icon.pixmap(16).isNull();
}

} // namespace

ImagePtr QtApplicationIcons::iconOf(const RunningApplication& application) {
    auto icon = namedIcon(QString::fromStdString(source_.iconNameOf(application)));
    if (!canBeDrawn(icon)) {
        icon = pictureIcon(source_.iconPicturesOf(application));
    }
    return canBeDrawn(icon) ? std::make_shared<QtImage>(icon, kIconSize) : nullptr;
}

} // namespace panewright
