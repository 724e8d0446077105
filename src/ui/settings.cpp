#include "ui/settings.h"

#include "model/model.h"
#include "ui/version_text.h"

namespace panewright {

std::shared_ptr<Settings> Settings::create(const Services& services) {
    std::shared_ptr<Settings> settings(new Settings(services));
    settings->view_ = services.views.makeSettingsView(*settings);
    settings->awakeFromNib();
    return settings;
}

Settings::Settings(const Services& services)
    : ShortcutEntry({services.beeper, services.hotKeys, services.model, services.text,
                     services.shortcutText}),
      services_(services) {}

void Settings::awakeFromNib() {
    view_->setStartupItem(services_.launchAgentStartupItem.isInstalled());
    listenToRecorder();
    showShortcut(services_.model.moveToNextWindowKeyEvent().get());
    view_->setVersion(versionText(services_.program, services_.text));
    view_->setWebsiteShown(services_.pages.hasWebsite());
    view_->setAllowMoveWindow(services_.model.allowWindowStateShortcutsToMoveWindowNextDisplay());
    offerMenuUnlessInStatusBar();
    statusItemChanges_ =
        services_.statusItem.onShownChange([this] { offerMenuUnlessInStatusBar(); });
    stateChanges_ = services_.model.onStatesRemoved([this] { showStoreTrouble(); });
}

void Settings::showWindow() {
    showStoreTrouble();
    updateShortcutRemark(); // states have changed meanwhile
    view_->showWindow();
}

void Settings::showStoreTrouble() {
    view_->setStoreTrouble(services_.storeTroubles.line());
}

/// Without an icon nothing else leads there.
void Settings::offerMenuUnlessInStatusBar() {
    view_->setMenuOffered(!services_.statusItem.isShown());
}

void Settings::saveWindowPosition() {
    services_.saving.saveWindowPosition();
}

void Settings::keepShortcut(const std::shared_ptr<CarbonKeyEvent>& event) {
    services_.model.setMoveToNextWindowKeyEvent(event);
    services_.hotKeyRefresh.settingsChanged();
}

void Settings::showShortcutRemark(const std::string& text) {
    view_->setShortcutRemark(text);
}

void Settings::startupItem() {
    if (view_->startupItem()) {
        services_.tracking.trackEvent(kInstallStartupItemEvent);
        services_.launchAgentStartupItem.install();
    } else {
        services_.tracking.trackEvent(kRemoveStartupItemEvent);
        services_.launchAgentStartupItem.uninstall();
    }
}

void Settings::allowStateShortuctMoveWindow() {
    const bool allows = view_->allowMoveWindow();
    services_.model.setAllowsMoveWindow(allows);
    services_.tracking.trackEvent(kAllowShortcutToMoveDisplaysEvent,
                                  {{"State", allows ? "1" : "0"}});
}

void Settings::restoreDefaultWindowStates() {
    services_.model.restoreDefaultWindowStates(); // the hot keys stay until the next occasion
    services_.tracking.trackEvent(kRestoreDefaultWindowStatesEvent);
}

void Settings::feedback() {
    services_.tracking.trackEvent(kPreferencesFeedbackEvent);
    services_.pages.openFeedback();
}

void Settings::faq() {
    services_.tracking.trackEvent(kPreferencesFAQEvent);
    services_.pages.openFAQ();
}

void Settings::website() {
    services_.tracking.trackEvent(kPreferencesWebsiteEvent);
    services_.pages.openWebsite();
}

} // namespace panewright
