// What every desktop tells of its panel: the room that it takes, and the tray on it.

#include "contract/x11_rig.h"
#include "desktop/memory/memory_desktop.h"
#include "support/print_geometry.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

/// A display of 1600 by 900 points, at whose top a test puts a grey panel, 30 points high.
class PanelRig {
public:
    virtual ~PanelRig() = default;
    virtual WorkAreas& workAreas() = 0;
    virtual SystemTray& tray() = 0;
    virtual DisplayId display() = 0;
    /// Takes over from one that is there.
    virtual void putUp() = 0;
    virtual void takeAway() = 0;
    virtual bool eventually(const std::function<bool()>& condition) = 0;
};

class MemoryPanelRig : public PanelRig {
public:
    MemoryPanelRig() { desktop_.displays.setDisplays({{.id = 1, .bounds = {0, 0, 1600, 900}}}); }
    WorkAreas& workAreas() override { return desktop_.workAreas; }
    SystemTray& tray() override { return desktop_.tray; }
    DisplayId display() override { return 1; }
    void putUp() override {
        desktop_.workAreas.setWorkArea(1, {0, 30, 1600, 870});
        desktop_.tray.putUp(0.5);
    }
    void takeAway() override {
        desktop_.workAreas.setWorkArea(1, {0, 0, 1600, 900});
        desktop_.tray.takeAway();
    }
    bool eventually(const std::function<bool()>& condition) override {
        desktop_.mainLoop.runPending();
        return condition();
    }

private:
    MemoryDesktop desktop_;
};

/// The window of a panel with a tray.
class Panel {
public:
    explicit Panel(const std::string& display)
        : x_(display), window_(xcb_generate_id(x_.connection())) {
        const std::array<std::uint32_t, 1> grey{0x808080};
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), 0, 0, 1600, 30,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                          grey.data());
        x_.setProperty(window_, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                       {x_.atom("_NET_WM_WINDOW_TYPE_DOCK")});
        x_.setProperty(window_, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL,
                       {0, 0, 30, 0, 0, 0, 0, 0, 0, 1599, 0, 0});
        std::vector<std::uint32_t> hints(18);
        hints[0] = 1; // the position is the user's
        x_.setProperty(window_, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
        xcb_map_window(x_.connection(), window_);
        const auto selection = x_.atom("_NET_SYSTEM_TRAY_S0");
        xcb_set_selection_owner(x_.connection(), window_, selection, XCB_CURRENT_TIME);
        xcb_client_message_event_t announcement{};
        announcement.response_type = XCB_CLIENT_MESSAGE;
        announcement.format = 32;
        announcement.window = x_.root();
        announcement.type = x_.atom("MANAGER");
        announcement.data.data32[1] = selection;
        announcement.data.data32[2] = window_;
        xcb_send_event(x_.connection(), 0, x_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&announcement));
        x_.synchronize();
    }

private:
    test::XClient x_;
    xcb_window_t window_;
};

class X11PanelRig : public PanelRig {
public:
    explicit X11PanelRig(std::string_view windowManager) : rig_({}, windowManager) {}
    WorkAreas& workAreas() override { return rig_.ports->workAreas; }
    SystemTray& tray() override { return rig_.ports->tray; }
    DisplayId display() override { return rig_.ports->displays.activeDisplays(1).at(0); }
    void putUp() override {
        auto next = std::make_unique<Panel>(rig_.desktop.display());
        panel_ = std::move(next);
    }
    void takeAway() override { panel_.reset(); }
    bool eventually(const std::function<bool()>& condition) override {
        return rig_.eventually(condition);
    }

private:
    X11Rig rig_;
    std::unique_ptr<Panel> panel_;
};

class PanelContract : public testing::TestWithParam<const char*> {
protected:
    PanelContract() {
        if (GetParam() == std::string("memory")) {
            rig_ = std::make_unique<MemoryPanelRig>();
        } else {
            rig_ = std::make_unique<X11PanelRig>(GetParam());
        }
    }

    std::unique_ptr<PanelRig> rig_;
};

TEST_P(PanelContract, IsFollowedAsItComesAndGoes) {
    int changes = 0;
    const auto registration = rig_->tray().onChange([&] { ++changes; });
    const auto expect = [&](bool isThere, int told) {
        const Rect area = isThere ? Rect{0, 30, 1600, 870} : Rect{0, 0, 1600, 900};
        EXPECT_TRUE(rig_->eventually([&] {
            return changes == told && rig_->workAreas().workArea(rig_->display()) == area;
        })) << changes
            << ' ' << testing::PrintToString(rig_->workAreas().workArea(rig_->display()));
        EXPECT_EQ(rig_->tray().isPresent(), isThere);
    };
    expect(false, 0);
    EXPECT_EQ(rig_->workAreas().workArea(kNoDisplay), Rect{});
    rig_->putUp();
    expect(true, 1);
    EXPECT_TRUE(rig_->eventually([&] {
        return std::abs(rig_->tray().brightnessAt({800, 15}).value_or(0) - 0.5) < 0.01;
    }));
    rig_->putUp();
    expect(true, 2);
    rig_->takeAway();
    expect(false, 3);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, PanelContract, testing::Values("memory", "openbox", "i3"),
                         [](const auto& desktop) { return std::string(desktop.param); });

} // namespace
} // namespace panewright
