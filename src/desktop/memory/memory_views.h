#pragma once

#include "desktop/memory/memory_popover_views.h"
#include "desktop/memory/memory_windows.h"
#include "shortcuts/qf_shortcut_recorder.h"
#include "ui/settings.h"
#include "ui/view_factory.h"

#include <memory>
#include <string>

namespace panewright {

/// The settings window's controls, which a test fills in and reads.
class MemorySettingsView : public SettingsView, public QFShortcutRecorderView {
public:
    explicit MemorySettingsView(Settings& settings) : controller_(settings) {
        controller_.shortcutRecorder().setView(this);
    }
    ~MemorySettingsView() override { controller_.shortcutRecorder().setView(nullptr); }
    MemorySettingsView(const MemorySettingsView&) = delete;
    MemorySettingsView& operator=(const MemorySettingsView&) = delete;

    Settings& controller() { return controller_; }
    void showWindow() override { ++timesShown; }
    void makeKeyAndOrderFront() override {}
    bool startupItem() const override { return startsAtLogin; }
    void setStartupItem(bool on) override { startsAtLogin = on; }
    bool allowMoveWindow() const override { return allowsMove; }
    void setAllowMoveWindow(bool on) override { allowsMove = on; }
    void setVersion(const std::string& text) override { version = text; }
    void setWebsiteShown(bool isShown) override { leadsToWebsite = isShown; }
    void setStoreTrouble(const std::string& line) override { storeTrouble = line; }
    void setShortcutRemark(const std::string& text) override { remark = text; }
    void setMenuOffered(bool isOffered) override { offersMenu = isOffered; }

    bool isFirstResponder() const override { return true; }
    void makeFirstResponder() override {}
    void setNeedsDisplay() override {}

    int timesShown = 0;
    bool startsAtLogin = false;
    bool allowsMove = false;
    bool offersMenu = false;
    bool leadsToWebsite = false;
    std::string version;
    std::string storeTrouble;
    std::string remark;

private:
    Settings& controller_;
};

/// Keeps hold of the views that it made.
class MemoryViews : public ViewFactory {
public:
    MemoryViews(MemoryWindows& windows, ProcessId ownPid) : windows_(windows), ownPid_(ownPid) {}

    std::unique_ptr<EditShortcutView>
    makeEditShortcutView(EditShortcutViewController& controller) override {
        auto view = std::make_unique<MemoryEditShortcutView>(controller, windows_, ownPid_);
        edit = view.get();
        return view;
    }
    std::unique_ptr<SaveShortcutView>
    makeSaveShortcutView(SaveShortcutViewController& controller) override {
        auto view = std::make_unique<MemorySaveShortcutView>(controller, windows_, ownPid_);
        save = view.get();
        return view;
    }
    std::unique_ptr<SettingsView> makeSettingsView(Settings& controller) override {
        auto view = std::make_unique<MemorySettingsView>(controller);
        settings = view.get();
        return view;
    }

    // Null until the popover was opened for the first time.
    MemoryEditShortcutView* edit = nullptr;
    MemorySaveShortcutView* save = nullptr;
    /// Null until the window was opened for the first time.
    MemorySettingsView* settings = nullptr;

private:
    MemoryWindows& windows_;
    ProcessId ownPid_;
};

} // namespace panewright
