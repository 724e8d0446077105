#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright::updates {

/// The number of a build, such as "12.4": parts of digits between dots, compared part by part as
/// numbers of any length. A part that is missing counts as 0.
class BuildVersion {
public:
    /// Nil for another text.
    static std::optional<BuildVersion> of(std::string_view text);

    std::strong_ordering operator<=>(const BuildVersion& other) const;
    bool operator==(const BuildVersion& other) const {
        return (*this <=> other) == 0; // NOLINT(modernize-use-nullptr): an order is no pointer
    }

private:
    /// Without zeros in front.
    std::vector<std::string> parts_;
};

} // namespace panewright::updates
