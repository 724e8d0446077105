#include "ui/save_shortcut_view_controller.h"

#include "model/window_state.h"
#include "shortcuts/virtual_key_codes.h"
#include "ui/format_text.h"
#include "ui/shortcut_remark.h"
#include "ui/window_state_saving.h"

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// The tool tips follow the radio buttons only after the click is over.
constexpr auto kTooltipDelay = 200ms;

} // namespace

std::shared_ptr<SaveShortcutViewController>
SaveShortcutViewController::create(const Services& services) {
    return std::shared_ptr<SaveShortcutViewController>(new SaveShortcutViewController(services));
}

SaveShortcutViewController::SaveShortcutViewController(const Services& services)
    : services_(services), recorder_(services.shortcutText, services.beeper) {
    localizeLabels(recorder_, services_.text);
}

void SaveShortcutViewController::loadViewSafely() {
    if (!view_) {
        view_ = services_.views.makeSaveShortcutView(*this);
        viewDidLoad();
    }
}

void SaveShortcutViewController::viewDidLoad() {
    recorder_.setDelegate(weak_from_this());
    recorder_.setRequiresModifierFlags(false);
}

void SaveShortcutViewController::setApplicationName(const std::string& name) {
    appName_ = name;
    view_->setForAppOnlyTitle(textWith(services_.text.localized("Only active for %@"), name));
    updateTooltips();
}

void SaveShortcutViewController::setApplicationImage(const ImagePtr& image) {
    view_->setApplicationImage(image);
}

void SaveShortcutViewController::setCanBeForAppOnly(bool can) {
    if (can == !choiceForAppOnly_) {
        return;
    }
    const bool isForAppOnly = can && *choiceForAppOnly_;
    choiceForAppOnly_ = can ? std::nullopt : std::optional(view_->forAppOnly());
    view_->setForAppOnlyEnabled(can);
    view_->setForAppOnly(isForAppOnly);
    view_->setForAllApplications(!isForAppOnly);
}

void SaveShortcutViewController::updateTooltips() {
    view_->setForAppOnlyToolTip(textWith(
        services_.text.localized("The keyboard shortcut will only be active while %@ is active."),
        appName_));
    view_->setForAllApplicationsToolTip(
        services_.text.localized("The keyboard shortcut will be active for all applications."));
}

void SaveShortcutViewController::updateTooltipsSoon() {
    tooltipTimer_ = services_.mainLoop.after(kTooltipDelay, [this] { updateTooltips(); });
}

void SaveShortcutViewController::reset() {
    view_->setWindowStateName("");
    view_->setPrefersDisplay(false);
    choiceForAppOnly_ = std::nullopt;
    view_->setForAppOnlyEnabled(true);
    view_->setForAppOnly(true);
    view_->setForAllApplications(false);
    recorder_.clear();
    view_->setShortcutRemark("");
}

void SaveShortcutViewController::onActiveForAppOnly() {
    view_->setForAllApplications(false);
    updateTooltipsSoon();
}

void SaveShortcutViewController::onActiveForAll() {
    view_->setForAppOnly(false);
    updateTooltipsSoon();
}

void SaveShortcutViewController::onActiveContextChange() {
    updateTooltipsSoon();
}

bool SaveShortcutViewController::keyDown(const KeyEvent& event) {
    if (recorder_.performKeyEquivalent(event)) {
        return true;
    }
    if (event.keyCode == kEscapeKeyCode) {
        services_.saving.abandonSavingWindowState();
        return true;
    }
    return false;
}

void SaveShortcutViewController::closeRequested() {
    recorder_.resignFirstResponder(); // which ends a recording
    services_.saving.abandonSavingWindowState();
}

void SaveShortcutViewController::save() {
    const auto name = view_->windowStateName();
    if (services_.text.trimmedOfWhitespace(name).empty() || !windowState_) {
        services_.beeper.beep();
        return;
    }
    windowState_->setIsGlobal(view_->forAllApplications());
    windowState_->setPrefersDisplay(view_->prefersDisplay());
    windowState_->setWindowStateName(name);
    services_.saving.addWindowState(windowState_);
    services_.saving.finishSavingWindowState();
    services_.tracking.trackEvent(kSaveWindowStateEvent,
                                  windowState_->attributesForTracking(services_.shortcutText));
    drop();
}

void SaveShortcutViewController::cancel() {
    services_.saving.finishSavingWindowState();
    drop();
    services_.tracking.trackEvent(kCancelSaveWindowStateEvent);
}

void SaveShortcutViewController::drop() {
    view_->setWindowStateImage(nullptr);
    windowState_ = nullptr;
}

void SaveShortcutViewController::shortcutRecorderSetFlags(QFShortcutRecorder& /*recorder*/,
                                                          std::uint64_t flags,
                                                          std::uint16_t andKeyCode) {
    if (windowState_) {
        windowState_->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(andKeyCode, flags));
    }
    view_->setShortcutRemark(shortcutRemark(services_.hotKeys, services_.text, andKeyCode, flags));
}

void SaveShortcutViewController::shortcutRecorderDidClearFlags(QFShortcutRecorder& /*recorder*/,
                                                               std::uint64_t /*flags*/,
                                                               std::uint16_t /*andKeyCode*/) {
    if (windowState_) {
        windowState_->setKeyEvent(nullptr);
    }
    view_->setShortcutRemark("");
}

void SaveShortcutViewController::shortcutRecorderRefusesKey(QFShortcutRecorder& /*recorder*/,
                                                            bool refuses) {
    view_->setShortcutRemark(refuses ? refusedKeyRemark(services_.text) : "");
}

} // namespace panewright
