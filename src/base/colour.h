#pragma once

namespace panewright {

/// Device colour; each component from 0 to 1.
struct Colour {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend bool operator==(const Colour&, const Colour&) = default;
};

constexpr Colour grey(double level) {
    return {level, level, level, 1};
}

} // namespace panewright
