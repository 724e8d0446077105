#include "support/window_manager.h"

#include "support/frames.h"

#include <csignal>
#include <stdexcept>
#include <string>
#include <unistd.h>

namespace panewright::test {
namespace {

// No key bindings, so that every key reaches the program under test.
constexpr const char* kOpenboxConfiguration = R"(
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Clearlooks</name></theme>
  <keyboard/>
</openbox_config>
)";

// One key binding: Alt+F5 does what the built-in state of Alt+2 does on 1600 by 900 pixels.
constexpr const char* kOpenboxWithKeyConfiguration = R"(
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Clearlooks</name></theme>
  <keyboard>
    <keybind key="A-F5">
      <action name="MoveResizeTo">
        <x>80</x><y>45</y><width>1440</width><height>810</height>
      </action>
    </keybind>
  </keyboard>
</openbox_config>
)";

// Windows float, except those of the class Tiled.
constexpr const char* kI3Configuration = R"config(# i3 config file (v4)
font pango:DejaVu Sans Mono 8
for_window [class="^(?!Tiled$)"] floating enable
)config";

struct Command {
    std::vector<std::string> arguments;
    bool needsBus = false;
};

Command commandLine(std::string_view name, const PrivateHome& home) {
    if (name == "openbox" || name == kOpenboxWithKey) {
        const auto* configuration =
            name == "openbox" ? kOpenboxConfiguration : kOpenboxWithKeyConfiguration;
        return {{"openbox", "--sm-disable", "--replace", "--config-file",
                 home.write("openbox.xml", configuration)}};
    }
    if (name == "i3") {
        return {{"i3", "--replace", "-c", home.write("i3.conf", kI3Configuration)}};
    }
    if (name == "xfwm4") {
        // With its compositor, programs that draw their own frames draw shadows around them.
        return {{"xfwm4", "--sm-client-disable", "--replace", "--compositor=on"}, true};
    }
    if (name == "marco") {
        return {{"marco", "--sm-disable", "--replace", "--no-composite"}, true};
    }
    if (name == "metacity") {
        return {{"metacity", "--sm-disable", "--replace"}, true};
    }
    if (name == "kwin_x11") {
        return {{"kwin_x11", "--replace", "--no-kactivities"}, true};
    }
    if (name == "mutter") {
        return {{"mutter", "--x11", "--sm-disable", "--replace"}, true};
    }
    throw std::runtime_error("no command line for the window manager " + std::string(name));
}

/// A window of ours, never mapped, whose frame the manager is asked for. A manager that has just
/// taken charge may still lose what it is asked for before its first event: only one that answers
/// is ready.
class Probe {
public:
    explicit Probe(const XClient& x) : x_(x), window_(xcb_generate_id(x.connection())) {
        xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, window_, x_.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    }
    ~Probe() { xcb_destroy_window(x_.connection(), window_); }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    bool isAnswered() const {
        if (x_.property(x_.root(), "_NET_SUPPORTING_WM_CHECK").empty()) {
            return false;
        }
        x_.sendToWindowManager(window_, "_NET_REQUEST_FRAME_EXTENTS", {});
        return !x_.property(window_, "_NET_FRAME_EXTENTS").empty();
    }

private:
    const XClient& x_;
    xcb_window_t window_;
};

} // namespace

WindowManager::WindowManager(std::string_view name, const XClient& x, const PrivateHome& home,
                             const Environment& environment) {
    const auto command = commandLine(name, home);
    Environment own = environment;
    own["GSETTINGS_BACKEND"] = "memory"; // never the user's settings
    if (command.needsBus) {
        bus_ = std::make_unique<SessionBus>(own);
        own["DBUS_SESSION_BUS_ADDRESS"] = bus_->address();
    }
    const auto before = x.property(x.root(), "_NET_SUPPORTING_WM_CHECK");
    const bool replaces =
        !before.empty() && !x.property(before[0], "_NET_SUPPORTING_WM_CHECK").empty();
    process_ = std::make_unique<ChildProcess>(command.arguments, own);
    const Probe probe(x);
    const bool answersProbes = name != "kwin_x11"; // only for windows that it manages
    constexpr std::chrono::seconds kSlowestStart{15};
    const bool ready = eventually(
        [&] {
            return hasEnded() ||
                   ((!replaces || x.property(x.root(), "_NET_SUPPORTING_WM_CHECK") != before) &&
                    (answersProbes ? probe.isAnswered() : isManaged(x)));
        },
        kSlowestStart);
    if (!ready || hasEnded()) {
        throw std::runtime_error(std::string(name) +
                                 " does not start: " + process_->standardError());
    }
}

bool WindowManager::isInstalled(std::string_view name) {
    return access(("/usr/bin/" + std::string(name)).c_str(), X_OK) == 0;
}

void WindowManager::kill() {
    process_->sendSignal(SIGKILL);
    process_->waitForEnd();
}

} // namespace panewright::test
