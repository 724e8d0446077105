#include "support/desktop.h"

namespace panewright::test {

Desktop::Desktop() : Desktop(XServer::Options{}) {}

Desktop::Desktop(const XServer::Options& options, std::string_view windowManager)
    : server_(options, home_.environment()), x_(server_.display()), keyboard_(x_),
      windowManager_(windowManager, x_, home_, environment()) {}

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
