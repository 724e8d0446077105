#pragma once

#include "desktop/x11/x_connection.h"
#include "platform/beeper.h"

namespace panewright {

/// The X server's bell.
class XBell : public Beeper {
public:
    explicit XBell(XConnection& connection) : connection_(connection) {}

    void beep() override {
        constexpr std::int8_t kBaseVolume = 0; // in percent above or below the user's setting
        xcb_bell(connection_, kBaseVolume);
        connection_.flush();
    }

private:
    XConnection& connection_;
};

} // namespace panewright
