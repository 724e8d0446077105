#pragma once

#include "base/image.h"

#include <QIcon>

#include <utility>

namespace panewright {

/// A picture that Qt can draw at any size.
class QtImage : public Image {
public:
    QtImage(QIcon anIcon, Size size) : icon_(std::move(anIcon)), size_(size) {}

    Size size() const override { return size_; }
    const QIcon& icon() const { return icon_; }

private:
    QIcon icon_;
    Size size_;
};

/// A null icon for null, and for a picture of another toolkit.
inline QIcon iconOf(const ImagePtr& image) {
    const auto* ours = dynamic_cast<const QtImage*>(image.get());
    return ours ? ours->icon() : QIcon();
}

} // namespace panewright
