#pragma once

#include "desktop/memory/memory_windows.h"
#include "shortcuts/qf_shortcut_recorder.h"
#include "ui/edit_shortcut_view_controller.h"
#include "ui/save_shortcut_view_controller.h"

#include <optional>
#include <string>
#include <utility>

namespace panewright {

/// A popover as a window of this program on the desktop in memory.
class MemoryPopover : public Popover {
public:
    MemoryPopover(MemoryWindows& windows, ProcessId ownPid) : windows_(windows), ownPid_(ownPid) {}

    bool isShown() const override { return window_.has_value(); }
    void show(const PopoverAnchor& anchor) override {
        shownAt = anchor;
        if (!window_) {
            window_ = windows_.openWindow({.pid = ownPid_, .title = "Popover"});
        }
    }
    void makeKeyAndOrderFront() override { windows_.activateWindow(*window_); }
    void close() override {
        if (const auto window = std::exchange(window_, std::nullopt)) {
            windows_.closeWindow(*window);
        }
    }

    PopoverAnchor shownAt;

private:
    MemoryWindows& windows_;
    ProcessId ownPid_;
    std::optional<WindowId> window_;
};

/// What the popovers' controls share. A test fills them in and reads them.
template <class View, class Controller>
class MemoryPopoverView : public View, public QFShortcutRecorderView {
public:
    MemoryPopoverView(Controller& controller, MemoryWindows& windows, ProcessId ownPid)
        : controller_(controller), popover_(windows, ownPid) {
        controller_.shortcutRecorder().setView(this);
    }
    ~MemoryPopoverView() override { controller_.shortcutRecorder().setView(nullptr); }
    MemoryPopoverView(const MemoryPopoverView&) = delete;
    MemoryPopoverView& operator=(const MemoryPopoverView&) = delete;

    Controller& controller() { return controller_; }
    MemoryPopover& popover() override { return popover_; }
    std::string windowStateName() const override { return name; }
    void setWindowStateName(const std::string& text) override { name = text; }
    void focusWindowStateName() override { recorderHasFocus = false; }
    void setShortcutRemark(const std::string& text) override { remark = text; }

    bool isFirstResponder() const override { return recorderHasFocus; }
    void makeFirstResponder() override { recorderHasFocus = true; }
    void setNeedsDisplay() override {}

    std::string name;
    std::string remark;
    bool recorderHasFocus = false;

private:
    Controller& controller_;
    MemoryPopover popover_;
};

/// The save popover's controls.
class MemorySaveShortcutView
    : public MemoryPopoverView<SaveShortcutView, SaveShortcutViewController> {
public:
    using MemoryPopoverView::MemoryPopoverView;

    void setApplicationImage(const ImagePtr& image) override { applicationImage = image; }
    void setWindowStateImage(const ImagePtr& image) override { windowStateImage = image; }
    bool forAppOnly() const override { return appOnly; }
    void setForAppOnly(bool on) override { appOnly = on; }
    void setForAppOnlyEnabled(bool enabled) override { appOnlyEnabled = enabled; }
    void setForAppOnlyTitle(const std::string& title) override { appOnlyTitle = title; }
    void setForAppOnlyToolTip(const std::string& text) override { appOnlyToolTip = text; }
    bool forAllApplications() const override { return allApplications; }
    void setForAllApplications(bool on) override { allApplications = on; }
    void setForAllApplicationsToolTip(const std::string& text) override {
        allApplicationsToolTip = text;
    }
    bool prefersDisplay() const override { return preferred; }
    void setPrefersDisplay(bool on) override { preferred = on; }
    void setSavingRefusal(const std::string& text) override { savingRefusal = text; }

    ImagePtr applicationImage;
    ImagePtr windowStateImage;
    bool appOnly = false;
    bool appOnlyEnabled = true;
    std::string appOnlyTitle;
    std::string appOnlyToolTip;
    bool allApplications = false;
    std::string allApplicationsToolTip;
    bool preferred = false;
    std::string savingRefusal;
};

/// The edit popover's controls.
class MemoryEditShortcutView
    : public MemoryPopoverView<EditShortcutView, EditShortcutViewController> {
public:
    using MemoryPopoverView::MemoryPopoverView;

    void setContext(const std::string& text) override { context = text; }
    bool updateWindowState() const override { return updates; }
    void setUpdateWindowStateEnabled(bool enabled) override { updateEnabled = enabled; }

    std::string context;
    bool updates = false;
    bool updateEnabled = true;
};

} // namespace panewright
