#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>

namespace panewright::command {

/// No command is named: the desktop program is started, and all arguments are its own.
struct StartProgram {};

/// Asked for by --help or --version; the text ends with a line end.
struct ShowText {
    std::string text;
};

/// What was typed is no request. One line without its end.
struct Refuse {
    std::string message;
};

/// Puts the focused window into the first state of that name; only into one that was saved from the
/// application of that name unless this is nil. Both names may be empty.
struct ApplyWindowState {
    std::string name;
    std::optional<std::string> application;
};

/// Prints all states: as a table, as JSON, or one name a line.
struct ListWindowStates {
    enum class Form { kTable, kJson, kNames };
    Form form = Form::kTable;
};

struct MoveToNextDisplay {};

/// `isFlat`: with the states of all applications one below the other.
struct OpenMenu {
    bool isFlat = false;
};

struct SaveWindow {};
struct ShowSettings {};
struct Quit {};

using Request = std::variant<StartProgram, ShowText, Refuse, ApplyWindowState, ListWindowStates,
                             MoveToNextDisplay, OpenMenu, SaveWindow, ShowSettings, Quit>;

/// What the arguments of a process ask for, the first one being its name. Who starts with an option
/// starts the program, as only that knows the toolkit's options, unless help or the version is
/// among them.
Request requestOf(std::span<const char* const> arguments);

} // namespace panewright::command
