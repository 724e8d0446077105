#pragma once

#include "menubar/status_item_controller.h"

#include <memory>
#include <optional>
#include <vector>

namespace panewright {

/// The program's life: start-up in its order.
class AppDelegate {
public:
    AppDelegate(const StatusItemController::Services& services,
                std::vector<std::shared_ptr<WindowState>> defaultStates);
    ~AppDelegate();
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// The delegate of the program that has finished launching; null before.
    static AppDelegate* instance();

    /// Remembers the application that the user was in.
    void applicationWillFinishLaunching();

    /// Asks for permission to control other programs, then makes and starts the controller.
    void applicationDidFinishLaunching();

    /// Null before launch has finished.
    const std::shared_ptr<StatusItemController>& statusItemController() const {
        return statusItemController_;
    }

private:
    void setupAccessibility();
    void setupStatusItem();

    StatusItemController::Services services_;
    std::vector<std::shared_ptr<WindowState>> defaultStates_;
    std::optional<RunningApplication> frontMostAppBeforeRunning_;
    std::shared_ptr<StatusItemController> statusItemController_;
};

} // namespace panewright
