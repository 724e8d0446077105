#pragma once

#include "platform/images.h"

namespace panewright {

/// Images that Qt paints.
class QtImages : public Images {
public:
    ImagePtr imageOfSize(Size size, std::function<Picture()> drawing) override;
    ImagePtr resized(const ImagePtr& image, Size size) override;
    ImagePtr composed(Size size, std::vector<PlacedImage> parts) override;
    ImagePtr imageWithData(const Bytes& data) override;
    std::optional<Bytes> representation(const ImagePtr& image, ImageFileType type,
                                        const ImageEncodingOptions& options) override;
};

} // namespace panewright
