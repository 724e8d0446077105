#pragma once

#include "base/registration.h"
#include "platform/accessibility.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace panewright {

/// A program that is running, as the desktop knows it.
struct RunningApplication {
    ProcessId processIdentifier = 0;
    /// Nil for a program that has none.
    std::optional<std::string> bundleIdentifier;
    /// The name that the desktop shows, in the user's language; nil if it has none.
    std::optional<std::string> localizedName;

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// The programs of the session and which of them the user is in.
///
/// Our own program is reported like any other, with the bundle identifier of the program
/// information. Main thread only; callbacks come on the main loop.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Nil while no program is frontmost.
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    /// Calls back after another program became frontmost.
    virtual Registration onApplicationActivated(std::function<void()> callback) = 0;

    /// Brings our own program's windows to the front, also one that is only about to be shown;
    /// nothing when it has none.
    virtual void bringThisApplicationToFront() = 0;

    /// Gives the keyboard back to the window that had it before ours; to whichever the desktop
    /// chooses if that is gone. Nothing while another program is frontmost. Which windows of ours
    /// stay visible is not decided here.
    virtual void hideThisApplication() = 0;

    /// Opens the address in the user's browser. Returns at once; failure is ignored.
    virtual void openUrl(const std::string& url) = 0;

    /// Opens the file in the user's program for files of its kind. Returns at once; failure is
    /// ignored.
    virtual void openFile(const std::filesystem::path& file) = 0;

    /// Starts the application whose bundle stands at the path; nothing where there are no bundles.
    virtual void launchApplication(const std::string& bundlePath) = 0;
};

} // namespace panewright
