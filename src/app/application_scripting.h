#pragma once

#include "app/app_delegate.h"
#include "menubar/scripting.h"

#include <optional>
#include <vector>

namespace panewright {

/// The commands of scripts, done by the program whose launch has finished.
class ApplicationScripting : public ScriptingCommands {
public:
    /// The delegate must outlive it.
    explicit ApplicationScripting(AppDelegate& delegate) : delegate_(delegate) {}

    bool applyWindowState(const ScriptArguments& arguments) override {
        return ApplyWindowStateCommand(arguments, delegate_.statusItemController())
            .performDefaultImplementation();
    }
    std::optional<std::vector<WindowStateForScripts>> listWindowStates() override {
        return controller().listWindowStates();
    }
    bool moveToNextDisplay() override { return controller().moveWindowToNextDisplay(); }
    void openMenu(bool isFlat) override { controller().openMenu(isFlat); }
    void showSettings() override { delegate_.settings(); }
    void saveWindow() override { controller().saveWindowPosition(); }
    void quit() override { delegate_.quit(); }

private:
    StatusItemController& controller() { return *delegate_.statusItemController(); }

    AppDelegate& delegate_;
};

} // namespace panewright
