#pragma once

#include "base/observer_list.h"
#include "desktop/x11/key_release_watch.h"
#include "desktop/x11/posted_once.h"
#include "desktop/x11/xkb_keyboard_layout.h"
#include "desktop/x11/xkb_keymap.h"
#include "platform/hot_keys.h"

#include <compare>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace panewright {

/// Hot keys as passive grabs of physical keys (X protocol, GrabKey) on the root window of the
/// screen whose windows are placed, under every state of the lock keys.
class X11HotKeys : public HotKeys {
public:
    /// `beforePress` is called before each press is looked at.
    X11HotKeys(XConnection& connection, XkbKeymap& keymap, MainLoop& mainLoop,
               std::function<void()> beforePress);
    ~X11HotKeys() override;

    Registered registerHotKey(std::uint32_t virtualKeyCode, std::uint32_t modifiers,
                              HotKeyId id) override;
    void unregisterHotKey(HotKeyRef ref) override;
    Registration onPressed(std::function<void(const HotKeyPress&)> callback) override {
        return pressed_.add(std::move(callback));
    }
    bool isTakenByAnotherProgram(std::uint32_t virtualKeyCode,
                                 std::uint32_t modifiers) const override;

private:
    /// A key with the modifiers of an X event's state, locks left out.
    struct Grab {
        xcb_keycode_t key = 0;
        std::uint32_t state = 0;
        auto operator<=>(const Grab&) const = default; // NOLINT(modernize-use-nullptr): no pointers
    };
    struct HotKey {
        std::uint32_t virtualKeyCode;
        std::uint32_t modifiers;
        HotKeyId id;
    };

    std::vector<Grab> grabsOf(std::uint32_t virtualKeyCode, std::uint32_t modifiers) const;
    std::vector<std::uint32_t> lockStates() const;
    void synchronize();
    void grab(const std::vector<Grab>& grabs);
    /// Makes the grabs, all in one round trip, and gives those that another client has.
    std::set<Grab> refusedOf(const std::vector<Grab>& grabs) const;
    void ungrab(const Grab& grab) const;
    void regrabAll();
    /// Logs which hot keys another program has come to hold.
    void tellOfTaken();
    void handle(const xcb_generic_event_t& event);
    void pressed(const xcb_key_press_event_t& press);
    void released(xcb_keycode_t key);

    XConnection& connection_;
    XkbKeymap& keymap_;
    XkbKeyboardLayout names_;
    std::function<void()> beforePress_;
    ObserverList<const HotKeyPress&> pressed_;
    std::map<HotKeyRef, HotKey> hotKeys_;
    HotKeyRef lastRef_ = 0;
    // What the server last answered of the keys that are registered; asking whether a key is taken
    // brings it up to date.
    mutable std::set<Grab> held_;
    mutable std::set<Grab> takenByOthers_;
    /// Of which the log says so, as virtual key code and modifiers; until they are free again.
    mutable std::set<std::pair<std::uint32_t, std::uint32_t>> toldOf_;
    /// What the grabs in held_ were made with.
    ModifierMasks grabbedWith_;
    /// Pressed while a grab was active, and not gone up since.
    std::set<xcb_keycode_t> down_;
    /// Key that started the active grab, which ends when that key goes up.
    std::optional<xcb_keycode_t> grabbingKey_;
    PostedOnce synchronizeSoon_;
    Registration events_;
    KeyReleaseWatch unheardReleases_;
    Registration keymapChanges_;
};

} // namespace panewright
