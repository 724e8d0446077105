#pragma once

#include "platform/workspace.h"

#include <cstdint>
#include <string>
#include <vector>

namespace panewright {

/// A picture of straight (not premultiplied) 0xAARRGGBB pixels, row by row from the top left.
struct IconPicture {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::vector<std::uint32_t> pixels;

    friend bool operator==(const IconPicture&, const IconPicture&) = default;
};

/// What the icon of a program is made from. All of it may be empty.
struct ApplicationIcon {
    /// A name in the icon theme, or the absolute path of a picture.
    std::string name;
    /// What the program's windows carry, for where the name leads to nothing.
    std::vector<IconPicture> pictures;
};

/// Where the icons of programs come from. Main thread only.
class ApplicationIconSource {
public:
    virtual ~ApplicationIconSource() = default;

    /// Of a program that runs or ran; its pictures only while it has windows.
    virtual ApplicationIcon iconOf(const RunningApplication& application) = 0;
};

} // namespace panewright
