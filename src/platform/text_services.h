#pragma once

#include <string>
#include <string_view>

namespace panewright {

/// The language that the texts in the program are in (ISO 639-1).
constexpr std::string_view kSourceLanguage = "en";

/// What only a Unicode library knows about text. Text is UTF-8; bytes that are not come back as
/// U+FFFD. Callable from any thread.
class TextServices {
public:
    virtual ~TextServices() = default;

    /// Upper case by Unicode's full mapping, the same in every locale ("ß" gives "SS").
    virtual std::string upperCased(std::string_view text) const = 0;

    /// A text that the user sees, which stands in the program in English, in the user's language;
    /// as it is where there is no translation.
    virtual std::string localized(const char* text) const = 0;

    /// The language that `localized` answers in, such as "de"; kSourceLanguage where the user's has
    /// no translation.
    virtual std::string language() const = 0;

    /// Below 0 if `a` comes before `b` in a list of names in the user's language, 0 if the two
    /// differ in upper and lower case at most, above 0 if it comes after.
    virtual int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) const = 0;
};

} // namespace panewright
