#include "app/app_delegate.h"

#include "accessibility/accessibility_helper.h"
#include "app/application_scripting.h"
#include "model/model.h"
#include "model/window_state.h"
#include "platform/accessibility.h"
#include "platform/crash_reporter.h"
#include "platform/main_loop.h"
#include "platform/reopen_requests.h"
#include "platform/software_updater.h"
#include "platform/user_defaults.h"
#include "services/workspace_additions.h"

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr auto kPreferencesDelay = 1s;
constexpr std::string_view kCrashOnExceptionsKey = "NSApplicationCrashOnExceptions";
constexpr const char* kSystemPreferences = "/Applications/System Preferences.app";

AppDelegate*& theInstance() {
    static AppDelegate* instance = nullptr;
    return instance;
}

} // namespace

AppDelegate::AppDelegate(const Ports& ports, const Views& views)
    : ports_(ports), views_(views), tracking_(ports.analytics),
      pages_(ports.workspace, ports.program, ports.text, ports.beeper) {}

AppDelegate::~AppDelegate() {
    ports_.softwareUpdater.setWillShowHandler(nullptr);
    if (theInstance() == this) {
        theInstance() = nullptr;
    }
}

AppDelegate* AppDelegate::instance() {
    return theInstance();
}

AfterMoving AppDelegate::applicationWillFinishLaunching() {
    frontMostAppBeforeRunning_ = ports_.workspace.frontmostApplication();
    return PFMoveToApplicationsFolderIfNecessary(
        {ports_.applicationMoving, ports_.alerts, ports_.userDefaults, ports_.text});
}

void AppDelegate::applicationDidFinishLaunching() {
    theInstance() = this;
    setupFabric();
    setupAccessibility();
    setupStatusItem();
    setupSparkle();
    setupReopening();
    setupScripting();
}

void AppDelegate::setupFabric() {
    ports_.userDefaults.setObject(kCrashOnExceptionsKey, true);
    ports_.crashReporter.start();
}

void AppDelegate::setupAccessibility() {
    if (!AccessibilityHelper(ports_.accessibility).accessibilityEnabledWithPrompt()) {
        pendingPreferences_ =
            ports_.mainLoop.after(kPreferencesDelay, [this] { bringPrefsForward(); });
    }
}

void AppDelegate::setupStatusItem() {
    statusItemController_ = StatusItemController::create(ports_, views_, *this);
    WindowState::setApplier(statusItemController_);
    statusItemController_->tracking().setCurrentApplication(frontMostAppBeforeRunning_);
    statusItemController_->startStatusItem();
}

void AppDelegate::setupSparkle() {
    ports_.softwareUpdater.setWillShowHandler(
        [this] { bringApplicationToFrontIfInBackground(ports_.workspace, ports_.program); });
}

/// Who asks for a program that runs already wants to see it, and there may be no icon to click.
void AppDelegate::setupReopening() {
    reopenRequests_ = ports_.reopenRequests.onReopen([this] { settings(); });
}

/// Last, as scripts may come at once.
void AppDelegate::setupScripting() {
    scripting_ = std::make_unique<ApplicationScripting>(*this);
    scriptingService_ = views_.scripting.serve(*scripting_);
}

void AppDelegate::bringPrefsForward() {
    ports_.workspace.launchApplication(kSystemPreferences);
}

void AppDelegate::settings() {
    tracking_.trackEvent(kShowSettingsEvent);
    if (!settings_) {
        settings_ = makeSettings();
    }
    settings_->showWindow();
    settings_->makeKeyAndOrderFront();
    ports_.workspace.bringThisApplicationToFront();
}

std::shared_ptr<Settings> AppDelegate::makeSettings() {
    return Settings::create(
        {ports_.beeper, ports_.hotKeys, ports_.program, pages_, ports_.text,
         ShortcutText(ports_.keyboardLayout, ports_.text), tracking_, ports_.statusItem,
         statusItemController_->launchAgentStartupItem(), Model::instance(), *statusItemController_,
         statusItemController_->saving(), statusItemController_->storeTroubles(),
         [this] { statusItemController_->openMenu(false); }, views_.factory});
}

void AppDelegate::runAtStartup() {
    const auto& item = statusItemController_->launchAgentStartupItem();
    const bool wasInstalled = item.isInstalled();
    statusItemController_->setStartupItemState(!wasInstalled);
    if (wasInstalled) {
        item.uninstall();
    } else {
        item.install();
    }
}

void AppDelegate::restoreWindowStates() {
    Model::instance().restoreDefaultWindowStates();
}

void AppDelegate::quit() {
    ports_.mainLoop.quit(0);
}

void AppDelegate::checkForUpdates() {
    ports_.softwareUpdater.checkForUpdates();
}

void AppDelegate::checkForUpdatesInBackground() {
    ports_.softwareUpdater.checkForUpdatesInBackground();
}

void AppDelegate::sendFeedback() {
    pages_.openFeedback();
}

void AppDelegate::crash() {
    ports_.crashReporter.crash();
}

void AppDelegate::openFAQ() {
    pages_.openFAQ();
    tracking_.trackEvent(kOpenFAQEvent);
}

} // namespace panewright
