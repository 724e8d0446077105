#pragma once

#include <QString>

#include <string>

namespace panewright {

/// A shortcut in English words, such as "Ctrl+Page Up", in those that stand on the user's keys.
QString localizedShortcut(const std::string& words);

} // namespace panewright
