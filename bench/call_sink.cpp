// The least that a program can do with calls over the session bus: reads them and drops them. The
// argument is the bus name that it takes.

#include <dbus/dbus.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[]) {
    DBusConnection* bus = dbus_bus_get(DBUS_BUS_SESSION, nullptr);
    if (!bus || argc < 2 || dbus_bus_request_name(bus, argv[1], 0, nullptr) < 0) {
        return EXIT_FAILURE;
    }
    std::fprintf(stderr, "sink: ready\n");
    while (dbus_connection_read_write(bus, -1)) {
        while (DBusMessage* call = dbus_connection_pop_message(bus)) {
            dbus_message_unref(call);
        }
    }
    return EXIT_SUCCESS;
}
