#include "desktop/qt/qt_alerts.h"

#include "desktop/qt/program_icon.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QWindow>

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

/// Keeps what the user does from a window while a question about it is open, which gets the
/// keyboard instead.
///
/// The toolkit's modality would leave the keyboard with the window after a click, where nothing
/// hears it: it asks for the keyboard as any program does, which a window manager need not grant.
class Blocking : public QObject {
public:
    Blocking(QMessageBox& question, QWindow& blocked, OwnWindows& ownWindows)
        : QObject(&question), question_(question), ownWindows_(ownWindows) {
        blocked.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (!question_.isVisible()) {
            return false;
        }
        switch (event->type()) {
        case QEvent::FocusIn:
            ownWindows_.makeKey(question_.winId());
            return false;
        case QEvent::Close:
            event->ignore();
            return true;
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
            return true;
        default:
            return false;
        }
    }

private:
    QMessageBox& question_;
    OwnWindows& ownWindows_;
};

QMessageBox* makeBox(const Alert& alert, QWidget* blocked) {
    auto* box = new QMessageBox(blocked);
    box->setIcon(iconFor(alert.style));
    box->setWindowTitle(QApplication::applicationDisplayName());
    box->setWindowIcon(programIcon());
    box->setTextFormat(Qt::PlainText);
    box->setText(QString::fromStdString(alert.messageText));
    box->setWindowModality(Qt::NonModal);
    box->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                        Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
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
        new Blocking(*box, *blocked->windowHandle(), ownWindows_); // owned by the box
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
