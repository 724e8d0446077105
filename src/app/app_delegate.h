#pragma once

#include "app/move_to_applications_folder.h"
#include "menubar/scripting.h"
#include "menubar/status_item_controller.h"
#include "menubar/views.h"
#include "platform/ports.h"
#include "services/product_pages.h"
#include "ui/settings.h"

#include <memory>
#include <optional>
#include <string>

namespace panewright {

/// The program's life: start-up in its order, and the actions that belong to the whole program.
class AppDelegate : public ApplicationActions {
public:
    AppDelegate(const Ports& ports, const Views& views);
    ~AppDelegate() override;
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// The delegate of the program that has begun to finish launching; null before. For who is
    /// called from outside without an object, such as scripts.
    static AppDelegate* instance();

    /// The application that the user was in when the program was started; nil if there was none.
    const std::optional<RunningApplication>& frontMostAppBeforeRunning() const {
        return frontMostAppBeforeRunning_;
    }
    /// Null before launch has finished.
    const std::shared_ptr<StatusItemController>& statusItemController() const {
        return statusItemController_;
    }

    /// Remembers the application that the user was in, and offers to move the program to where
    /// programs are installed.
    [[nodiscard]] AfterMoving applicationWillFinishLaunching();

    /// Asks for permission to control other programs, then makes and starts the controller.
    void applicationDidFinishLaunching();

    // Actions of the program as a whole.
    void bringPrefsForward();
    /// Opens the settings window, which is made the first time.
    void settings() override;
    void runAtStartup() override;
    void restoreWindowStates() override;
    void quit() override;
    void checkForUpdates() override;
    void checkForUpdatesInBackground();
    void sendFeedback() override;
    void openFAQ() override;
    void crash() override;

private:
    void setupFabric();
    void setupAccessibility();
    void setupStatusItem();
    void setupSparkle();
    void setupReopening();
    void setupScripting();
    std::shared_ptr<Settings> makeSettings();

    Ports ports_;
    Views views_;
    Tracking tracking_;
    ProductPages pages_;
    std::optional<RunningApplication> frontMostAppBeforeRunning_;
    std::shared_ptr<StatusItemController> statusItemController_;
    std::shared_ptr<Settings> settings_;
    Registration pendingPreferences_;
    Registration reopenRequests_;
    std::unique_ptr<ScriptingCommands> scripting_;
    Registration scriptingService_;
};

} // namespace panewright
