// A plain window of a Qt program, of the class "qt_window".
#include <QGuiApplication>
#include <QRasterWindow>

int main(int argc, char* argv[]) {
    const QGuiApplication application(argc, argv);
    QRasterWindow window;
    window.setGeometry(200, 150, 400, 300);
    window.show();
    return QGuiApplication::exec();
}
