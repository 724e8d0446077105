#include "app/app_delegate.h"

#include "model/window_state.h"

#include <utility>

namespace panewright {
namespace {

AppDelegate*& theInstance() {
    static AppDelegate* instance = nullptr;
    return instance;
}

} // namespace

AppDelegate::AppDelegate(const StatusItemController::Services& services,
                         std::vector<std::shared_ptr<WindowState>> defaultStates)
    : services_(services), defaultStates_(std::move(defaultStates)) {}

AppDelegate::~AppDelegate() {
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
    setupAccessibility();
    setupStatusItem();
}

void AppDelegate::setupAccessibility() {
    AccessibilityHelper(services_.accessibility).accessibilityEnabledWithPrompt();
}

void AppDelegate::setupStatusItem() {
    statusItemController_ = StatusItemController::create(services_, defaultStates_);
    WindowState::setApplier(statusItemController_);
    statusItemController_->tracking().setCurrentApplication(frontMostAppBeforeRunning_);
    statusItemController_->startStatusItem();
}

} // namespace panewright
