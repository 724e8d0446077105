#include "desktop/x11/window_hints.h"

#include <algorithm>
#include <cstddef>

namespace panewright {
namespace {

// ICCCM 4.1.2.3: the flags of WM_SIZE_HINTS, then its fields by index.
constexpr std::uint32_t kPMinSize = 1U << 4U;
constexpr std::uint32_t kPMaxSize = 1U << 5U;
constexpr std::uint32_t kPWinGravity = 1U << 9U;
constexpr std::size_t kMinWidth = 5;
constexpr std::size_t kMinHeight = 6;
constexpr std::size_t kMaxWidth = 7;
constexpr std::size_t kMaxHeight = 8;
constexpr std::size_t kWinGravity = 17;

bool holds(const std::vector<std::uint32_t>& atoms, xcb_atom_t atom) {
    return std::find(atoms.begin(), atoms.end(), atom) != atoms.end();
}

SizeHints hintsFrom(const std::vector<std::uint32_t>& fields) {
    SizeHints hints;
    if (fields.size() <= kMaxHeight) {
        return hints;
    }
    const auto flags = fields.front();
    if ((flags & kPMinSize) && (flags & kPMaxSize)) {
        hints.fixedWidth = fields[kMinWidth] == fields[kMaxWidth] && fields[kMaxWidth] > 0;
        hints.fixedHeight = fields[kMinHeight] == fields[kMaxHeight] && fields[kMaxHeight] > 0;
    }
    if ((flags & kPWinGravity) && fields.size() > kWinGravity &&
        fields[kWinGravity] >= XCB_GRAVITY_NORTH_WEST &&
        fields[kWinGravity] <= XCB_GRAVITY_STATIC) {
        hints.gravity = fields[kWinGravity];
    }
    return hints;
}

EwmhStates statesFrom(const std::vector<std::uint32_t>& states, const XAtoms& atoms) {
    return {holds(states, atoms._NET_WM_STATE_MAXIMIZED_HORZ),
            holds(states, atoms._NET_WM_STATE_MAXIMIZED_VERT),
            holds(states, atoms._NET_WM_STATE_SHADED),
            holds(states, atoms._NET_WM_STATE_FULLSCREEN)};
}

AllowedActions actionsFrom(const std::vector<std::uint32_t>& actions, const XAtoms& atoms) {
    if (actions.empty()) {
        return {};
    }
    return {holds(actions, atoms._NET_WM_ACTION_MOVE), holds(actions, atoms._NET_WM_ACTION_RESIZE)};
}

} // namespace

TraitsRequest::TraitsRequest(XConnection& connection, xcb_window_t window)
    : atoms_(connection.atoms()), hints_(connection, window, XCB_ATOM_WM_NORMAL_HINTS),
      states_(connection, window, atoms_._NET_WM_STATE),
      actions_(connection, window, atoms_._NET_WM_ALLOWED_ACTIONS) {}

WindowTraits TraitsRequest::take() {
    return {hintsFrom(hints_.numbers()), statesFrom(states_.numbers(), atoms_),
            actionsFrom(actions_.numbers(), atoms_)};
}

} // namespace panewright
