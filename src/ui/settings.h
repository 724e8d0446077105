#pragma once

#include "platform/beeper.h"
#include "platform/hot_keys.h"
#include "platform/program_information.h"
#include "platform/status_item.h"
#include "platform/text_services.h"
#include "services/launch_agent_startup_item.h"
#include "services/product_pages.h"
#include "services/tracking.h"
#include "ui/hot_key_refresh.h"
#include "ui/shortcut_entry.h"
#include "ui/store_troubles.h"
#include "ui/view_factory.h"
#include "ui/window_state_saving.h"

#include <functional>
#include <memory>

namespace panewright {

class Model;

/// The settings window: the few options that are not of a single state. The program's delegate
/// makes it once and keeps it; its controls show what was set when it was made, and what the user
/// sets in it since.
class Settings : public ShortcutEntry {
public:
    /// All of it must outlive the window.
    struct Services {
        Beeper& beeper;
        const HotKeys& hotKeys;
        const ProgramInformation& program;
        ProductPages pages;
        const TextServices& text;
        ShortcutText shortcutText;
        Tracking tracking;
        StatusItem& statusItem;
        const LaunchAgentStartupItem& launchAgentStartupItem;
        Model& model;
        HotKeyRefresh& hotKeyRefresh;
        WindowStateSaving& saving;
        StoreTroubles& storeTroubles;
        std::function<void()> openMenu;
        ViewFactory& views;
    };

    /// With its window, which is not shown yet.
    static std::shared_ptr<Settings> create(const Services& services);

    void showWindow();
    void makeKeyAndOrderFront() { view_->makeKeyAndOrderFront(); }

    // What the user does in the window.
    void saveWindowPosition();
    void openMenu() { services_.openMenu(); }
    void explainStoreTrouble() { services_.storeTroubles.explain(); }
    void startupItem();
    void allowStateShortuctMoveWindow();
    void restoreDefaultWindowStates();
    void feedback();
    void faq();
    void website();

private:
    explicit Settings(const Services& services);

    void awakeFromNib();
    void keepShortcut(const std::shared_ptr<CarbonKeyEvent>& event) override;
    ShortcutOwner shortcutOwner() const override { return {}; }
    void showShortcutRemark(const std::string& text) override;
    void offerMenuUnlessInStatusBar();
    void showStoreTrouble();

    Services services_;
    std::unique_ptr<SettingsView> view_; // after the rest, which it knows
    Registration statusItemChanges_;
    Registration stateChanges_;
};

} // namespace panewright
