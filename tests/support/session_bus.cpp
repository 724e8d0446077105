#include "support/session_bus.h"

#include <stdexcept>

namespace panewright::test {

SessionBus::SessionBus(const Environment& environment)
    : process_({"dbus-daemon", "--session", "--nofork", "--nosyslog", "--print-address=1"},
               environment) {
    eventually([this] {
        return process_.standardOutput().ends_with('\n') || process_.exitStatus().has_value();
    });
    address_ = process_.standardOutput();
    if (!address_.ends_with('\n')) {
        throw std::runtime_error("dbus-daemon does not start: " + process_.standardError());
    }
    address_.pop_back();
}

} // namespace panewright::test
