#include "app/app_delegate.h"
#include "base/log.h"
#include "desktop/freedesktop/autostart_entry.h"
#include "desktop/freedesktop/ini_user_defaults.h"
#include "desktop/freedesktop/theme_sounds.h"
#include "desktop/freedesktop/xdg_folders.h"
#include "desktop/linux/command_line.h"
#include "desktop/linux/linux_program.h"
#include "desktop/linux/termination_signals.h"
#include "desktop/qt/qt_application_icons.h"
#include "desktop/qt/qt_main_loop.h"
#include "desktop/qt/qt_menu_view.h"
#include "desktop/qt/qt_status_item.h"
#include "desktop/qt/qt_text_services.h"
#include "desktop/qt/qt_views.h"
#include "desktop/shared/absent_services.h"
#include "desktop/x11/x11_desktop.h"
#include "model/model.h"
#include "model/store_lock.h"
#include "shortcuts/carbon_event_manager.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QPixmapCache>
#include <QTranslator>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace panewright;

constexpr int kExitCannotStart = 1;
constexpr int kExitServerLost = 2;

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

/// The shared registry and store, for as long as this object lives.
class SharedInstances {
public:
    SharedInstances(HotKeys& hotKeys, MainLoop& mainLoop, UserDefaults& userDefaults,
                    const StandardFolders& folders) {
        CarbonEventManager::setSharedManagerFactory([&] {
            return std::make_unique<CarbonEventManager>(
                CarbonEventManager::Services{hotKeys, mainLoop, userDefaults});
        });
        Model::setFactory([&] { return std::make_unique<Model>(folders, userDefaults); });
    }
    /// Writes what is still to be saved and releases the hot keys.
    ~SharedInstances() {
        Model::setFactory(nullptr);
        CarbonEventManager::setSharedManagerFactory(nullptr);
    }
    SharedInstances(const SharedInstances&) = delete;
    SharedInstances& operator=(const SharedInstances&) = delete;
};

int runOn(X11Desktop& desktop, MainLoop& mainLoop, const ProgramInformation& program,
          const StandardFolders& folders) {
    const QtTextServices text;
    const AutostartEntryFormat loginItems;
    IniUserDefaults userDefaults(IniUserDefaults::defaultFile());
    ThemeSounds sounds(desktop.beeper);
    NoAnalytics analytics;
    NoCrashReporter crashReporter;
    NoSoftwareUpdater softwareUpdater;
    QtApplicationIcons icons(desktop.icons);
    QtStatusItem statusItem(desktop.tray, desktop.brightness, desktop.displays, desktop.workAreas);
    QtMenuView menuView;
    QtViews views(desktop.nativeKeyCodes, desktop.ownWindows);
    const SharedInstances shared(desktop.hotKeys, mainLoop, userDefaults, folders);

    AppDelegate delegate(
        {{desktop.accessibility, desktop.displays, desktop.workspace, program, sounds,
          Tracking(analytics), ShortcutText(desktop.keyboardLayout, text), loginItems, mainLoop,
          desktop.hotKeys, text, desktop.workAreas, icons, statusItem, menuView, views},
         userDefaults,
         crashReporter,
         softwareUpdater});
    delegate.applicationWillFinishLaunching();
    delegate.applicationDidFinishLaunching();
    mainLoop.post([] { logLine("ready"); });
    return mainLoop.run();
}

/// The toolkit's application object and the user's language.
class Toolkit {
public:
    /// `argc` tells afterwards how many arguments the toolkit has left.
    Toolkit(int& argc, char** argv, const ProgramInformation& program)
        : arguments_(argv, argv + argc), application_(count_, withPlatform(arguments_)) {
        argc = count_;
        std::copy_n(arguments_.begin(), count_, argv);
        QApplication::setApplicationDisplayName("Panewright");
        QApplication::setDesktopFileName(QString::fromStdString(program.bundleIdentifier()));
        QApplication::setQuitOnLastWindowClosed(false);
        // Little is drawn and seldom, while clearing the cache would wake the program up later.
        QPixmapCache::setCacheLimit(0);
        install(qtTexts_, "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
        install(ownTexts_, "panewright",
                QCoreApplication::applicationDirPath() + "/../share/panewright/translations");
    }

private:
    /// Popovers are placed, and windows told apart, by the X server: also on a Wayland session. Not
    /// by the environment, which the programs that we start would inherit.
    char** withPlatform(std::vector<char*>& arguments) {
        arguments.insert(arguments.end(), {platformOption_.data(), platform_.data(), nullptr});
        count_ = static_cast<int>(arguments.size()) - 1;
        return arguments.data();
    }
    static void install(QTranslator& translator, const QString& name, const QString& folder) {
        if (translator.load(QLocale(), name, "_", folder)) {
            QCoreApplication::installTranslator(&translator);
        }
    }

    std::string platformOption_ = "-platform";
    std::string platform_ = "xcb";
    int count_ = 0;
    std::vector<char*> arguments_; // the toolkit refers to them
    QApplication application_;
    QTranslator qtTexts_;
    QTranslator ownTexts_;
};

int runToolkit(int& argc, char** argv, const ProgramInformation& program,
               const StandardFolders& folders, const TerminationSignals& terminationSignals) {
    const Toolkit toolkit(argc, argv, program);
    if (const auto refused = refuseUnknownArguments(argc, argv)) {
        return *refused;
    }
    QtMainLoop mainLoop;
    const auto terminated = terminationSignals.onSignal(mainLoop, [&] { mainLoop.quit(0); });
    const auto desktop = X11Desktop::open(mainLoop, program.bundleIdentifier());
    if (!desktop) {
        describeMissingServer();
        return kExitCannotStart;
    }
    const auto serverLost = desktop->onServerLost([&] {
        logLine("the X server has gone away");
        mainLoop.quit(kExitServerLost);
    });
    if (!desktop->hasWindowManager()) {
        logLine("no window manager that follows EWMH is running");
    }
    return runOn(*desktop, mainLoop, program, folders);
}

} // namespace

int main(int argc, char* argv[]) {
    const TerminationSignals terminationSignals;
    const LinuxProgram program;
    if (const auto answered = answerCommandLine(argc, argv, program)) {
        return *answered;
    }
    const XdgFolders folders;
    const StoreLock lock(folders);
    if (lock.outcome() == StoreLock::Outcome::kHeldByAnother) {
        logLine("already running");
        return 0;
    }
    describeSession();
    if (!X11Desktop::isReachable()) {
        describeMissingServer();
        return kExitCannotStart;
    }
    return runToolkit(argc, argv, program, folders, terminationSignals);
}
