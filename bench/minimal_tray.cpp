// What a program with a tray icon and a bus name costs at the least: the yardstick of
// startup_bench.

#include <QApplication>
#include <QDBusConnection>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QTimer>

#include <cstdio>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QDBusConnection::sessionBus().registerService("org.example.MinimalTray");
    QPixmap picture(22, 22);
    picture.fill(Qt::black);
    QSystemTrayIcon icon{QIcon(picture)};
    icon.show();
    QTimer::singleShot(0, [] { std::fprintf(stderr, "minimal: ready\n"); });
    return QApplication::exec();
}
