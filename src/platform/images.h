#pragma once

#include "base/bytes.h"
#include "base/geometry.h"
#include "base/image.h"
#include "base/picture.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace panewright {

/// An image in a composition, and where it stands there: points, origin top-left, y downwards.
struct PlacedImage {
    ImagePtr image;
    Rect rect;
};

enum class ImageFileType { kJpeg, kPng };

struct ImageEncodingOptions {
    /// From 0, the smallest file, to 1, the best picture, for a type that has the choice; nil
    /// leaves it to the adapter.
    std::optional<double> compressionFactor;
};

/// No image is larger, in points: one that is to be comes out as large as this.
inline constexpr Size kLargestImage{2048, 280};

/// A longer file, in bytes, is no image: it would take memory and be shown nowhere.
inline constexpr std::size_t kLargestImageFile = std::size_t{1} << 20U;

/// Makes images and knows what is in them. Nothing is rasterised before an image is painted, and
/// then at the scale of the display. An image that comes from elsewhere counts as null. Sizes are
/// in points, and none is above kLargestImage. Main thread only.
class Images {
public:
    virtual ~Images() = default;

    /// An image of that size, never null. `drawing` is called each time the image is painted.
    virtual ImagePtr imageOfSize(Size size, std::function<Picture()> drawing) = 0;

    /// A copy that takes another size when shown, as sharp as the image can be there; null of null.
    virtual ImagePtr resized(const ImagePtr& image, Size size) = 0;

    /// The parts one over the other, the first one first, cut off at the edges; null ones show
    /// nothing.
    virtual ImagePtr composed(Size size, std::vector<PlacedImage> parts) = 0;

    /// The image in the content of a file, which anybody may have made; null if there is none.
    virtual ImagePtr imageWithData(const Bytes& data) = 0;

    /// The content of a file of that type, which holds the image's size too where the type can.
    /// Nil for null, and when it cannot be made.
    virtual std::optional<Bytes> representation(const ImagePtr& image, ImageFileType type,
                                                const ImageEncodingOptions& options) = 0;
};

} // namespace panewright
