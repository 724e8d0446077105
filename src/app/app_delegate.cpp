#include "app/app_delegate.h"

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
    frontMostAppBeforeRunning_ = placing().workspace.frontmostApplication();
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
    if (!AccessibilityHelper(placing().accessibility).accessibilityEnabledWithPrompt()) {
        pendingPreferences_ =
            services_.controller.mainLoop.after(kPreferencesDelay, [this] { bringPrefsForward(); });
    }
}

void AppDelegate::setupStatusItem() {
    statusItemController_ = StatusItemController::create(services_.controller, *this);
    WindowState::setApplier(statusItemController_);
    statusItemController_->tracking().setCurrentApplication(frontMostAppBeforeRunning_);
    statusItemController_->startStatusItem();
}

void AppDelegate::setupSparkle() {
    services_.softwareUpdater.setWillShowHandler(
        [this] { bringApplicationToFrontIfInBackground(placing().workspace, placing().program); });
}

void AppDelegate::bringPrefsForward() {
    placing().workspace.launchApplication(kSystemPreferences);
}

void AppDelegate::settings() {
    placing().tracking.trackEvent(kShowSettingsEvent);
    if (!settings_) {
        settings_ = makeSettings();
    }
    settings_->showWindow();
    settings_->makeKeyAndOrderFront();
    placing().workspace.bringThisApplicationToFront();
}

std::shared_ptr<Settings> AppDelegate::makeSettings() {
    const auto& controller = services_.controller;
    return Settings::create({placing().beeper, controller.hotKeys, services_.userDefaults,
                             placing().workspace, placing().program, controller.text,
                             placing().shortcutText, placing().tracking,
                             statusItemController_->launchAgentStartupItem(), Model::instance(),
                             *statusItemController_, controller.views});
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
    services_.controller.mainLoop.quit(0);
}

void AppDelegate::checkForUpdates() {
    services_.softwareUpdater.checkForUpdates();
}

void AppDelegate::checkForUpdatesInBackground() {
    services_.softwareUpdater.checkForUpdatesInBackground();
}

void AppDelegate::sendFeedback() {
    placing().workspace.openUrl(kFeedbackUrl);
}

void AppDelegate::crash() {
    services_.crashReporter.crash();
}

void AppDelegate::openFAQ() {
    placing().workspace.openUrl(kFAQUrl);
    placing().tracking.trackEvent(kOpenFAQEvent);
}

} // namespace panewright
