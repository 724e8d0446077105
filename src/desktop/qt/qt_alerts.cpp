#include "desktop/qt/qt_alerts.h"

#include "desktop/qt/program_icon.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <utility>

namespace panewright {
namespace {

QMessageBox::Icon iconFor(AlertStyle style) {
    switch (style) {
    case AlertStyle::kWarning:
        return QMessageBox::Warning;
    case AlertStyle::kInformational:
        return QMessageBox::Information;
    case AlertStyle::kCritical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

/// The first button is Return's, the last one Escape's and that of the window's closing.
void addButtons(QMessageBox& box, const std::vector<std::string>& titles) {
    for (std::size_t i = 0; i < titles.size(); ++i) {
        const auto role = i == 0                   ? QMessageBox::AcceptRole
                          : i + 1 == titles.size() ? QMessageBox::RejectRole
                                                   : QMessageBox::ActionRole;
        auto* button = box.addButton(QString::fromStdString(titles[i]).replace('&', "&&"), role);
        if (i == 0) {
            box.setDefaultButton(button);
        }
        box.setEscapeButton(button);
    }
}

int responseOf(const QMessageBox& box) {
    const auto buttons = box.buttons();
    for (int i = 0; i < buttons.size(); ++i) {
        if (buttons[i] == box.clickedButton()) {
            return kAlertFirstButtonReturn + i;
        }
    }
    return kAlertFirstButtonReturn + static_cast<int>(buttons.size()) - 1;
}

QMessageBox* makeBox(const Alert& alert, QWidget* blocked) {
    auto* box = new QMessageBox(blocked);
    box->setIcon(iconFor(alert.style));
    box->setWindowTitle(QApplication::applicationDisplayName());
    box->setWindowIcon(programIcon());
    box->setTextFormat(Qt::PlainText);
    box->setText(QString::fromStdString(alert.messageText));
    box->setWindowModality(blocked ? Qt::WindowModal : Qt::NonModal);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    addButtons(*box, alert.buttons);
    return box;
}

} // namespace

Registration QtAlerts::ask(const Alert& alert, Answered answered) {
    QPointer<QWidget> blocked = QApplication::activeWindow();
    QPointer<QMessageBox> box = makeBox(alert, blocked);
    QObject::connect(box, &QMessageBox::finished, box,
                     [this, box, blocked, answered = std::move(answered)] {
                         const int response = responseOf(*box);
                         box->deleteLater();
                         if (blocked && blocked->isVisible()) {
                             ownWindows_.makeKey(blocked->winId());
                         }
                         answered(response);
                     });
    if (blocked) {
        ownWindows_.keepOutOfTaskBars(box->winId());
    }
    box->show();
    ownWindows_.makeKey(box->winId());
    return Registration([box] {
        if (box) {
            box->disconnect();
            box->hide();
            box->deleteLater();
        }
    });
}

} // namespace panewright
