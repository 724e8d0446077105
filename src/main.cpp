#include "app/app_delegate.h"
#include "app/shared_instances.h"
#include "base/file.h"
#include "base/log.h"
#include "desktop/dbus/application_service.h"
#include "desktop/dbus/exported_menu.h"
#include "desktop/dbus/notifier_hosts.h"
#include "desktop/dbus/portal_colour_scheme.h"
#include "desktop/dbus/running_instance.h"
#include "desktop/dbus/session_bus.h"
#include "desktop/freedesktop/autostart_entry_format.h"
#include "desktop/freedesktop/ini_user_defaults.h"
#include "desktop/freedesktop/theme_sounds.h"
#include "desktop/freedesktop/xdg_folders.h"
#include "desktop/linux/broken_pipes.h"
#include "desktop/linux/command_line.h"
#include "desktop/linux/environment.h"
#include "desktop/linux/linux_application_moving.h"
#include "desktop/linux/linux_background_work.h"
#include "desktop/linux/linux_crash_reporter.h"
#include "desktop/linux/linux_program.h"
#include "desktop/linux/running_place.h"
#include "desktop/linux/termination_signals.h"
#include "desktop/linux/update_process.h"
#include "desktop/qt/event_journal.h"
#include "desktop/qt/key_events.h"
#include "desktop/qt/native_geometry.h"
#include "desktop/qt/qt_alerts.h"
#include "desktop/qt/qt_application_icons.h"
#include "desktop/qt/qt_images.h"
#include "desktop/qt/qt_main_loop.h"
#include "desktop/qt/qt_menu_view.h"
#include "desktop/qt/qt_status_item.h"
#include "desktop/qt/qt_text_services.h"
#include "desktop/qt/qt_user_files.h"
#include "desktop/qt/qt_views.h"
#include "desktop/qt/theme_colours.h"
#include "desktop/qt/toolkit_exit_status.h"
#include "desktop/shared/feed_updater.h"
#include "desktop/x11/x11_desktop.h"
#include "installation/program_places.h"
#include "model/model.h"
#include "model/store_lock.h"

#include <QApplication>
#include <QCoreApplication>
#include <QPixmapCache>

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace panewright;

constexpr int kExitCannotStart = 1;
constexpr int kExitServerLost = 2;

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

void describeLostServer() {
    logLine("the X server has gone away");
}

/// What this process has beside its desktop.
struct Process {
    const ProgramInformation& program;
    const StandardFolders& folders;
    StoreLock& lock;
    StartedBy startedBy;
    bool isForBackground = false;
};

/// What goes with the desktop's own adapters.
struct Adapters {
    Adapters(X11Desktop& desktop, MainLoop& mainLoop, SessionBus& bus, const Process& process)
        : sounds(desktop.beeper), crashReporter(stateFolder(), process.program, mainLoop),
          application(bus, mainLoop, process.program.bundleIdentifier(), process.startedBy),
          notifierHosts(bus), colourScheme(bus), colours(colourScheme),
          icons(desktop.icons, mainLoop),
          applicationMoving({ownExecutable(), environment("HOME"), downloadsFolder(), moveToTrash},
                            !process.isForBackground),
          alerts(desktop.ownWindows), updateFeed(mainLoop, process.program, stateFolder()),
          softwareUpdater({updateFeed, alerts, mainLoop, process.program, text, userDefaults,
                           desktop.workspace}),
          statusItem({notifierHosts, desktop.tray}, desktop.brightness, desktop.displays,
                     desktop.workAreas),
          menuView(desktop.nativeKeyCodes), views(desktop.nativeKeyCodes, desktop.ownWindows) {}

    Ports portsOf(X11Desktop& desktop, MainLoop& mainLoop, const Process& process) {
        return {.accessibility = desktop.accessibility,
                .alerts = alerts,
                .analytics = analytics,
                .applicationIcons = icons,
                .applicationMoving = applicationMoving,
                .backgroundWork = backgroundWork,
                .beeper = sounds,
                .crashReporter = crashReporter,
                .displays = desktop.displays,
                .hotKeys = desktop.hotKeys,
                .images = images,
                .keyboardLayout = desktop.keyboardLayout,
                .loginItems = loginItems,
                .mainLoop = mainLoop,
                .program = process.program,
                .reopenRequests = application,
                .softwareUpdater = softwareUpdater,
                .standardFolders = process.folders,
                .statusItem = statusItem,
                .text = text,
                .userDefaults = userDefaults,
                .workAreas = desktop.workAreas,
                .workspace = desktop.workspace};
    }

    QtTextServices text;
    AutostartEntryFormat loginItems;
    LinuxBackgroundWork backgroundWork;
    IniUserDefaults userDefaults{IniUserDefaults::defaultFile()};
    ThemeSounds sounds;
    EventJournal analytics{stateFolder(), userDefaults};
    LinuxCrashReporter crashReporter;
    ApplicationService application;
    NotifierHosts notifierHosts;
    PortalColourScheme colourScheme;
    ThemeColours colours;
    QtApplicationIcons icons;
    LinuxApplicationMoving applicationMoving;
    QtAlerts alerts;
    UpdateProcess updateFeed;
    FeedUpdater softwareUpdater;
    QtImages images;
    QtStatusItem statusItem;
    ExportedMenu exportedMenu{heldModifierFlags};
    Registration iconShown =
        statusItem.onShownChange([this] { exportedMenu.publishForToolkitItem(); });
    QtMenuView menuView;
    QtViews views;
};

int runOn(X11Desktop& desktop, MainLoop& mainLoop, SessionBus& bus, const Process& process) {
    setNativeUnitIsPixel(desktop.ownWindows.areInPixels());
    Adapters adapters(desktop, mainLoop, bus, process);
    const Ports ports = adapters.portsOf(desktop, mainLoop, process);
    const SharedInstances shared(ports, process.lock);
    AppDelegate delegate(
        ports, {adapters.views, adapters.menuView, adapters.exportedMenu, adapters.application});
    // Which of the two connections notices first that the server has gone is chance.
    const ToolkitExitStatus withoutServer(kExitServerLost, [] {
        describeLostServer();
        Model::setFactory(nullptr);
    });
    if (delegate.applicationWillFinishLaunching() == AfterMoving::kEnd) {
        return 0;
    }
    delegate.applicationDidFinishLaunching();
    mainLoop.post([] { logLine("ready"); });
    return mainLoop.run();
}

/// The toolkit's application object.
class Toolkit {
public:
    /// `argc` tells afterwards how many arguments the toolkit has left.
    Toolkit(int& argc, char** argv, const ProgramInformation& program)
        : arguments_(argv, argv + argc), application_(count_, withPlatform(arguments_)) {
        argc = count_;
        std::copy_n(arguments_.begin(), count_, argv);
        QApplication::setApplicationName("Panewright"); // the title of the status item
        QApplication::setApplicationDisplayName("Panewright");
        QApplication::setDesktopFileName(QString::fromStdString(program.bundleIdentifier()));
        QApplication::setQuitOnLastWindowClosed(false);
        // Little is drawn and seldom, while clearing the cache would wake the program up later.
        QPixmapCache::setCacheLimit(0);
    }

private:
    /// Popovers are placed, and windows told apart, by the X server: also on a Wayland session. Not
    /// by the environment, which the programs that we start would inherit.
    char** withPlatform(std::vector<char*>& arguments) {
        arguments.insert(arguments.end(), {platformOption_.data(), platform_.data(), nullptr});
        count_ = static_cast<int>(arguments.size()) - 1;
        return arguments.data();
    }

    std::string platformOption_ = "-platform";
    std::string platform_ = "xcb";
    int count_ = 0;
    std::vector<char*> arguments_; // the toolkit refers to them
    QApplication application_;
};

int runToolkit(int& argc, char** argv, const Process& process, ReachedServer& server,
               const TerminationSignals& terminationSignals) {
    const Toolkit toolkit(argc, argv, process.program);
    if (const auto refused = refuseUnknownArguments(argc, argv)) {
        return *refused;
    }
    QtMainLoop mainLoop;
    SessionBus bus(mainLoop);
    const auto terminated = terminationSignals.onSignal(mainLoop, [&] { mainLoop.quit(0); });
    X11Desktop desktop(server, mainLoop, process.program.bundleIdentifier());
    const auto serverLost = desktop.onServerLost([&] {
        describeLostServer();
        mainLoop.quit(kExitServerLost);
    });
    if (!desktop.hasWindowManager()) {
        logLine("no window manager that follows EWMH is running");
    }
    const int status = runOn(desktop, mainLoop, bus, process);
    if (!bus.connection()) {
        endWhileBusHangs(status);
    }
    return status;
}

/// A second start has no use for the toolkit's options, but only the toolkit knows them, and only
/// on a display. Without one nothing is refused.
std::optional<int> refuseArgumentsOfSecondStart(int argc, char** argv, const Process& process) {
    if (knowsArguments(argc, argv) || !ReachedServer::reach()) {
        return std::nullopt;
    }
    std::vector<char*> left(argv, argv + argc); // a start that follows needs them all
    const Toolkit toolkit(argc, left.data(), process.program);
    return refuseUnknownArguments(argc, left.data());
}

/// A second start: the program that runs shows itself, unless it runs where nobody here sees it, or
/// this one is for the background. Nil when that has ended meanwhile: then this is the one that
/// runs.
std::optional<int> deferToRunningInstance(int argc, char** argv, const Process& process) {
    if (const auto refused = refuseArgumentsOfSecondStart(argc, argv, process)) {
        return refused;
    }
    const auto place = runningPlaceIn(process.lock.holder());
    const auto describe = [&] {
        if (!process.isForBackground) {
            logLine(place ? fmt::format("already running on display {} (process {})",
                                        place->display, place->processId)
                          : "already running");
        }
    };
    if (place && place->display != placeOfThisProcess().display) {
        describe();
        return 0;
    }
    const QCoreApplication application(argc, argv);
    const auto request =
        process.isForBackground ? InstanceRequest::kNothing : InstanceRequest::kOpenItsWindow;
    const auto hasEnded = [&] { return process.lock.take() == StoreLock::Outcome::kHeld; };
    switch (askRunningInstance(process.program.bundleIdentifier(), request, hasEnded)) {
    case RunningInstance::kAnswered:
        break;
    case RunningInstance::kUnanswered:
        describe();
        break;
    case RunningInstance::kEnded:
        return std::nullopt;
    case RunningInstance::kBusHangs:
        describe();
        endWhileBusHangs(0);
    }
    return 0;
}

/// The copy of the program that has started this one is about to end.
void waitForPredecessor(StoreLock& lock) {
    constexpr std::chrono::seconds kSlowestEnd{10};
    constexpr std::chrono::milliseconds kPause{20};
    const auto end = std::chrono::steady_clock::now() + kSlowestEnd;
    while (lock.outcome() == StoreLock::Outcome::kHeldByAnother &&
           std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kPause);
        lock.take();
    }
}

} // namespace

int main(int argc, char* argv[]) {
    const TerminationSignals terminationSignals;
    ignoreBrokenPipes();
    const LinuxProgram program;
    const XdgFolders folders;
    StoreLock lock(folders, textOf(placeOfThisProcess()));
    if (isRelaunched(argc, argv)) {
        waitForPredecessor(lock);
    }
    const Process process{program, folders, lock,
                          isActivatedByBus(argc, argv) ? StartedBy::kCall : StartedBy::kUser,
                          isForBackground(argc, argv)};
    if (lock.outcome() == StoreLock::Outcome::kHeldByAnother) {
        if (const auto status = deferToRunningInstance(argc, argv, process)) {
            return *status;
        }
    }
    if (lock.outcome() == StoreLock::Outcome::kHeld) {
        removeLeftovers(IniUserDefaults::defaultFile());
    }
    describeSession();
    // Before the toolkit, which ends the program without a server.
    const auto server = ReachedServer::reach();
    if (!server) {
        describeMissingServer();
        return kExitCannotStart;
    }
    return runToolkit(argc, argv, process, *server, terminationSignals);
}
