#pragma once

#include "base/geometry.h"

#include <memory>

namespace panewright {

/// A picture of the desktop's toolkit. Only the adapter of the images port makes one and looks
/// inside; to all others it is a size and something to show.
class Image {
public:
    virtual ~Image() = default;

    /// In points.
    virtual Size size() const = 0;
};

using ImagePtr = std::shared_ptr<const Image>;

} // namespace panewright
