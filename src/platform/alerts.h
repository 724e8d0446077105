#pragma once

#include "base/registration.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// How grave a question is; the platform chooses the picture.
enum class AlertStyle { kWarning = 0, kInformational = 1, kCritical = 2 };

/// A question with the buttons that answer it, in the user's language.
struct Alert {
    std::string messageText;
    /// What helps to answer, in smaller print; empty for none.
    std::string informativeText = {};
    AlertStyle style = AlertStyle::kWarning;
    /// At least one. Return presses the first one, Escape the last one, which closing the window
    /// does too.
    std::vector<std::string> buttons;
    /// Whether the user can ask for no such question again, in a small box below the text, whose
    /// label is the system's.
    bool showsSuppressionButton = false;

    friend bool operator==(const Alert&, const Alert&) = default;
};

/// What the first button answers; the others follow on it by ones.
constexpr int kAlertFirstButtonReturn = 1000;

struct AlertAnswer {
    int response = 0;
    bool isSuppressed = false; // the box is ticked
};

/// Asks the user. Main thread only.
class Alerts {
public:
    using Answered = std::function<void(int response)>;

    virtual ~Alerts() = default;

    /// Shows the question and returns at once: over the window of ours that has the keyboard, which
    /// alone it blocks, or by itself when there is none. Calls back once, on the main loop, after
    /// the question has closed; a window that it blocked has the keyboard again then, unless the
    /// callback closes it. Releasing the registration closes the question unanswered.
    virtual Registration ask(const Alert& alert, Answered answered) = 0;

    /// Brings this program to the front, shows the question and returns with the answer. For a
    /// question that everything waits for: the main loop runs meanwhile. Nil when the main loop is
    /// to end.
    virtual std::optional<AlertAnswer> runModal(const Alert& alert) = 0;
};

} // namespace panewright
