#include "desktop/qt/qt_application_icons.h"

#include "desktop/qt/qt_image.h"

#include <QDir>

#include <memory>

namespace panewright {
namespace {

/// Of the theme's files that which is sharp in a popover on a screen of high density, in pixels.
constexpr int kWantedSize = 64;

/// What an icon takes that nobody has resized, in points.
constexpr Size kIconSize{32, 32};

/// Null without a picture.
ImagePtr imageOf(const QList<QImage>& pictures) {
    return pictures.isEmpty() ? nullptr : std::make_shared<QtImage>(kIconSize, paintOf(pictures));
}

ImagePtr imageOf(const std::vector<IconPicture>& pictures) {
    QList<QImage> images;
    for (const auto& picture : pictures) {
        const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()),
                           static_cast<int>(picture.width), static_cast<int>(picture.height),
                           QImage::Format_ARGB32);
        images.append(image.copy());
    }
    return imageOf(images);
}

} // namespace

ImagePtr QtApplicationIcons::iconOf(const RunningApplication& application) {
    auto icon = application.bundleIdentifier ? namedIcon(*application.bundleIdentifier) : nullptr;
    return icon ? icon : imageOf(source_.iconPicturesOf(application.processIdentifier));
}

ImagePtr QtApplicationIcons::iconForBundleIdentifier(const std::string& bundleIdentifier) {
    auto icon = namedIcon(bundleIdentifier);
    return icon ? icon : imageOf(source_.iconPicturesOf(bundleIdentifier));
}

IconThemeFiles& QtApplicationIcons::themeFiles() {
    if (!themeFiles_) {
        themeFiles_.emplace(kWantedSize);
        mainLoop_.post(lifetime_.guard([this] { themeFiles_.reset(); }));
    }
    return *themeFiles_;
}

ImagePtr QtApplicationIcons::namedIcon(const std::string& bundleIdentifier) {
    const auto name = QString::fromStdString(source_.iconNameOf(bundleIdentifier));
    const QImage image = readIconFile(QDir::isAbsolutePath(name) ? name : themeFiles().file(name));
    return image.isNull() ? nullptr : imageOf(QList<QImage>{image});
}

} // namespace panewright
