#include "desktop/x11/x_screen_brightness.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace panewright {
namespace {

/// Null for a visual that the server does not have.
const xcb_visualtype_t* visualOf(const xcb_setup_t* setup, xcb_visualid_t id) {
    for (auto screens = xcb_setup_roots_iterator(setup); screens.rem; xcb_screen_next(&screens)) {
        for (auto depths = xcb_screen_allowed_depths_iterator(screens.data); depths.rem;
             xcb_depth_next(&depths)) {
            for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem;
                 xcb_visualtype_next(&visuals)) {
                if (visuals.data->visual_id == id) {
                    return visuals.data;
                }
            }
        }
    }
    return nullptr;
}

/// The first pixel of an image as a number, its bytes in the server's order.
std::uint32_t firstPixel(const xcb_setup_t* setup, const std::uint8_t* bytes, std::size_t count) {
    std::uint32_t pixel = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(count, sizeof pixel); ++i) {
        const bool lowFirst = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
        pixel = lowFirst ? pixel | static_cast<std::uint32_t>(bytes[i]) << (8U * i)
                         : pixel << 8U | bytes[i];
    }
    return pixel;
}

/// From 0 to 1.
double channel(std::uint32_t pixel, std::uint32_t mask) {
    return mask == 0 ? 0 : static_cast<double>(pixel & mask) / static_cast<double>(mask);
}

bool isCoordinate(double value) {
    return value >= 0 && value <= std::numeric_limits<std::int16_t>::max();
}

} // namespace

std::optional<double> XScreenBrightness::brightnessAt(Point point) const {
    if (!isCoordinate(std::floor(point.x)) || !isCoordinate(std::floor(point.y))) {
        return std::nullopt;
    }
    const auto image = connection_.reply(
        xcb_get_image_reply,
        xcb_get_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, connection_.root(),
                      static_cast<std::int16_t>(point.x), static_cast<std::int16_t>(point.y), 1, 1,
                      std::numeric_limits<std::uint32_t>::max()));
    const auto* setup = xcb_get_setup(connection_);
    const auto* visual = image ? visualOf(setup, image->visual) : nullptr;
    if (!visual || visual->_class != XCB_VISUAL_CLASS_TRUE_COLOR) {
        return std::nullopt;
    }
    const auto pixel = firstPixel(setup, xcb_get_image_data(image.get()),
                                  static_cast<std::size_t>(xcb_get_image_data_length(image.get())));
    return 0.2126 * channel(pixel, visual->red_mask) + 0.7152 * channel(pixel, visual->green_mask) +
           0.0722 * channel(pixel, visual->blue_mask);
}

} // namespace panewright
