#include "desktop/x11/reached_server.h"

#include "desktop/x11/xcb_xkb.h"

#include <xcb/randr.h>
#include <xcb/res.h>
#include <xcb/xinput.h>

namespace panewright {
namespace {

/// The first screen, if there is none of that number.
xcb_window_t rootOf(xcb_connection_t* connection, int screen) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screen > 0 && screens.rem > 1; --screen) {
        xcb_screen_next(&screens);
    }
    return screens.data->root;
}

} // namespace

std::unique_ptr<ReachedServer> ReachedServer::reach() {
    int screen = 0;
    auto* const connection = xcb_connect(nullptr, &screen);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<ReachedServer>(new ReachedServer(connection, screen));
}

ReachedServer::ReachedServer(xcb_connection_t* connection, int screen)
    : connection_(connection), root_(rootOf(connection, screen)), atoms_(connection, screen) {
    for (auto* const extension : {&xcb_input_id, &xcb_randr_id, &xcb_res_id, &xcb_xkb_id}) {
        xcb_prefetch_extension_data(connection, extension);
    }
    xcb_flush(connection);
}

ReachedServer::~ReachedServer() {
    if (connection_) {
        xcb_disconnect(connection_);
    }
}

} // namespace panewright
