#include "contract/x11_rig.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <deque>
#include <set>

namespace panewright {
namespace {

/// Where the desktop entries "org.example.Player" and "viewer" are installed.
class ClientIdentity : public testing::Test {
protected:
    static constexpr std::uint32_t kPid = 10'000'000; // no real process has such a number

    ClientIdentity() {
        const std::string entry = "[Desktop Entry]\nType=Application\nName=";
        setContent(home_.path() / "applications/org.example.Player.desktop",
                   entry + "Player\nIcon=Player-icon\n");
        setContent(home_.path() / "applications/viewer.desktop",
                   entry + "Viewer\nIcon=Viewer-icon\nStartupWMClass=Show-Viewer\n");
        setenv("XDG_DATA_HOME", home_.path().c_str(), 1);
        // The server cannot tell which process a window is of.
        rig_.emplace(test::Screen{.arguments = {"-extension", "X-Resource"}});
    }

    xcb_window_t open(const std::string& windowClass, std::uint32_t pid) {
        const test::ClientOptions options{.windowClass = windowClass, .pid = pid};
        return clients_.emplace_back(rig_->desktop.display(), options).window();
    }
    RunningApplication frontmost() {
        return rig_->ports->workspace.frontmostApplication().value_or(RunningApplication{});
    }
    /// Makes it the active window, whose application must become the frontmost one.
    void expectFrontmost(xcb_window_t window, const std::string& identifier,
                         const std::string& name) {
        rig_->desktop.x().activate(window);
        EXPECT_TRUE(rig_->eventually([&] {
            return rig_->desktop.x().activeWindow() == window &&
                   frontmost().bundleIdentifier == identifier && frontmost().localizedName == name;
        })) << frontmost().bundleIdentifier.value_or("none");
    }

    TemporaryFolder home_;
    std::optional<X11Rig> rig_;
    std::deque<test::TestClient> clients_; // all stay, so that none gets the identifier of another
};

TEST_F(ClientIdentity, IsThatOfTheDesktopEntryElseTheClass) {
    const auto plain = open("Plain", kPid);
    const struct {
        const char* property;
        std::string text;
        const char* identifier;
        const char* name;
    } cases[] = {
        {"WM_CLASS", std::string("x\0Show-Viewer", 13), "viewer", "Viewer"},
        {"WM_CLASS", std::string("x\0VIEWER", 8), "viewer", "Viewer"},
        {"WM_CLASS", std::string("viewer\0Other", 12), "viewer", "Viewer"},
        {"_GTK_APPLICATION_ID", "org.example.Player", "org.example.Player", "Player"},
        {"_KDE_NET_WM_DESKTOP_FILE", "org.example.Player", "org.example.Player", "Player"},
        {"_GTK_APPLICATION_ID", "org.example.Missing", "Plain", "Plain"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.text);
        const auto window = open("Plain", kPid);
        rig_->desktop.x().setText(window, test.property, test.text);
        expectFrontmost(plain, "Plain", "Plain");
        int activations = 0;
        const auto registration =
            rig_->ports->workspace.onApplicationActivated([&] { ++activations; });
        expectFrontmost(window, test.identifier, test.name);
        // Another identifier in one process is another application.
        EXPECT_EQ(activations, std::string(test.identifier) == "Plain" ? 0 : 1);
    }
}

TEST_F(ClientIdentity, LeadsToTheIcon) {
    const std::vector<IconPicture> picture{{1, 1, {0x80112233}}};
    rig_->desktop.x().setProperty(open("Viewer", kPid), "_NET_WM_ICON", XCB_ATOM_CARDINAL,
                                  {1, 1, 0x80112233});
    rig_->desktop.x().synchronize();
    auto& icons = rig_->ports->icons;
    EXPECT_EQ(icons.iconNameOf("viewer"), "") << "nothing has been read yet";
    EXPECT_TRUE(rig_->eventually([&] { return icons.iconNameOf("viewer") == "Viewer-icon"; }));
    EXPECT_EQ(icons.iconNameOf("missing"), "");
    EXPECT_TRUE(rig_->eventually([&] { // the manager lists the window some time after it is shown
        return icons.iconPicturesOf(ProcessId{kPid}) == picture;
    }));
    EXPECT_EQ(icons.iconPicturesOf(std::string("viewer")), picture);
    EXPECT_TRUE(icons.iconPicturesOf(std::string("missing")).empty());
}

TEST_F(ClientIdentity, IsAPrivateProcessForEachClientOfAnotherMachine) {
    std::set<ProcessId> pids;
    for (const char* name : {"Remote", "Other"}) {
        const auto window = open(name, 1);
        rig_->desktop.x().setText(window, "WM_CLIENT_MACHINE", "elsewhere.example");
        rig_->desktop.x().synchronize();
        expectFrontmost(window, name, name);
        pids.insert(frontmost().processIdentifier);
    }
    EXPECT_THAT(pids, testing::AllOf(testing::SizeIs(2), testing::Each(testing::Lt(-1))));
}

TEST_F(ClientIdentity, IsOurOwnForTheWindowsOfThisProcessWhateverTheySay) {
    rig_.emplace(); // with the extension
    expectFrontmost(open("Other", 1), "com.quillfen.Panewright", "com.quillfen.Panewright");
    EXPECT_EQ(frontmost().processIdentifier, getpid());
    // Another program that says so is not us.
    const test::ChildProcess other({"xterm", "-class", "com.quillfen.Panewright", "-e", "cat"},
                                   rig_->desktop.environment());
    EXPECT_TRUE(rig_->eventually([&] { return frontmost().processIdentifier == other.pid(); }));
    EXPECT_EQ(frontmost().bundleIdentifier, std::nullopt);
    EXPECT_EQ(frontmost().localizedName, "com.quillfen.Panewright");
}

} // namespace
} // namespace panewright
