#pragma once

#include <string>

namespace panewright {

/// The text with the first "%@" in it replaced.
inline std::string textWith(std::string text, const std::string& replacement) {
    const auto place = text.find("%@");
    return place == std::string::npos ? text : text.replace(place, 2, replacement);
}

} // namespace panewright
