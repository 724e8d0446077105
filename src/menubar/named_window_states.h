#pragma once

#include <memory>
#include <optional>
#include <string_view>

namespace panewright {

class Model;
class WindowState;

/// The first state of that name in the store's order, whatever application it belongs to, or only
/// one saved from an application of that name; both compare exactly. Null if there is none.
std::shared_ptr<WindowState>
firstWindowStateNamed(const Model& model, std::string_view name,
                      std::optional<std::string_view> applicationName = std::nullopt);

} // namespace panewright
