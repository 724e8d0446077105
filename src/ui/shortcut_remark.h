#pragma once

#include "platform/hot_keys.h"
#include "platform/text_services.h"

#include <cstdint>
#include <string>

namespace panewright {

// Modifier flags are in the application's form.

/// Whether another program holds the shortcut.
bool isShortcutTaken(const HotKeys& hotKeys, std::uint64_t keyCode, std::uint64_t modifierFlags);

/// What is to be said beside a shortcut where it is shown: that another program holds it. Empty
/// when there is nothing to say.
std::string shortcutRemark(const HotKeys& hotKeys, const TextServices& text, std::uint64_t keyCode,
                           std::uint64_t modifierFlags);

/// What is to be said while a key was pressed that cannot be recorded.
std::string refusedKeyRemark(const TextServices& text);

} // namespace panewright
