// The functions of libdbus that the command calls, found when the first of them is called. Linked
// in the usual way, the library and the seven that it depends on would be mapped at each start of
// the desktop program too, which takes as long as all else that the command does then.

#include "command/status.h"

#include <dbus/dbus.h>

#include <cstdio>
#include <dlfcn.h>
#include <unistd.h>

namespace {

constexpr const char* kLibrary = "libdbus-1.so.3";

/// Ends the process if there is no such library or function: nothing can be asked then.
template <class Function>
Function* found(const char* name) {
    static void* library = dlopen(kLibrary, RTLD_LAZY | RTLD_LOCAL);
    void* const function = library ? dlsym(library, name) : nullptr;
    if (!function) {
        std::fprintf(stderr, "panewright: %s\n", dlerror());
        _exit(panewright::command::kStatusNoProgram);
    }
    return reinterpret_cast<Function*>(function);
}

} // namespace

// The names are those of the library.
// NOLINTBEGIN(readability-identifier-naming)

DBusConnection* dbus_bus_get_private(DBusBusType type, DBusError* error) {
    static auto* const function = found<decltype(dbus_bus_get_private)>(__func__);
    return function(type, error);
}

DBusMessage* dbus_connection_send_with_reply_and_block(DBusConnection* bus, DBusMessage* message,
                                                       int timeout, DBusError* error) {
    static auto* const function =
        found<decltype(dbus_connection_send_with_reply_and_block)>(__func__);
    return function(bus, message, timeout, error);
}

void dbus_connection_set_change_sigpipe(dbus_bool_t isChanged) {
    static auto* const function = found<decltype(dbus_connection_set_change_sigpipe)>(__func__);
    function(isChanged);
}

void dbus_connection_set_exit_on_disconnect(DBusConnection* bus, dbus_bool_t exits) {
    static auto* const function = found<decltype(dbus_connection_set_exit_on_disconnect)>(__func__);
    function(bus, exits);
}

void dbus_error_free(DBusError* error) {
    static auto* const function = found<decltype(dbus_error_free)>(__func__);
    function(error);
}

dbus_bool_t dbus_error_has_name(const DBusError* error, const char* name) {
    static auto* const function = found<decltype(dbus_error_has_name)>(__func__);
    return function(error, name);
}

void dbus_error_init(DBusError* error) {
    static auto* const function = found<decltype(dbus_error_init)>(__func__);
    function(error);
}

dbus_bool_t dbus_message_has_signature(DBusMessage* message, const char* signature) {
    static auto* const function = found<decltype(dbus_message_has_signature)>(__func__);
    return function(message, signature);
}

dbus_bool_t dbus_message_iter_append_basic(DBusMessageIter* at, int type, const void* value) {
    static auto* const function = found<decltype(dbus_message_iter_append_basic)>(__func__);
    return function(at, type, value);
}

int dbus_message_iter_get_arg_type(DBusMessageIter* at) {
    static auto* const function = found<decltype(dbus_message_iter_get_arg_type)>(__func__);
    return function(at);
}

void dbus_message_iter_get_basic(DBusMessageIter* at, void* value) {
    static auto* const function = found<decltype(dbus_message_iter_get_basic)>(__func__);
    function(at, value);
}

int dbus_message_iter_get_element_type(DBusMessageIter* at) {
    static auto* const function = found<decltype(dbus_message_iter_get_element_type)>(__func__);
    return function(at);
}

dbus_bool_t dbus_message_iter_init(DBusMessage* message, DBusMessageIter* at) {
    static auto* const function = found<decltype(dbus_message_iter_init)>(__func__);
    return function(message, at);
}

void dbus_message_iter_init_append(DBusMessage* message, DBusMessageIter* at) {
    static auto* const function = found<decltype(dbus_message_iter_init_append)>(__func__);
    function(message, at);
}

dbus_bool_t dbus_message_iter_next(DBusMessageIter* at) {
    static auto* const function = found<decltype(dbus_message_iter_next)>(__func__);
    return function(at);
}

void dbus_message_iter_recurse(DBusMessageIter* at, DBusMessageIter* inner) {
    static auto* const function = found<decltype(dbus_message_iter_recurse)>(__func__);
    function(at, inner);
}

DBusMessage* dbus_message_new_method_call(const char* name, const char* path, const char* interface,
                                          const char* method) {
    static auto* const function = found<decltype(dbus_message_new_method_call)>(__func__);
    return function(name, path, interface, method);
}

void dbus_message_set_auto_start(DBusMessage* message, dbus_bool_t starts) {
    static auto* const function = found<decltype(dbus_message_set_auto_start)>(__func__);
    function(message, starts);
}

void dbus_message_unref(DBusMessage* message) {
    static auto* const function = found<decltype(dbus_message_unref)>(__func__);
    function(message);
}

dbus_bool_t dbus_validate_utf8(const char* text, DBusError* error) {
    static auto* const function = found<decltype(dbus_validate_utf8)>(__func__);
    return function(text, error);
}

// NOLINTEND(readability-identifier-naming)
