#pragma once

#include "platform/workspace.h"

#include <memory>
#include <optional>

namespace panewright {

class CarbonKeyEvent;
class Model;

/// Installs the hot keys that apply while the application is frontmost, in place of all that are
/// installed: those of the built-in states, the global ones and its own, of which the later win
/// where they collide, and the one that moves the window to the next display (null for none), which
/// wins over all. Without an application its own states are none.
void installHotKeys(const Model& model, const std::optional<RunningApplication>& frontmost,
                    const std::shared_ptr<CarbonKeyEvent>& moveToNextDisplay);

} // namespace panewright
