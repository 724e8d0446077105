// Calls a method over and over and waits for no answer. The arguments are the bus name, the method
// and the texts that it is called with.

#include <dbus/dbus.h>

#include <cstdlib>

int main(int argc, char* argv[]) {
    DBusConnection* bus = dbus_bus_get(DBUS_BUS_SESSION, nullptr);
    if (!bus || argc < 3) {
        return EXIT_FAILURE;
    }
    for (;;) {
        DBusMessage* call = dbus_message_new_method_call(argv[1], "/com/quillfen/Panewright",
                                                         "com.quillfen.Panewright", argv[2]);
        for (int i = 3; i < argc; ++i) {
            dbus_message_append_args(call, DBUS_TYPE_STRING, &argv[i], DBUS_TYPE_INVALID);
        }
        dbus_message_set_no_reply(call, true);
        dbus_connection_send(bus, call, nullptr);
        dbus_message_unref(call);
        dbus_connection_flush(bus);
    }
}
