#include "desktop/dbus/scripting_adaptor.h"

#include <QDBusMetaType>

#include <optional>
#include <string>

namespace panewright {
namespace {

QVariant busValue(const std::string& text) {
    return QString::fromStdString(text);
}

QVariant busValue(const Rect& rect) {
    return QVariant::fromValue(QList<double>{rect.x, rect.y, rect.width, rect.height});
}

QVariant busValue(const Size& size) {
    return QVariant::fromValue(QList<double>{size.width, size.height});
}

template <class T>
void insert(QVariantMap& map, const char* key, const std::optional<T>& value) {
    if (value) {
        map.insert(key, busValue(*value));
    }
}

QVariantMap busValue(const WindowStateForScripts& state) {
    QVariantMap map{{"scope", busValue(state.scope)},
                    {"isDefault", state.isDefault},
                    {"isGlobal", state.isGlobal},
                    {"centerWindow", state.centerWindow},
                    {"prefersDisplay", state.prefersDisplay}};
    insert(map, "name", state.name);
    insert(map, "applicationId", state.applicationId);
    insert(map, "applicationName", state.applicationName);
    insert(map, "frame", state.frame);
    insert(map, "display", state.display);
    insert(map, "scale", state.scale);
    if (const auto& shortcut = state.shortcut) {
        map.insert("shortcut", busValue(shortcut->text));
        map.insert("keyCode", qulonglong{shortcut->keyCode});
        map.insert("modifiers", qulonglong{shortcut->modifiers});
    }
    return map;
}

IncomingCalls::Answer list(const std::optional<std::vector<WindowStateForScripts>>& states) {
    if (!states) {
        return {.value = {}, .error = "the saved states cannot be read"};
    }
    QList<QVariantMap> maps;
    for (const auto& state : *states) {
        maps.append(busValue(state));
    }
    return {.value = QVariant::fromValue(maps), .error = {}};
}

} // namespace

ScriptingAdaptor::ScriptingAdaptor(IncomingCalls& calls, ScriptingCommands& commands)
    : QDBusAbstractAdaptor(&calls.object()), calls_(calls), commands_(commands) {
    qDBusRegisterMetaType<QList<QVariantMap>>();
}

// The names of arguments are those that callers read in the introspection.
// NOLINTBEGIN(readability-identifier-naming)

bool ScriptingAdaptor::ApplyWindowState(const QString& WindowStateName,
                                        const QDBusMessage& message) {
    return apply({{std::string(kWindowStateNameArgument), WindowStateName.toStdString()}}, message);
}

bool ScriptingAdaptor::ApplyWindowStateForApplication(const QString& WindowStateName,
                                                      const QString& ApplicationName,
                                                      const QDBusMessage& message) {
    return apply({{std::string(kWindowStateNameArgument), WindowStateName.toStdString()},
                  {std::string(kApplicationNameArgument), ApplicationName.toStdString()}},
                 message);
}

bool ScriptingAdaptor::apply(const ScriptArguments& arguments, const QDBusMessage& message) {
    calls_.answerWith(message, [this, arguments]() -> IncomingCalls::Answer {
        return {.value = commands_.applyWindowState(arguments), .error = {}};
    });
    return {};
}

QList<QVariantMap> ScriptingAdaptor::ListWindowStates(const QDBusMessage& message) {
    calls_.answerWith(message, [this] { return list(commands_.listWindowStates()); });
    return {};
}

bool ScriptingAdaptor::MoveToNextDisplay(const QDBusMessage& message) {
    calls_.answerWith(message, [this]() -> IncomingCalls::Answer {
        return {.value = commands_.moveToNextDisplay(), .error = {}};
    });
    return {};
}

void ScriptingAdaptor::OpenMenu(bool Flat, const QDBusMessage& message) {
    calls_.answerAndDo(message, [this, Flat] { commands_.openMenu(Flat); });
}

void ScriptingAdaptor::ShowSettings(const QDBusMessage& message) {
    calls_.answerAndDo(message, [this] { commands_.showSettings(); });
}

void ScriptingAdaptor::SaveWindow(const QDBusMessage& message) {
    calls_.answerAndDo(message, [this] { commands_.saveWindow(); });
}

void ScriptingAdaptor::Quit(const QDBusMessage& message) {
    calls_.answerAndDo(message, [this] { commands_.quit(); });
}

// NOLINTEND(readability-identifier-naming)

} // namespace panewright
