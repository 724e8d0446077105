#pragma once

#include <memory>

namespace panewright {

/// A picture of the desktop's toolkit. Only its type is known here: the layer that draws makes it
/// and the view that shows it knows what it is.
class Image {
public:
    virtual ~Image() = default;
};

using ImagePtr = std::shared_ptr<const Image>;

} // namespace panewright
