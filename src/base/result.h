#pragma once

#include <utility>
#include <variant>

namespace panewright {

/// A value, or the reason why there is none. Both hold by value; `Error` is a type of its own for
/// each place whose callers tell causes apart.
template <class Value, class Error>
class [[nodiscard]] Result {
public:
    Result(Value value) : content_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : content_(std::in_place_index<1>, std::move(error)) {}

    bool ok() const { return content_.index() == 0; }
    explicit operator bool() const { return ok(); }

    /// Only when ok().
    const Value& value() const& { return std::get<0>(content_); }
    Value&& value() && { return std::get<0>(std::move(content_)); }

    /// Only when not ok().
    const Error& error() const { return std::get<1>(content_); }

private:
    std::variant<Value, Error> content_;
};

} // namespace panewright
