#include "desktop/x11/key_release_watch.h"

#include <utility>

namespace panewright {

KeyReleaseWatch::KeyReleaseWatch(XConnection& connection,
                                 std::function<void(xcb_keycode_t)> released)
    : connection_(connection), released_(std::move(released)),
      events_(connection.onEvent([this](const auto& event) { handle(event); })) {
    constexpr std::uint16_t kMajor = 2; // since 2.1 other clients' grabs do not hide raw events
    constexpr std::uint16_t kMinor = 1;
    const auto* extension = xcb_get_extension_data(connection, &xcb_input_id);
    if (extension && extension->present) {
        opcode_ = extension->major_opcode;
        asked_ = xcb_input_xi_query_version(connection, kMajor, kMinor);
    }
}

bool KeyReleaseWatch::hasRawEvents() {
    if (asked_ && !connection_.reply(xcb_input_xi_query_version_reply, *asked_)) {
        opcode_ = 0;
    }
    asked_.reset();
    return opcode_ != 0;
}

void KeyReleaseWatch::watch(const std::set<xcb_keycode_t>& keys) {
    // Its owner forgets what it is told of.
    const auto asked = keys; // NOLINT(performance-unnecessary-copy-initialization)
    watched_ = asked;
    select(!asked.empty() && hasRawEvents());
    // What went up before the server knew that we listen is not told of.
    const auto down = isSelected_ ? keysDown() : std::set<xcb_keycode_t>();
    for (const auto key : asked) {
        if (!down.contains(key)) {
            tell(key);
        }
    }
}

void KeyReleaseWatch::handle(const xcb_generic_event_t& event) {
    if (event.response_type != XCB_GE_GENERIC) {
        return;
    }
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_release_event_t&>(event);
    if (raw.extension == opcode_ && raw.event_type == XCB_INPUT_RAW_KEY_RELEASE) {
        tell(static_cast<xcb_keycode_t>(raw.detail));
    }
}

void KeyReleaseWatch::tell(xcb_keycode_t key) {
    if (watched_.erase(key) > 0) {
        select(isSelected_ && !watched_.empty());
        released_(key);
    }
}

void KeyReleaseWatch::select(bool wanted) {
    if (std::exchange(isSelected_, wanted) == wanted) {
        return;
    }
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, 0};
    if (wanted) {
        selection.mask = XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
    }
    xcb_input_xi_select_events(connection_, connection_.root(), 1, &selection.head);
    connection_.flushSoon();
}

std::set<xcb_keycode_t> KeyReleaseWatch::keysDown() {
    std::set<xcb_keycode_t> keys;
    const auto reply = connection_.reply(xcb_query_keymap_reply, xcb_query_keymap(connection_));
    for (unsigned key = 0; reply && key < 8 * sizeof reply->keys; ++key) {
        if (reply->keys[key / 8] >> key % 8 & 1U) {
            keys.insert(static_cast<xcb_keycode_t>(key));
        }
    }
    return keys;
}

} // namespace panewright
