#pragma once

#include <string>

namespace panewright {

/// Opens the address in the user's browser (xdg-open(1)). Returns at once; failure is ignored.
void openUrlWithDesktop(const std::string& url);

} // namespace panewright
