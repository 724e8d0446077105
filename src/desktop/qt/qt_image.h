#pragma once

#include "base/image.h"

#include <QIcon>

#include <utility>

namespace panewright {

/// A picture that Qt can draw at any size.
struct QtImage : Image {
    explicit QtImage(QIcon anIcon) : icon(std::move(anIcon)) {}

    QIcon icon;
};

/// Null gives a null icon.
inline QIcon iconOf(const ImagePtr& image) {
    return image ? static_cast<const QtImage&>(*image).icon : QIcon();
}

} // namespace panewright
