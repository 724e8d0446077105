#pragma once

#include <string>
#include <string_view>

namespace panewright {

/// What only a Unicode library knows about text. Text is UTF-8; bytes that are not come back as
/// U+FFFD. Callable from any thread.
class TextServices {
public:
    virtual ~TextServices() = default;

    /// Upper case by Unicode's full mapping, the same in every locale ("ß" gives "SS").
    virtual std::string upperCased(std::string_view text) const = 0;
};

} // namespace panewright
