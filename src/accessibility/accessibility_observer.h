#pragma once

#include "base/registration.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace panewright {

class AccessibilityElement;

/// One notification observed on one element. The element keeps its observers; an observer does not
/// keep its element. Callbacks come on the main loop, between events.
class AccessibilityObserver : public std::enable_shared_from_this<AccessibilityObserver> {
public:
    /// The element is the one that is observed, not the one that the system names; null once it is
    /// gone.
    using Callback = std::function<void(AccessibilityObserver& observer,
                                        const std::shared_ptr<AccessibilityElement>& element,
                                        const std::string& notification)>;

    /// Not yet installed: AccessibilityElement::addObserver does that.
    static std::shared_ptr<AccessibilityObserver>
    observerForNotification(std::string_view notification, Callback withCallback);

    const std::string& notification() const { return notification_; }
    std::shared_ptr<AccessibilityElement> element() const { return element_.lock(); }
    void setElement(std::weak_ptr<AccessibilityElement> element) { element_ = std::move(element); }
    bool isInstalled() const { return static_cast<bool>(installed_); }

    /// Needs an element. A registration that the system refuses is ignored.
    void installObserver();

    /// Ends the registration with the port; harmless when there is none.
    void uninstallObserver() { installed_.release(); }

private:
    AccessibilityObserver(std::string_view notification, Callback callback);
    void notify();

    std::string notification_;
    Callback callback_;
    std::weak_ptr<AccessibilityElement> element_;
    Registration installed_;
};

} // namespace panewright
