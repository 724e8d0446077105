#include "desktop/x11/xkb_keymap.h"

#include "desktop/x11/xcb_xkb.h"
#include "platform/hot_keys.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <set>
#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// Injected keys and plugged keyboards change the mapping in bursts.
constexpr auto kSettlingTime = 50ms;

bool typesAscii(xkb_keymap* keymap, xkb_layout_index_t layout) {
    constexpr std::size_t kEnoughLetters = 20;
    std::set<xkb_keysym_t> letters;
    const auto last = xkb_keymap_max_keycode(keymap);
    for (auto key = xkb_keymap_min_keycode(keymap); key <= last; ++key) {
        const xkb_keysym_t* symbols = nullptr;
        if (xkb_keymap_key_get_syms_by_level(keymap, key, layout, 0, &symbols) == 1 &&
            symbols[0] >= XKB_KEY_a && symbols[0] <= XKB_KEY_z) {
            letters.insert(symbols[0]);
        }
    }
    return letters.size() >= kEnoughLetters;
}

std::set<xkb_keysym_t> symbolsOf(xkb_keymap* keymap, xkb_keycode_t key) {
    std::set<xkb_keysym_t> all;
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts_for_key(keymap, key);
         ++layout) {
        const auto levels = xkb_keymap_num_levels_for_key(keymap, key, layout);
        for (xkb_level_index_t level = 0; level < levels; ++level) {
            const xkb_keysym_t* symbols = nullptr;
            const int count =
                xkb_keymap_key_get_syms_by_level(keymap, key, layout, level, &symbols);
            all.insert(symbols, symbols + count);
        }
    }
    return all;
}

/// Sorts the modifier into what its keys say it is.
void classify(ModifierMasks& masks, std::uint32_t mask, const std::set<xkb_keysym_t>& symbols) {
    const auto any = [&](std::initializer_list<xkb_keysym_t> wanted) {
        return std::any_of(wanted.begin(), wanted.end(),
                           [&](xkb_keysym_t symbol) { return symbols.contains(symbol); });
    };
    if (any({XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock})) {
        masks.locks.push_back(mask);
    } else if (masks.alt == 0 && any({XKB_KEY_Alt_L, XKB_KEY_Alt_R})) {
        masks.alt = mask;
    } else if (masks.super == 0 && any({XKB_KEY_Super_L, XKB_KEY_Super_R})) {
        masks.super = mask;
    }
}

} // namespace

std::optional<std::uint32_t> ModifierMasks::stateOf(std::uint32_t hotKeyModifiers) const {
    const std::pair<std::uint32_t, std::uint32_t> pairs[] = {{kHotKeyShift, XCB_MOD_MASK_SHIFT},
                                                             {kHotKeyControl, XCB_MOD_MASK_CONTROL},
                                                             {kHotKeyOption, alt},
                                                             {kHotKeyCommand, super}};
    std::uint32_t state = 0;
    for (const auto& [modifier, mask] : pairs) {
        if (hotKeyModifiers & modifier) {
            if (mask == 0) {
                return std::nullopt;
            }
            state |= mask;
        }
    }
    return state;
}

XkbKeymap::XkbKeymap(XConnection& connection, MainLoop& mainLoop)
    : connection_(connection), mainLoop_(mainLoop),
      context_(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES)),
      events_(connection.onEvent([this](const auto& event) { handle(event); })) {
    if (xkb_x11_setup_xkb_extension(
            connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &xkbEvent_, nullptr)) {
        selectXkbEvents();
    }
    reload();
}

void XkbKeymap::selectXkbEvents() {
    constexpr std::uint16_t kEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t kAllEvents = kEvents | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t kMapParts =
        XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    // Of the state the locked layout alone: the rest changes with each modifier that is pressed.
    xcb_xkb_select_events_details_t details{};
    details.affectState = details.stateDetails = XCB_XKB_STATE_PART_GROUP_LOCK;
    xcb_xkb_select_events_aux(connection_, XCB_XKB_ID_USE_CORE_KBD, kAllEvents, 0, kEvents,
                              kMapParts, kMapParts, &details);
    // A key that is held then sends presses only, without releases between them.
    const auto repeat = xcb_xkb_per_client_flags(
        connection_, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT,
        XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT, 0, 0, 0);
    xcb_discard_reply(connection_, repeat.sequence);
}

void XkbKeymap::handle(const xcb_generic_event_t& event) {
    const bool isXkb = xkbEvent_ != 0 && event.response_type == xkbEvent_;
    if (isXkb && event.pad0 == XCB_XKB_STATE_NOTIFY) {
        activate(reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event).lockedGroup);
    } else if (event.response_type == XCB_MAPPING_NOTIFY ||
               (isXkb &&
                (event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event.pad0 == XCB_XKB_MAP_NOTIFY))) {
        reloadSoon();
    }
}

void XkbKeymap::activate(xkb_layout_index_t layout) {
    if (keymap_ && layout < xkb_keymap_num_layouts(keymap_.get()) &&
        typesAscii(keymap_.get(), layout)) {
        asciiLayout_ = layout;
    }
}

/// The new mapping may have the layouts in another order, so the one that is not active any more is
/// known by its name.
xkb_layout_index_t XkbKeymap::asciiLayoutIn(xkb_keymap* keymap) const {
    const auto* name = keymap_ ? xkb_keymap_layout_get_name(keymap_.get(), asciiLayout_) : nullptr;
    const auto known = name ? xkb_keymap_layout_get_index(keymap, name) : XKB_LAYOUT_INVALID;
    if (known != XKB_LAYOUT_INVALID && typesAscii(keymap, known)) {
        return known;
    }
    const auto count = xkb_keymap_num_layouts(keymap);
    for (xkb_layout_index_t layout = 0; layout < count; ++layout) {
        if (typesAscii(keymap, layout)) {
            return layout;
        }
    }
    return 0;
}

void XkbKeymap::reloadSoon() {
    pendingReload_ = mainLoop_.after(kSettlingTime, [this] {
        reload();
        changed_.notify();
    });
}

void XkbKeymap::reload() {
    if (!context_ || xkbEvent_ == 0) {
        return; // a request of an extension that the server lacks would end the connection
    }
    // Asked before the library asks and waits: the answers come with its own.
    const auto stateAsked = xcb_xkb_get_state(connection_, XCB_XKB_ID_USE_CORE_KBD);
    const auto mappingAsked = xcb_get_modifier_mapping(connection_);
    const auto device = xkb_x11_get_core_keyboard_device_id(connection_);
    auto* const keymap = device < 0
                             ? nullptr
                             : xkb_x11_keymap_new_from_device(context_.get(), connection_, device,
                                                              XKB_KEYMAP_COMPILE_NO_FLAGS);
    const auto state = connection_.reply(xcb_xkb_get_state_reply, stateAsked);
    const auto mapping = connection_.reply(xcb_get_modifier_mapping_reply, mappingAsked);
    if (keymap) {
        asciiLayout_ = asciiLayoutIn(keymap);
        keymap_.reset(keymap);
        activate(state ? state->lockedGroup : 0);
        modifiers_ = modifiersIn(mapping.get());
    }
}

ModifierMasks XkbKeymap::modifiersIn(const xcb_get_modifier_mapping_reply_t* mapping) const {
    ModifierMasks masks;
    masks.locks = {XCB_MOD_MASK_LOCK};
    if (!mapping) {
        return masks;
    }
    const auto* keys = xcb_get_modifier_mapping_keycodes(mapping);
    constexpr unsigned kFirst = XCB_MAP_INDEX_1;
    constexpr unsigned kLast = XCB_MAP_INDEX_5;
    for (unsigned modifier = kFirst; modifier <= kLast; ++modifier) {
        std::set<xkb_keysym_t> symbols;
        for (unsigned i = 0; i < mapping->keycodes_per_modifier; ++i) {
            if (const auto key = keys[modifier * mapping->keycodes_per_modifier + i]) {
                symbols.merge(symbolsOf(keymap_.get(), key));
            }
        }
        classify(masks, 1U << modifier, symbols);
    }
    return masks;
}

} // namespace panewright
