#pragma once

#include <cstdint>

namespace panewright {

/// Every point and rectangle of the program is in the display server's global space: in points,
/// with the origin at the top-left corner of the main display and y growing downwards. On X11 a
/// point is a pixel. Equality is exact.

struct Point {
    double x = 0;
    double y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;

    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    Point origin() const { return {x, y}; }
    Size size() const { return {width, height}; }

    friend bool operator==(const Rect&, const Rect&) = default;
};

inline Rect makeRect(Point origin, Size size) {
    return {origin.x, origin.y, size.width, size.height};
}

/// Whether the point lies in the rectangle: the left and top edges belong to it, the right and
/// bottom edges do not.
inline bool contains(const Rect& rect, Point point) {
    return point.x >= rect.x && point.x < rect.x + rect.width && point.y >= rect.y &&
           point.y < rect.y + rect.height;
}

/// Whether the rectangles share an area. An empty rectangle, or one with a coordinate that is not a
/// number, shares none.
inline bool intersects(const Rect& a, const Rect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height && a.width > 0 && a.height > 0 && b.width > 0 && b.height > 0;
}

/// A run of `length` items from `location` on.
struct Range {
    std::uint64_t location = 0;
    std::uint64_t length = 0;

    friend bool operator==(const Range&, const Range&) = default;
};

} // namespace panewright
