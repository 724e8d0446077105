#pragma once

#include "command/status.h"

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace panewright::command {

/// What a call hands over.
using Argument = std::variant<std::string, bool>;

/// What is known of a window state, by name, in the order of the answer.
using Value = std::variant<bool, std::uint64_t, double, std::string, std::vector<double>>;
using ListedState = std::vector<std::pair<std::string, Value>>;

/// What a call gives back. Each is a signature of its own on the bus: "", "b" and "aa{sv}".
struct Nothing {};
using ListedStates = std::vector<ListedState>;

/// Calls a method of the running Panewright over the session bus and waits for the answer, for ever
/// if need be (TimeLimit ends that). Starts no Panewright, and no other program but what the bus's
/// library starts to find a bus.
std::variant<Nothing, Failure> call(const char* method, const std::vector<Argument>& arguments);
std::variant<bool, Failure> callForBool(const char* method, const std::vector<Argument>& arguments);
std::variant<ListedStates, Failure> callForStates(const char* method);

} // namespace panewright::command
