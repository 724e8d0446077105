#include "support/test_client.h"

#include "support/eventually.h"

#include <stdexcept>
#include <sys/utsname.h>

namespace panewright::test {

TestClient::TestClient(const std::string& display, const ClientOptions& options)
    : x_(display), window_(xcb_generate_id(x_.connection())) {
    xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(x_.connection())).data;
    const std::array<std::uint32_t, 2> values{screen->white_pixel, XCB_EVENT_MASK_KEY_PRESS |
                                                                       XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(
        x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(),
        static_cast<std::int16_t>(options.client.x), static_cast<std::int16_t>(options.client.y),
        static_cast<std::uint16_t>(options.client.width),
        static_cast<std::uint16_t>(options.client.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    setHints(options);
    xcb_map_window(x_.connection(), window_);
    xcb_flush(x_.connection());
    const auto isFramed = [&] {
        return !x_.property(window_, "WM_STATE").empty() &&
               (options.gtkFrameExtents || !tellsFrameExtents(x_) ||
                !x_.property(window_, "_NET_FRAME_EXTENTS").empty());
    };
    if (isManaged(x_) && !eventually(isFramed)) {
        throw std::runtime_error("the window manager does not frame the test window");
    }
    x_.synchronize();
}

void TestClient::setHints(const ClientOptions& options) const {
    constexpr std::uint32_t kUserPosition = 1 << 0, kMinimumSize = 1 << 4, kMaximumSize = 1 << 5,
                            kIncrements = 1 << 6, kGravity = 1 << 9;
    std::vector<std::uint32_t> hints(18); // WM_SIZE_HINTS of the ICCCM
    hints[0] = kUserPosition | kGravity;
    hints[17] = options.gravity;
    const auto set = [&](std::uint32_t flag, std::size_t index, const std::optional<Size>& size) {
        if (size) {
            hints[0] |= flag;
            hints[index] = static_cast<std::uint32_t>(size->width);
            hints[index + 1] = static_cast<std::uint32_t>(size->height);
        }
    };
    set(kMinimumSize, 5, options.minimumSize);
    set(kMaximumSize, 7, options.maximumSize);
    set(kIncrements, 9, options.increments);
    x_.setProperty(window_, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);

    const std::string& name = options.windowClass;
    x_.setText(window_, "WM_NAME", name);
    x_.setText(window_, "WM_CLASS", name + '\0' + name + '\0');
    utsname host{};
    uname(&host);
    x_.setText(window_, "WM_CLIENT_MACHINE", host.nodename);
    x_.setProperty(window_, "_NET_WM_PID", XCB_ATOM_CARDINAL, {options.pid});
    if (!options.wantsFocus) {
        x_.setProperty(window_, "_NET_WM_USER_TIME", XCB_ATOM_CARDINAL, {0});
    }
    if (options.gtkFrameExtents) {
        const auto& extents = *options.gtkFrameExtents;
        x_.setProperty(window_, "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL,
                       {extents.begin(), extents.end()});
        constexpr std::uint32_t kDecorations = 1 << 1;
        const auto motif = x_.atom("_MOTIF_WM_HINTS");
        x_.setProperty(window_, "_MOTIF_WM_HINTS", motif, {kDecorations, 0, 0, 0, 0});
    }
    x_.synchronize();
}

void TestClient::takeFocus() const {
    xcb_set_input_focus(x_.connection(), XCB_INPUT_FOCUS_POINTER_ROOT, window_, XCB_CURRENT_TIME);
    x_.synchronize();
}

void TestClient::activate() const {
    x_.activate(window_);
    if (!eventually([this] { return isActive(); })) {
        throw std::runtime_error("the window manager does not activate the test window");
    }
}

int TestClient::keyPresses() {
    constexpr std::uint8_t kSentByAClient = 0x80;
    while (const ReplyPointer<xcb_generic_event_t> event{xcb_poll_for_event(x_.connection())}) {
        keyPresses_ += (event->response_type & ~kSentByAClient) == XCB_KEY_PRESS ? 1 : 0;
    }
    return keyPresses_;
}

} // namespace panewright::test
