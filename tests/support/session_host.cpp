// What a desktop has on the session bus, under the names that are given: a host of status items,
// which prints the bus name of each, and the settings portal. Prints "ready" first.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusVariant>

#include <cstdio>

namespace {

void printLine(const QString& line) {
    std::puts(line.toLocal8Bit().constData());
    std::fflush(stdout);
}

} // namespace

class Watcher : public QObject, public QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)

public:
    static bool isHostRegistered() { return true; }

public slots:
    void RegisterStatusNotifierItem(const QString&) { printLine(message().service()); }
};

class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public slots:
    QDBusVariant Read(const QString&, const QString&) { return QDBusVariant(colourScheme_); }
    void BecomeLight() {
        colourScheme_ = 0;
        emit SettingChanged("org.freedesktop.appearance", "color-scheme",
                            QDBusVariant(colourScheme_));
    }

signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    uint colourScheme_ = 1; // dark
};

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    auto bus = QDBusConnection::sessionBus();
    Watcher watcher;
    Portal portal;
    bus.registerObject("/StatusNotifierWatcher", &watcher, QDBusConnection::ExportAllContents);
    bus.registerObject("/org/freedesktop/portal/desktop", &portal,
                       QDBusConnection::ExportAllContents);
    for (int i = argc - 1; i > 0; --i) { // the first one last: then all are there
        if (!bus.registerService(argv[i])) {
            return 1;
        }
    }
    printLine("ready");
    return QCoreApplication::exec();
}

#include "session_host.moc"
