#pragma once

#include "command/service.h"

#include <string>

namespace panewright::command {

// The states as text, each form in the order of the store and ending with a line end; empty without
// states, but for JSON.

/// One state a line below a heading, in columns, for people. Control characters are escaped. The
/// frame of a built-in state is a part of the display's width and height, that of another one is in
/// points from the top left of the main display.
std::string tableOf(const ListedStates& states);

/// The names that there are, one a line, as escapedText writes them.
std::string namesOf(const ListedStates& states);

/// An array with an object for each state, which holds all that was listed (RFC 8259).
std::string jsonOf(const ListedStates& states);

} // namespace panewright::command
