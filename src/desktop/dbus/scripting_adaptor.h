#pragma once

#include "desktop/dbus/incoming_calls.h"
#include "menubar/scripting.h"

#include <QDBusAbstractAdaptor>
#include <QList>
#include <QVariant>

#include <functional>

namespace panewright {

/// The program as scripts see it on the session bus. What ListWindowStates tells of a state it
/// leaves out where the state lacks it; `t` are numbers of the application's form, `ad` the x, y,
/// width and height of a rectangle, or the width and height of a size.
class ScriptingAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.quillfen.Panewright")

public:
    /// Belongs to the object of the calls; the commands must outlive that.
    ScriptingAdaptor(IncomingCalls& calls, ScriptingCommands& commands);

public slots:
    // Names and arguments are the interface's. A value that is returned here is not sent: the
    // answer comes later.
    // NOLINTBEGIN(readability-identifier-naming)
    bool ApplyWindowState(const QString& WindowStateName, const QDBusMessage& message);
    bool ApplyWindowStateForApplication(const QString& WindowStateName,
                                        const QString& ApplicationName,
                                        const QDBusMessage& message);
    QList<QVariantMap> ListWindowStates(const QDBusMessage& message);
    bool MoveToNextDisplay(const QDBusMessage& message);
    void OpenMenu(bool Flat, const QDBusMessage& message);
    void ShowSettings(const QDBusMessage& message);
    void SaveWindow(const QDBusMessage& message);
    void Quit(const QDBusMessage& message);
    // NOLINTEND(readability-identifier-naming)

private:
    bool apply(const ScriptArguments& arguments, const QDBusMessage& message);

    IncomingCalls& calls_;
    ScriptingCommands& commands_;
};

} // namespace panewright
