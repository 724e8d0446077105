#include "accessibility/accessibility_observer.h"

#include "accessibility/accessibility_element.h"

#include <utility>

namespace panewright {

std::shared_ptr<AccessibilityObserver>
AccessibilityObserver::observerForNotification(std::string_view notification,
                                               Callback withCallback) {
    return std::shared_ptr<AccessibilityObserver>(
        new AccessibilityObserver(notification, std::move(withCallback)));
}

AccessibilityObserver::AccessibilityObserver(std::string_view notification, Callback callback)
    : notification_(notification), callback_(std::move(callback)) {}

void AccessibilityObserver::installObserver() {
    const auto observed = element();
    if (!observed) {
        return;
    }
    installed_ = observed->port_.observe(observed->pid(), observed->element(), notification_,
                                         [this] { notify(); });
}

void AccessibilityObserver::notify() {
    // The callback may drop this observer's last owner.
    const auto self = shared_from_this();
    callback_(*this, element(), notification_);
}

} // namespace panewright
