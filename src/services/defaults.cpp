#include "services/defaults.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace panewright {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view withoutLeadingBlanks(std::string_view text) {
    const std::size_t start = text.find_first_not_of(kBlanks);
    return start == std::string_view::npos ? "" : text.substr(start);
}

bool boolOf(std::string_view text) {
    text = withoutLeadingBlanks(text);
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        text.remove_prefix(1);
    }
    const std::size_t start = text.find_first_not_of('0');
    return start != std::string_view::npos &&
           std::string_view("YyTt123456789").find(text[start]) != std::string_view::npos;
}

std::int64_t integerOf(std::string_view text) {
    text = withoutLeadingBlanks(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) {
        using Limits = std::numeric_limits<std::int64_t>;
        return text.front() == '-' ? Limits::min() : Limits::max();
    }
    return value;
}

std::int64_t integerOf(double value) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= 0x1p63) {
        return Limits::max();
    }
    return value < -0x1p63 ? Limits::min() : static_cast<std::int64_t>(value);
}

/// One function for each kind that a value may have.
template <class... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

} // namespace

void Defaults::registerDefaults(const std::map<std::string, DefaultsValue, std::less<>>& values) {
    for (const auto& [key, value] : values) {
        registered_.insert_or_assign(key, value);
    }
}

std::optional<DefaultsValue> Defaults::objectForKey(std::string_view key) const {
    if (auto value = store_.objectForKey(key)) {
        return value;
    }
    const auto found = registered_.find(key);
    return found == registered_.end() ? std::nullopt : std::optional(found->second);
}

bool Defaults::boolForKey(std::string_view key) const {
    const auto value = objectForKey(key);
    return value && std::visit(Overloaded{[](bool flag) { return flag; },
                                          [](std::int64_t number) { return number != 0; },
                                          [](double number) { return number != 0; },
                                          [](const std::string& text) { return boolOf(text); },
                                          [](const Bytes&) { return false; }},
                               *value);
}

std::int64_t Defaults::integerForKey(std::string_view key) const {
    const auto value = objectForKey(key);
    return value ? std::visit(Overloaded{[](bool flag) { return std::int64_t{flag}; },
                                         [](std::int64_t number) { return number; },
                                         [](double number) { return integerOf(number); },
                                         [](const std::string& text) { return integerOf(text); },
                                         [](const Bytes&) { return std::int64_t{0}; }},
                              *value)
                 : 0;
}

} // namespace panewright
