#include "desktop/x11/client_identity.h"

#include "base/unicode.h"
#include "desktop/x11/x_properties.h"

#include <sys/utsname.h>
#include <unistd.h>
#include <xcb/res.h>

#include <utility>

namespace panewright {
namespace {

/// -1 is the pid of an invalid element.
constexpr ProcessId kFirstPrivatePid = -2;

std::string hostName() {
    utsname names{};
    return uname(&names) == 0 ? names.nodename : "";
}

/// The two texts in WM_CLASS (ICCCM 4.1.2.5); empty where they are missing.
struct WindowClass {
    std::string instance;
    std::string name;
};

WindowClass windowClassFrom(const std::string& wmClass) {
    const auto end = wmClass.find('\0');
    return end == std::string::npos
               ? WindowClass{}
               : WindowClass{wmClass.substr(0, end), wellFormedUtf8(wmClass.c_str() + end + 1)};
}

} // namespace

ClientIdentity::ClientIdentity(XConnection& connection, MainLoop& mainLoop,
                               std::string ownBundleIdentifier)
    : connection_(connection), ownBundleIdentifier_(std::move(ownBundleIdentifier)),
      entries_(DesktopEntries::ofSession(mainLoop)),
      hasXRes_(connection.firstEventOf(xcb_res_id).has_value()) {
    constexpr std::uint8_t kMajor = 1; // client ids came with 1.2; an older server refuses them
    constexpr std::uint8_t kMinor = 2;
    if (hasXRes_) {
        xcb_discard_reply(connection, xcb_res_query_version(connection, kMajor, kMinor).sequence);
    }
}

RunningApplication ClientIdentity::applicationOf(xcb_window_t window) {
    XPropertyRequest wmClass(connection_, window, XCB_ATOM_WM_CLASS);
    XPropertyRequest gtkId(connection_, window, connection_.atoms()._GTK_APPLICATION_ID);
    XPropertyRequest kdeFile(connection_, window, connection_.atoms()._KDE_NET_WM_DESKTOP_FILE);
    RunningApplication application;
    application.processIdentifier = pidOf(window);
    if (application.processIdentifier == getpid()) {
        application.bundleIdentifier = ownBundleIdentifier_;
        application.localizedName = ownBundleIdentifier_;
    } else {
        identify(application, wmClass.text().value_or(""), gtkId.text().value_or(""),
                 kdeFile.text().value_or(""));
    }
    return application;
}

void ClientIdentity::identify(RunningApplication& application, const std::string& wmClass,
                              const std::string& gtkId, const std::string& kdeFile) {
    const auto [instance, name] = windowClassFrom(wmClass);
    const auto* entry = gtkId.empty() ? nullptr : entries_.withId(gtkId);
    if (!entry && !kdeFile.empty()) {
        entry = entries_.withId(kdeFile);
    }
    if (!entry) {
        entry = entries_.ofWindowClass(instance, name);
    }
    if (entry) {
        application.bundleIdentifier = entry->id;
        application.localizedName = entry->name.empty() ? entry->id : entry->name;
    } else if (!name.empty()) {
        application.bundleIdentifier = name;
        application.localizedName = name;
    }
    if (application.bundleIdentifier == ownBundleIdentifier_) {
        application.bundleIdentifier.reset(); // it only says so
    }
}

std::vector<xcb_window_t> ClientIdentity::windowsOf(ProcessId pid,
                                                    const std::vector<xcb_window_t>& windows) {
    const auto pids = pidsFromServer(windows);
    std::vector<xcb_window_t> found;
    for (const auto window : windows) {
        const auto known = pids.find(clientOf(window));
        if ((known == pids.end() ? pidFromWindow(window) : known->second) == pid) {
            found.push_back(window);
        }
    }
    return found;
}

ProcessId ClientIdentity::pidOf(xcb_window_t window) {
    const auto pids = pidsFromServer({window});
    return pids.empty() ? pidFromWindow(window) : pids.begin()->second;
}

ProcessId ClientIdentity::pidFromWindow(xcb_window_t window) {
    const auto pid = pidFromProperty(window);
    return pid ? *pid : privatePid(window);
}

/// The client's range of resources, which its windows' numbers are from.
std::uint32_t ClientIdentity::clientOf(xcb_window_t window) const {
    return window & ~xcb_get_setup(connection_)->resource_id_mask;
}

/// By client; without those that the server knows no process of.
std::map<std::uint32_t, ProcessId>
ClientIdentity::pidsFromServer(const std::vector<xcb_window_t>& windows) {
    std::map<std::uint32_t, ProcessId> pids;
    std::map<std::uint32_t, xcb_res_client_id_spec_t> clients;
    for (const auto window : windows) {
        clients[clientOf(window)] = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    }
    std::vector<xcb_res_client_id_spec_t> wanted;
    wanted.reserve(clients.size());
    for (const auto& [client, spec] : clients) {
        wanted.push_back(spec);
    }
    const auto reply =
        hasXRes_
            ? connection_.reply(xcb_res_query_client_ids_reply,
                                xcb_res_query_client_ids(connection_,
                                                         static_cast<std::uint32_t>(wanted.size()),
                                                         wanted.data()))
            : nullptr;
    if (!reply) {
        return pids;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem;
         xcb_res_client_id_value_next(&ids)) {
        if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) &&
            xcb_res_client_id_value_value_length(ids.data) > 0) {
            pids[clientOf(ids.data->spec.client)] =
                static_cast<ProcessId>(*xcb_res_client_id_value_value(ids.data));
        }
    }
    return pids;
}

std::optional<ProcessId> ClientIdentity::pidFromProperty(xcb_window_t window) {
    XPropertyRequest machine(connection_, window, connection_.atoms().WM_CLIENT_MACHINE);
    XPropertyRequest pid(connection_, window, connection_.atoms()._NET_WM_PID);
    if (machine.text() != hostName()) {
        return std::nullopt;
    }
    const auto number = pid.number();
    return number && *number > 0 ? std::optional(static_cast<ProcessId>(*number)) : std::nullopt;
}

ProcessId ClientIdentity::privatePid(xcb_window_t window) {
    const auto next = kFirstPrivatePid - static_cast<ProcessId>(privatePids_.size());
    return privatePids_.try_emplace(clientOf(window), next).first->second;
}

} // namespace panewright
