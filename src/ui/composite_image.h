#pragma once

#include "platform/images.h"

namespace panewright {

/// The size, in points, of an application's icon wherever the program shows one.
inline constexpr Size kAppIconSize{16, 16};

/// The icon at the bottom left and the picture right of it, as high as the picture; the picture
/// itself where one of the two is null or has no width.
ImagePtr compositeImageWithAppIconImage(Images& images, const ImagePtr& image,
                                        const ImagePtr& icon);

} // namespace panewright
