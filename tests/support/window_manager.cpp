#include "support/window_manager.h"

#include <stdexcept>
#include <string>

namespace panewright::test {
namespace {

// No key bindings, so that every key reaches the program under test.
constexpr const char* kOpenboxConfiguration = R"(
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Clearlooks</name></theme>
  <keyboard/>
</openbox_config>
)";

std::vector<std::string> commandLine(std::string_view name, const PrivateHome& home) {
    if (name == "openbox") {
        return {"openbox", "--sm-disable", "--config-file",
                home.write("openbox.xml", kOpenboxConfiguration)};
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
                             const Environment& environment)
    : process_(commandLine(name, home), environment) {
    const Probe probe(x);
    if (!eventually([&] { return probe.isAnswered() || process_.exitStatus().has_value(); }) ||
        process_.exitStatus()) {
        throw std::runtime_error(std::string(name) +
                                 " does not start: " + process_.standardError());
    }
}

} // namespace panewright::test
