// The least that a program can do from a key press to a window's new frame, which is what
// latency_bench holds Panewright against: it grabs the key, asks in one go for the active window
// and what the window manager put around the one that was active last, and writes three times.

#include <linux/input-event-codes.h>
#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace {

constexpr xcb_keycode_t kKey = KEY_F7 + 8;
constexpr std::uint32_t kX = 80;
constexpr std::uint32_t kY = 45;
constexpr std::uint32_t kWidth = 1440;
constexpr std::uint32_t kHeight = 810;

template <class Reply>
using Pointer = std::unique_ptr<Reply, decltype([](Reply* reply) { std::free(reply); })>;

class Placer {
public:
    explicit Placer(xcb_connection_t* connection) : connection_(connection) {
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        active_ = atom("_NET_ACTIVE_WINDOW");
        extents_ = atom("_NET_FRAME_EXTENTS");
        moveResize_ = atom("_NET_MOVERESIZE_WINDOW");
        xcb_grab_key(connection, 0, root_, XCB_MOD_MASK_1, kKey, XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_ASYNC);
        activeWindow(ask(root_, active_)); // so that the key is grabbed
    }

    void run() {
        std::fprintf(stderr, "minimal: ready\n");
        while (const Pointer<xcb_generic_event_t> event{xcb_wait_for_event(connection_)}) {
            if (event->response_type == XCB_KEY_PRESS) {
                place();
            }
        }
    }

private:
    xcb_atom_t atom(std::string_view name) {
        const Pointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            connection_,
            xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }
    xcb_get_property_cookie_t ask(xcb_window_t window, xcb_atom_t property) {
        return xcb_get_property(connection_, 0, window, property, XCB_ATOM_ANY, 0, 4);
    }
    std::array<std::uint32_t, 4> numbers(xcb_get_property_cookie_t asked) {
        std::array<std::uint32_t, 4> numbers{};
        const Pointer<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(connection_, asked, nullptr));
        if (reply && reply->format == 32) {
            const auto* first =
                static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
            for (std::size_t i = 0; i < numbers.size() && i < reply->value_len; ++i) {
                numbers.at(i) = first[i];
            }
        }
        return numbers;
    }
    xcb_window_t activeWindow(xcb_get_property_cookie_t asked) { return numbers(asked)[0]; }

    void place() {
        const auto askedActive = ask(root_, active_);
        const auto askedExtents = ask(last_, extents_);
        const auto active = activeWindow(askedActive);
        auto extents = numbers(askedExtents); // left, right, top, bottom
        if (active != last_) {
            last_ = active;
            extents = numbers(ask(active, extents_));
        }
        const auto width = kWidth - extents[0] - extents[1];
        const auto height = kHeight - extents[2] - extents[3];
        // EWMH: gravity, which fields are given, and that a person asks for it.
        constexpr std::uint32_t kPosition = XCB_GRAVITY_NORTH_WEST | 3U << 8U | 2U << 12U;
        constexpr std::uint32_t kSize = XCB_GRAVITY_NORTH_WEST | 3U << 10U | 2U << 12U;
        send({kPosition, kX, kY, 0, 0});
        send({kSize, 0, 0, width, height});
        send({kPosition, kX, kY, 0, 0});
        xcb_flush(connection_);
    }
    void send(const std::array<std::uint32_t, 5>& data) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = last_;
        event.type = moveResize_;
        for (std::size_t i = 0; i < data.size(); ++i) {
            event.data.data32[i] = data.at(i);
        }
        xcb_send_event(connection_, 0, root_,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&event));
    }

    xcb_connection_t* connection_;
    xcb_window_t root_ = XCB_NONE;
    xcb_window_t last_ = XCB_NONE;
    xcb_atom_t active_ = XCB_NONE;
    xcb_atom_t extents_ = XCB_NONE;
    xcb_atom_t moveResize_ = XCB_NONE;
};

} // namespace

int main() {
    auto* const connection = xcb_connect(nullptr, nullptr);
    if (!xcb_connection_has_error(connection)) {
        Placer(connection).run();
    }
    return EXIT_FAILURE; // it ends with the server
}
