#include "command/service.h"

#include <dbus/dbus.h>

#include <memory>
#include <optional>
#include <string_view>

namespace panewright::command {
namespace {

constexpr const char* kName = "com.quillfen.Panewright";
constexpr const char* kPath = "/com/quillfen/Panewright";

struct Release {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, Release>;

/// An error of the bus's library.
class BusError {
public:
    BusError() { dbus_error_init(&error_); }
    ~BusError() { dbus_error_free(&error_); }
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;

    DBusError* get() { return &error_; }
    std::string message() const { return error_.message ? error_.message : "no reason given"; }
    bool isOneOf(std::initializer_list<const char*> names) const {
        for (const char* name : names) {
            if (dbus_error_has_name(&error_, name)) {
                return true;
            }
        }
        return false;
    }

private:
    DBusError error_;
};

Failure notEnoughMemory() {
    return {EX_OSERR, "not enough memory"};
}

Failure failureOf(const BusError& error) {
    // One that is ending has its object taken from the bus before its name.
    if (error.isOneOf({DBUS_ERROR_SERVICE_UNKNOWN, DBUS_ERROR_NAME_HAS_NO_OWNER,
                       DBUS_ERROR_UNKNOWN_OBJECT})) {
        return {kStatusNotRunning, "Panewright is not running"};
    }
    if (error.isOneOf({DBUS_ERROR_NO_REPLY, DBUS_ERROR_TIMEOUT, DBUS_ERROR_TIMED_OUT})) {
        return {kStatusNotRunning, "Panewright ended before it answered"};
    }
    if (error.isOneOf({DBUS_ERROR_DISCONNECTED})) {
        return {kStatusNotRunning,
                "the session bus has closed the connection: it ended, or the names are too long "
                "for it"};
    }
    if (error.isOneOf({DBUS_ERROR_LIMITS_EXCEEDED})) {
        return {kStatusNotUnderstood, "too much at once: " + error.message()};
    }
    if (error.isOneOf({DBUS_ERROR_ACCESS_DENIED})) {
        return {kStatusNotRunning, "the session bus lets nobody here call: " + error.message()};
    }
    if (error.isOneOf({DBUS_ERROR_NO_MEMORY})) {
        return notEnoughMemory();
    }
    return {kStatusNotUnderstood, "Panewright refuses the call: " + error.message()};
}

/// The library ends the process for a text that is not UTF-8, so it never sees one.
std::optional<Failure> append(DBusMessage* message, const Argument& argument) {
    DBusMessageIter at;
    dbus_message_iter_init_append(message, &at);
    if (const auto* text = std::get_if<std::string>(&argument)) {
        if (!dbus_validate_utf8(text->c_str(), nullptr)) {
            return Failure{kStatusWrongUse, "a name is not valid UTF-8"};
        }
        const char* content = text->c_str();
        if (!dbus_message_iter_append_basic(&at, DBUS_TYPE_STRING, &content)) {
            return notEnoughMemory();
        }
    } else {
        const dbus_bool_t content = std::get<bool>(argument);
        if (!dbus_message_iter_append_basic(&at, DBUS_TYPE_BOOLEAN, &content)) {
            return notEnoughMemory();
        }
    }
    return std::nullopt;
}

std::variant<Message, Failure> callMessage(const char* method,
                                           const std::vector<Argument>& arguments) {
    Message message(dbus_message_new_method_call(kName, kPath, kName, method));
    if (!message) {
        return notEnoughMemory();
    }
    // Who asks for a window's state wants the Panewright that runs, not to wait for one.
    dbus_message_set_auto_start(message.get(), false);
    for (const auto& argument : arguments) {
        if (auto failure = append(message.get(), argument)) {
            return *std::move(failure);
        }
    }
    return message;
}

/// Sends the call and gives the answer, whose content has that signature.
std::variant<Message, Failure> answerTo(const char* method, const std::vector<Argument>& arguments,
                                        const char* signature) {
    auto message = callMessage(method, arguments);
    if (const auto* failure = std::get_if<Failure>(&message)) {
        return *failure;
    }
    // A reader of our output that goes ends us in the usual way.
    dbus_connection_set_change_sigpipe(false);
    BusError error;
    // Never closed: the process ends soon.
    auto* const bus = dbus_bus_get_private(DBUS_BUS_SESSION, error.get());
    if (!bus) {
        return Failure{kStatusNotRunning, "cannot reach the session bus: " + error.message()};
    }
    dbus_connection_set_exit_on_disconnect(bus, false);
    Message answer(dbus_connection_send_with_reply_and_block(bus, std::get<Message>(message).get(),
                                                             DBUS_TIMEOUT_INFINITE, error.get()));
    if (!answer) {
        return failureOf(error);
    }
    if (!dbus_message_has_signature(answer.get(), signature)) {
        return Failure{kStatusNotUnderstood,
                       "Panewright answers in a way that this command does not understand"};
    }
    return answer;
}

template <class Basic>
Basic basicAt(DBusMessageIter& at) {
    Basic value{};
    dbus_message_iter_get_basic(&at, &value);
    return value;
}

std::string textAt(DBusMessageIter& at) {
    return basicAt<const char*>(at);
}

/// Calls `take` at each element of the array, or of whatever else holds elements.
template <class Take>
void forEachIn(DBusMessageIter& container, Take take) {
    DBusMessageIter at;
    for (dbus_message_iter_recurse(&container, &at);
         dbus_message_iter_get_arg_type(&at) != DBUS_TYPE_INVALID; dbus_message_iter_next(&at)) {
        take(at);
    }
}

/// Nil for a type that no member of a state has.
std::optional<Value> valueAt(DBusMessageIter& variant) {
    DBusMessageIter at;
    dbus_message_iter_recurse(&variant, &at);
    switch (dbus_message_iter_get_arg_type(&at)) {
    case DBUS_TYPE_BOOLEAN:
        return basicAt<dbus_bool_t>(at) != 0;
    case DBUS_TYPE_UINT64:
        return std::uint64_t{basicAt<dbus_uint64_t>(at)};
    case DBUS_TYPE_DOUBLE:
        return basicAt<double>(at);
    case DBUS_TYPE_STRING:
        return textAt(at);
    case DBUS_TYPE_ARRAY: {
        if (dbus_message_iter_get_element_type(&at) != DBUS_TYPE_DOUBLE) {
            return std::nullopt;
        }
        std::vector<double> numbers;
        forEachIn(at, [&](DBusMessageIter& number) { numbers.push_back(basicAt<double>(number)); });
        return numbers;
    }
    default:
        return std::nullopt;
    }
}

ListedState stateAt(DBusMessageIter& entries) {
    ListedState state;
    forEachIn(entries, [&](DBusMessageIter& entry) {
        DBusMessageIter at;
        dbus_message_iter_recurse(&entry, &at);
        std::string name = textAt(at);
        dbus_message_iter_next(&at);
        if (auto value = valueAt(at)) {
            state.emplace_back(std::move(name), *std::move(value));
        }
    });
    return state;
}

} // namespace

std::variant<Nothing, Failure> call(const char* method, const std::vector<Argument>& arguments) {
    auto answer = answerTo(method, arguments, "");
    if (auto* failure = std::get_if<Failure>(&answer)) {
        return std::move(*failure);
    }
    return Nothing{};
}

std::variant<bool, Failure> callForBool(const char* method,
                                        const std::vector<Argument>& arguments) {
    auto answer = answerTo(method, arguments, DBUS_TYPE_BOOLEAN_AS_STRING);
    if (auto* failure = std::get_if<Failure>(&answer)) {
        return std::move(*failure);
    }
    DBusMessageIter at;
    dbus_message_iter_init(std::get<Message>(answer).get(), &at);
    return basicAt<dbus_bool_t>(at) != 0;
}

std::variant<ListedStates, Failure> callForStates(const char* method) {
    auto answer = answerTo(method, {}, "aa{sv}");
    if (auto* failure = std::get_if<Failure>(&answer)) {
        return std::move(*failure);
    }
    ListedStates states;
    DBusMessageIter at;
    dbus_message_iter_init(std::get<Message>(answer).get(), &at);
    forEachIn(at, [&](DBusMessageIter& entries) { states.push_back(stateAt(entries)); });
    return states;
}

} // namespace panewright::command
