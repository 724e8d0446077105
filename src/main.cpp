#include "app/app_delegate.h"
#include "base/log.h"
#include "desktop/linux/ini_user_defaults.h"
#include "desktop/linux/linux_program.h"
#include "desktop/linux/termination_signals.h"
#include "desktop/linux/x11_desktop.h"
#include "desktop/qt/qt_main_loop.h"
#include "desktop/qt/qt_text_services.h"
#include "model/default_window_states.h"
#include "platform/analytics.h"
#include "shortcuts/carbon_event_manager.h"

#include <QCoreApplication>

#include <cstdlib>
#include <memory>
#include <string>

namespace {

using namespace panewright;

constexpr int kExitCannotStart = 1;
constexpr int kExitServerLost = 2;

/// Nothing leaves the machine.
class NoAnalytics : public Analytics {
public:
    void logCustomEvent(std::string_view /*name*/, const EventAttributes& /*attributes*/) override {
    }
};

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Says what a person should know of this session before anything else goes on.
void describeSession() {
    if (!environment("WAYLAND_DISPLAY").empty() || environment("XDG_SESSION_TYPE") == "wayland") {
        logLine("this is a Wayland session: only the windows of X11 programs are reached, and only "
                "while one of them has the keyboard");
    }
}

void describeMissingServer() {
    const auto display = environment("DISPLAY");
    logLine(display.empty() ? "no X11 display: $DISPLAY is not set"
                            : "cannot reach the X11 display " + display);
}

int run() {
    QtMainLoop mainLoop;
    const LinuxProgram program;
    describeSession();
    const auto desktop = X11Desktop::open(mainLoop, program.bundleIdentifier());
    if (!desktop) {
        describeMissingServer();
        return kExitCannotStart;
    }
    const auto serverLost = desktop->onServerLost([&] {
        logLine("the X server has gone away");
        mainLoop.quit(kExitServerLost);
    });
    const auto terminated = onTerminationSignal(mainLoop, [&] { mainLoop.quit(0); });
    if (!desktop->hasWindowManager()) {
        logLine("no window manager that follows EWMH is running");
    }

    const QtTextServices text;
    IniUserDefaults userDefaults(IniUserDefaults::defaultFile());
    NoAnalytics analytics;
    CarbonEventManager::setSharedManagerFactory([&] {
        return std::make_unique<CarbonEventManager>(
            CarbonEventManager::Services{desktop->hotKeys, mainLoop, userDefaults});
    });
    int exitCode = 0;
    {
        AppDelegate delegate({desktop->accessibility, desktop->displays, desktop->workspace, program,
                              desktop->beeper, Tracking(analytics),
                              ShortcutText(desktop->keyboardLayout, text)},
                             makeDefaultWindowStates());
        delegate.applicationWillFinishLaunching();
        delegate.applicationDidFinishLaunching();
        mainLoop.post([] { logLine("ready"); });
        exitCode = mainLoop.run();
    }
    CarbonEventManager::setSharedManagerFactory(nullptr);
    return exitCode;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    return run();
}
