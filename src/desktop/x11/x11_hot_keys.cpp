#include "desktop/x11/x11_hot_keys.h"

#include "base/log.h"
#include "desktop/linux/evdev_key_codes.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace panewright {
namespace {

/// Without the bits that make no difference.
std::pair<std::uint32_t, std::uint32_t> shortcutOf(std::uint32_t virtualKeyCode,
                                                   std::uint32_t modifiers) {
    return {virtualKeyCode,
            modifiers & (kHotKeyShift | kHotKeyControl | kHotKeyOption | kHotKeyCommand)};
}

} // namespace

X11HotKeys::X11HotKeys(XConnection& connection, XkbKeymap& keymap, MainLoop& mainLoop,
                       std::function<void()> beforePress)
    : connection_(connection), keymap_(keymap), names_(keymap),
      beforePress_(std::move(beforePress)), grabbedWith_(keymap.modifiers()),
      synchronizeSoon_(mainLoop, [this] { synchronize(); }),
      events_(connection.onEvent([this](const auto& event) { handle(event); })),
      unheardReleases_(connection, [this](xcb_keycode_t key) { down_.erase(key); }),
      keymapChanges_(keymap.onChange([this] { regrabAll(); })) {}

X11HotKeys::~X11HotKeys() {
    for (const auto& grab : held_) {
        ungrab(grab);
    }
    connection_.flush();
}

HotKeys::Registered X11HotKeys::registerHotKey(std::uint32_t virtualKeyCode,
                                               std::uint32_t modifiers, HotKeyId id) {
    if (evdevCodesOf(virtualKeyCode).empty()) {
        return {kHotKeyInvalid, 0};
    }
    hotKeys_.emplace(++lastRef_, HotKey{virtualKeyCode, modifiers, id});
    synchronizeSoon_.post();
    return {kNoError, lastRef_};
}

void X11HotKeys::unregisterHotKey(HotKeyRef ref) {
    if (hotKeys_.erase(ref) > 0) {
        synchronizeSoon_.post();
    }
}

bool X11HotKeys::isTakenByAnotherProgram(std::uint32_t virtualKeyCode,
                                         std::uint32_t modifiers) const {
    auto asked = grabsOf(virtualKeyCode, modifiers);
    std::erase_if(asked, [this](const Grab& grab) { return held_.contains(grab); });
    const auto refused = refusedOf(asked);
    for (const auto& granted : asked) {
        if (refused.contains(granted)) {
            continue;
        }
        if (takenByOthers_.erase(granted) > 0) {
            held_.insert(granted); // the other program has let go of what we want
        } else {
            ungrab(granted);
        }
    }
    connection_.flush();
    if (refused.empty()) {
        toldOf_.erase(shortcutOf(virtualKeyCode, modifiers));
    }
    return !refused.empty();
}

std::vector<X11HotKeys::Grab> X11HotKeys::grabsOf(std::uint32_t virtualKeyCode,
                                                  std::uint32_t modifiers) const {
    std::vector<Grab> grabs;
    const auto state = grabbedWith_.stateOf(modifiers);
    if (!state) {
        return grabs;
    }
    for (const auto code : evdevCodesOf(virtualKeyCode)) {
        const auto key = code + kEvdevToXKeyCode;
        // Key code 0 would mean any key; the core protocol has no key past 255.
        if (code != 0 && key <= std::numeric_limits<xcb_keycode_t>::max()) {
            grabs.push_back({static_cast<xcb_keycode_t>(key), *state});
        }
    }
    return grabs;
}

std::vector<std::uint32_t> X11HotKeys::lockStates() const {
    std::vector<std::uint32_t> states{0};
    for (const auto lock : grabbedWith_.locks) {
        const auto count = states.size();
        for (std::size_t i = 0; i < count; ++i) {
            states.push_back(states[i] | lock);
        }
    }
    return states;
}

void X11HotKeys::synchronize() {
    std::set<Grab> wanted;
    for (const auto& [ref, hotKey] : hotKeys_) {
        for (const auto& grab : grabsOf(hotKey.virtualKeyCode, hotKey.modifiers)) {
            wanted.insert(grab);
        }
    }
    for (const auto& held : std::set(held_)) {
        if (!wanted.contains(held)) {
            ungrab(held);
            held_.erase(held);
        }
    }
    std::erase_if(takenByOthers_, [&](const Grab& grab) { return !wanted.contains(grab); });
    std::vector<Grab> missing;
    std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(missing), [this](const Grab& g) {
        return !held_.contains(g) && !takenByOthers_.contains(g);
    });
    grab(missing);
    connection_.flush();
    tellOfTaken();
}

void X11HotKeys::tellOfTaken() {
    for (const auto& [ref, hotKey] : hotKeys_) {
        const auto [key, modifiers] = shortcutOf(hotKey.virtualKeyCode, hotKey.modifiers);
        const auto grabs = grabsOf(key, modifiers);
        const bool isTaken = std::ranges::any_of(
            grabs, [this](const Grab& grab) { return takenByOthers_.contains(grab); });
        if (!isTaken) {
            toldOf_.erase({key, modifiers});
        } else if (toldOf_.emplace(key, modifiers).second) {
            logLine("another program holds " + names_.inWords(key, modifiers));
        }
    }
}

void X11HotKeys::grab(const std::vector<Grab>& grabs) {
    const auto refused = refusedOf(grabs);
    std::copy_if(grabs.begin(), grabs.end(), std::inserter(held_, held_.end()),
                 [&](const Grab& grab) { return !refused.contains(grab); });
    takenByOthers_.insert(refused.begin(), refused.end());
}

std::set<X11HotKeys::Grab> X11HotKeys::refusedOf(const std::vector<Grab>& grabs) const {
    std::vector<std::pair<const Grab*, xcb_void_cookie_t>> requests;
    for (const auto& wanted : grabs) {
        for (const auto locks : lockStates()) {
            requests.emplace_back(
                &wanted,
                xcb_grab_key_checked(connection_, 0, connection_.root(),
                                     static_cast<std::uint16_t>(wanted.state | locks), wanted.key,
                                     XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        }
    }
    std::set<Grab> refused;
    for (const auto& [wanted, cookie] : requests) {
        if (!connection_.succeeded(cookie)) {
            refused.insert(*wanted);
        }
    }
    for (const auto& grab : refused) {
        ungrab(grab); // those lock states that were granted
    }
    return refused;
}

void X11HotKeys::ungrab(const Grab& grab) const {
    for (const auto locks : lockStates()) {
        xcb_ungrab_key(connection_, grab.key, connection_.root(),
                       static_cast<std::uint16_t>(grab.state | locks));
    }
}

void X11HotKeys::regrabAll() {
    if (keymap_.modifiers() != grabbedWith_) {
        for (const auto& held : held_) {
            ungrab(held);
        }
        held_.clear();
        grabbedWith_ = keymap_.modifiers();
    }
    takenByOthers_.clear(); // they may have let go
    synchronize();
}

void X11HotKeys::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_KEY_PRESS) {
        pressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    } else if (event.response_type == XCB_KEY_RELEASE) {
        released(reinterpret_cast<const xcb_key_release_event_t&>(event).detail);
    }
}

void X11HotKeys::released(xcb_keycode_t key) {
    down_.erase(key);
    if (key == grabbingKey_) {
        grabbingKey_ = std::nullopt;
        unheardReleases_.watch(down_); // the grab ends here: they go to other programs
    }
}

void X11HotKeys::pressed(const xcb_key_press_event_t& press) {
    grabbingKey_ = grabbingKey_.value_or(press.detail);
    if (!down_.insert(press.detail).second) {
        return; // auto-repeat, which may have begun a grab anew
    }
    beforePress_(); // it may change which hot keys there are
    // While a grab is active every key arrives, so which key it is must be looked at.
    const std::uint32_t modifiers = press.state & (XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL |
                                                   grabbedWith_.alt | grabbedWith_.super);
    const Grab arrived{press.detail, modifiers};
    for (const auto& [ref, hotKey] : hotKeys_) {
        const auto grabs = grabsOf(hotKey.virtualKeyCode, hotKey.modifiers);
        if (std::find(grabs.begin(), grabs.end(), arrived) != grabs.end()) {
            pressed_.notify(HotKeyPress{kNoError, hotKey.id});
            return;
        }
    }
}

} // namespace panewright
