#pragma once

#include "support/child_process.h"

#include <string>

namespace panewright::test {

/// A D-Bus session bus of its own, ready for clients when the constructor returns.
class SessionBus {
public:
    explicit SessionBus(const Environment& environment);

    /// What DBUS_SESSION_BUS_ADDRESS must be.
    const std::string& address() const { return address_; }

private:
    ChildProcess process_;
    std::string address_;
};

} // namespace panewright::test
