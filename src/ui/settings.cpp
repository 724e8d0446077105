#include "ui/settings.h"

#include "model/model.h"
#include "ui/format_text.h"
#include "ui/shortcut_remark.h"

namespace panewright {

std::shared_ptr<Settings> Settings::create(const Services& services) {
    std::shared_ptr<Settings> settings(new Settings(services));
    settings->view_ = services.views.makeSettingsView(*settings);
    settings->awakeFromNib();
    return settings;
}

Settings::Settings(const Services& services)
    : services_(services), recorder_(services.shortcutText, services.beeper) {
    localizeLabels(recorder_, services_.text);
}

void Settings::awakeFromNib() {
    view_->setStartupItem(services_.launchAgentStartupItem.isInstalled());
    recorder_.setDelegate(weak_from_this());
    showStoredShortcut();
    view_->setVersion(versionText(services_.program, services_.text));
    view_->setWebsiteShown(services_.pages.hasWebsite());
    view_->setAllowMoveWindow(services_.model.allowWindowStateShortcutsToMoveWindowNextDisplay());
    showSavingUnlessInStatusBar();
    statusItemChanges_ =
        services_.statusItem.onShownChange([this] { showSavingUnlessInStatusBar(); });
    stateChanges_ = services_.model.onStatesRemoved([this] { showStoreTrouble(); });
}

void Settings::showWindow() {
    showStoreTrouble();
    view_->showWindow();
}

void Settings::showStoreTrouble() {
    view_->setStoreTrouble(services_.storeTroubles.line());
}

/// Without an icon there is no menu to save from.
void Settings::showSavingUnlessInStatusBar() {
    view_->setSavingShown(!services_.statusItem.isShown());
}

void Settings::saveWindowPosition() {
    services_.saving.saveWindowPosition();
}

void Settings::showStoredShortcut() {
    if (const auto event = services_.model.moveToNextWindowKeyEvent()) {
        recorder_.setKeyCode(static_cast<std::int64_t>(event->keyCode()), event->modifierFlags());
        view_->setShortcutRemark(shortcutRemark(services_.hotKeys, services_.text, event->keyCode(),
                                                event->modifierFlags()));
    }
}

void Settings::shortcutRecorderSetFlags(QFShortcutRecorder& /*recorder*/, std::uint64_t flags,
                                        std::uint16_t andKeyCode) {
    services_.model.setMoveToNextWindowKeyEvent(
        CarbonKeyEvent::carbonEventWithKeyCode(andKeyCode, flags));
    services_.hotKeyRefresh.settingsChanged();
    view_->setShortcutRemark(shortcutRemark(services_.hotKeys, services_.text, andKeyCode, flags));
}

void Settings::shortcutRecorderDidClearFlags(QFShortcutRecorder& /*recorder*/,
                                             std::uint64_t /*flags*/,
                                             std::uint16_t /*andKeyCode*/) {
    services_.model.setMoveToNextWindowKeyEvent(nullptr);
    services_.hotKeyRefresh.settingsChanged();
    view_->setShortcutRemark("");
}

void Settings::shortcutRecorderRefusesKey(QFShortcutRecorder& /*recorder*/, bool refuses) {
    view_->setShortcutRemark(refuses ? refusedKeyRemark(services_.text) : "");
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
    services_.model.restoreDefaultWindowStates();
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
