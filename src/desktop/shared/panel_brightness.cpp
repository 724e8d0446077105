#include "desktop/shared/panel_brightness.h"

#include <algorithm>
#include <vector>

namespace panewright {
namespace {

constexpr int kSamples = 32;

/// The height of the strip's middle; nil without a strip.
std::optional<double> middleOfStrip(const Rect& display, const Rect& area) {
    const double above = area.y - display.y;
    const double below = display.y + display.height - (area.y + area.height);
    if (above <= 0 && below <= 0) {
        return std::nullopt;
    }
    return above > 0 ? display.y + above / 2 : display.y + display.height - below / 2;
}

} // namespace

std::optional<double> panelBrightness(const Displays& displays, const WorkAreas& workAreas,
                                      const ScreenBrightness& brightness) {
    const auto main = mainDisplayOf(displays.snapshot());
    const auto& bounds = main.bounds;
    const auto y = middleOfStrip(bounds, workAreas.workArea(main.id));
    std::vector<double> samples;
    for (int i = 0; y && i < kSamples; ++i) {
        const double x = bounds.x + bounds.width * (i + 0.5) / kSamples;
        if (const auto sample = brightness.brightnessAt({x, *y})) {
            samples.push_back(*sample);
        }
    }
    if (samples.empty()) {
        return std::nullopt;
    }
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

} // namespace panewright
