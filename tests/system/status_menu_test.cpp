#include "system/used_in_panel.h"

#include <algorithm>
#include <filesystem>

namespace panewright::test {
namespace {

constexpr Frame kCorner{60, 70, 500, 400};
constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kShell = "org.gnome.Shell";
constexpr const char* kPortal = "org.freedesktop.portal.Desktop";

std::string call(const Environment& environment, const std::string& service,
                 const std::string& path, const std::string& method,
                 const std::vector<std::string>& arguments) {
    std::vector<std::string> command{"dbus-send",         "--session", "--print-reply",
                                     "--dest=" + service, path,        method};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return runToEnd(command, environment);
}

class StatusMenu : public UsedInPanels {
protected:
    void choose(const std::string& title, const char* key) const {
        type(title);
        press({key});
    }
    /// By what window manager and panel leave to the program; false where they leave nothing.
    bool openFlatMenu() const {
        const std::string windowManager = tray_.windowManager;
        if (windowManager == "kwin_x11") {
            desktop_.keyboard().press(KEY_LEFTALT);
            openMenu(window_);
            desktop_.keyboard().release(KEY_LEFTALT);
        } else if (windowManager == "openbox") {
            openMenu(window_, "3");
        }
        return windowManager != "xfwm4";
    }
    void expectFrame(const Frame& frame) const {
        EXPECT_EQ(frameOnceItIs(frame, desktop_.x(), window_.window()), frame);
        EXPECT_TRUE(eventually([&] { return !isMenuOpen(); }));
    }
};

TEST_P(StatusMenu, IsUsedWithKeys) {
    const TestClient editor(desktop_.display(), {.windowClass = "Editor"});
    editor.activate();
    placeWindow(desktop_.x(), editor.window(), kCorner);
    openPopover(editor);
    save(editor, "Corner place", "alt+9");
    switchTo(window_);

    openMenu(window_);
    press({"alt+4"});
    expectFrame(kSmall);
    openMenu(window_);
    press({"Alt_L"});
    choose("centered m", "Return");
    expectFrame(kStates[2]);
    openMenu(window_);
    desktop_.run({"xset", "r", "rate", "200", "40"});
    desktop_.keyboard().press(KEY_C);
    std::this_thread::sleep_for(std::chrono::seconds(1));
    desktop_.keyboard().release(KEY_C);
    press({"Return"});
    expectFrame(kLarge); // the first that begins so

    if (openFlatMenu()) {
        choose("corner p", "Return"); // else in a submenu
        expectFrame(kCorner);
    }
    openMenu(window_);
    choose("editor", "Right");
    press({"alt+shift+KP_Enter"});
    EXPECT_TRUE(eventually([&] { return store().find("Corner place") == std::string::npos; }));
}

std::vector<TrayPanel> installedPanels() {
    std::vector<TrayPanel> panels{kTint2, kXfce4Panel, {"kwin_x11", "tint2", kTint2.icon}};
    std::erase_if(
        panels, [](const auto& panel) { return !WindowManager::isInstalled(panel.windowManager); });
    return panels;
}
INSTANTIATE_TEST_SUITE_P(Everywhere, StatusMenu, testing::ValuesIn(installedPanels()),
                         nameOfManager);

class StatusMenuInOnePanel : public UsedInPanel {
protected:
    /// Four bytes a pixel: blue, green, red and nothing. Empty while the server does not answer.
    std::vector<std::uint8_t> pixels(std::int16_t left, std::int16_t top, std::uint16_t width,
                                     std::uint16_t height) const {
        const auto& x = desktop_.x();
        const ReplyPointer<xcb_get_image_reply_t> image(
            xcb_get_image_reply(x.connection(),
                                xcb_get_image(x.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, x.root(),
                                              left, top, width, height, 0xffffff),
                                nullptr));
        const auto* data = image ? xcb_get_image_data(image.get()) : nullptr;
        return data ? std::vector(data, data + xcb_get_image_data_length(image.get()))
                    : std::vector<std::uint8_t>();
    }
    std::vector<std::uint8_t> shownMenu() const {
        openMenu(window_);
        pause();
        auto shown = pixels(1200, 300, 400, 560);
        press({"Escape"});
        EXPECT_TRUE(eventually([&] { return !isMenuOpen(); }));
        return shown;
    }
};

TEST_F(StatusMenuInOnePanel, ShowsWhatIsOn) {
    const auto off = shownMenu();
    ASSERT_EQ(shownMenu(), off) << "nothing else changes";
    openMenu(window_);
    type("start at");
    press({"Return"});
    EXPECT_NE(shownMenu(), off);
}

TEST_F(StatusMenuInOnePanel, HasTheColoursOfThePortal) {
    ChildProcess portal({SESSION_HOST, kPortal}, environment_);
    portal.firstLine();
    quit();
    start();
    for (const bool isDark : {true, false}) {
        if (!isDark) {
            call(environment_, kPortal, "/org/freedesktop/portal/desktop",
                 "org.freedesktop.portal.Settings.BecomeLight", {});
        }
        openMenu(window_);
        EXPECT_TRUE(eventually([&] {
            const auto pixel = pixels(1590, 860, 1, 1);
            return !pixel.empty() && (pixel[0] < 0x60) == isDark;
        })) << isDark;
        press({"Escape"});
        ASSERT_TRUE(eventually([&] { return !isMenuOpen(); }));
    }
}

/// In a menu as dbus-send prints it, where an item's number comes before its label.
std::string numberOf(const std::string& label, const std::string& layout) {
    const auto begin = layout.rfind("int32", layout.find('"' + label + '"'));
    return layout.substr(begin, layout.find('\n', begin) - begin).replace(5, 1, ":");
}

TEST(ExportedStatusMenu, IsOnlyWhereNoOtherCanBeOpened) {
    const Desktop desktop;
    auto environment = desktop.environment();
    ChildProcess bus(kSessionBus, environment);
    environment["DBUS_SESSION_BUS_ADDRESS"] = bus.firstLine();
    const auto folder = environment["XDG_DATA_HOME"] + "/Panewright";
    std::filesystem::create_directory(folder);
    runToEnd({PYTHON, FOREIGN_STORE, "write", folder + "/keyEvents.data", R"({"viewer": [{
        "class": "WindowState", "WindowState.WindowStateName": "Corner",
        "WindowState.AppBundleId": "viewer", "WindowState.AppName": "Viewer",
        "WindowState.OriginalQuartzDisplayBounds": "{{0, 0}, {1600, 900}}",
        "WindowState.OriginalWindowRect": "{{60, 70}, {500, 400}}"}]})"},
             environment);
    const TestClient window(desktop.display());
    for (const bool isShell : {false, true}) {
        ChildProcess host({SESSION_HOST, kWatcher, isShell ? kShell : "org.example.Panel"},
                          environment);
        host.firstLine();
        window.activate();
        const Program program(environment);
        const auto item = [&] {
            const auto lines = host.standardOutput();
            return lines.substr(lines.find('\n') + 1, lines.rfind('\n') - lines.find('\n') - 1);
        };
        ASSERT_TRUE(eventually([&] { return item().starts_with(":"); }));
        const auto path =
            call(environment, item(), "/StatusNotifierItem", "org.freedesktop.DBus.Properties.Get",
                 {"string:org.kde.StatusNotifierItem", "string:Menu"});
        EXPECT_THAT(path, testing::HasSubstr(isShell ? "\"/MenuBar\"" : "\"/NO_DBUSMENU\""));
        if (isShell) {
            const std::string menu = "com.canonical.dbusmenu.";
            call(environment, item(), "/MenuBar", menu + "AboutToShow", {"int32:0"});
            const auto layout = call(environment, item(), "/MenuBar", menu + "GetLayout",
                                     {"int32:0", "int32:-1", "array:string:"});
            EXPECT_LT(layout.find("\"Viewer\""), layout.find("\"Corner\"")) << layout;
            call(environment, item(), "/MenuBar", menu + "Event",
                 {numberOf("Corner", layout), "string:clicked", "variant:int32:0", "uint32:0"});
            EXPECT_EQ(frameOnceItIs(kCorner, desktop.x(), window.window()), kCorner);
        }
    }
}

} // namespace
} // namespace panewright::test
