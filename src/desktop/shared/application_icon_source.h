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

/// Where the icons of programs come from. Main thread only.
class ApplicationIconSource {
public:
    virtual ~ApplicationIconSource() = default;

    /// A name in the icon theme, or the absolute path of a picture; empty for none. The program
    /// need not run.
    virtual std::string iconNameOf(const std::string& bundleIdentifier) = 0;

    /// What the windows of a program that runs carry, for where the name leads to nothing: they may
    /// be large.
    virtual std::vector<IconPicture> iconPicturesOf(ProcessId pid) = 0;
    virtual std::vector<IconPicture> iconPicturesOf(const std::string& bundleIdentifier) = 0;
};

} // namespace panewright
