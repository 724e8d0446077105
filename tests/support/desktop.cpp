#include "support/desktop.h"

#include <utility>

namespace panewright::test {

Desktop::Desktop() : Desktop(XServer::Options{}) {}

Desktop::Desktop(const XServer::Options& options, std::string_view windowManager)
    : server_(options, home_.environment()), x_(server_.display()), keyboard_(x_) {
    if (!windowManager.empty()) {
        manageWith(windowManager);
    }
}

void Desktop::manageWith(std::string_view windowManager) {
    // The one before goes when the new one has taken over.
    auto successor = std::make_unique<WindowManager>(windowManager, x_, home_, environment());
    windowManager_ = std::move(successor);
}

Environment Desktop::environment() const {
    Environment environment = home_.environment();
    environment["DISPLAY"] = server_.display();
    return environment;
}

void Desktop::setKeyboardLayout(const std::string& layout,
                                const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{"setxkbmap", "-layout", layout};
    command.insert(command.end(), arguments.begin(), arguments.end());
    runToEnd(command, environment());
}

} // namespace panewright::test
