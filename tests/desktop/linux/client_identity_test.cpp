#include "contract/foreign_program.h"
#include "contract/x11_rig.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <tuple>

namespace panewright {
namespace {

class Identity {
public:
    explicit Identity(const test::XServer::Options& options = {}) {
        const auto folder = home_.path() / "applications";
        std::filesystem::create_directories(folder);
        for (const auto& [id, name] :
             {std::pair{"org.example.Player", "Player"}, std::pair{"viewer", "Viewer"}}) {
            setContent(folder / (std::string(id) + ".desktop"),
                       std::string("[Desktop Entry]\nType=Application\nStartupWMClass=Show-") +
                           name + "\nName=" + name + "\nIcon=" + name + "-icon\n");
        }
        setenv("XDG_DATA_HOME", home_.path().c_str(), 1);
        rig.emplace(options);
    }

    void setText(xcb_window_t window, std::string_view property, std::string_view text) const {
        const auto& x = rig->desktop.x();
        xcb_change_property(x.connection(), XCB_PROP_MODE_REPLACE, window, x.atom(property),
                            XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()),
                            text.data());
    }

    /// Whether it is what the frontmost application becomes.
    bool becomesFrontmost(xcb_window_t window, const std::string& identifier,
                          const std::string& name) {
        rig->desktop.x().sendToWindowManager(window, "_NET_ACTIVE_WINDOW", {2, XCB_CURRENT_TIME});
        return rig->eventually([&] {
            const auto application = rig->ports->workspace.frontmostApplication();
            return application && application->bundleIdentifier == identifier &&
                   application->localizedName == name;
        });
    }

private:
    TemporaryFolder home_;

public:
    std::optional<X11Rig> rig;
};

TEST(ClientIdentity, IsThatOfTheDesktopEntryElseTheClass) {
    Identity identity;
    ForeignProgram program(identity.rig->desktop.display(), "Plain");
    const auto plain = program.open(300, 200, false);
    ASSERT_TRUE(identity.becomesFrontmost(plain, "Plain", "Plain"));
    const auto pid = identity.rig->ports->workspace.frontmostApplication()->processIdentifier;
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
        int activations = 0;
        const auto registration =
            identity.rig->ports->workspace.onApplicationActivated([&] { ++activations; });
        const auto window = program.open(300, 200, false);
        identity.setText(window, test.property, test.text);
        ASSERT_TRUE(identity.becomesFrontmost(plain, "Plain", "Plain"));
        identity.rig->loop.runPending();
        activations = 0;
        EXPECT_TRUE(identity.becomesFrontmost(window, test.identifier, test.name));
        identity.rig->loop.runPending();
        // Another identifier in one process is another application.
        EXPECT_EQ(activations, std::string(test.identifier) == "Plain" ? 0 : 1);
        EXPECT_EQ(identity.rig->ports->workspace.frontmostApplication()->processIdentifier, pid);
        program.destroy(window);
        ASSERT_TRUE(identity.becomesFrontmost(plain, "Plain", "Plain"));
    }
}

TEST(ClientIdentity, LeadsToTheIcon) {
    Identity identity;
    ForeignProgram program(identity.rig->desktop.display(), "Viewer");
    identity.rig->desktop.x().setProperty(program.open(300, 200, false), "_NET_WM_ICON",
                                          XCB_ATOM_CARDINAL, {1, 1, 0x80112233});
    identity.rig->desktop.x().synchronize();
    const auto pid = program.pid();
    auto& icons = identity.rig->ports->icons;
    const std::vector<IconPicture> picture{{1, 1, {0x80112233}}};
    EXPECT_EQ(icons.iconOf({pid, "viewer", "Viewer"}).name, "Viewer-icon");
    EXPECT_TRUE(identity.rig->eventually([&] {
        return icons.iconOf({pid, std::nullopt, std::nullopt}).pictures == picture;
    }));
    const auto none = icons.iconOf({0, "missing", "Missing"});
    EXPECT_EQ(none.name, "");
    EXPECT_TRUE(none.pictures.empty());
}

TEST(ClientIdentity, IsOurOwnForTheWindowsOfThisProcess) {
    Identity identity;
    const test::TestClient own(identity.rig->desktop.display());
    EXPECT_TRUE(identity.becomesFrontmost(own.window(), "com.quillfen.Panewright",
                                          "com.quillfen.Panewright"));
    EXPECT_EQ(identity.rig->ports->workspace.frontmostApplication()->processIdentifier, getpid());
}

TEST(ClientIdentity, IsAPrivateProcessForAClientOfAnotherMachine) {
    // Without the extension that tells what process a client is.
    Identity identity({.arguments = {"-extension", "X-Resource"}});
    ForeignProgram program(identity.rig->desktop.display(), "Remote");
    const auto first = program.open(300, 200, false);
    const auto second = program.open(300, 200, false);
    std::vector<ProcessId> pids;
    for (const auto window : {first, second, first}) {
        identity.setText(window, "WM_CLIENT_MACHINE", "elsewhere.example");
        EXPECT_TRUE(identity.becomesFrontmost(window, "Remote", "Remote"));
        EXPECT_TRUE(identity.rig->eventually([&] {
            const auto application = identity.rig->ports->workspace.frontmostApplication();
            const bool isOther = pids.empty() || application->processIdentifier != pids.back();
            if (isOther) {
                pids.push_back(application->processIdentifier);
            }
            return isOther;
        }));
    }
    // Each connection is a client.
    EXPECT_THAT(pids, testing::Each(testing::Lt(-1)));
    EXPECT_EQ(pids.front(), pids.back());
}

} // namespace
} // namespace panewright
