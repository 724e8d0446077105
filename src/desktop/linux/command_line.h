#pragma once

#include <optional>
#include <string_view>

namespace panewright {

/// Whether the program is to open nothing, as it is started by the session and not by the user.
bool isForBackground(int argc, const char* const* argv);

/// Whether the session bus starts the program, for a call that then opens nothing (the argument
/// stands in the bus's service file).
bool isActivatedByBus(int argc, const char* const* argv);

/// What a program starts another copy of it with that is to take its place.
inline constexpr std::string_view kRelaunchedOption = "--relaunched";

/// Whether another copy of the program has started this one, and is about to end.
bool isRelaunched(int argc, const char* const* argv);

/// Whether the program knows all arguments. Those that it does not know may be the toolkit's.
bool knowsArguments(int argc, const char* const* argv);

/// Logs the first argument that the program does not know, once the toolkit has taken its own, and
/// tells how to get help, which the command gives (command/); the exit code to end with then
/// (EX_USAGE, sysexits.h). Nil where there is none.
std::optional<int> refuseUnknownArguments(int argc, const char* const* argv);

} // namespace panewright
