#pragma once

#include "desktop/x11/x_connection.h"

#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace panewright {

/// Which bits of an X event's state the keyboard uses for what; 0 for a modifier it does not have.
struct ModifierMasks {
    std::uint32_t alt = 0;
    std::uint32_t super = 0;
    /// Lock keys whose state must make no difference, each by itself.
    std::vector<std::uint32_t> locks;

    /// The state that hot-key modifiers (platform/hot_keys.h) make, locks left out: Option is the
    /// keyboard's Alt and Command its Super, as in desktop/qt/key_events.h, where shortcuts are
    /// recorded. Nil when the keyboard lacks one of them.
    std::optional<std::uint32_t> stateOf(std::uint32_t hotKeyModifiers) const;

    friend bool operator==(const ModifierMasks&, const ModifierMasks&) = default;
};

/// The X server's keyboard mapping and which of its layouts is active, followed through the XKB
/// extension.
class XkbKeymap {
public:
    XkbKeymap(XConnection& connection, MainLoop& mainLoop);

    /// Null on a server without a usable XKB extension.
    xkb_keymap* get() const { return keymap_.get(); }

    /// The active layout if it types ASCII (at least 20 Latin letters), else the one that did when
    /// it was active last, else the first that does; the first one if none does.
    xkb_layout_index_t asciiLayout() const { return asciiLayout_; }

    const ModifierMasks& modifiers() const { return modifiers_; }

    /// Called after the mapping changed; a burst of changes counts as one.
    Registration onChange(std::function<void()> callback) {
        return changed_.add(std::move(callback));
    }

private:
    void selectXkbEvents();
    void handle(const xcb_generic_event_t& event);
    void reloadSoon();
    void reload();
    /// Makes it the one for asciiLayout() if it types ASCII.
    void activate(xkb_layout_index_t layout);
    /// Where the layout for asciiLayout() is in a new mapping.
    xkb_layout_index_t asciiLayoutIn(xkb_keymap* keymap) const;
    /// Of a keyboard with that mapping of its keys to modifiers; null if it could not be read.
    ModifierMasks modifiersIn(const xcb_get_modifier_mapping_reply_t* mapping) const;

    struct KeymapDeleter {
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    };
    struct ContextDeleter {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
    };

    XConnection& connection_;
    MainLoop& mainLoop_;
    std::unique_ptr<xkb_context, ContextDeleter> context_;
    std::unique_ptr<xkb_keymap, KeymapDeleter> keymap_;
    xkb_layout_index_t asciiLayout_ = 0;
    ModifierMasks modifiers_;
    std::uint8_t xkbEvent_ = 0;
    ObserverList<> changed_;
    Registration pendingReload_;
    Registration events_;
};

} // namespace panewright
