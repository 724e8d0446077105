#pragma once

#include <string>

namespace panewright {

/// Opens the address or the file of that absolute path in the user's program for it (xdg-open(1)).
/// Returns at once; failure is ignored.
void openWithDesktop(const std::string& addressOrPath);

} // namespace panewright
