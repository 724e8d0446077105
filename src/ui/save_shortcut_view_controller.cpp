#include "ui/save_shortcut_view_controller.h"

#include "base/text_with.h"
#include "model/window_state.h"
#include "ui/store_troubles.h"
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
    : PopoverController(services.shared), mainLoop_(services.mainLoop), views_(services.views),
      saving_(services.saving) {}

void SaveShortcutViewController::loadViewSafely() {
    if (!view_) {
        view_ = views_.makeSaveShortcutView(*this);
        viewDidLoad();
    }
}

/// A fresh state of the same application leaves the remark as it is: asking who else holds a
/// shortcut is too much for each step of a window that is dragged.
void SaveShortcutViewController::setWindowState(std::shared_ptr<WindowState> state) {
    const bool isOfAnother =
        state && (!windowState() || windowState()->appBundleId() != state->appBundleId());
    keepWindowState(std::move(state));
    if (isOfAnother) {
        updateShortcutRemark();
    }
}

std::optional<std::string> SaveShortcutViewController::applicationOfShortcut() const {
    return view_->forAllApplications() || !windowState() ? std::nullopt
                                                         : windowState()->appBundleId();
}

void SaveShortcutViewController::abandon() {
    saving_.abandonSavingWindowState();
}

void SaveShortcutViewController::setApplicationName(const std::string& name) {
    appName_ = name;
    view_->setForAppOnlyTitle(onlyActiveFor(name));
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
        services().text.localized("The keyboard shortcut will only be active while %@ is active."),
        appName_));
    view_->setForAllApplicationsToolTip(
        services().text.localized("The keyboard shortcut will be active for all applications."));
}

void SaveShortcutViewController::updateTooltipsSoon() {
    tooltipTimer_ = mainLoop_.after(kTooltipDelay, [this] { updateTooltips(); });
}

void SaveShortcutViewController::reset() {
    view_->setWindowStateName("");
    view_->setPrefersDisplay(false);
    choiceForAppOnly_ = std::nullopt;
    view_->setForAppOnlyEnabled(true);
    view_->setForAppOnly(true);
    view_->setForAllApplications(false);
    showShortcut(nullptr);
    showSavingRefusal();
}

void SaveShortcutViewController::showSavingRefusal() {
    view_->setSavingRefusal(savingRefusal(services().model, services().text));
}

void SaveShortcutViewController::onActiveForAppOnly() {
    view_->setForAllApplications(false);
    updateTooltipsSoon();
    updateShortcutRemark();
}

void SaveShortcutViewController::onActiveForAll() {
    view_->setForAppOnly(false);
    updateTooltipsSoon();
    updateShortcutRemark();
}

void SaveShortcutViewController::onActiveContextChange() {
    updateTooltipsSoon();
}

void SaveShortcutViewController::save() {
    const auto name = enteredName();
    if (!name) {
        return;
    }
    windowState()->setIsGlobal(view_->forAllApplications());
    windowState()->setPrefersDisplay(view_->prefersDisplay());
    windowState()->setWindowStateName(*name);
    saving_.addWindowState(windowState());
    saving_.finishSavingWindowState();
    services().tracking.trackEvent(kSaveWindowStateEvent,
                                   windowState()->attributesForTracking(services().shortcutText));
    drop();
}

void SaveShortcutViewController::cancel() {
    saving_.finishSavingWindowState();
    drop();
    services().tracking.trackEvent(kCancelSaveWindowStateEvent);
}

void SaveShortcutViewController::drop() {
    view_->setWindowStateImage(nullptr);
    keepWindowState(nullptr);
}

} // namespace panewright
