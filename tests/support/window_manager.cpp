#include "support/window_manager.h"

#include "support/frames.h"

#include <algorithm>
#include <stdexcept>
#include <unistd.h>

namespace panewright::test {
namespace {

struct Command {
    std::vector<std::string> arguments;
    bool needsBus = true;
    bool answersProbes = true;
};
const std::vector<Command> kCommands{
    {{"openbox", "--sm-disable", "--replace"}, false},
    {{"i3", "--replace"}, false},
    // With its compositor, programs that draw their own frames draw shadows around them.
    {{"xfwm4", "--sm-client-disable", "--replace", "--compositor=on"}},
    {{"marco", "--sm-disable", "--replace", "--no-composite"}},
    {{"metacity", "--sm-disable", "--replace"}},
    {{"mutter", "--x11", "--sm-disable", "--replace"}},
    {{"kwin_x11", "--replace", "--no-kactivities"}, true, false},
};

} // namespace

WindowManager::WindowManager(std::string_view name, const XClient& x, Environment environment) {
    const auto command = std::ranges::find(
        kCommands, name, [](const Command& listed) { return listed.arguments.front(); });
    environment["GSETTINGS_BACKEND"] = "memory"; // never the user's settings
    if (command->needsBus) {
        bus_ = std::make_unique<ChildProcess>(kSessionBus, environment);
        environment["DBUS_SESSION_BUS_ADDRESS"] = bus_->firstLine();
    }
    const auto before = x.property(x.root(), "_NET_SUPPORTING_WM_CHECK");
    const bool replaces =
        !before.empty() && !x.property(before[0], "_NET_SUPPORTING_WM_CHECK").empty();
    process_ = std::make_unique<ChildProcess>(command->arguments, environment);
    // A window of ours, never mapped, whose frame the manager is asked for. A manager that has just
    // taken charge may still lose what it is asked for before its first event: only one that
    // answers is ready.
    const auto probe = xcb_generate_id(x.connection());
    xcb_create_window(x.connection(), XCB_COPY_FROM_PARENT, probe, x.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    const auto isReady = [&] {
        const auto check = x.property(x.root(), "_NET_SUPPORTING_WM_CHECK");
        if (check.empty() || (replaces && check == before)) {
            return false;
        }
        if (!command->answersProbes) {
            return isManaged(x);
        }
        x.sendToWindowManager(probe, "_NET_REQUEST_FRAME_EXTENTS", {});
        return !x.property(probe, "_NET_FRAME_EXTENTS").empty();
    };
    eventually([&] { return process_->exitStatus() || isReady(); }, kSlowestStart);
    if (process_->exitStatus() || !isReady()) {
        throw std::runtime_error(command->arguments.front() +
                                 " does not start: " + process_->standardError());
    }
}

bool WindowManager::isInstalled(std::string_view name) {
    return access(("/usr/bin/" + std::string(name)).c_str(), X_OK) == 0;
}

} // namespace panewright::test
