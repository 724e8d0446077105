#include "desktop/linux/client_identity.h"

#include "base/unicode.h"
#include "desktop/linux/x_properties.h"

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

ClientIdentity::ClientIdentity(XConnection& connection, std::string ownBundleIdentifier)
    : connection_(connection), ownBundleIdentifier_(std::move(ownBundleIdentifier)) {
    constexpr std::uint8_t kMajor = 1; // client ids came with 1.2
    constexpr std::uint8_t kMinor = 2;
    if (connection.firstEventOf(xcb_res_id)) {
        const auto version = connection.reply(xcb_res_query_version_reply,
                                              xcb_res_query_version(connection, kMajor, kMinor));
        hasXRes_ = version && (version->server_major > kMajor || version->server_minor >= kMinor);
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
}

ProcessId ClientIdentity::pidOf(xcb_window_t window) {
    if (const auto pid = pidFromServer(window)) {
        return *pid;
    }
    if (const auto pid = pidFromProperty(window)) {
        return *pid;
    }
    return privatePid(window);
}

std::optional<ProcessId> ClientIdentity::pidFromServer(xcb_window_t window) {
    if (!hasXRes_) {
        return std::nullopt;
    }
    const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto reply = connection_.reply(xcb_res_query_client_ids_reply,
                                         xcb_res_query_client_ids(connection_, 1, &wanted));
    if (!reply) {
        return std::nullopt;
    }
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem;
         xcb_res_client_id_value_next(&ids)) {
        if ((ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) &&
            xcb_res_client_id_value_value_length(ids.data) > 0) {
            return static_cast<ProcessId>(*xcb_res_client_id_value_value(ids.data));
        }
    }
    return std::nullopt;
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
    const auto client = window & ~xcb_get_setup(connection_)->resource_id_mask;
    const auto next = kFirstPrivatePid - static_cast<ProcessId>(privatePids_.size());
    return privatePids_.try_emplace(client, next).first->second;
}

} // namespace panewright
