#include "desktop/shared/written_frames.h"

#include <algorithm>
#include <cmath>

namespace panewright {
namespace {

constexpr double kNoise = 1.0 / 512;
constexpr double kTrustedDistance = 64;

double roundedUp(double coordinate) {
    const double below = std::floor(coordinate);
    return coordinate - below < kNoise ? below : below + 1;
}

bool isNear(const Rect& a, const Rect& b) {
    const auto near = [](double first, double second) {
        return std::abs(first - second) <= kTrustedDistance;
    };
    return near(a.x, b.x) && near(a.y, b.y) && near(a.x + a.width, b.x + b.width) &&
           near(a.y + a.height, b.y + b.height);
}

bool covers(const Rect& outer, const Rect& inner) {
    return outer.x <= inner.x && outer.y <= inner.y &&
           outer.x + outer.width >= inner.x + inner.width &&
           outer.y + outer.height >= inner.y + inner.height;
}

} // namespace

Point roundedPosition(Point position) {
    return {roundedUp(position.x), roundedUp(position.y)};
}

Size roundedSize(Size size) {
    return {std::round(size.width), std::round(size.height)};
}

Rect frameToAsk(const Rect& written, const std::vector<DisplayArea>& displays) {
    const auto covered = std::ranges::find_if(displays, [&](const DisplayArea& display) {
        return display.workArea != display.bounds && covers(written, display.bounds);
    });
    if (covered == displays.end()) {
        return written;
    }
    const bool reachesOther = std::ranges::any_of(displays, [&](const DisplayArea& display) {
        return display.bounds != covered->bounds && intersects(written, display.bounds);
    });
    return reachesOther ? written : covered->workArea;
}

Rect FrameWrite::written(const Rect& frame) const {
    return makeRect(position ? roundedPosition(*position) : frame.origin(),
                    size ? *size : frame.size());
}

Rect FrameWrite::asked(const Rect& frame, const std::vector<DisplayArea>& displays) const {
    const Rect whole = makeRect(written(frame).origin(), size ? roundedSize(*size) : frame.size());
    return position && size ? frameToAsk(whole, displays) : whole;
}

Rect WrittenFrames::frameToReport(WindowId window, const Rect& trueFrame) const {
    const auto known = frames_.find(window);
    if (known == frames_.end()) {
        return trueFrame;
    }
    const auto& [written, asked, settled] = known->second;
    return settled == trueFrame && isNear(settled, asked) ? written : trueFrame;
}

} // namespace panewright
