#include "app/app_delegate.h"

#include "accessibility/accessibility_helper.h"
#include "model/model.h"
#include "model/window_state.h"
#include "services/product_website.h"
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

AppDelegate::AppDelegate(const Services& services) : services_(services) {}

AppDelegate::~AppDelegate() {
    services_.softwareUpdater.setWillShowHandler(nullptr);
    if (theInstance() == this) {
        theInstance() = nullptr;
    }
}

AppDelegate* AppDelegate::instance() {
    return theInstance();
}

void AppDelegate::applicationWillFinishLaunching() {
    frontMostAppBeforeRunning_ = services_.workspace.frontmostApplication();
}

void AppDelegate::applicationDidFinishLaunching() {
    theInstance() = this;
    setupFabric();
    setupAccessibility();
    setupStatusItem();
    setupSparkle();
}

void AppDelegate::setupFabric() {
    services_.userDefaults.setObject(kCrashOnExceptionsKey, true);
    services_.crashReporter.start();
}

void AppDelegate::setupAccessibility() {
    if (!AccessibilityHelper(services_.accessibility).accessibilityEnabledWithPrompt()) {
        pendingPreferences_ =
            services_.mainLoop.after(kPreferencesDelay, [this] { bringPrefsForward(); });
    }
}

void AppDelegate::setupStatusItem() {
    statusItemController_ = StatusItemController::create(services_, *this);
    WindowState::setApplier(statusItemController_);
    statusItemController_->tracking().setCurrentApplication(frontMostAppBeforeRunning_);
    statusItemController_->startStatusItem();
}

void AppDelegate::setupSparkle() {
    services_.softwareUpdater.setWillShowHandler(
        [this] { bringApplicationToFrontIfInBackground(services_.workspace, services_.program); });
}

void AppDelegate::bringPrefsForward() {
    services_.workspace.launchApplication(kSystemPreferences);
}

void AppDelegate::settings() {
    services_.tracking.trackEvent(kShowSettingsEvent);
    if (!settings_) {
        settings_ = makeSettings();
    }
    settings_->showWindow();
    settings_->makeKeyAndOrderFront();
    services_.workspace.bringThisApplicationToFront();
}

std::shared_ptr<Settings> AppDelegate::makeSettings() {
    return Settings::create({services_.beeper, services_.hotKeys, services_.workspace,
                             services_.program, services_.text, services_.shortcutText,
                             services_.tracking, statusItemController_->launchAgentStartupItem(),
                             Model::instance(), *statusItemController_, services_.views});
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
    services_.mainLoop.quit(0);
}

void AppDelegate::checkForUpdates() {
    services_.softwareUpdater.checkForUpdates();
}

void AppDelegate::checkForUpdatesInBackground() {
    services_.softwareUpdater.checkForUpdatesInBackground();
}

void AppDelegate::sendFeedback() {
    services_.workspace.openUrl(kFeedbackUrl);
}

void AppDelegate::crash() {
    services_.crashReporter.crash();
}

void AppDelegate::openFAQ() {
    services_.workspace.openUrl(kFAQUrl);
    services_.tracking.trackEvent(kOpenFAQEvent);
}

} // namespace panewright
