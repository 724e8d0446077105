#include "updates/build_version.h"

#include <algorithm>

namespace panewright::updates {

std::optional<BuildVersion> BuildVersion::of(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    BuildVersion version;
    for (;;) {
        const auto part = text.substr(0, text.find('.'));
        if (part.empty() || part.find_first_not_of(kDigits) != std::string_view::npos) {
            return std::nullopt;
        }
        const auto zeros = std::min(part.find_first_not_of('0'), part.size());
        version.parts_.emplace_back(part.substr(zeros));
        if (part.size() == text.size()) {
            return version;
        }
        text.remove_prefix(part.size() + 1);
    }
}

std::strong_ordering BuildVersion::operator<=>(const BuildVersion& other) const {
    static const std::string kZero;
    const auto part = [](const BuildVersion& version, std::size_t index) -> const std::string& {
        return index < version.parts_.size() ? version.parts_[index] : kZero;
    };
    for (std::size_t i = 0; i < std::max(parts_.size(), other.parts_.size()); ++i) {
        const auto& a = part(*this, i);
        const auto& b = part(other, i);
        const auto order = a.size() != b.size() ? a.size() <=> b.size() : a.compare(b) <=> 0;
        if (order != 0) { // NOLINT(modernize-use-nullptr): an order is no pointer
            return order;
        }
    }
    return std::strong_ordering::equal;
}

} // namespace panewright::updates
