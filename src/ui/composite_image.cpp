#include "ui/composite_image.h"

namespace panewright {
namespace {

/// Between icon and picture.
constexpr double kIconMargin = 4;

double widthOf(const ImagePtr& image) {
    return image ? image->size().width : 0;
}

} // namespace

ImagePtr compositeImageWithAppIconImage(Images& images, const ImagePtr& image,
                                        const ImagePtr& icon) {
    if (widthOf(image) == 0 || widthOf(icon) == 0) {
        return image;
    }
    const Size size = image->size();
    const double left = kAppIconSize.width + kIconMargin;
    return images.composed(
        {left + size.width, size.height},
        {{image, makeRect({left, 0}, size)},
         {icon, makeRect({0, size.height - kAppIconSize.height}, kAppIconSize)}});
}

} // namespace panewright
