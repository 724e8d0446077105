#pragma once

#include "platform/hot_keys.h"
#include "platform/text_services.h"

#include <cstdint>
#include <string>

namespace panewright {

/// Whether another program holds the shortcut. Flags are in the application's form, here and below.
bool isShortcutTaken(const HotKeys& hotKeys, std::uint64_t keyCode, std::uint64_t modifierFlags);

/// What is to be said beside a shortcut where it is shown: that another program holds it. Empty
/// when there is nothing to say. Flags are in the application's form.
std::string shortcutRemark(const HotKeys& hotKeys, const TextServices& text, std::uint64_t keyCode,
                           std::uint64_t modifierFlags);

} // namespace panewright
